#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// The first bytes of a text as one number: of many texts most are ruled out by it without being
/// looked at where they lie.
namespace TextStart {

constexpr std::size_t Bytes = sizeof(std::uint64_t);

/// @return the first eight bytes, zeroes behind a shorter text's end
inline std::uint64_t Of(std::string_view text)
{
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < Bytes; ++i)
        start = (start << 8) | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
    return start;
}

/// Takes away the marks of texts that do not begin as asked for.
/// @param marks   one for each text; may stay at some that do not begin so either
/// @param starts  of the texts
inline void Unmark(std::vector<char>& marks, const std::vector<std::uint64_t>& starts,
                   std::string_view beginning)
{
    if (beginning.empty())
        return;
    const std::size_t asked = beginning.size() < Bytes ? beginning.size() : Bytes;
    const std::uint64_t mask = ~std::uint64_t{0} << (8 * (Bytes - asked));
    const std::uint64_t wanted = Of(beginning) & mask;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        if ((starts[i] & mask) != wanted)
            marks[i] = 0;
    }
}

} // namespace TextStart
