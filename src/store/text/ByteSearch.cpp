#include "store/text/ByteSearch.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace {

#if defined(__SSE2__) || defined(_M_X64)

/// Sixteen places of a text, compared at once.
struct Block
{
    static constexpr std::size_t Size = 16;

    explicit Block(char byte)
        : bytes(_mm_set1_epi8(byte))
    {
    }

    /// @return a bit for each place of text from at that holds the byte.
    unsigned EqualTo(const char* at) const
    {
        const __m128i text = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(text, bytes)));
    }

    __m128i bytes;
};

#else

/// Eight places of a text, compared at once.
struct Block
{
    static constexpr std::size_t Size = 8;

    explicit Block(char byte)
        : bytes(byte)
    {
    }

    unsigned EqualTo(const char* at) const
    {
        unsigned places = 0;
        for (unsigned i = 0; i < Size; ++i)
            places |= static_cast<unsigned>(at[i] == bytes) << i;
        return places;
    }

    char bytes;
};

#endif

} // namespace

ByteSearch::ByteSearch(std::string needle)
    : m_needle(std::move(needle))
{
}

std::size_t ByteSearch::Find(std::string_view text, std::size_t from) const noexcept
{
    if (m_needle.size() + from > text.size())
        return Nowhere;
    if (m_needle.empty())
        return from;
    // A block of places is ruled out by the needle's first and last byte together; one letter alone
    // would stop at every second word of a text.
    const Block first(m_needle.front());
    const Block last(m_needle.back());
    const std::size_t span = m_needle.size() - 1;
    const std::size_t places = text.size() - span;
    std::size_t at = from;
    for (; at + Block::Size <= places; at += Block::Size) {
        unsigned equal = first.EqualTo(text.data() + at) & last.EqualTo(text.data() + at + span);
        for (; equal != 0; equal &= equal - 1) {
            const std::size_t place = at + static_cast<std::size_t>(std::countr_zero(equal));
            if (std::memcmp(text.data() + place, m_needle.data(), m_needle.size()) == 0)
                return place;
        }
    }
    return FindPlain(text, at);
}

std::size_t ByteSearch::FindPlain(std::string_view text, std::size_t from) const noexcept
{
    const char* const end = text.data() + text.size() - m_needle.size() + 1;
    for (const char* at = text.data() + from; at < end; ++at) {
        at = static_cast<const char*>(
            std::memchr(at, m_needle.front(), static_cast<std::size_t>(end - at)));
        if (!at)
            return Nowhere;
        if (std::memcmp(at, m_needle.data(), m_needle.size()) == 0)
            return static_cast<std::size_t>(at - text.data());
    }
    return Nowhere;
}
