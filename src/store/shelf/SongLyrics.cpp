#include "store/shelf/SongLyrics.h"

#include <cstring>

bool SongLyrics::Put(SongTable::Place place, const SongRow::Text& text)
{
    if (text && !Pack(*text))
        return false;
    Reserve(place + 1);
    Lyric& lyric = m_lyrics[place];
    if (text && lyric.bases && IsSame(lyric))
        return true;
    m_wasted += lyric.basesLength + lyric.accentCount * sizeof(Packed);
    if (lyric.bases)
        m_triples.Remove(place);
    lyric = {};
    if (text) {
        m_triples.Put(place, m_bases);
        lyric.bases = m_pool.Keep(m_bases).data();
        lyric.accents = m_pool.Keep(m_packed).data();
        lyric.basesLength = static_cast<std::uint32_t>(m_bases.size());
        lyric.accentCount = static_cast<std::uint32_t>(m_accented.size());
    }
    return true;
}

void SongLyrics::Reserve(SongTable::Place places)
{
    if (places <= m_lyrics.size())
        return;
    m_lyrics.resize(places);
    m_triples.Reserve(places);
}

/// Writes the text's bases and accents into the members for them.
bool SongLyrics::Pack(std::string_view text)
{
    m_bases.clear();
    m_packed.clear();
    m_accented.clear();
    Fold::AppendBases(m_bases, text);
    Fold::AppendAccented(m_accented, text);
    constexpr std::size_t longest = std::size_t{1} << (8 * sizeof(Packed) - NumberBits);
    if (m_bases.size() >= longest)
        return false;
    m_packed.resize(m_accented.size() * sizeof(Packed));
    char* to = m_packed.data();
    for (const Fold::Accented& letter : m_accented) {
        const auto [entry, isNew] =
            m_numbers.try_emplace(letter.accents, static_cast<Packed>(m_accents.size()));
        if (isNew)
            m_accents.push_back(letter.accents);
        if (entry->second >> NumberBits != 0)
            return false;
        const Packed packed = static_cast<Packed>(letter.at << NumberBits) | entry->second;
        std::memcpy(to, &packed, sizeof packed);
        to += sizeof packed;
    }
    return true;
}

bool SongLyrics::IsSame(const Lyric& lyric) const
{
    return std::string_view(lyric.bases, lyric.basesLength) == m_bases &&
           std::string_view(lyric.accents, lyric.accentCount * sizeof(Packed)) == m_packed;
}

void SongLyrics::Keep(std::vector<char>& marks, const Like& like) const
{
    m_triples.Keep(marks, like.Needle().Needle());
    for (SongTable::Place place = 0; place < marks.size(); ++place) {
        if (marks[place] != 0 && !Matches(place, like))
            marks[place] = 0;
    }
}

bool SongLyrics::Matches(SongTable::Place place, const Like& like) const
{
    const Lyric& lyric = m_lyrics[place];
    if (!lyric.bases)
        return false;
    const std::string_view bases(lyric.bases, lyric.basesLength);
    if (like.IsDecidedByBases())
        return like.MatchesBases(bases);
    if (!like.MayMatch(bases))
        return false;
    m_read.clear();
    for (std::uint32_t i = 0; i < lyric.accentCount; ++i) {
        Packed packed = 0;
        std::memcpy(&packed, lyric.accents + i * sizeof packed, sizeof packed);
        m_read.push_back(
            {packed >> NumberBits, m_accents[packed & ((Packed{1} << NumberBits) - 1)]});
    }
    return like.Matches(bases, m_read);
}

std::size_t SongLyrics::Size() const noexcept
{
    return m_pool.Size() + m_lyrics.size() * sizeof(Lyric) + m_triples.Size();
}
