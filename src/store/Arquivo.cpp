#include "store/Arquivo.h"

#include "runtime/FileTrouble.h"
#include "runtime/RuntimeError.h"
#include "store/CodePage.h"
#include "store/Ini.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr qsizetype LongestValue = 1023;

[[noreturn]] void ThrowFileFailure(const QString& verb, const QString& path,
                                   const QString& description)
{
    throw RuntimeError(RuntimeError::FileFailure,
                       QStringLiteral("Não foi possível %1 o arquivo “%2”.")
                           .arg(verb, QDir::toNativeSeparators(path)),
                       description);
}

QString ToRead()
{
    return QStringLiteral("ler");
}

QString ToWrite()
{
    return QStringLiteral("gravar");
}

void WriteWhole(const QString& path, const QByteArray& content)
{
    Funcoes::Gravacao_Arquivo file(path);
    file.Acrescenta(content);
    file.Conclui();
}

/// @return the content of the file; empty when there is none.
/// @throws RuntimeError FileFailure when there is one that cannot be read: to go on would lose it
QByteArray ContentToKeep(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly))
        ThrowFileFailure(ToRead(), path, FileTrouble(file));
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        ThrowFileFailure(ToRead(), path, FileTrouble(file));
    return content;
}

QString FirstCharacters(const QString& text, qsizetype count)
{
    if (text.size() <= count)
        return text;
    return text.first(text.at(count - 1).isHighSurrogate() ? count - 1 : count);
}

QString ReadKey(const QByteArray& content, const QString& section, const QString& key)
{
    return FirstCharacters(Ini::Read(content, section, key), LongestValue);
}

} // namespace

QString Funcoes::Pasta_Programa()
{
    return QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
}

QString Funcoes::Caminho_Configuracao()
{
    return Pasta_Programa() + QDir::separator() + QStringLiteral("config.ini");
}

bool Funcoes::Existe_Arquivo(const QString& caminho)
{
    return QFileInfo(caminho).isFile();
}

void Funcoes::Cria_Arquivo(const QString& caminho, bool sobrescreve)
{
    if (sobrescreve) {
        WriteWhole(caminho, QByteArray());
        return;
    }
    QFile file(caminho);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        ThrowFileFailure(ToWrite(), caminho, FileTrouble(file));
}

void Funcoes::Grava_Arquivo(const QString& texto, const QString& caminho)
{
    WriteWhole(caminho, CodePage::FromUnicode(texto));
}

Funcoes::Gravacao_Arquivo::Gravacao_Arquivo(const QString& caminho)
    : m_arquivo(caminho)
{
}

Funcoes::Gravacao_Arquivo::~Gravacao_Arquivo() = default;

void Funcoes::Gravacao_Arquivo::Confere(bool gravou) const
{
    if (!gravou)
        ThrowFileFailure(ToWrite(), m_arquivo.fileName(), FileTrouble(m_arquivo));
}

void Funcoes::Gravacao_Arquivo::Acrescenta(const QByteArray& pedaco)
{
    Confere(m_arquivo.isOpen() || m_arquivo.open(QIODevice::WriteOnly));
    Confere(m_arquivo.write(pedaco) == pedaco.size());
}

void Funcoes::Gravacao_Arquivo::Conclui()
{
    // A commit alone does not see that its last buffer met a full disk: it would put a cut file in
    // the place of the old one.
    Confere(m_arquivo.flush() && m_arquivo.commit());
}

QString Funcoes::Le_Configuracao(const QString& secao, const QString& chave)
{
    const QString arquivo = Caminho_Configuracao();
    if (!QFileInfo::exists(arquivo))
        return QString();
    QCoreApplication::processEvents();
    return ReadKey(ContentToKeep(arquivo), secao, chave);
}

QString Funcoes::Le_Ini(const QString& secao, const QString& chave, const QString& arquivo)
{
    QCoreApplication::processEvents();
    QFile file(arquivo);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return ReadKey(file.readAll(), secao, chave);
}

void Funcoes::Grava_Ini(const QString& secao, const QString& chave, const QString& arquivo,
                        const QString& valor)
{
    WriteWhole(arquivo, Ini::Write(ContentToKeep(arquivo), secao, chave, valor));
}
