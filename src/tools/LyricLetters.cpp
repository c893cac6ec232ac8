#include "tools/LyricLetters.h"

#include "chords/ChordLine.h"
#include "chords/LineCutter.h"
#include "store/text/Fold.h"

#include <string>

namespace {

constexpr unsigned char FirstLead = 0xC0;       // of a letter of several bytes
constexpr unsigned char LatinSigns = 0xC2;      // leads U+0080 to U+00BF, of two bytes
constexpr unsigned char PunctuationLead = 0xE2; // leads U+2000 to U+2FFF, of three bytes
constexpr unsigned char Dashes = 0x80;          // follows it for U+2000 to U+203F

bool IsAsciiLetter(unsigned char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9');
}

/// @param folded  in lower case, without accents
void AppendLetters(QByteArray& out, const std::string& folded)
{
    for (std::size_t i = 0; i < folded.size(); ++i) {
        const auto byte = static_cast<unsigned char>(folded[i]);
        if (byte == LatinSigns) {
            ++i;
            continue;
        }
        if (byte == PunctuationLead && i + 2 < folded.size() &&
            static_cast<unsigned char>(folded[i + 1]) == Dashes) {
            i += 2;
            continue;
        }
        if (byte >= FirstLead || (byte >= Dashes) || IsAsciiLetter(byte))
            out.append(folded[i]);
    }
}

} // namespace

QByteArray LyricLetters::Of(QStringView title, QStringView text)
{
    std::string folded;
    const QByteArray head = title.toUtf8();
    Fold::AppendBases(folded, {head.constData(), static_cast<std::size_t>(head.size())});
    const Chords::NoteTable notes;
    Chords::LineCutter cutter(text);
    QStringView line;
    while (cutter.Next(line)) {
        if (Chords::WalkChordLine(line, notes, Chords::NoInk{}, nullptr).chords)
            continue;
        const QByteArray bytes = line.toUtf8();
        Fold::AppendBases(folded, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    }
    QByteArray letters;
    letters.reserve(static_cast<qsizetype>(folded.size()));
    AppendLetters(letters, folded);
    return letters;
}
