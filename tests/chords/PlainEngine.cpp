#include "PlainEngine.h"

#include "runtime/RuntimeError.h"

#include <QStringList>

namespace {

const QString& Permitidos()
{
    static const QString permitidos = QStringLiteral("0123456789#+º()[],|:-<>/ ILNORSTXbmnorstux");
    return permitidos;
}

bool Acidente(QChar c)
{
    return c == u'#' || c == u'b';
}

std::int16_t Soma(int a, int b)
{
    if (a + b > 32767 || a + b < -32768)
        RuntimeError::ThrowOverflow();
    return static_cast<std::int16_t>(a + b);
}

QString Maiusculas(const QString& linha)
{
    QString capitais;
    for (const QChar c : linha)
        capitais += c == u'µ' ? c : c.toUpper();
    return capitais;
}

} // namespace

std::int16_t PlainEngine::Procura_Nota(const QString& nome, QString& tabela) const
{
    tabela = QString();
    for (std::int16_t i = 1; i <= 12; ++i) {
        if (Notas.at(static_cast<std::size_t>(i)) == nome) {
            tabela = QStringLiteral("1");
            return i;
        }
    }
    for (std::int16_t i = 1; i <= 12; ++i) {
        if (Notas_Mais.at(static_cast<std::size_t>(i)) == nome) {
            tabela = QStringLiteral("2");
            return i;
        }
    }
    return 0;
}

QString PlainEngine::Transpoe_Nota(std::int16_t indice, std::int16_t deslocamento) const
{
    std::int16_t n = Soma(indice, deslocamento);
    if (n > 12)
        n = Soma(n, -12);
    else if (n < 1)
        n = Soma(n, 12);
    if (Tabela_Nota != u"1" && Tabela_Nota != u"2")
        return QString();
    if (n < 0 || n > 12)
        RuntimeError::ThrowSubscriptOutOfRange();
    const auto lugar = static_cast<std::size_t>(n);
    return Tabela_Nota == u"1" ? Notas.at(lugar) : Notas_Mais.at(lugar);
}

bool PlainEngine::Linha_Cifra(const QString& linha)
{
    const QString c = linha + u'£';
    for (qsizetype j = 0; j < linha.size(); ++j) {
        if (Acidente(c.at(j + 1)) && c.at(j) != u'(')
            continue;
        if (Permitidos().contains(c.at(j)))
            continue;
        if (Procura_Nota(c.mid(j, 1), Tabela_Nota) > 0)
            continue;
        return false;
    }
    return true;
}

QString PlainEngine::Reescreve(const QString& linha, std::int16_t deslocamento)
{
    const QString c = linha + u'£';
    QString saida;
    QString acorde;
    qsizetype j = 0;
    while (j < linha.size()) {
        if (c.at(j) == u' ') {
            saida += acorde;
            acorde = QString();
            saida += u' ';
        } else if (Acidente(c.at(j + 1)) && c.at(j) != u'(') {
            const std::int16_t indice = Procura_Nota(c.mid(j, 2), Tabela_Nota);
            acorde += Transpoe_Nota(indice, deslocamento);
            ++j;
        } else if (Permitidos().contains(c.at(j))) {
            acorde += c.at(j);
        } else {
            const std::int16_t indice = Procura_Nota(c.mid(j, 1), Tabela_Nota);
            acorde += Transpoe_Nota(indice, deslocamento);
        }
        ++j;
    }
    saida += acorde;
    return saida;
}

QString PlainEngine::Monta_Cifra(const QString& texto, std::int16_t deslocamento,
                                 std::int16_t ajuste_fonte, bool exibe_cifras)
{
    QString musica = texto;
    musica.replace(QStringLiteral("\\"), QStringLiteral("\\\\"));
    musica.replace(QStringLiteral("{"), QStringLiteral("\\{"));
    musica.replace(QStringLiteral("}"), QStringLiteral("\\}"));
    musica.remove(u'%');
    musica.replace(QStringLiteral("\r\n"), QStringLiteral("£"));
    musica += u'£';
    const QStringList linhas = musica.split(u'£');

    QString rtf = QStringLiteral("{\\rtf1\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 "
                                 "Consolas;}}\r\n");
    rtf += QStringLiteral("{\\colortbl ;\\red0 \\green102 \\blue204;\\red255 \\green255 "
                          "\\blue255;}\r\n");
    rtf += QStringLiteral("\\viewkind4\\uc1\\pard\\lang1046\\f0");
    rtf +=
        QStringLiteral("\\fs") + QString::number(Soma(34, ajuste_fonte)) + QStringLiteral("\r\n");
    for (qsizetype i = 0; i < linhas.size(); ++i) {
        const QString& linha = linhas.at(i);
        if (Linha_Cifra(linha)) {
            if (!exibe_cifras)
                continue;
            if (i > 0)
                rtf += QStringLiteral("\\par ");
            rtf += QStringLiteral("\\cf1\\b ");
            rtf += Reescreve(linha, deslocamento);
            rtf += QStringLiteral("\\cf0\\b0\r\n");
        } else if (linha.left(4) == QStringLiteral("    ")) {
            rtf += QStringLiteral("\\par \\b ");
            rtf += Maiusculas(linha);
            rtf += QStringLiteral("\\b0\r\n");
        } else {
            rtf += QStringLiteral("\\par ");
            rtf += linha;
            rtf += QStringLiteral("\r\n");
        }
    }
    rtf += u'}';
    return rtf;
}
