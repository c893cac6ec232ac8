#include "store/Database.h"

#include "runtime/RuntimeError.h"
#include "store/CatalogueFile.h"
#include "store/FetchedRows.h"
#include "store/StoredDate.h"
#include "store/dialect/Dialect.h"
#include "store/dialect/Writer.h"
#include "store/shelf/SongShelf.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/FileName.h"
#include "store/sqlite/LockPatience.h"
#include "store/sqlite/SqlFunctions.h"

#include <sqlite3.h>

namespace {

void RunSimple(sqlite3* database, const QByteArray& sql)
{
    Statement statement(database, sql);
    while (statement.Step()) {
    }
}

void AddField(FetchedRows& rows, const Statement& statement, int column, bool isDate)
{
    switch (statement.ColumnKind(column)) {
    case Statement::Kind::Null:
        rows.AddNull();
        return;
    case Statement::Kind::Whole:
        rows.AddNumber(statement.Whole(column));
        return;
    case Statement::Kind::Real:
        rows.AddNumber(statement.Real(column));
        return;
    case Statement::Kind::Text:
        break;
    }
    const std::string_view text = statement.Text(column);
    // A date that another tool wrote in a way of its own is shown as it wrote it.
    if (const auto date = isDate ? StoredDate::FromText(text) : std::nullopt)
        rows.AddDate(*date);
    else
        rows.AddText(text);
}

std::shared_ptr<const Recordset::Rows> Fetch(Statement& statement)
{
    auto rows = std::make_shared<FetchedRows>(statement.ColumnNames());
    const int columns = statement.ColumnCount();
    std::vector<bool> isDate(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column)
        isDate[static_cast<std::size_t>(column)] = statement.IsDateColumn(column);
    while (statement.Step()) {
        for (int column = 0; column < columns; ++column)
            AddField(*rows, statement, column, isDate[static_cast<std::size_t>(column)]);
    }
    return rows;
}

} // namespace

void Connection::Database::CloseHandle::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

Connection::Database::Database(const QString& path)
{
    CatalogueFile::CheckHeader(path);
    OpenHandle(path);
    Configure();
    UseRollbackJournal();
    SqlFunctions::AddAll(m_handle.get());
    m_statements = std::make_unique<StatementCache>(m_handle.get());
    ReloadSchema();
    CatalogueFile::CheckLength(m_handle.get(), path);
    CatalogueFile::CheckTables(m_handle.get(), m_schema);
    m_shelf = std::make_unique<SongShelf>(m_handle.get(), *m_statements);
}

Connection::Database::~Database()
{
    try {
        if (m_statements)
            Commit();
    } catch (const RuntimeError&) {
        // Nobody is left to be told; SQLite undoes the batch when it closes.
    }
}

void Connection::Database::OpenHandle(const QString& path)
{
    const QByteArray name = SqliteFileName(path);
    sqlite3* handle = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int result = sqlite3_open_v2(name.constData(), &handle, flags, nullptr);
    m_handle.reset(handle);
    if (!handle)
        Failure::Throw(SQLITE_NOMEM, QString::fromUtf8(sqlite3_errstr(SQLITE_NOMEM)));
    if (result != SQLITE_OK)
        Failure::ThrowLast(handle);
}

void Connection::Database::Configure()
{
    sqlite3* const handle = m_handle.get();
    sqlite3_busy_timeout(handle, LockPatience);
    // A name in double quotes is never taken for a text, and nothing in a file from elsewhere can
    // do more than hold data.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
    RunSimple(handle, "PRAGMA cell_size_check = ON");
    // FULL leaves open whether the journal's removal, which is what commits, survives a power cut.
    RunSimple(handle, "PRAGMA synchronous = EXTRA");
    // Searches are answered from memory, so there is little that would be read twice.
    RunSimple(handle, "PRAGMA cache_size = -16384"); // KiB
}

/// A catalogue is one file that can be copied. Where another tool has switched it to a write-ahead
/// log it is switched back; while that tool still has it open this fails, and so does opening.
void Connection::Database::UseRollbackJournal()
{
    Statement statement(m_handle.get(), "PRAGMA journal_mode = DELETE");
    if (statement.Step() && statement.Text(0) != "delete")
        Failure::Throw(SQLITE_BUSY, QStringLiteral("the database uses a write-ahead log"));
}

qint64 Connection::Database::SchemaVersion()
{
    Statement statement(m_handle.get(), "PRAGMA schema_version");
    return statement.Step() ? statement.Whole(0) : 0;
}

/// @return whether another tool has changed tables since they were read last
bool Connection::Database::ReloadSchema()
{
    const qint64 version = SchemaVersion();
    if (version == m_schemaVersion && m_schemaVersion != 0)
        return false;
    m_schema = CatalogueFile::ReadSchema(m_handle.get());
    m_templates.Clear();
    m_schemaVersion = version;
    return true;
}

