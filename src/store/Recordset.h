#pragma once

#include "store/Value.h"

#include <QStringList>

#include <memory>
#include <optional>

/// The rows of one query, all fetched when it ran (a client-side cursor), and a current row.
/// A statement that is no query gives a closed recordset. Copies share the rows; each has its own
/// current row.
class Recordset
{
public:
    /// The fetched rows; positions of rows and columns count from 0.
    class Rows;

    /// A closed recordset: any use but IsOpen() is error 3704.
    Recordset() = default;
    explicit Recordset(std::shared_ptr<const Rows> rows);

    bool IsOpen() const noexcept { return m_rows != nullptr; }

    /// @return true when there is no current row (behind the last, or no rows at all).
    /// @throws RuntimeError ObjectClosed
    bool Eof() const;

    /// @throws RuntimeError ObjectClosed; NoCurrentRecord when already behind the last row
    void MoveNext();

    /// Makes any row the current one, forward or back. @param row  from 0, below RecordCount()
    /// @throws RuntimeError ObjectClosed; NoCurrentRecord when there is no such row
    void MoveTo(int row);

    /// @return the exact number of rows. @throws RuntimeError ObjectClosed
    int RecordCount() const;

    /// @param name  a column's name; letter case is ignored
    /// @throws RuntimeError ObjectClosed, ItemNotFound, NoCurrentRecord
    Value Fields(QStringView name) const;

    /// @param position  a column's position from 0
    /// @throws RuntimeError ObjectClosed, ItemNotFound, NoCurrentRecord
    Value Fields(int position) const;

    /// @param position  as for Fields
    /// @return the field's text in UTF-8, nothing for NULL. It may lie in the rows themselves:
    /// valid
    ///         as long as the recordset is open
    /// @throws RuntimeError ObjectClosed, ItemNotFound, NoCurrentRecord
    std::optional<QByteArray> Utf8(int position) const;

    /// @return the columns' names in their order. @throws RuntimeError ObjectClosed
    QStringList FieldNames() const;

    /// @throws RuntimeError ObjectClosed
    void Close();

private:
    const Rows& Open() const;
    const Rows& OpenAt(int position) const;

    std::shared_ptr<const Rows> m_rows;
    int m_row = 0;
};
