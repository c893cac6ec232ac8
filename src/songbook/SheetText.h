#pragma once

#include "songbook/Reading.h"
#include "songbook/SheetRows.h"

#include <QStringList>

namespace Songbook {

/// A stretch of lyrics and whatever the source has above its first character.
struct MarkedPiece
{
    QString mark; ///< as written; may be empty
    QString lyric;
    bool exact = false; ///< the mark is no chord to be respelled
};

/// @param chords  a row of marks between blanks
/// @param lyric   the row that it stands above; may be empty
/// @return the lyric cut at the columns of the marks
QList<MarkedPiece> CutAtMarks(QStringView chords, const QString& lyric);

/// The text of one song while it is being read: rows of chords, lyrics and headings. Reads Notas
/// and Notas_Mais.
class SheetText
{
public:
    /// A line of lyrics with chords. A mark that no chord line can hold gets a row of its own
    /// above, in brackets.
    /// @param line  of the source, for the remarks
    void AddPieces(const QList<MarkedPiece>& pieces, int line, Remarks& remarks);

    void AddLyric(const QString& row);
    void AddHeading(QStringView text);
    void AddBlank();

    /// A row exactly as it is, also a blank one at the text's start or end.
    void AddExact(const QString& row);

    /// Leaves one blank row behind what there is, if there is not one.
    void Separate();

    bool IsEmpty() const { return m_rows.isEmpty(); }

    /// @return the rows without blank ones at both ends, separated by CR LF
    QString Text() const;

private:
    struct Row
    {
        QString text;
        bool exact = false;
    };

    void Add(const QString& row) { m_rows.append({row, false}); }
    QString Chord(const MarkedPiece& piece, int line, Remarks& remarks, QStringList& beside) const;

    QList<Row> m_rows;
};

} // namespace Songbook
