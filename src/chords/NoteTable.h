#pragma once

#include "chords/ChordCharacters.h"
#include "chords/Notas.h"

#include <array>
#include <cstdint>

/// The note arrays laid out for one scan of a song, where looking a name up is one step instead of
/// up to 24 comparisons. Built anew for each call, because the arrays may change in between.
namespace Chords {

/// Where a name stands: 0 nowhere, 1 to 12 in Notas, 13 to 24 (12 more than the index) in
/// Notas_Mais.
using NoteCode = std::uint8_t;

constexpr NoteCode NoNote = 0;
constexpr NoteCode OneArray = 12;
constexpr std::size_t NoteCodes = 25;
constexpr NoteCode NoLookup = 0xFE;       ///< nothing was looked up
constexpr NoteCode PlainCharacter = 0xFF; ///< no note name is asked for: a chord character

/// @return the index 1 to 12 of a code in its array, or 0.
constexpr std::int16_t IndexOf(NoteCode code) noexcept
{
    return static_cast<std::int16_t>(code > OneArray ? code - OneArray : code);
}

/// @return what Tabela_Nota holds after a lookup with this outcome.
QString TableOf(NoteCode code);

class NoteTable
{
public:
    /// Reads Notas and Notas_Mais.
    NoteTable();

    /// @return PlainCharacter for a chord character, else the code of letter as a name of its own
    NoteCode Single(char16_t letter) const noexcept
    {
        return letter < TableSize ? m_single[letter] : WideName(QStringView(&letter, 1));
    }

    /// @return the code of the name that letter and the accidental ("#" or "b") make together
    NoteCode Pair(char16_t letter, char16_t accidental) const noexcept
    {
        if (letter < TableSize) [[likely]]
            return accidental == u'#' ? m_sharp[letter] : m_flat[letter];
        const char16_t name[] = {letter, accidental};
        return WideName(QStringView(name, 2));
    }

private:
    void Enter(const QString& name, NoteCode code) noexcept;
    static NoteCode WideName(QStringView name) noexcept;

    std::array<NoteCode, TableSize> m_single;
    std::array<NoteCode, TableSize> m_sharp{};
    std::array<NoteCode, TableSize> m_flat{};
};

/// The names that one offset turns the notes into.
class ShiftedNames
{
public:
    struct Name
    {
        QStringView text;
        char16_t head[2] = {}; ///< the first two characters of text, as far as it has them
        bool exists = true;    ///< false when the offset leads out of the array
    };

    /// Reads Notas and Notas_Mais. @param deslocamento  semitones
    explicit ShiftedNames(std::int16_t deslocamento);

    /// @return the shifted name; an empty one for NoNote
    const Name& operator[](NoteCode code) const noexcept { return m_names[code]; }

private:
    std::array<Name, NoteCodes> m_names;
};

} // namespace Chords
