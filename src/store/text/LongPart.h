#pragma once

#include "store/text/Fold.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

/// A part of a LIKE pattern that is too long to be tried at one place of a text after the other:
/// all places are followed at once, 64 of them per machine word, so that the time is text times
/// part over 64 whatever the two hold.
class LongPart
{
public:
    /// @param size  items of the part; each is then added once
    explicit LongPart(std::size_t size)
        : m_size(size)
        , m_any(size / Bits + 1, 0)
    {
    }

    /// The item fits every letter.
    void AddAny(std::size_t item) { Set(m_any, item); }

    /// The item fits no letter with another base.
    void AddExact(std::size_t item, char32_t base) { m_exact.emplace_back(base, item); }

    /// Nothing is known of what the item fits.
    void AddOther(std::size_t item) { m_other.push_back(item); }

    /// @param fits  whether the item of a number fits a letter; asked for what was added as exact
    /// or
    ///              other
    /// @return where in the letters the part fits first, count when it fits nowhere
    template <typename Fits>
    std::size_t Find(const Fold::Letter* letters, std::size_t count, const Fits& fits)
    {
        std::sort(m_exact.begin(), m_exact.end());
        // Bit i: the letters read last fit the first i + 1 items.
        Words reached(m_any.size(), 0);
        for (std::size_t at = 0; at < count; ++at) {
            const Words& mask = MaskOf(letters[at], fits);
            std::uint64_t carry = 1;
            for (std::size_t i = 0; i < reached.size(); ++i) {
                const std::uint64_t word = reached[i];
                reached[i] = (word << 1 | carry) & mask[i];
                carry = word >> (Bits - 1);
            }
            if ((reached[(m_size - 1) / Bits] >> (m_size - 1) % Bits & 1U) != 0)
                return at + 1 - m_size;
        }
        return count;
    }

private:
    using Words = std::vector<std::uint64_t>;

    static constexpr std::size_t Bits = 64;
    static constexpr std::size_t KeptMasks = 1024;

    static void Set(Words& words, std::size_t bit)
    {
        words[bit / Bits] |= std::uint64_t{1} << bit % Bits;
    }

    /// @return the items that fit a letter
    template <typename Fits>
    const Words& MaskOf(const Fold::Letter& letter, const Fits& fits)
    {
        const std::pair key(letter.base, letter.accents);
        const auto kept = m_masks.find(key);
        if (kept != m_masks.end())
            return kept->second;
        Words& mask = m_masks.size() < KeptMasks ? m_masks[key] : m_passing;
        mask = m_any;
        auto exact = std::lower_bound(m_exact.begin(), m_exact.end(),
                                      std::pair(letter.base, std::size_t{0}));
        for (; exact != m_exact.end() && exact->first == letter.base; ++exact) {
            if (fits(exact->second, letter))
                Set(mask, exact->second);
        }
        for (const std::size_t item : m_other) {
            if (fits(item, letter))
                Set(mask, item);
        }
        return mask;
    }

    std::size_t m_size;
    Words m_any;
    std::vector<std::pair<char32_t, std::size_t>> m_exact;
    std::vector<std::size_t> m_other;
    std::map<std::pair<char32_t, std::uint64_t>, Words> m_masks;
    Words m_passing;
};
