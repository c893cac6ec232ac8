#pragma once

#include "store/Recordset.h"

/// What a recordset stands on.
class Recordset::Rows
{
public:
    explicit Rows(QStringList names)
        : m_names(std::move(names))
    {
    }
    virtual ~Rows() = default;
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    virtual int Count() const noexcept = 0;
    const QStringList& Names() const noexcept { return m_names; }

    /// @return a column's position from 0, -1 for an unknown name; letter case is ignored.
    int Find(QStringView name) const;

    /// @param row     from 0, below Count()
    /// @param column  from 0, below the number of names
    /// @throws RuntimeError StoreFailure where a field is fetched only now
    virtual Value At(int row, int column) const = 0;

    /// As At.
    /// @return the field's text in UTF-8, valid as long as the rows are; nothing for NULL
    virtual std::optional<QByteArray> Utf8At(int row, int column) const;

private:
    QStringList m_names;
};
