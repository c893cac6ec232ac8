#include "store/shelf/TitleOrder.h"

#include "store/text/Collation.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

using TitleOrder::Key;

/// @param made  where the text is put that no row holds as such
SongRow::Text TextOf(const SongRow& row, Key key, std::string& made)
{
    switch (key) {
    case Key::Title:
        return row.title;
    case Key::Reference:
        return row.reference;
    case Key::Label:
        made = row.Label();
        return made;
    }
    return {};
}

/// The letters of a title (Collation::AppendLetters), the first eight of them as one number.
struct Title
{
    std::uint64_t start = 0;
    std::uint32_t position = 0;
    bool ordered = false; ///< its letters are known
    std::size_t at = 0;   ///< in the letters of all titles
    std::size_t length = 0;
};

std::uint64_t Start(std::string_view letters)
{
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < sizeof start; ++i)
        start = (start << 8) | (i < letters.size() ? static_cast<unsigned char>(letters[i]) : 0u);
    return start;
}

/// Sorts by bytes where those decide, which costs a hundredth of what the collator takes.
class Sorter
{
public:
    Sorter(const std::vector<const SongRow*>& rows, Key key)
        : m_rows(rows)
        , m_key(key)
    {
        m_titles.reserve(rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i])
                Add(static_cast<std::uint32_t>(i));
        }
    }

    std::vector<std::uint32_t> Sorted()
    {
        std::sort(m_titles.begin(), m_titles.end(),
                  [this](const Title& a, const Title& b) { return IsBefore(a, b); });
        std::vector<std::uint32_t> positions;
        positions.reserve(m_titles.size());
        for (const Title& title : m_titles)
            positions.push_back(title.position);
        return positions;
    }

private:
    void Add(std::uint32_t position)
    {
        Title title;
        title.position = position;
        title.at = m_letters.size();
        if (const SongRow::Text text = TextOf(*m_rows[position], m_key, m_made)) {
            title.ordered = Collation::Shared().AppendLetters(m_letters, *text);
            title.length = m_letters.size() - title.at;
            title.start = Start(Letters(title));
        }
        m_titles.push_back(title);
    }

    std::string_view Letters(const Title& title) const
    {
        return std::string_view(m_letters).substr(title.at, title.length);
    }

    bool IsBefore(const Title& a, const Title& b) const
    {
        if (a.ordered && b.ordered) {
            if (a.start != b.start)
                return a.start < b.start;
            if (const int order = Letters(a).compare(Letters(b)); order != 0)
                return order < 0;
        }
        return TitleOrder::IsBefore(*m_rows[a.position], *m_rows[b.position], m_key);
    }

    const std::vector<const SongRow*>& m_rows;
    const Key m_key;
    std::string m_made;
    std::vector<Title> m_titles;
    std::string m_letters;
};

/// Tells whether references are the same one, each compared with the one asked about before.
class SameReference
{
public:
    bool operator()(const SongRow& before, const SongRow& row)
    {
        if (!before.reference || !row.reference)
            return before.reference.has_value() == row.reference.has_value();
        if (*before.reference == *row.reference)
            return true;
        // Letters that differ decide, which costs a hundredth of what the collator takes.
        const Collation& collation = Collation::Shared();
        m_before.clear();
        m_letters.clear();
        if (collation.AppendLetters(m_before, *before.reference) &&
            collation.AppendLetters(m_letters, *row.reference) && m_before != m_letters)
            return false;
        return collation.Compare(*before.reference, *row.reference) == 0;
    }

private:
    std::string m_before;
    std::string m_letters;
};

} // namespace

bool TitleOrder::IsBefore(const SongRow& a, const SongRow& b, Key key)
{
    std::string madeOfA;
    std::string madeOfB;
    const SongRow::Text textOfA = TextOf(a, key, madeOfA);
    const SongRow::Text textOfB = TextOf(b, key, madeOfB);
    if (textOfA && textOfB) {
        // References repeat: the same bytes need no collator.
        const int order =
            *textOfA == *textOfB ? 0 : Collation::Shared().Compare(*textOfA, *textOfB);
        if (order != 0)
            return order < 0;
    } else if (textOfA.has_value() != textOfB.has_value()) {
        return textOfB.has_value();
    }
    return a.id < b.id;
}

std::vector<std::uint32_t> TitleOrder::Sorted(const std::vector<const SongRow*>& rows, Key key)
{
    return Sorter(rows, key).Sorted();
}

void TitleOrder::KeepEachReferenceOnce(std::vector<const SongRow*>& rows)
{
    SameReference same;
    const auto end = std::unique(rows.begin(), rows.end(),
                                 [&same](const auto* a, const auto* b) { return same(*a, *b); });
    rows.erase(end, rows.end());
}
