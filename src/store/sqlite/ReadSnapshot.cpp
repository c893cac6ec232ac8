#include "store/sqlite/ReadSnapshot.h"

#include "store/sqlite/Failure.h"

#include <sqlite3.h>

ReadSnapshot::ReadSnapshot(sqlite3* database)
    : m_database(database)
    , m_began(sqlite3_get_autocommit(database) != 0)
{
    if (m_began && sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK)
        Failure::ThrowLast(database);
}

ReadSnapshot::~ReadSnapshot()
{
    // It has only read: there is nothing that could fail to become durable.
    if (m_began && sqlite3_exec(m_database, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
        sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
}
