#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace Songbook {

/// The most bytes that one source may have: above any songbook, and bounding memory and time.
constexpr qsizetype LargestSource = qsizetype{32} * 1024 * 1024;

/// The same for a text of many songs: a library of twenty thousand fits twice.
constexpr qsizetype LargestBook = qsizetype{64} * 1024 * 1024;

/// @return the text of a file: by its byte-order mark; else UTF-8 where the bytes are valid; else
///         the ANSI code page, in which every byte is a character
QString DecodeText(QByteArrayView bytes);

/// One line of a source.
struct SourceLine
{
    QString text;   ///< without its end
    int number = 0; ///< from 1
};

/// @return the lines of a text; CR LF, LF and CR end one, and the last needs no end
QList<SourceLine> LinesOf(const QString& text);

} // namespace Songbook
