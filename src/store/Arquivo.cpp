#include "store/Arquivo.h"

#include "runtime/RuntimeError.h"
#include "store/CodePage.h"
#include "store/Ini.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

constexpr qsizetype LongestValue = 1023;

[[noreturn]] void ThrowFileFailure(const QString& path, const QString& description)
{
    throw RuntimeError(RuntimeError::FileFailure,
                       QStringLiteral("Não foi possível gravar o arquivo “%1”.")
                           .arg(QDir::toNativeSeparators(path)),
                       description);
}

void WriteWhole(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    // A commit alone does not see that its last buffer met a full disk: it would put a cut file in
    // the place of the old one.
    const bool written = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() &&
                         file.flush() && file.commit();
    if (!written)
        ThrowFileFailure(path, file.errorString());
}

/// @return the content of the file; empty when there is none.
/// @throws RuntimeError FileFailure when there is one that cannot be read: to go on would lose it
QByteArray ContentToKeep(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return QByteArray();
    if (!file.open(QIODevice::ReadOnly))
        ThrowFileFailure(path, file.errorString());
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        ThrowFileFailure(path, file.errorString());
    return content;
}

QString FirstCharacters(const QString& text, qsizetype count)
{
    if (text.size() <= count)
        return text;
    return text.first(text.at(count - 1).isHighSurrogate() ? count - 1 : count);
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
        ThrowFileFailure(caminho, file.errorString());
}

void Funcoes::Grava_Arquivo(const QString& texto, const QString& caminho)
{
    WriteWhole(caminho, CodePage::FromUnicode(texto));
}

QString Funcoes::Le_Configuracao(const QString& secao, const QString& chave)
{
    const QString caminho = Caminho_Configuracao();
    return Existe_Arquivo(caminho) ? Le_Ini(secao, chave, caminho) : QString();
}

QString Funcoes::Le_Ini(const QString& secao, const QString& chave, const QString& arquivo)
{
    QCoreApplication::processEvents();
    QFile file(arquivo);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return FirstCharacters(Ini::Read(file.readAll(), secao, chave), LongestValue);
}

void Funcoes::Grava_Ini(const QString& secao, const QString& chave, const QString& arquivo,
                        const QString& valor)
{
    WriteWhole(arquivo, Ini::Write(ContentToKeep(arquivo), secao, chave, valor));
}
