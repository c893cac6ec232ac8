#pragma once

#include <sqlite3.h>

/// How long another program may hold the file before a statement fails; the window does not answer
/// meanwhile.
inline constexpr int LockPatience = 1000; // ms

/// Waits for nobody while it lives: for work that can as well be done later.
class Impatience
{
public:
    explicit Impatience(sqlite3* database)
        : m_database(database)
    {
        sqlite3_busy_timeout(m_database, 0);
    }
    ~Impatience() { sqlite3_busy_timeout(m_database, LockPatience); }
    Impatience(const Impatience&) = delete;
    Impatience& operator=(const Impatience&) = delete;

private:
    sqlite3* m_database;
};
