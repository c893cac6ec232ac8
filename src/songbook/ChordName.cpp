#include "songbook/ChordName.h"

#include "chords/Notas.h"
#include "songbook/ChordSuffix.h"

#include <array>
#include <utility>

namespace Songbook {

namespace {

constexpr qsizetype LongestChord = 40;

std::int16_t IndexOf(QStringView name)
{
    QString table;
    return Funcoes::Procura_Nota(name, table);
}

/// A note read from the front of a text.
struct TakenNote
{
    std::int16_t index = 0; ///< 1 to 12
    QString name;           ///< as one of the arrays spells it
    qsizetype length = 0;   ///< characters it took
};

/// @return the letter that a name of the solmisation means, and its length
std::pair<QChar, qsizetype> Solmisation(QStringView text)
{
    using Entry = std::pair<QStringView, char16_t>;
    static constexpr std::array<Entry, 12> names = {
        Entry{u"D\u00F3", u'C'}, Entry{u"Do", u'C'},  Entry{u"R\u00E9", u'D'},
        Entry{u"Re", u'D'},      Entry{u"Mi", u'E'},  Entry{u"F\u00E1", u'F'},
        Entry{u"Fa", u'F'},      Entry{u"Sol", u'G'}, Entry{u"L\u00E1", u'A'},
        Entry{u"La", u'A'},      Entry{u"Si", u'B'},  Entry{u"D\u00D3", u'C'}};
    for (const auto& [name, letter] : names) {
        if (text.startsWith(name))
            return {letter, name.size()};
    }
    return {QChar(), 0};
}

/// @return the root letter in capitals and the characters it took; 0 when there is none
std::pair<QChar, qsizetype> RootLetter(QStringView text, ChordSpelling spelling)
{
    if (text.isEmpty())
        return {QChar(), 0};
    if (spelling == ChordSpelling::Marked) {
        const auto named = Solmisation(text);
        if (named.second > 0)
            return named;
    }
    QChar letter = text.front();
    if (spelling == ChordSpelling::Marked && letter >= u'a' && letter <= u'h')
        letter = letter.toUpper();
    if (letter < u'A' || letter > u'H')
        return {QChar(), 0};
    return {letter == u'H' ? QChar(u'B') : letter, 1};
}

int Shift(QChar sign)
{
    if (sign == u'#' || sign == u'\u266F')
        return 1;
    return sign == u'b' || sign == u'\u266D' ? -1 : 0;
}

std::optional<TakenNote> TakeNote(QStringView text, ChordSpelling spelling)
{
    const auto [letter, taken] = RootLetter(text, spelling);
    const std::int16_t natural = taken == 0 ? std::int16_t{0} : IndexOf(QStringView(&letter, 1));
    if (natural == 0)
        return std::nullopt;
    TakenNote note;
    note.length = taken;
    int shift = 0;
    while (note.length < text.size() && note.length < taken + 2) {
        const int step = Shift(text[note.length]);
        if (step == 0 || step == -shift)
            break;
        shift += step;
        ++note.length;
    }
    note.name = letter;
    if (shift == 1 || shift == -1)
        note.name += shift > 0 ? u'#' : u'b';
    note.index = static_cast<std::int16_t>((natural - 1 + shift + 12) % 12 + 1);
    // Cb, E# and double accidentals are in neither array and would vanish from the sheet.
    if (shift < -1 || shift > 1 || IndexOf(note.name) == 0)
        note.name = (shift < 0 ? Funcoes::Notas_Mais
                               : Funcoes::Notas)[static_cast<std::size_t>(note.index)];
    return note;
}

bool IsNoChord(QStringView text)
{
    const QString plain = text.toString().toUpper().remove(u'.').remove(u'/').remove(u' ');
    return plain == u"NC";
}

/// A chord in brackets: "(G7)".
std::optional<QString> SpellBracketed(QStringView text, ChordSpelling spelling)
{
    const QStringView inside = text.sliced(1, text.size() - 2);
    if (inside.isEmpty() || inside.front() == u'(')
        return std::nullopt;
    const std::optional<QString> chord = SpellChord(inside, spelling);
    if (!chord)
        return std::nullopt;
    return u'(' + *chord + u')';
}

/// @return where the bass begins, at its slash; the text's size without one
qsizetype BassAt(QStringView text, ChordSpelling spelling)
{
    const qsizetype slash = text.lastIndexOf(u'/');
    if (slash < 0)
        return text.size();
    const auto bass = TakeNote(text.sliced(slash + 1), spelling);
    return bass && bass->length == text.size() - slash - 1 ? slash : text.size();
}

} // namespace

std::optional<QString> SpellChord(QStringView text, ChordSpelling spelling)
{
    const QStringView chord = text.trimmed();
    if (chord.isEmpty() || chord.size() > LongestChord)
        return std::nullopt;
    if (IsNoChord(chord))
        return u"X"_qs;
    if (chord.size() > 2 && chord.front() == u'(' && chord.back() == u')')
        return SpellBracketed(chord, spelling);
    const auto root = TakeNote(chord, spelling);
    if (!root)
        return std::nullopt;
    const QStringView behind = chord.sliced(root->length);
    const qsizetype slash = BassAt(behind, spelling);
    const std::optional<QString> suffix = SpellSuffix(behind.first(slash));
    if (!suffix)
        return std::nullopt;
    QString spelled = root->name + *suffix;
    if (slash < behind.size())
        spelled += u'/' + TakeNote(behind.sliced(slash + 1), spelling)->name;
    return spelled;
}

} // namespace Songbook
