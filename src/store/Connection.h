#pragma once

#include "store/Recordset.h"

#include <QString>

#include <functional>
#include <memory>

/// The connection to the catalogue: takes statements in the program's SQL dialect as text, one per
/// Execute, and runs them on SQLite.
///
/// Statements that change rows run in a batch: the first one begins it, CommitBatch() ends it. The
/// handler guard (controls/Handler.h) commits when a handler ends and before anything is told to
/// the user, so a crash leaves the catalogue as it was before the action or after it.
class Connection
{
public:
    /// Where the rows of a query live; only client-side cursors know their exact count.
    enum CursorLocationEnum { UseServer = 2, UseClient = 3 };

    /// Called with each statement exactly as it was handed to Execute, before it runs.
    using StatementHook = std::function<void(const QString& sql)>;

    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens the catalogue that the connection string names; never creates a file.
    /// @param connectionString  "Provider=...;Data Source=" path ";User Id=...;Password=...;" - the
    ///                          path runs to the last ";User Id=", so it may hold a ';'
    /// @param user, password, options  taken as the provider takes them; a catalogue knows no users
    /// @throws RuntimeError StoreFailure when there is no such file or it is empty, foreign, in the
    ///         older format, damaged, unreadable or lacks one of the seven tables
    void Open(const QString& connectionString, const QString& user = {},
              const QString& password = {}, int options = -1);

    /// Commits what is open and closes. @throws RuntimeError ObjectClosed when not open
    void Close();

    bool IsOpen() const noexcept;

    int CursorLocation = UseServer;

    /// Runs one statement of the dialect.
    /// @return the rows of a query, a closed recordset for any other statement
    /// @throws RuntimeError ObjectClosed; StoreFailure with the store's own words; Overflow,
    ///         TypeMismatch for values that a column cannot hold
    Recordset Execute(const QString& sql);

    /// Makes durable what was changed since the last commit.
    /// @return false when there was no batch to commit: nothing was changed, or a statement failed
    ///         in a way that made SQLite undo the batch (a full disk, a file that cannot be read)
    /// @throws RuntimeError StoreFailure; the batch is then rolled back, and WhatFailed says so
    bool CommitBatch();

    /// Lets several queries see the catalogue in one state while it lives: another program that
    /// changes rows waits that long. It ends sooner with the first statement of our own that
    /// changes rows and with CommitBatch, so nobody waits for a box that stands open.
    class Snapshot
    {
    public:
        /// Inside a batch, which sees one state anyway, or another snapshot it does nothing.
        /// @param connection  outlives it
        /// @throws RuntimeError ObjectClosed, StoreFailure
        explicit Snapshot(Connection& connection);
        ~Snapshot();
        Snapshot(const Snapshot&) = delete;
        Snapshot& operator=(const Snapshot&) = delete;

    private:
        Connection& m_connection;
        bool m_began;
    };

    /// For tests: sees every statement as it was handed in. An empty hook removes it.
    void SetStatementHook(StatementHook hook);

private:
    class Database;

    /// @throws RuntimeError ObjectClosed
    Database& Opened() const;

    std::unique_ptr<Database> m_database;
    StatementHook m_hook;
};

namespace Funcoes {

/// The one connection of the program; opened by the main form's loading, closed by its unload.
extern Connection Conexao;

/// The shared statement buffer. Whoever needs a text across a yield or a fill copies it: any
/// handler that runs in between writes its own statement here.
extern QString SQL;

/// The shared recordset of forms that read rows themselves; whoever assigns it closes it.
extern Recordset Consulta;

} // namespace Funcoes
