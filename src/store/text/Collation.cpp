#include "store/text/Collation.h"

#include "runtime/RuntimeError.h"
#include "store/text/Fold.h"
#include "store/text/Utf8.h"

#include <QString>

#include <unicode/ucol.h>
#include <unicode/uiter.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

constexpr unsigned char AsciiEnd = 0x80;

void Require(UErrorCode status)
{
    if (U_FAILURE(status))
        throw RuntimeError(RuntimeError::StoreFailure,
                           QStringLiteral("A ordem alfabética não está disponível."),
                           QString::fromLatin1(u_errorName(status)));
}

} // namespace

Collation::Collation()
{
    UErrorCode status = U_ZERO_ERROR;
    m_collator = ucol_open("pt_BR", &status);
    Require(status);
    ucol_setStrength(m_collator, UCOL_SECONDARY);
    ucol_setAttribute(m_collator, UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    Require(status);
    RankAscii();
    RankLatin();
}

const Collation& Collation::Shared()
{
    static const Collation shared;
    return shared;
}

Collation::~Collation()
{
    ucol_close(m_collator);
}

/// Ranks the ASCII characters by asking ICU for the order of each two. Those that ICU ignores (most
/// control characters) get no rank.
void Collation::RankAscii()
{
    std::vector<char> order;
    for (unsigned char code = 0; code < AsciiEnd; ++code) {
        const char letter = static_cast<char>(code);
        if (CompareInIcu({&letter, 1}, {}) != 0)
            order.push_back(letter);
    }
    const auto compare = [this](const char& a, const char& b) {
        return CompareInIcu({&a, 1}, {&b, 1});
    };
    std::stable_sort(order.begin(), order.end(),
                     [&compare](const char& a, const char& b) { return compare(a, b) < 0; });
    unsigned char rank = NoRank;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i == 0 || compare(order[i - 1], order[i]) != 0)
            ++rank;
        m_ranks[static_cast<unsigned char>(order[i])] = rank;
    }
}

/// Gives accented letters the rank of the plain one, where ICU agrees that only accents differ.
void Collation::RankLatin()
{
    ucol_setStrength(m_collator, UCOL_PRIMARY);
    for (char32_t code = LatinStart; code < LatinEnd; ++code) {
        std::string letter;
        Utf8::Append(letter, code);
        const std::string base = Fold::Bases(letter);
        if (base.size() == 1 && CompareInIcu(letter, base) == 0)
            m_latinRanks[code - LatinStart] = m_ranks[static_cast<unsigned char>(base.front())];
    }
    ucol_setStrength(m_collator, UCOL_SECONDARY);
}

bool Collation::AppendLetters(std::string& out, std::string_view text) const
{
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = static_cast<unsigned char>(text[at]);
        unsigned char rank = m_ranks[byte];
        if (byte < AsciiEnd) {
            ++at;
        } else {
            const char32_t code = Utf8::Next(text, at);
            rank = code >= LatinStart && code < LatinEnd ? m_latinRanks[code - LatinStart] : NoRank;
        }
        if (rank == NoRank)
            return false;
        out.push_back(static_cast<char>(rank));
    }
    return true;
}

int Collation::Compare(std::string_view a, std::string_view b) const
{
    const auto rankAt = [this](std::string_view text, std::size_t at) {
        return m_ranks[static_cast<unsigned char>(text[at])];
    };
    // Ranks decide as long as only ranked characters are involved: those have one primary weight
    // each, and no two of them are ordered as one. A letter in front of anything else might be.
    const auto isSafe = [&rankAt](std::string_view text, std::size_t at) {
        return at >= text.size() || rankAt(text, at) != NoRank;
    };
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t at = 0; at < common; ++at) {
        const unsigned char rankA = rankAt(a, at);
        const unsigned char rankB = rankAt(b, at);
        if (rankA == NoRank || rankB == NoRank)
            return CompareInIcu(a, b);
        if (rankA != rankB) {
            if (isSafe(a, at + 1) && isSafe(b, at + 1))
                return rankA < rankB ? -1 : 1;
            return CompareInIcu(a, b);
        }
    }
    if (a.size() == b.size())
        return 0;
    const std::string_view longer = a.size() > common ? a : b;
    if (!isSafe(longer, common) || !isSafe(longer, common + 1))
        return CompareInIcu(a, b);
    return a.size() < b.size() ? -1 : 1;
}

int Collation::CompareInIcu(std::string_view a, std::string_view b) const
{
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(m_collator, a.data(), static_cast<int32_t>(a.size()), b.data(),
                            static_cast<int32_t>(b.size()), &status);
}

std::size_t Collation::HashOf(std::string_view text) const
{
    constexpr int32_t KeySize = 256;
    UCharIterator letters;
    uiter_setUTF8(&letters, text.data(), static_cast<int32_t>(text.size()));
    uint32_t state[2] = {};
    uint8_t key[KeySize];
    UErrorCode status = U_ZERO_ERROR;
    const int32_t size = ucol_nextSortKeyPart(m_collator, &letters, state, key, KeySize, &status);
    Require(status);
    return std::hash<std::string_view>()(
        {reinterpret_cast<const char*>(key), static_cast<std::size_t>(size)});
}
