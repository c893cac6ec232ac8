#include "songbook/KeyName.h"

#include "chords/Notas.h"
#include "songbook/ChordName.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Songbook {

namespace {

/// @return the text without accents, with single blanks
QString Plain(QStringView text)
{
    QString plain;
    for (const QChar sign : text.toString().normalized(QString::NormalizationForm_D)) {
        if (sign.category() != QChar::Mark_NonSpacing)
            plain += sign;
    }
    return plain.simplified();
}

bool Begins(QStringView text, QStringView word)
{
    return text.startsWith(word, Qt::CaseInsensitive);
}

/// What stands at the front of a key, in letters.
struct Front
{
    QString letters;      ///< "Bb"; empty when there is no note
    qsizetype length = 0; ///< characters that it took
};

/// @return the natural note; names of the solmisation first, since "Fa" and "Do" begin with letters
Front Natural(QStringView key)
{
    using Entry = std::pair<QStringView, char16_t>;
    static constexpr std::array<Entry, 7> names = {
        Entry{u"do", u'C'},  Entry{u"re", u'D'}, Entry{u"mi", u'E'}, Entry{u"fa", u'F'},
        Entry{u"sol", u'G'}, Entry{u"la", u'A'}, Entry{u"si", u'B'}};
    for (const auto& [name, letter] : names) {
        if (Begins(key, name))
            return {QString(letter), name.size()};
    }
    const QChar letter = key.isEmpty() ? QChar() : key.front().toUpper();
    if (letter < u'A' || letter > u'H')
        return {};
    return {QString(letter == u'H' ? QChar(u'B') : letter), 1};
}

/// @return '#' or 'b' for a sign, else nothing
QChar SignOf(QChar sign)
{
    if (sign == u'#' || sign == u'\u266F')
        return u'#';
    return sign == u'b' || sign == u'B' || sign == u'\u266D' ? QChar(u'b') : QChar();
}

/// @return the sign that a word means, and its length
std::pair<QChar, qsizetype> SignWord(QStringView text)
{
    using Entry = std::pair<QStringView, char16_t>;
    static constexpr std::array<Entry, 7> words = {
        Entry{u"bemol", u'b'},     Entry{u"flat", u'b'},      Entry{u"sharp", u'#'},
        Entry{u"sustenido", u'#'}, Entry{u"sostenido", u'#'}, Entry{u"diese", u'#'},
        Entry{u"sust.", u'#'}};
    for (const auto& [word, sign] : words) {
        if (Begins(text, word))
            return {sign, word.size()};
    }
    return {QChar(), 0};
}

/// @return true for what stands apart and begins with a sign's letter: "A B", "A banda"
bool IsOtherWord(QStringView said)
{
    const bool goesOn = said.size() > 1 && said[1].isLetter() && !Begins(said, u"bm");
    return said.front() == u'B' || goesOn;
}

/// Takes a sign in words or one or two alike in signs; a blank or hyphen may stand before it.
void TakeSign(QStringView key, Front& front)
{
    const QStringView rest = key.sliced(front.length);
    const bool apart = rest.size() > 1 && (rest.front() == u' ' || rest.front() == u'-');
    const QStringView said = apart ? rest.sliced(1) : rest;
    const qsizetype gap = apart ? 1 : 0;
    if (const auto [sign, length] = SignWord(said); length > 0) {
        front.letters += sign;
        front.length += gap + length;
        return;
    }
    const QChar sign = said.isEmpty() ? QChar() : SignOf(said.front());
    if (sign.isNull() || (apart && said.front().isLetter() && IsOtherWord(said)))
        return;
    const qsizetype signs = said.size() > 1 && SignOf(said[1]) == sign ? 2 : 1;
    front.letters += QString(signs, sign);
    front.length += gap + signs;
}

/// @param word  in letters alone
/// @return "" for major, "m" for minor, nothing for other words
std::optional<QString> Mode(QStringView word)
{
    static constexpr std::array<QStringView, 6> majors = {u"",      u"maj",   u"major",
                                                          u"maior", u"mayor", u"dur"};
    static constexpr std::array<QStringView, 6> minors = {u"m",     u"mi",    u"min",
                                                          u"minor", u"menor", u"moll"};
    if (word == u"M")
        return QString();
    const auto is = [word](QStringView mode) {
        return word.compare(mode, Qt::CaseInsensitive) == 0;
    };
    if (std::any_of(majors.begin(), majors.end(), is))
        return QString();
    return std::any_of(minors.begin(), minors.end(), is) ? std::optional(u"m"_qs) : std::nullopt;
}

/// @return what the text begins with, up to the first sign that is no letter
QStringView FirstWord(QStringView text)
{
    qsizetype end = 0;
    while (end < text.size() && text[end].isLetter())
        ++end;
    return text.first(end);
}

/// @return what the text begins with, up to the first blank
QStringView FirstToken(QStringView text)
{
    const qsizetype blank = text.indexOf(u' ');
    return blank < 0 ? text : text.first(blank);
}

qsizetype RootLength(QStringView chord)
{
    const bool hasSign = chord.size() > 1 && (chord[1] == u'#' || chord[1] == u'b');
    return qMin(chord.size(), hasSign ? qsizetype{2} : qsizetype{1});
}

/// @return the name of Notas that a spelled chord's root has; empty when it has none
QString TomOf(QStringView chord)
{
    QString table;
    const std::int16_t index = Funcoes::Procura_Nota(chord.first(RootLength(chord)), table);
    return index == 0 ? QString() : Funcoes::Notas[static_cast<std::size_t>(index)];
}

bool IsMinor(QStringView chord)
{
    const QStringView suffix = chord.sliced(RootLength(chord));
    return suffix.startsWith(u'm') || suffix.startsWith(u'-');
}

} // namespace

std::optional<KeyName> SpellKey(QStringView text)
{
    const QString key = Plain(text);
    Front front = Natural(key);
    if (front.length == 0)
        return std::nullopt;
    TakeSign(key, front);
    const QStringView behind = QStringView(key).sliced(front.length);
    KeyName name;
    name.tom = TomOf(SpellChord(front.letters, ChordSpelling::Loose).value_or(QString()));
    if (behind.trimmed() == u"-") {
        name.variacao = u"m"_qs;
        return name;
    }
    const bool hyphen = behind.startsWith(u'-');
    const QStringView rest = (hyphen ? behind.sliced(1) : behind).trimmed();
    const QStringView word = FirstWord(rest);
    const std::optional<QString> mode = Mode(word);
    const QStringView left = rest.sliced(word.size());
    name.variacao = mode.value_or(QString());
    name.whole = mode && (left.isEmpty() || (left == u"." && !word.isEmpty()));
    const bool apart = !behind.isEmpty() && !behind.front().isLetterOrNumber();
    if (name.whole || (apart && !word.isEmpty()))
        return name;
    // What is glued to the note belongs to a chord, or the whole is a word.
    const auto chord =
        SpellChord(QString(front.letters + FirstToken(behind)), ChordSpelling::Marked);
    if (chord)
        name.variacao = IsMinor(*chord) ? u"m"_qs : QString();
    return chord || apart ? std::optional(name) : std::nullopt;
}

std::optional<KeyName> KeyOfChord(QStringView chord)
{
    const auto spelled = SpellChord(chord, ChordSpelling::Loose);
    if (!spelled)
        return std::nullopt;
    KeyName name;
    name.tom = TomOf(*spelled);
    if (name.tom.isEmpty())
        return std::nullopt;
    name.variacao = IsMinor(*spelled) ? u"m"_qs : QString();
    return name;
}

} // namespace Songbook
