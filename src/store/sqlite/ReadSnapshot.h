#pragma once

struct sqlite3;

/// Lets several reads see the catalogue in one state while it lives. Inside a batch, which sees one
/// state anyway, it does nothing.
class ReadSnapshot
{
public:
    /// @throws RuntimeError StoreFailure
    explicit ReadSnapshot(sqlite3* database);
    ~ReadSnapshot();
    ReadSnapshot(const ReadSnapshot&) = delete;
    ReadSnapshot& operator=(const ReadSnapshot&) = delete;

private:
    sqlite3* m_database;
    bool m_began;
};
