#pragma once

#include <QByteArray>
#include <QList>

#include <utility>

class CheckedCatalogue;
struct sqlite3;

/// Copies the rows of a table out of a catalogue that may be damaged: every row that can be read,
/// and of the others every column that can be read.
class RowRescue
{
public:
    /// @param from  is read
    /// @param into  has the table, and in a link table no row of it
    RowRescue(const CheckedCatalogue& from, sqlite3* into, QByteArray table);

    /// @throws RuntimeError StoreFailure when a row cannot be stored
    void Run();

    /// @return how many rows came whole
    qint64 Copied() const noexcept { return m_copied; }

    /// @return the rowids of rows of which a part came
    const QList<qint64>& InPart() const noexcept { return m_inPart; }

    /// @return ranges of rowids, first and last, in which rows may be lost, ascending
    QList<std::pair<qint64, qint64>> Gaps() const;

    /// @return whether the table could not be looked into at all
    bool IsUnreadable() const noexcept { return m_unreadable; }

private:
    class Reader;

    QByteArray m_table;
    const CheckedCatalogue& m_from;
    sqlite3* m_into;
    qint64 m_copied = 0;
    QList<qint64> m_inPart;
    QList<std::pair<qint64, qint64>> m_gaps;
    bool m_unreadable = false;
};
