#pragma once

#include <QString>

#include <array>

/// What songs are made of, for the fuzzers that need some.
namespace Fuzz {

/// Pieces from the usual to the hostile.
inline const std::array<QString, 48>& SongPieces()
{
    static const std::array<QString, 48> pieces = {
        u"\r\n"_qs,   u"\r\n"_qs,   u" "_qs,     u"    "_qs,       u"C"_qs,      u"D/F#"_qs,
        u"Bb"_qs,     u"G7(b9)"_qs, u"Am7"_qs,   u"E4"_qs,         u"| "_qs,     u"INTRO: "_qs,
        u"(2x)"_qs,   u"Santo"_qs,  u"não é"_qs, u"coração"_qs,    u"sob"_qs,    u"    Refrão"_qs,
        u"50%"_qs,    u"#"_qs,      u"b"_qs,     u"("_qs,          u"º"_qs,      u"\r"_qs,
        u"\n"_qs,     u"%"_qs,      u"\r%\n"_qs, u"£"_qs,          u"\\"_qs,     u"{"_qs,
        u"}"_qs,      u"\t"_qs,     u"ß"_qs,     u"\u266B"_qs,     u"µ"_qs,      u"\u00A0"_qs,
        u"\u2029"_qs, u"ǆ"_qs,      u"H"_qs,     u"?"_qs,          u"\\par "_qs, u"\\b0"_qs,
        u"Ab"_qs,     u"F#m"_qs,    u"5#"_qs,    u"\U0001F3B5"_qs, u"   "_qs,    u"\\'e9"_qs};
    return pieces;
}

/// The twelve roots as Notas spells them, and endings that no accidental begins.
inline const std::array<QString, 12>& Roots()
{
    static const std::array<QString, 12> roots = {u"C"_qs,  u"C#"_qs, u"D"_qs,  u"D#"_qs,
                                                  u"E"_qs,  u"F"_qs,  u"F#"_qs, u"G"_qs,
                                                  u"G#"_qs, u"A"_qs,  u"A#"_qs, u"B"_qs};
    return roots;
}

inline const std::array<QString, 12>& FlatRoots()
{
    static const std::array<QString, 12> roots = {u"C"_qs,  u"Db"_qs, u"D"_qs,  u"Eb"_qs,
                                                  u"E"_qs,  u"F"_qs,  u"Gb"_qs, u"G"_qs,
                                                  u"Ab"_qs, u"A"_qs,  u"Bb"_qs, u"B"_qs};
    return roots;
}

inline const std::array<QString, 8>& Endings()
{
    static const std::array<QString, 8> endings = {u""_qs,  u"m"_qs, u"7"_qs,     u"m7"_qs,
                                                   u"º"_qs, u"4"_qs, u"7(b9)"_qs, u"sus4"_qs};
    return endings;
}

} // namespace Fuzz
