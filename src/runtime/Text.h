#pragma once

#include <QString>
#include <QStringList>

/// Text habits of the platform that Qt's own functions do not share.
namespace Text {

/// @return text without blanks (U+0020 only: a tab or a no-break space stays) at both ends.
QString Trim(QStringView text);

/// @return the capital of a letter, always exactly one character: ß, µ, ª and º stay as they are,
/// because a longer result would push chords off their syllables.
QChar UCase(QChar letter) noexcept;

/// @return text in capitals, character by character, with the length of text.
QString UCase(QStringView text);

/// @return the parts of text between separators; none at all for an empty text.
QStringList Split(QStringView text, QChar separator);

} // namespace Text
