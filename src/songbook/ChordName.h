#pragma once

#include <QString>

#include <optional>

/// Chords and keys as other programs write them, respelled as ours knows them. Everything here
/// reads Notas and Notas_Mais.
namespace Songbook {

/// How freely a chord may be written to be taken for one.
enum class ChordSpelling {
    Marked, ///< the source says that it is a chord: also "am" and "Sol"
    Loose,  ///< it stands in a row of text: only what can hardly be a word
};

/// @param text  one chord: root, suffix, bass
/// @return the chord in characters that a chord line may hold, with notes that both transpose and
///         survive offset 0; respelling it again changes nothing. Nothing when text is no chord.
///         "N.C." gives "X"
std::optional<QString> SpellChord(QStringView text, ChordSpelling spelling);

/// A key as the columns TOM and VARIACAO hold it.
struct KeyName
{
    QString tom;       ///< a name of Notas
    QString variacao;  ///< "" or "m"
    bool whole = true; ///< false when something of the text was left over
};

/// @param text  "Bb", "F#m", "A minor", "Ré menor"
/// @return nothing when it does not begin with a note
std::optional<KeyName> SpellKey(QStringView text);

/// @return the key that a chord by itself would be: its root, minor when it is; nothing for what
///         is no chord
std::optional<KeyName> KeyOfChord(QStringView chord);

} // namespace Songbook
