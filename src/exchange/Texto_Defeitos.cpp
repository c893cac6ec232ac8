#include "exchange/Texto_Defeitos.h"

#include "mld/ExchangeSongs.h"

#include <QStringList>

#include <algorithm>

namespace {

/// As many as fit on a small screen.
constexpr qsizetype Mostrados = 12;

QString Motivo(const ExchangeDefect& defeito)
{
    switch (defeito.kind) {
    case ExchangeDefect::Kind::NoElement:
        return QStringLiteral("não é uma música");
    case ExchangeDefect::Kind::FieldMissing:
        return u"falta " % defeito.fields;
    case ExchangeDefect::Kind::NoNumber:
        return defeito.fields % u" não é um número válido";
    case ExchangeDefect::Kind::TooLong:
        break;
    }
    return QStringLiteral("texto longo demais");
}

QString Linha(const ExchangeDefect& defeito)
{
    QString linha = QString::number(defeito.number) % u'ª';
    if (!defeito.titulo.isEmpty())
        linha += u" ‘" % defeito.titulo % u'’';
    return linha % u": " % Motivo(defeito);
}

} // namespace

QString Texto_Defeitos(const ExchangeSongs& musicas)
{
    QStringList linhas{QString::number(musicas.DefectCount()) %
                           u" música(s) do arquivo não pode(m) ser importada(s):",
                       QString()};
    const qsizetype mostrados = std::min(musicas.Defects().size(), Mostrados);
    for (qsizetype i = 0; i < mostrados; ++i)
        linhas.append(Linha(musicas.Defects().at(i)));
    const qint64 resto = musicas.DefectCount() - mostrados;
    if (resto > 0)
        linhas.append(u"... e mais " % QString::number(resto));
    return linhas.join(u'\n');
}
