#pragma once

#include <QString>

#include <optional>

/// Keys as other programs and musicians write them, in letters or in words. Everything here reads
/// Notas and Notas_Mais.
namespace Songbook {

/// A key as the columns TOM and VARIACAO hold it.
struct KeyName
{
    QString tom;       ///< a name of Notas
    QString variacao;  ///< "" or "m"
    bool whole = true; ///< false when something of the text was left over
};

/// @param text  "Bb", "F#m", "A minor", "Ré menor", "SI BEMOL", "lá#m": letters, solmisation, signs
///              and words, in any case, with or without accents. "M" alone is major
/// @return nothing when it is no key: "Fácil", "Original"
std::optional<KeyName> SpellKey(QStringView text);

/// @return the key that a chord by itself would be: its root, minor when it is; nothing for what
///         is no chord
std::optional<KeyName> KeyOfChord(QStringView chord);

} // namespace Songbook
