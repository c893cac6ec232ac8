#include "songbook/SheetRows.h"

#include "chords/Cifra.h"

#include <algorithm>

namespace Songbook {

namespace {

constexpr QChar NoBreak{u'\u00A0'};
constexpr QStringView FourBlanks = u"    ";
constexpr qsizetype TabWidth = 8;

bool PassesTest(QStringView row)
{
    if (!row.contains(u'%'))
        return Funcoes::Linha_Cifra(row);
    // The sheet drops percent signs before it tests a line.
    return Funcoes::Linha_Cifra(row.toString().remove(u'%'));
}

bool IsWordLetter(QChar sign)
{
    return sign.isLetter() || sign.isMark() || sign == u'-' || sign == u'\'' || sign == u'\u2019';
}

/// For each piece the first character of lyrics at or behind it that is no blank's, QChar() where
/// none comes any more.
QList<QChar> NextLetters(const QList<Piece>& pieces)
{
    QList<QChar> letters(pieces.size());
    QChar next;
    for (qsizetype i = pieces.size() - 1; i >= 0; --i) {
        const QString& lyric = pieces[i].lyric;
        const auto isText = [](QChar sign) { return sign != u' '; };
        if (std::any_of(lyric.cbegin(), lyric.cend(), isText))
            next = lyric.front();
        else if (!lyric.isEmpty() && !next.isNull())
            next = u' ';
        letters[i] = next;
    }
    return letters;
}

} // namespace

Rows LayOut(const QList<Piece>& pieces)
{
    Rows rows;
    const QList<QChar> next = NextLetters(pieces);
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        const Piece& piece = pieces[i];
        if (!piece.chord.isEmpty()) {
            const qsizetype free = rows.chords.isEmpty() ? 0 : rows.chords.size() + 1;
            const qsizetype push = free - rows.lyric.size();
            if (push > 0) {
                const bool inside = !rows.lyric.isEmpty() && IsWordLetter(rows.lyric.back()) &&
                                    !next[i].isNull() && IsWordLetter(next[i]);
                rows.lyric += QString(push, inside ? u'-' : u' ');
            }
            rows.chords += QString(rows.lyric.size() - rows.chords.size(), u' ');
            rows.chords += piece.chord;
        }
        rows.lyric += piece.lyric;
    }
    while (rows.lyric.endsWith(u' '))
        rows.lyric.chop(1);
    return rows;
}

QString AsLyric(QString row)
{
    while (row.endsWith(u' '))
        row.chop(1);
    if (row.startsWith(FourBlanks))
        row[0] = NoBreak;
    if (!row.isEmpty() && PassesTest(row))
        row += NoBreak;
    return row;
}

QString AsHeading(QStringView text)
{
    const QString trimmed = text.trimmed().toString();
    if (trimmed.isEmpty())
        return {};
    QString row = FourBlanks + trimmed;
    if (PassesTest(row))
        row += NoBreak;
    return row;
}

bool IsChordRow(QStringView row)
{
    const auto isText = [](QChar sign) { return sign != u' '; };
    return std::any_of(row.cbegin(), row.cend(), isText) && PassesTest(row);
}

bool IsHeadingRow(QStringView row)
{
    return row.startsWith(FourBlanks) && !PassesTest(row);
}

QString WithoutTabs(QStringView row)
{
    if (!row.contains(u'\t'))
        return row.toString();
    QString expanded;
    for (const QChar sign : row) {
        if (sign == u'\t')
            expanded += QString(TabWidth - expanded.size() % TabWidth, u' ');
        else
            expanded += sign;
    }
    return expanded;
}

QList<Word> WordsOf(QStringView row)
{
    QList<Word> words;
    qsizetype at = 0;
    while (at < row.size()) {
        if (row[at] == u' ') {
            ++at;
            continue;
        }
        const qsizetype end = row.indexOf(u' ', at);
        const qsizetype stop = end < 0 ? row.size() : end;
        words.append({at, row.sliced(at, stop - at)});
        at = stop;
    }
    return words;
}

} // namespace Songbook
