#pragma once

#include <QByteArray>

/// Texts on their way from a catalogue into an exchange file, without becoming a QString between.
namespace EncodedText {

struct Rules
{
    bool dropsBrackets = false; ///< "<" and ">" are left out
    bool marksBreaks = false;   ///< a carriage return with a line feed becomes "[br]"
};

/// Appends a text in the code page, where each of its letters is one that needs no composing.
/// @param utf8  any bytes
/// @return false, and nothing is appended, where it takes a text of characters to know
bool Append(QByteArray& document, const QByteArray& utf8, Rules rules);

} // namespace EncodedText