Syntax::Statement Connection::Database::Read(const QString& sql)
{
    try {
        return ReadStatement(sql, m_schema);
    } catch (const RuntimeError&) {
        // The name it complains about may be newer than the schema that is known.
        if (!ReloadSchema())
            throw;
    }
    return ReadStatement(sql, m_schema);
}

void Connection::Database::RunKept(const QByteArray& sql)
{
    Statement& statement = m_statements->Get(sql);
    const StatementRun run(statement);
    statement.Step();
}

bool Connection::Database::InBatch() const
{
    return sqlite3_txn_state(m_handle.get(), nullptr) == SQLITE_TXN_WRITE;
}

bool Connection::Database::BeginSnapshot()
{
    if (m_snapshot || InBatch())
        return false;
    m_snapshot.emplace(m_handle.get());
    return true;
}

void Connection::Database::EndSnapshot() noexcept
{
    m_snapshot.reset();
}

Recordset Connection::Database::Execute(const QString& sql)
{
    Shape shape;
    const bool isUsual = shape.Read(sql);
    if (const StatementTemplate* known = isUsual ? m_templates.Find(shape) : nullptr)
        return ExecuteAgain(*known, shape);
    return ExecuteAnew(sql, isUsual ? &shape : nullptr);
}

/// @return what the songs in memory say to a question, nullptr where SQLite has to answer
std::shared_ptr<const Recordset::Rows> Connection::Database::Answer(const AskedOfMemory& asked)
{
    return std::visit(
        [this](const auto& question) -> std::shared_ptr<const Recordset::Rows> {
            if constexpr (std::is_same_v<decltype(question), const std::monostate&>)
                return nullptr;
            else
                return m_shelf->Answer(question);
        },
        asked.question);
}

Recordset Connection::Database::ExecuteAgain(const StatementTemplate& known, const Shape& shape)
{
    if (auto rows = Answer(known.AskedWith(shape)))
        return Recordset(std::move(rows));
    const Translation translation = known.With(shape);
    return translation.isQuery ? Run(translation) : Change(translation, nullptr);
}

/// @param shape  of the statement, or nullptr where it is not to be kept
Recordset Connection::Database::ExecuteAnew(const QString& sql, const Shape* shape)
{
    const Syntax::Statement statement = Read(sql);
    const auto search = SongSearch::Recognise(statement);
    if (search) {
        if (auto songs = m_shelf->Answer(*search))
            return Recordset(std::move(songs));
    }
    const AskedOfMemory asked(statement);
    const Translation translation = Writer::Write(statement, Writer::Compared::Bound);
    // Where memory did not answer a search this time, it may the next time.
    if (shape && !search)
        m_templates.Keep(*shape, statement, translation, asked);
    if (auto rows = Answer(asked))
        return Recordset(std::move(rows));
    return translation.isQuery ? Run(translation) : Change(translation, &statement);
}

/// Runs a statement that changes rows, in a batch.
/// @param statement  it, resolved; nullptr for an insertion, which takes nothing away
Recordset Connection::Database::Change(const Translation& translation,
                                       const Syntax::Statement* statement)
{
    EndSnapshot();
    const bool begins = !InBatch();
    // Immediate: a batch that cannot write fails before anything of it has run.
    if (begins)
        RunKept("BEGIN IMMEDIATE");
    if (statement)
        m_shelf->BeforeChange(*statement);
    try {
        return Run(translation);
    } catch (const RuntimeError&) {
        // Nothing is left to commit: not even an empty page into a file that was emptied meanwhile.
        if (begins)
            Undo();
        throw;
    }
}

Recordset Connection::Database::Run(const Translation& translation)
{
    if (translation.cacheable)
        return Run(m_statements->Get(translation.sql), translation);
    Statement once(m_handle.get(), translation.sql);
    return Run(once, translation);
}

Recordset Connection::Database::Run(Statement& statement, const Translation& translation)
{
    const StatementRun run(statement);
    statement.Bind(translation.values);
    if (translation.isQuery)
        return Recordset(Fetch(statement));
    while (statement.Step()) {
    }
    return {};
}

bool Connection::Database::Commit()
{
    EndSnapshot();
    if (!InBatch())
        return false;
    try {
        RunKept("COMMIT");
    } catch (const RuntimeError& error) {
        if (!InBatch())
            throw; // SQLite has undone the batch itself, and the error says so
        Undo();
        throw RuntimeError(error.Number(), error.WhatFailed() + QStringView(Failure::Undone),
                           error.Description());
    }
    return true;
}

void Connection::Database::Undo() noexcept
{
    if (InBatch())
        sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}
