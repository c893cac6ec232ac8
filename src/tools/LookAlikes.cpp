#include "tools/LookAlikes.h"

#include <QCryptographicHash>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr qsizetype Piece = 8;          // bytes
constexpr std::size_t SketchSize = 256; // numbers
constexpr std::size_t KeyParts = 5;     // pieces that songs have to share for a key
constexpr std::size_t Leaders = 48;     // songs that another is compared with for one key
constexpr qsizetype SampledFrom = 1024; // pieces; of a longer text only about so many are looked at

std::uint32_t Mixed(std::uint64_t piece)
{
    piece ^= piece >> 30U;
    piece *= 0xBF58476D1CE4E5B9U;
    piece ^= piece >> 27U;
    piece *= 0x94D049BB133111EBU;
    return static_cast<std::uint32_t>(piece >> 32U);
}

/// @param limit  greater numbers are left out
std::vector<std::uint32_t> Numbers(const QByteArray& letters, std::uint32_t limit)
{
    std::vector<std::uint32_t> numbers;
    for (qsizetype at = 0; at + Piece <= letters.size(); ++at) {
        std::uint64_t piece = 0;
        std::memcpy(&piece, letters.constData() + at, Piece);
        const std::uint32_t number = Mixed(piece);
        if (number <= limit)
            numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

} // namespace

LookAlikes::Sketch LookAlikes::SketchOf(const QByteArray& letters)
{
    if (letters.size() < Piece)
        return Numbers(letters.leftJustified(Piece, ' '),
                       std::numeric_limits<std::uint32_t>::max());
    const std::uint64_t all = std::numeric_limits<std::uint32_t>::max();
    Sketch sketch;
    if (letters.size() > SampledFrom) {
        const std::uint64_t share =
            all * SampledFrom / 2 / static_cast<std::uint64_t>(letters.size());
        sketch = Numbers(letters, static_cast<std::uint32_t>(share));
    }
    // A text of repetitions has few different pieces.
    if (sketch.size() < SketchSize)
        sketch = Numbers(letters, std::numeric_limits<std::uint32_t>::max());
    if (sketch.size() > SketchSize)
        sketch.resize(SketchSize);
    return sketch;
}

int LookAlikes::Likeness(const Sketch& one, const Sketch& other)
{
    // The smallest numbers of both together are a fair sample of what either has.
    std::size_t i = 0;
    std::size_t j = 0;
    std::size_t seen = 0;
    std::size_t shared = 0;
    const bool sampled = one.size() == SketchSize || other.size() == SketchSize;
    while ((i < one.size() || j < other.size()) && (!sampled || seen < SketchSize)) {
        const bool first = j == other.size() || (i < one.size() && one[i] <= other[j]);
        const bool second = i == one.size() || (j < other.size() && other[j] <= one[i]);
        shared += first && second ? 1 : 0;
        i += first ? 1 : 0;
        j += second ? 1 : 0;
        ++seen;
    }
    return seen == 0 ? 0 : static_cast<int>(shared * 100 / seen);
}

void LookAlikes::Add(qint64 song, const QByteArray& letters)
{
    if (letters.isEmpty())
        return;
    const QByteArray digest = QCryptographicHash::hash(letters, QCryptographicHash::Sha1);
    const auto known = m_byLetters.constFind(digest);
    if (known != m_byLetters.constEnd()) {
        m_songs[*known].copies.append(song);
        return;
    }
    m_byLetters.insert(digest, m_songs.size());
    m_songs.push_back({song, SketchOf(letters), {}});
}

/// Each part of a key is the piece that one shuffling of all pieces puts first: songs that are
/// alike have the same first one as often as they are alike. Single pieces that half of all songs
/// have, such as those of an "aleluia", so bring no song among the candidates of another.
LookAlikes::Keyring LookAlikes::KeysOf(const Sketch& sketch)
{
    Keyring keys{};
    for (std::size_t key = 0; key < keys.size(); ++key) {
        std::uint64_t joined = key;
        for (std::size_t part = 0; part < KeyParts; ++part) {
            const auto seed = static_cast<std::uint32_t>((key * KeyParts + part + 1) * 0x9E3779B1U);
            std::uint32_t first = std::numeric_limits<std::uint32_t>::max();
            for (const std::uint32_t number : sketch) {
                std::uint32_t shuffled = (number ^ seed) * 0x85EBCA6BU;
                shuffled ^= shuffled >> 13U;
                shuffled *= 0xC2B2AE35U;
                first = std::min(first, shuffled);
            }
            joined = joined * 0x9E3779B97F4A7C15U + first + 1;
        }
        keys[key] = joined;
    }
    return keys;
}

/// @param leaders  the songs that others are compared with, by their keys
/// @param like     receives how much it is like it
/// @return the song that another one is like, or as many as there are
std::size_t LookAlikes::FindLeader(const Sketch& sketch, const Keyring& keys,
                                   const Leading& leaders, int& like) const
{
    std::vector<std::size_t> compared;
    for (const std::uint64_t key : keys) {
        const auto there = leaders.constFind(key);
        if (there == leaders.constEnd())
            continue;
        for (const std::size_t leader : *there) {
            if (std::find(compared.begin(), compared.end(), leader) != compared.end())
                continue;
            compared.push_back(leader);
            like = Likeness(m_songs[leader].sketch, sketch);
            if (like >= Least)
                return leader;
        }
    }
    return m_songs.size();
}

QList<LookAlikes::Group> LookAlikes::Groups() const
{
    Leading leaders;
    std::vector<Group> groups(m_songs.size());
    for (std::size_t song = 0; song < m_songs.size(); ++song) {
        const Keyring keys = KeysOf(m_songs[song].sketch);
        int like = Same;
        std::size_t leader = FindLeader(m_songs[song].sketch, keys, leaders, like);
        if (leader == m_songs.size()) {
            leader = song;
            for (const std::uint64_t key : keys) {
                std::vector<std::size_t>& there = leaders[key];
                if (there.size() < Leaders)
                    there.push_back(song);
            }
        }
        Group& group = groups[leader];
        group.songs.append(m_songs[song].id);
        group.songs.append(m_songs[song].copies);
        // Different letters with the same pieces are not the same song.
        if (leader != song)
            group.likeness = std::min({group.likeness, like, Same - 1});
    }
    QList<Group> found;
    std::copy_if(groups.begin(), groups.end(), std::back_inserter(found),
                 [](const Group& group) { return group.songs.size() > 1; });
    return found;
}
