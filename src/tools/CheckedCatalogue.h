#pragma once

#include "tools/EmptyCatalogue.h"

#include <QHash>
#include <QString>

/// A catalogue that is looked into without being trusted: opened for reading only, seen in one
/// state, and opened also where it is damaged, as long as it is recognisable.
class CheckedCatalogue
{
public:
    /// @throws RuntimeError StoreFailure when the file is missing, in the older format, no
    /// catalogue of ours, in use, or waiting for an interrupted write to be undone
    explicit CheckedCatalogue(const QString& path);

    /// Its statements may use TRECHO of ExcerptFunction.
    sqlite3* Handle() const noexcept { return m_handle.get(); }

    const QString& Path() const noexcept { return m_path; }

    /// @return whether the list of its tables can be read and the file is as long as it says
    bool IsWhole() const noexcept { return m_whole; }

    /// @return the columns of a delivered table that this one has too; none when it is not there
    QList<QByteArray> ColumnsOf(const QByteArray& table) const { return m_columns.value(table); }

    bool Has(const QByteArray& table) const { return m_columns.contains(table); }

    /// @return whether all tables and columns are there that the program needs
    bool HasEverything() const;

private:
    void Open();
    void ReadColumns();

    QString m_path;
    EmptyCatalogue::Handle m_handle;
    QHash<QByteArray, QList<QByteArray>> m_columns;
    bool m_whole = true;
};
