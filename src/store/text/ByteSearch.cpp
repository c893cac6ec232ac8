#include "store/text/ByteSearch.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t WordSize = sizeof(std::uint64_t);
constexpr std::uint64_t Ones = 0x0101010101010101u;
constexpr std::uint64_t HighBits = 0x8080808080808080u;

std::uint64_t Spread(char byte)
{
    return Ones * static_cast<unsigned char>(byte);
}

std::uint64_t Load(const char* bytes)
{
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, WordSize);
    return word;
}

/// @return whether any byte of word is zero.
bool HasZero(std::uint64_t word)
{
    return ((word - Ones) & ~word & HighBits) != 0;
}

} // namespace

ByteSearch::ByteSearch(std::string needle)
    : m_needle(std::move(needle))
{
}

bool ByteSearch::FoundIn(std::string_view text) const noexcept
{
    if (m_needle.empty())
        return true;
    if (text.size() < m_needle.size())
        return false;
    // Eight places at a time are ruled out by the needle's first and last byte together; one letter
    // alone would stop at every second word of a text.
    const std::uint64_t first = Spread(m_needle.front());
    const std::uint64_t last = Spread(m_needle.back());
    const std::size_t span = m_needle.size() - 1;
    const std::size_t places = text.size() - span;
    std::size_t at = 0;
    for (; at + WordSize <= places; at += WordSize) {
        const std::uint64_t differ =
            (Load(text.data() + at) ^ first) | (Load(text.data() + at + span) ^ last);
        if (!HasZero(differ))
            continue;
        for (std::size_t place = at; place < at + WordSize; ++place) {
            if (std::memcmp(text.data() + place, m_needle.data(), m_needle.size()) == 0)
                return true;
        }
    }
    for (; at < places; ++at) {
        if (std::memcmp(text.data() + at, m_needle.data(), m_needle.size()) == 0)
            return true;
    }
    return false;
}
