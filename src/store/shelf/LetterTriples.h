#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

/// Which runs of three letters a text holds, as a set that may hold more. Most texts that do not
/// match are ruled out by it: a few bytes are looked at instead of two thousand.
class LetterTriples
{
public:
    LetterTriples() = default;

    /// @param bases  Fold::Bases of a text
    explicit LetterTriples(std::string_view bases)
    {
        std::uint32_t triple = 0;
        for (std::size_t i = 0; i < bases.size(); ++i) {
            triple = (triple << LetterBits) | (static_cast<unsigned char>(bases[i]) & LetterMask);
            if (i >= 2)
                Add(triple & TripleMask);
        }
    }

    /// @return false when the other text cannot be a part of this one.
    bool Contain(const LetterTriples& part) const noexcept
    {
        for (std::size_t i = 0; i < m_words.size(); ++i) {
            if ((part.m_words[i] & ~m_words[i]) != 0)
                return false;
        }
        return true;
    }

    /// @return true for a text of less than three letters, which any other contains.
    bool IsEmpty() const noexcept
    {
        return std::all_of(m_words.begin(), m_words.end(),
                           [](std::uint64_t word) { return word == 0; });
    }

private:
    /// Letters differ in their last five bits.
    static constexpr unsigned LetterBits = 5;
    static constexpr std::uint32_t LetterMask = (1u << LetterBits) - 1;
    static constexpr std::uint32_t TripleMask = (1u << (3 * LetterBits)) - 1;

    /// A song of 2 KB has some 600 different triples: they fill a quarter of so many bits.
    static constexpr unsigned SetBits = 11;
    static constexpr unsigned WordBits = 6;

    void Add(std::uint32_t triple) noexcept
    {
        const std::uint32_t bit = (triple * 2654435761u) >> (32 - SetBits);
        m_words[bit >> WordBits] |= std::uint64_t{1} << (bit & ((1u << WordBits) - 1));
    }

    std::array<std::uint64_t, std::size_t{1} << (SetBits - WordBits)> m_words{};
};
