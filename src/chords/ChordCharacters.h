#pragma once

#include <cstddef>
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

} // namespace Chords
