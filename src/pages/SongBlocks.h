#pragma once

#include <QList>
#include <QString>

/// A sheet cut into what stays together on paper. Reads Notas and Notas_Mais.
namespace Pages {

/// Rows that no page or column ever parts.
struct Unit
{
    QString heading; ///< in capitals; then there is nothing else
    QString chords;  ///< what stands above the lyric
    QString lyric;

    /// @return how many columns the widest of its rows takes
    qsizetype Columns() const;
};

/// Rows between blank ones. A heading belongs to the rows below it.
using Block = QList<Unit>;

/// @param text  a song's sheet, lines separated by CR LF
QList<Block> BlocksOf(const QString& text);

/// @return the column in which the character at an index is seen: marks on a letter take none, and
///         two UTF-16 units may be one sign. Behind the row's end each index is a column
qsizetype SeenColumn(QStringView row, qsizetype index);

/// Cuts a unit that is wider than a column, between words where that is possible, with the chords
/// over their syllables. What follows is indented.
/// @param columns  at least 8
QList<Unit> Wrapped(const Unit& unit, qsizetype columns);

} // namespace Pages
