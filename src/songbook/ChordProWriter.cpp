#include "songbook/ChordProWriter.h"

#include "songbook/ChordName.h"
#include "songbook/ChordProReader.h"
#include "songbook/KeyName.h"
#include "songbook/SongDraft.h"

#include <QRegularExpression>

namespace Songbook {

namespace {

const QString Exactly = QStringLiteral("{x_linha: ");

QString Directive(QStringView name, const QString& value)
{
    return u'{' + name + u": " + value + u'}';
}

/// @return a column's text without what would end its line
QString Unbroken(QString text)
{
    return text.replace(u"\r\n"_qs, u" "_qs).replace(u'\r', u' ').replace(u'\n', u' ');
}

QString OneLine(const QString& text)
{
    return Unbroken(text).replace(u'\t', u' ').trimmed();
}

QStringList RowsOf(const QString& text)
{
    QString even = text;
    even.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
    return even.split(u'\n');
}

/// @return true when the reader makes exactly these rows of the lines
bool ReadsBack(const QStringList& lines, const QStringList& rows)
{
    // Exact rows around them keep blank ones from being cut off and a last backslash from being
    // the last sign of the source.
    const QString mark = Exactly + u"|}\n";
    const Reading reading = ReadChordPro(mark + lines.join(u'\n') + u'\n' + mark, {});
    if (reading.songs.size() != 1)
        return false;
    const QString& text = *reading.songs.first().letra1;
    return text == u"|\r\n" + rows.join(u"\r\n") + u"\r\n|";
}

/// @return a chord or another word of a chord row, in brackets
QString Marked(QStringView word)
{
    const auto chord = SpellChord(word, ChordSpelling::Marked);
    return (chord && *chord == word ? u"["_qs : u"[*"_qs) + word + u']';
}

/// @return the line that has the chords of one row within the lyrics of another
QString Inline(const QString& chords, const QString& lyric)
{
    QString line;
    qsizetype at = 0;
    const auto goTo = [&](qsizetype column) {
        const qsizetype there = qMin(column, lyric.size());
        if (at < there)
            line += QStringView(lyric).sliced(at, there - at);
        line += QString(column - qMax(at, there), u' ');
        at = column;
    };
    for (const Word& word : WordsOf(chords)) {
        goTo(word.column);
        line += Marked(word.text);
    }
    if (at < lyric.size())
        line += QStringView(lyric).sliced(at);
    return line;
}

/// Rows beyond this are written exactly: finding a nicer form for a hostile one costs too much.
constexpr qsizetype LongestRow = 2000;

QString OneRow(const QString& row)
{
    QStringList forms;
    if (row.size() <= LongestRow) {
        if (IsChordRow(row))
            forms += Inline(row, {});
        else if (IsHeadingRow(row))
            forms += Directive(u"comment", row.trimmed());
        else
            forms += row;
        forms += Directive(u"comment_italic", row);
    }
    for (const QString& form : forms) {
        if (ReadsBack({form}, {row}))
            return form;
    }
    return Exactly + row + u'}';
}

QStringList Body(const QStringList& rows)
{
    QStringList lines;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QString& row = rows[i];
        const bool outermost = i == 0 || i == rows.size() - 1;
        if (row.isEmpty() && !outermost) {
            lines += QString();
            continue;
        }
        if (row.isEmpty()) {
            lines += Exactly + u'}';
            continue;
        }
        const bool pair = i + 1 < rows.size() && !rows[i + 1].isEmpty() && IsChordRow(row) &&
                          !IsChordRow(rows[i + 1]) && !IsHeadingRow(rows[i + 1]) &&
                          row.size() <= LongestRow && rows[i + 1].size() <= LongestRow;
        if (pair) {
            const QString line = Inline(row, rows[i + 1]);
            if (ReadsBack({line}, {row, rows[i + 1]})) {
                lines += line;
                ++i;
                continue;
            }
        }
        lines += OneRow(row);
    }
    return lines;
}

/// Cuts the heading of a capo off both texts.
/// @return its number; empty when they do not both begin with the same
QString TakeCapo(QStringList& first, QStringList& second)
{
    static const QRegularExpression form(u"^    "_qs + QRegularExpression::escape(CapoHeading()) +
                                         u"([1-9]\\d?)$");
    const auto match = form.match(first.first());
    if (!match.hasMatch() || second.first() != first.first())
        return {};
    // The heading alone is a text; what the reader puts below it must be one too.
    const auto isAlone = [](const QStringList& rows) {
        return rows.size() < 2 || (rows.size() == 2 && rows[1].isEmpty());
    };
    if (isAlone(first) || isAlone(second))
        return {};
    first.removeFirst();
    second.removeFirst();
    return match.captured(1);
}

QStringList Fields(const ExchangeSong& song)
{
    QStringList lines;
    const QString title = OneLine(song.titulo.value_or(QString()));
    const QString reference = OneLine(song.referencia.value_or(QString()));
    lines += Directive(u"title", title.isEmpty() ? NoTitle : title);
    lines += Directive(u"artist", reference.isEmpty() ? NoReference : reference);
    const QString tom = Unbroken(song.tom.value_or(u"C"_qs));
    const QString variacao = Unbroken(song.variacao.value_or(QString()));
    const QString both = tom + variacao;
    const auto key = SpellKey(both);
    if (key && key->whole && key->tom == tom && key->variacao == variacao) {
        lines += Directive(u"key", both);
    } else {
        lines += Directive(u"x_tom", tom);
        lines += Directive(u"x_variacao", variacao);
    }
    const int category = song.categoria.value_or(1);
    lines += Directive(u"x_categoria", category == 1   ? u"Religiosa"_qs
                                       : category == 2 ? u"Secular"_qs
                                                       : QString::number(category));
    for (const QString& theme : song.temas) {
        const QString name = OneLine(theme);
        if (!name.isEmpty())
            lines += Directive(u"tag", name);
    }
    return lines;
}

} // namespace

QString WriteChordPro(const ExchangeSong& song)
{
    QStringList lines = Fields(song);
    const QString none = u"Sem Letra"_qs;
    const QString text = song.letra1.value_or(none);
    const QString second = song.letra2.value_or(none);
    QStringList rows = RowsOf(text);
    QStringList secondRows = RowsOf(second);
    const QString capo = TakeCapo(rows, secondRows);
    if (!capo.isEmpty())
        lines += Directive(u"capo", capo);
    lines += QString();
    if (!text.isEmpty())
        lines += Body(rows);
    if (rows != secondRows) {
        lines += QString();
        lines += Directive(u"x_versao", u"2"_qs);
        if (!second.isEmpty())
            lines += Body(secondRows);
    }
    return lines.join(u'\n') + u'\n';
}

} // namespace Songbook
