#pragma once

#include "mld/ExchangeReader.h"

#include <QBuffer>
#include <QStringList>

/// What was read as one text, in the words of Museu.cpp.
inline QString ToText(const std::optional<ExchangeSongs>& songs)
{
    if (!songs)
        return QStringLiteral("refused");
    static const QStringList kinds{QStringLiteral("NoElement"), QStringLiteral("FieldMissing"),
                                   QStringLiteral("NoNumber"), QStringLiteral("TooLong")};
    QStringList lines;
    for (qsizetype i = 0; i < songs->Count(); ++i) {
        const ExchangeSong song = songs->At(i);
        lines.append(QStringList{*song.titulo, *song.referencia, *song.letra1, *song.letra2,
                                 *song.tom, *song.variacao, QString::number(*song.categoria),
                                 song.temas.join(u'+')}
                         .join(u'/'));
    }
    for (const ExchangeDefect& defect : songs->Defects())
        lines.append(QStringLiteral("!%1 %2 %3 (%4)")
                         .arg(QString::number(defect.number),
                              kinds.at(static_cast<int>(defect.kind)), defect.fields,
                              defect.titulo));
    return lines.join(u'\n');
}

/// Reads bytes as if they were a file.
inline QString ReadText(QByteArray bytes)
{
    QBuffer file(&bytes);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("a buffer that cannot be read");
    return ToText(ExchangeReader::Read(file));
}
