#pragma once

#include "store/sqlite/Statement.h"

#include <QByteArray>
#include <QHash>

#include <list>
#include <utility>

/// The statements that were run last, ready to run again: the program builds the same few texts
/// over and over, and preparing one takes longer than running it.
class StatementCache
{
public:
    explicit StatementCache(sqlite3* database)
        : m_database(database)
    {
    }

    /// @param sql  one SQLite statement
    /// @return it, prepared; valid until the next Get or Clear
    /// @throws RuntimeError StoreFailure
    Statement& Get(const QByteArray& sql);

    void Clear();

    int Size() const noexcept { return static_cast<int>(m_byText.size()); }

    /// More than all statements of the program take.
    static constexpr int Capacity = 64;

private:
    using Entry = std::pair<QByteArray, Statement>;

    sqlite3* m_database;
    std::list<Entry> m_entries; ///< the one used last comes first
    QHash<QByteArray, std::list<Entry>::iterator> m_byText;
};
