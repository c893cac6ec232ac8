#include "store/text/FoldTable.h"

#include <QStringView>
#include <QVector>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <algorithm>
#include <vector>

namespace {

/// Latin up to Extended-B and the combining marks, then Latin Extended Additional with the general
/// punctuation: whatever a text in a European language is written with.
constexpr char32_t FirstEnd = 0x0370;
constexpr char32_t SecondStart = 0x1E00;
constexpr char32_t SecondEnd = 0x2070;

/// In UTF-16: two code points.
constexpr int MaxDecomposition = 4;

const UNormalizer2* Normalizer()
{
    static const UNormalizer2* const normalizer = [] {
        UErrorCode status = U_ZERO_ERROR;
        return unorm2_getNFCInstance(&status);
    }();
    return normalizer;
}

/// @return the one or two code points that code decomposes to in one step; none when to none.
std::vector<char32_t> Decompose(char32_t code)
{
    UChar units[MaxDecomposition] = {};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = unorm2_getRawDecomposition(Normalizer(), static_cast<UChar32>(code),
                                                      units, MaxDecomposition, &status);
    std::vector<char32_t> parts;
    if (length > 0 && U_SUCCESS(status)) {
        for (const uint part : QStringView(units, length).toUcs4())
            parts.push_back(part);
    }
    return parts;
}

void AddAccent(FoldedCode& folded, char32_t accent)
{
    const auto place = std::find(folded.accents.begin(), folded.accents.end(), U'\0');
    if (place != folded.accents.end())
        *place = accent;
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
    if (parts.empty()) {
        FoldedCode folded;
        if (CombiningClass(code) != 0)
            AddAccent(folded, code);
        else
            folded.base = LowerCase(code);
        return folded;
    }
    // Two letters in one code point (a Hangul syllable) are one to their reader; where they come
    // apart, ComposeLetters puts them together. None of them has letter case.
    if (parts.size() > 1 && CombiningClass(parts[1]) == 0)
        return {code, {}};
    FoldedCode folded = LookupInIcu(parts[0]);
    if (parts.size() > 1)
        AddAccent(folded, parts[1]);
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
