#pragma once

#include <array>
#include <string_view>

/// The characters that a chord line may hold beside note names. With them chords carry their
/// suffixes and section names such as INTRO and SOLO; "a", "d" and "i" are missing on purpose, so
/// that ordinary words end the test at once.
namespace Chords {

constexpr std::u16string_view Characters = u"0123456789#+\u00BA()[],|:-<>/ ILNORSTXbmnorstux";
static_assert(Characters.size() == 42);

/// Each of them is below this.
constexpr std::size_t TableSize = 256;

constexpr char16_t Separator = u'\u00A3'; ///< stands for a line break inside the engine

constexpr bool IsAccidental(char16_t letter) noexcept
{
    return letter == u'#' || letter == u'b';
}

constexpr std::array<bool, TableSize> MarkCharacters() noexcept
{
    std::array<bool, TableSize> marks{};
    for (const char16_t letter : Characters)
        marks[letter] = true;
    return marks;
}

constexpr std::array<bool, TableSize> IsCharacter = MarkCharacters();

} // namespace Chords
