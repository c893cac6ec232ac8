#include "support/GeneratedSongs.h"

#include <array>

namespace {

constexpr std::array Syllables = {u"a",   u"al", u"ma",  u"céu", u"cor", u"ção", u"da",  u"de",
                                  u"fé",  u"fi", u"gra", u"já",  u"la",  u"le",  u"lou", u"luz",
                                  u"ma",  u"me", u"mi",  u"não", u"no",  u"pa",  u"paz", u"pre",
                                  u"que", u"ri", u"san", u"se",  u"só",  u"to",  u"tra", u"vi"};
constexpr std::array Chords = {u"C",  u"Am", u"F",    u"G7",   u"Dm",  u"E7",     u"Bb", u"F#m",
                               u"A4", u"D",  u"D/F#", u"Gm7",  u"Ebº", u"C7(b9)", u"B7", u"G#m",
                               u"Em", u"A",  u"Em7",  u"C#m7", u"Bm",  u"Em7(9)"};
constexpr std::array Keys = {u"C", u"C#", u"D", u"D#", u"E", u"F", u"F#", u"G", u"G#", u"A", u"Bb"};

constexpr int TextLength = 2000;

} // namespace

int SongGenerator::Below(int below)
{
    // SplitMix64: small, seeded, the same everywhere (the standard distributions are not).
    m_state += 0x9E3779B97F4A7C15ULL;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    mixed ^= mixed >> 31;
    return static_cast<int>(mixed % static_cast<std::uint64_t>(below));
}

QString SongGenerator::Word()
{
    QString word;
    const int syllables = 1 + Below(3);
    for (int i = 0; i < syllables; ++i)
        word += QStringView(Syllables[static_cast<size_t>(Below(int{Syllables.size()}))]);
    return word;
}

QString SongGenerator::Words(int count)
{
    QString words = Word();
    words[0] = words[0].toUpper();
    for (int i = 1; i < count; ++i)
        words += u' ' + Word();
    return words;
}

QString SongGenerator::ChordLine(int width)
{
    QString line;
    while (line.size() < width) {
        line += QString(Below(9), u' ');
        line += QStringView(Chords[static_cast<size_t>(Below(int{Chords.size()}))]) + u' ';
    }
    return line;
}

GeneratedSong SongGenerator::Next()
{
    GeneratedSong song;
    song.title = Words(1 + Below(4));
    song.reference = Words(1 + Below(2));
    while (song.text.size() < TextLength) {
        if (Below(9) == 0)
            song.text += u"\r\n    " + Words(1) + u"\r\n";
        const QString lyric = Words(4 + Below(4));
        song.text += ChordLine(static_cast<int>(lyric.size())) + u"\r\n" + lyric + u"\r\n";
    }
    song.key = QStringView(Keys[static_cast<size_t>(Below(int{Keys.size()}))]).toString();
    song.variation = Below(3) == 0 ? QStringLiteral("m") : QString();
    song.category = 1 + Below(2);
    song.count = Below(4) == 0 ? Below(60) : 0;
    return song;
}
