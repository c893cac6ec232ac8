#pragma once

#include "store/Connection.h"
#include "store/StatementTemplates.h"
#include "store/dialect/Syntax.h"
#include "store/sqlite/ReadSnapshot.h"
#include "store/sqlite/StatementCache.h"

#include <memory>
#include <optional>

class SongShelf;
struct Translation;

/// An open catalogue.
class Connection::Database
{
public:
    /// @throws RuntimeError StoreFailure as Connection::Open tells
    explicit Database(const QString& path);

    /// Commits what is open as far as that is possible: what a handler did stays done.
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    Recordset Execute(const QString& sql);
    /// @return whether there was a batch to commit
    bool Commit();
    /// @return false inside a batch or another snapshot, where there is nothing to begin
    bool BeginSnapshot();
    void EndSnapshot() noexcept;

private:
    struct CloseHandle
    {
        void operator()(sqlite3* handle) const noexcept;
    };

    void OpenHandle(const QString& path);
    void Configure();
    void UseRollbackJournal();
    Syntax::Statement Read(const QString& sql);
    bool ReloadSchema();
    qint64 SchemaVersion();
    bool InBatch() const;
    void RunKept(const QByteArray& sql);
    void Undo() noexcept;
    std::shared_ptr<const Recordset::Rows> Answer(const AskedOfMemory& asked);
    Recordset ExecuteAnew(const QString& sql, const Shape* shape);
    Recordset ExecuteAgain(const StatementTemplate& known, const Shape& shape);
    Recordset Run(const Translation& translation);
    Recordset Change(const Translation& translation, const Syntax::Statement* statement);
    Recordset Run(Statement& statement, const Translation& translation);

    std::unique_ptr<sqlite3, CloseHandle> m_handle;
    std::unique_ptr<StatementCache> m_statements;
    std::unique_ptr<SongShelf> m_shelf;
    std::optional<ReadSnapshot> m_snapshot;
    Schema m_schema;
    StatementTemplates m_templates; ///< of m_schema
    qint64 m_schemaVersion = 0;
};
