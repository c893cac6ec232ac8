#pragma once

#include "chords/ChordCharacters.h"

#if defined(__SSE2__) || defined(_M_X64)
#define MELODARIO_SSE2
#include <emmintrin.h>

#include <bit>
#endif

/// The search for the characters of a song that are not simply copied into its lines.
namespace Chords {

constexpr bool NeedsCare(char16_t letter) noexcept
{
    return letter == u'\r' || letter == Separator || letter == u'%' || letter == u'\\' ||
           letter == u'{' || letter == u'}';
}

#ifdef MELODARIO_SSE2

/// The same for eight characters at once. @return two bits for each, the first lowest; set where a
/// character needs care
inline unsigned CareMask(const char16_t* at) noexcept
{
    const __m128i letters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const auto are = [letters](char16_t other) {
        return _mm_cmpeq_epi16(letters, _mm_set1_epi16(static_cast<short>(other)));
    };
    const __m128i breaks = _mm_or_si128(are(u'\r'), are(Separator));
    const __m128i removed = _mm_or_si128(are(u'%'), are(u'\\'));
    const __m128i escaped = _mm_or_si128(are(u'{'), are(u'}'));
    const __m128i care = _mm_or_si128(_mm_or_si128(breaks, removed), escaped);
    return static_cast<unsigned>(_mm_movemask_epi8(care));
}

#endif

/// @return the first character from at on that needs care, or end.
inline const char16_t* SkipPlain(const char16_t* at, const char16_t* end) noexcept
{
#ifdef MELODARIO_SSE2
    for (; end - at >= 8; at += 8) {
        if (const unsigned mask = CareMask(at))
            return at + std::countr_zero(mask) / 2;
    }
#endif
    while (at != end && !NeedsCare(*at))
        ++at;
    return at;
}

} // namespace Chords
