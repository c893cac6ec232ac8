#include "songbook/SheetText.h"

#include "songbook/ChordName.h"

namespace Songbook {

QList<MarkedPiece> CutAtMarks(QStringView chords, const QString& lyric)
{
    QList<MarkedPiece> pieces;
    MarkedPiece piece;
    qsizetype at = 0;
    const auto cut = [&](qsizetype column) {
        const qsizetype there = qMin(column, lyric.size());
        if (at < there)
            piece.lyric = lyric.sliced(at, there - at);
        piece.lyric += QString(column - qMax(at, there), u' ');
        pieces.append(piece);
        at = column;
    };
    for (const Word& word : WordsOf(chords)) {
        cut(word.column);
        piece = {word.text.toString(), {}, false};
    }
    cut(qMax(at, lyric.size()));
    return pieces;
}

QString SheetText::Chord(const MarkedPiece& piece, int line, Remarks& remarks,
                         QStringList& beside) const
{
    QString mark = piece.mark.trimmed();
    if (mark.isEmpty())
        return {};
    if (!piece.exact) {
        const auto chord = SpellChord(mark, ChordSpelling::Marked);
        if (chord && *chord != mark)
            remarks.Note(line, u"o acorde \"%1\" foi escrito \"%2\""_qs.arg(mark, *chord));
        if (chord)
            return *chord;
    }
    if (IsChordRow(mark))
        return mark;
    remarks.Note(line, u"a anotação \"%1\" ficou numa linha própria"_qs.arg(Excerpt(mark)));
    beside.append(u'(' + mark + u')');
    return {};
}

void SheetText::AddPieces(const QList<MarkedPiece>& pieces, int line, Remarks& remarks)
{
    QStringList beside;
    QList<Piece> spelled;
    spelled.reserve(pieces.size());
    for (const MarkedPiece& piece : pieces)
        spelled.append({Chord(piece, line, remarks, beside), piece.lyric});
    const Rows rows = LayOut(spelled);
    if (!beside.isEmpty())
        AddLyric(beside.join(u' '));
    if (!rows.chords.isEmpty())
        Add(rows.chords);
    if (!rows.lyric.isEmpty() || rows.chords.isEmpty())
        AddLyric(rows.lyric);
}

void SheetText::AddLyric(const QString& row)
{
    Add(AsLyric(row));
}

void SheetText::AddHeading(QStringView text)
{
    Add(AsHeading(text));
}

void SheetText::AddBlank()
{
    Add({});
}

void SheetText::AddExact(const QString& row)
{
    m_rows.append({row, true});
}

void SheetText::Separate()
{
    if (!m_rows.isEmpty() && !m_rows.last().text.isEmpty())
        AddBlank();
}

QString SheetText::Text() const
{
    qsizetype first = 0;
    qsizetype end = m_rows.size();
    while (first < end && m_rows[first].text.isEmpty() && !m_rows[first].exact)
        ++first;
    while (end > first && m_rows[end - 1].text.isEmpty() && !m_rows[end - 1].exact)
        --end;
    QStringList rows;
    rows.reserve(end - first);
    for (qsizetype i = first; i < end; ++i)
        rows.append(m_rows[i].text);
    return rows.join(u"\r\n");
}

} // namespace Songbook
