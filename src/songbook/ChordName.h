#pragma once

#include <QString>

#include <optional>

/// Chords as other programs write them, respelled as ours knows them. Everything here
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

} // namespace Songbook
