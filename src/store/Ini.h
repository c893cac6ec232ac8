#pragma once

#include <QByteArray>
#include <QString>

/// INI files as bytes in memory.
///
/// Lines end with CR LF, LF or CR; a line that starts with ';' is a comment. Names of sections and
/// keys ignore letter case and blanks around them; of several equal names the first one counts. A
/// UTF-8 mark at the very start, which some editors leave, is not part of the first line.
///
/// A value, or a name, whose bytes are valid UTF-8 is read as UTF-8, any other as Windows-1252.
namespace Ini {

/// @return the value without blanks around it and without one pair of equal quotes; "" when the
/// section or the key is missing.
QString Read(QByteArrayView content, QStringView section, QStringView key);

/// @return content with the value set. Every other line is kept byte for byte; a new key comes
/// after the last line with text of its section, a new section at the end. The line written ends
/// with CR LF. A value that begins or ends with blanks or quotes is written in quotes; what follows
/// a line's end in it is left out, because no line can hold it.
QByteArray Write(const QByteArray& content, QStringView section, QStringView key,
                 const QString& value);

/// @return the bytes of a value: Windows-1252 when DecodeValue gives the same text for them, else
/// UTF-8.
QByteArray EncodeValue(const QString& value);

/// @return the text of a value's bytes.
QString DecodeValue(QByteArrayView bytes);

} // namespace Ini
