#pragma once

#include <QList>
#include <QString>

/// Rows of a chord sheet: chords above, lyrics below, told apart by their characters alone. A
/// no-break space, which looks like a blank and is no chord character, keeps a row of lyrics from
/// being taken for chords or for a heading. Everything here reads Notas and Notas_Mais.
namespace Songbook {

/// A stretch of lyrics and what stands above its first character.
struct Piece
{
    QString chord; ///< fit for a chord line; may be empty
    QString lyric;
};

struct Rows
{
    QString chords; ///< empty when no piece has a chord
    QString lyric;  ///< empty when there is nothing but blanks
};

/// Puts each chord over its syllable. Where a chord is wider than what it stands over, the lyric
/// is pushed: with blanks between words, with hyphens inside one.
Rows LayOut(const QList<Piece>& pieces);

/// @return the row as the sheet shows lyrics: without blanks at its end, and guarded where it
///         would be taken for chords or for a heading
QString AsLyric(QString row);

/// @return the row as the sheet shows headings; empty for nothing but blanks
QString AsHeading(QStringView text);

/// @return true when the sheet shows the row as chords. A blank row is none here
bool IsChordRow(QStringView row);

/// @return true when the sheet shows the row as a heading
bool IsHeadingRow(QStringView row);

/// @return the row with tabs replaced by blanks up to the next multiple of eight columns
QString WithoutTabs(QStringView row);

/// One word of a row.
struct Word
{
    qsizetype column = 0; ///< from 0
    QStringView text;
};

/// @return what stands between blanks, in order; the views are into row
QList<Word> WordsOf(QStringView row);

} // namespace Songbook
