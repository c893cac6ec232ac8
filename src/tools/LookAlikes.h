#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <array>
#include <cstdint>
#include <vector>

/// Finds songs that are the same but for little, among many.
///
/// A text counts as the set of its pieces of eight bytes. Each song keeps the 256 smallest numbers
/// that its pieces hash to: all of a short text, a fair sample of a long one. Songs that are alike
/// share most of them; they are found by keys that such songs are all but sure to share.
class LookAlikes
{
public:
    struct Group
    {
        QList<qint64> songs; ///< two or more, in the order they were added
        int likeness = Same; ///< per cent, of the one that is least like the first; 100 the same
    };

    static constexpr int Same = 100;
    /// From here on songs are told, in per cent of the pieces that either has.
    static constexpr int Least = 80;

    /// @param song     its identifier
    /// @param letters  of LyricLetters; a song without any is like no other
    void Add(qint64 song, const QByteArray& letters);

    /// @return groups of songs that are alike, in the order of their first songs
    QList<Group> Groups() const;

private:
    using Sketch = std::vector<std::uint32_t>;
    using Keyring = std::array<std::uint64_t, 20>;
    using Leading = QHash<std::uint64_t, std::vector<std::size_t>>;
    struct Song
    {
        qint64 id;
        Sketch sketch;        ///< ascending, each number once
        QList<qint64> copies; ///< songs with the same letters
    };

    static Sketch SketchOf(const QByteArray& letters);
    static int Likeness(const Sketch& one, const Sketch& other);
    static Keyring KeysOf(const Sketch& sketch);
    std::size_t FindLeader(const Sketch& sketch, const Keyring& keys, const Leading& leaders,
                           int& like) const;

    std::vector<Song> m_songs;
    QHash<QByteArray, std::size_t> m_byLetters; ///< digest of the letters to the song
};
