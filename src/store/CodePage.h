#pragma once

#include <QByteArray>
#include <QString>

/// The ANSI code page of files that the program exchanges: Windows-1252. Its five holes (81, 8D,
/// 8F, 90, 9D) stand for the code points of the same numbers, so that every byte is some character
/// and bytes survive the way to text and back.
namespace CodePage {

/// @return one character for each byte.
QString ToUnicode(QByteArrayView bytes);

/// @return one byte for each character; '?' for a character without a place, once also for one
/// that takes two UTF-16 units. Combining signs are not composed: that is the caller's choice.
QByteArray FromUnicode(QStringView text);

/// Appends FromUnicode(text) to bytes.
void AppendFromUnicode(QByteArray& bytes, QStringView text);

/// @return the byte for one UTF-16 unit, '?' where it has no place.
char ByteOf(char16_t unit);

/// @return true when FromUnicode keeps every character of text.
bool Holds(QStringView text);

} // namespace CodePage
