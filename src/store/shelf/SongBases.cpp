#include "store/shelf/SongBases.h"

#include "store/text/Fold.h"

namespace {

/// Stands between two texts: no UTF-8 holds it, so nothing is found across it.
constexpr char Separator = '\xFF';

} // namespace

void SongBases::Put(SongTable::Place place, const SongRow::Text& text)
{
    if (place >= m_entries.size())
        m_entries.resize(place + 1);
    Entry& entry = m_entries[place];
    entry = {};
    if (!text)
        return;
    entry.at = m_text.size();
    Fold::AppendBases(m_text, *text);
    entry.length = m_text.size() - entry.at;
    m_text += Separator;
    m_starts.push_back({entry.at, place});
}

std::string_view SongBases::At(SongTable::Place place) const
{
    const Entry& entry = m_entries[place];
    if (entry.at == NoText)
        return {};
    return std::string_view(m_text).substr(entry.at, entry.length);
}

void SongBases::Keep(std::vector<char>& marks, const ByteSearch& needle) const
{
    std::vector<char> kept(marks.size(), 0);
    auto start = m_starts.begin();
    std::size_t at = needle.Find(m_text);
    while (at != ByteSearch::Nowhere && start != m_starts.end()) {
        auto next = start + 1;
        while (next != m_starts.end() && next->at <= at)
            start = next++;
        if (m_entries[start->place].at == start->at)
            kept[start->place] = marks[start->place];
        start = next;
        at = start == m_starts.end() ? ByteSearch::Nowhere : needle.Find(m_text, start->at);
    }
    marks.swap(kept);
}

void SongBases::KeepStarts(std::vector<char>& marks, std::string_view start) const
{
    for (std::size_t place = 0; place < marks.size(); ++place) {
        if (marks[place] != 0 && !At(static_cast<SongTable::Place>(place)).starts_with(start))
            marks[place] = 0;
    }
}

std::size_t SongBases::Size() const noexcept
{
    return m_text.size() + m_entries.size() * sizeof(Entry) + m_starts.size() * sizeof(Start);
}
