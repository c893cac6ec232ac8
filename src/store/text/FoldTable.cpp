#include "store/text/FoldTable.h"

#include <QStringView>
#include <QVector>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <vector>

namespace {

/// Latin up to Extended-B and the combining marks, then Latin Extended Additional with the general
/// punctuation: whatever a text in a European language is written with.
constexpr char32_t FirstEnd = 0x0370;
constexpr char32_t SecondStart = 0x1E00;
constexpr char32_t SecondEnd = 0x2070;

/// The longest canonical decomposition has four code points.
constexpr int MaxDecomposition = 8;

const UNormalizer2* Normalizer()
{
    static const UNormalizer2* const normalizer = [] {
        UErrorCode status = U_ZERO_ERROR;
        return unorm2_getNFCInstance(&status);
    }();
    return normalizer;
}

/// @return the code points that code decomposes to, all the way down; code alone when to none.
std::vector<char32_t> Decompose(char32_t code)
{
    UChar units[MaxDecomposition] = {};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = unorm2_getDecomposition(Normalizer(), static_cast<UChar32>(code), units,
                                                   MaxDecomposition, &status);
    if (length <= 0 || U_FAILURE(status))
        return {code};
    std::vector<char32_t> codes;
    for (const uint part : QStringView(units, length).toUcs4())
        codes.push_back(part);
    return codes;
}

char32_t LowerCase(char32_t code)
{
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(code), U_FOLD_CASE_DEFAULT));
}

std::vector<FoldedCode> Range(char32_t start, char32_t end)
{
    std::vector<FoldedCode> table;
    table.reserve(end - start);
    for (char32_t code = start; code < end; ++code)
        table.push_back(FoldTable::LookupInIcu(code));
    return table;
}

} // namespace

FoldedCode FoldTable::LookupInIcu(char32_t code)
{
    const std::vector<char32_t> parts = Decompose(code);
    FoldedCode folded;
    std::size_t accents = 0;
    for (const char32_t part : parts) {
        if (CombiningClass(part) != 0) {
            if (accents < folded.accents.size())
                folded.accents[accents++] = part;
        } else if (folded.base == 0) {
            folded.base = LowerCase(part);
        } else {
            // Two letters in one code point (a Hangul syllable) are one to their reader; where
            // they come apart, ComposeLetters puts them together. None of them has letter case.
            return {code, {}};
        }
    }
    return folded;
}

FoldedCode FoldTable::Lookup(char32_t code)
{
    static const std::vector<FoldedCode> first = Range(0, FirstEnd);
    static const std::vector<FoldedCode> second = Range(SecondStart, SecondEnd);
    if (code < FirstEnd)
        return first[code];
    if (code >= SecondStart && code < SecondEnd)
        return second[code - SecondStart];
    return LookupInIcu(code);
}

char32_t FoldTable::ComposeLetters(char32_t first, char32_t second)
{
    if (first < SecondEnd && (first < FirstEnd || first >= SecondStart))
        return 0;
    if (CombiningClass(second) != 0)
        return 0;
    const UChar32 composed =
        unorm2_composePair(Normalizer(), static_cast<UChar32>(first), static_cast<UChar32>(second));
    return composed < 0 ? 0 : static_cast<char32_t>(composed);
}

std::uint8_t FoldTable::CombiningClass(char32_t code)
{
    return u_getCombiningClass(static_cast<UChar32>(code));
}
