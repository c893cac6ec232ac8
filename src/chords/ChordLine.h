#pragma once

#include "chords/NoteTable.h"
#include "chords/SheetBuffer.h"

#include <cstring>

/// The chord-line test and the rewriting of a chord line. Both walk a line by the same rule, so
/// there is one walk; whether it leaves a trace is up to its ink.
namespace Chords {

constexpr char16_t FourBlanks[] = {u' ', u' ', u' ', u' '};

/// @return true when the four characters from at on are blanks.
inline bool AreFourBlanks(const char16_t* at) noexcept
{
    return std::memcmp(at, FourBlanks, sizeof FourBlanks) == 0;
}

/// How a walk ended.
struct LineEnd
{
    bool chords;       ///< true for a chord line
    NoteCode last;     ///< outcome of the last lookup of a note name, or NoLookup
    NoteCode missing;  ///< the first note that the offset leads out of its array, or NoNote
    char16_t* written; ///< end of what was written
};

/// Ink of a mere test: nothing is written.
struct NoInk
{
    /// The characters of a pair are not tested, so they are not looked up.
    static constexpr bool ReadsPairs = false;

    char16_t* Blanks4(char16_t* next) const noexcept { return next; }
    char16_t* Character(char16_t* next, char16_t) const noexcept { return next; }
    char16_t* Note(char16_t* next, NoteCode) const noexcept { return next; }
    bool Exists(NoteCode) const noexcept { return true; }
};

/// Ink that writes the transposed line while it is being tested: nearly every lyric line is known
/// by its first word, so little is written in vain.
class SheetInk
{
public:
    static constexpr bool ReadsPairs = true;

    /// @param sheet  where the line goes; has Room(line) reserved
    SheetInk(QStringView line, const ShiftedNames& names, SheetBuffer& sheet) noexcept
        : m_names(names)
        , m_sheet(sheet)
        , m_room(Room(line))
    {
    }

    /// @return the UTF-16 units that a line takes with all that stands around it, as long as no
    ///         note's name is longer than two characters
    static constexpr qsizetype Room(QStringView line) noexcept { return 2 * line.size() + 64; }

    char16_t* Blanks4(char16_t* next) const noexcept
    {
        std::memcpy(next, FourBlanks, sizeof FourBlanks);
        return next + 4;
    }

    char16_t* Character(char16_t* next, char16_t letter) const noexcept
    {
        *next = letter;
        return next + 1;
    }

    char16_t* Note(char16_t* next, NoteCode code) const
    {
        const ShiftedNames::Name& name = m_names[code];
        if (name.text.size() > 2) [[unlikely]]
            return m_sheet.PutLong(next, name.text, m_room);
        std::memcpy(next, name.head, sizeof name.head);
        return next + name.text.size();
    }

    bool Exists(NoteCode code) const noexcept { return m_names[code].exists; }

private:
    const ShiftedNames& m_names;
    SheetBuffer& m_sheet;
    qsizetype m_room;
};

/// @param line  a line of the song, escaped
/// @param ink   NoInk or SheetInk. What changes on the way stays out of it, in local variables that
///              compilers keep in registers
/// @param next  where the ink begins to write
template <typename Ink>
LineEnd WalkChordLine(QStringView line, const NoteTable& notes, const Ink& ink, char16_t* next)
{
    LineEnd end{true, NoLookup, NoNote, next};
    const auto note = [&end, &ink](NoteCode code) {
        end.last = code;
        if (!ink.Exists(code) && end.missing == NoNote) [[unlikely]]
            end.missing = code;
        end.written = ink.Note(end.written, code);
    };
    const char16_t* at = line.utf16();
    const char16_t* const last = at + line.size();
    while (at != last) {
        const char16_t letter = *at;
        if (letter == u' ') {
            // Most of a chord line is the distance between its chords.
            const bool four = last - at >= 4 && AreFourBlanks(at);
            end.written = four ? ink.Blanks4(end.written) : ink.Character(end.written, letter);
            at += four ? 4 : 1;
            continue;
        }
        ++at;
        // "(" is no root: the accidental in "C7(b9)" belongs to the ninth.
        if (at != last && IsAccidental(*at) && letter != u'(') {
            if constexpr (Ink::ReadsPairs)
                note(notes.Pair(letter, *at));
            ++at;
            continue;
        }
        const NoteCode code = notes.Single(letter);
        if (code == PlainCharacter) {
            end.written = ink.Character(end.written, letter);
            continue;
        }
        note(code);
        if (code == NoNote) {
            end.chords = false;
            break;
        }
    }
    return end;
}

} // namespace Chords
