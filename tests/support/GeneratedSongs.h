#pragma once

#include <QString>

#include <cstdint>

/// An invented song: words made of Portuguese syllables, chords above them.
struct GeneratedSong
{
    QString title;
    QString reference;
    QString text; ///< some 2 KB, CR LF
    QString key;
    QString variation;
    int category = 1;
    int count = 0;
};

/// Invents songs. The same seed gives the same songs on every machine.
class SongGenerator
{
public:
    explicit SongGenerator(std::uint64_t seed)
        : m_state(seed)
    {
    }

    GeneratedSong Next();

    /// @return a number from 0 to below.
    int Below(int below);

private:
    QString Word();
    QString Words(int count);
    QString ChordLine(int width);

    std::uint64_t m_state;
};
