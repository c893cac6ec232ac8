#include "store/Connection.h"

#include "runtime/RuntimeError.h"
#include "store/CatalogueFile.h"
#include "store/Database.h"
#include "store/sqlite/Failure.h"

#include <utility>

namespace {

constexpr int ObjectOpen = 3705;

} // namespace

Connection Funcoes::Conexao;
QString Funcoes::SQL;
Recordset Funcoes::Consulta;

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::Open(const QString& connectionString, const QString&, const QString&, int)
{
    if (m_database)
        throw RuntimeError(ObjectOpen, QStringLiteral("O banco de dados já está aberto."),
                           QStringLiteral("Operation is not allowed when the object is open."));
    m_database = std::make_unique<Database>(CatalogueFile::PathFrom(connectionString));
}

Connection::Database& Connection::Opened() const
{
    if (!m_database)
        Failure::ThrowClosed();
    return *m_database;
}

void Connection::Close()
{
    Opened();
    // Closed whatever the commit says.
    const auto database = std::exchange(m_database, nullptr);
    database->Commit();
}

bool Connection::IsOpen() const noexcept
{
    return m_database != nullptr;
}

Recordset Connection::Execute(const QString& sql)
{
    Database& database = Opened();
    if (const StatementHook hook = m_hook)
        hook(sql);
    return database.Execute(sql);
}

bool Connection::CommitBatch()
{
    return m_database && m_database->Commit();
}

Connection::Snapshot::Snapshot(Connection& connection)
    : m_connection(connection)
    , m_began(connection.Opened().BeginSnapshot())
{
}

Connection::Snapshot::~Snapshot()
{
    if (m_began && m_connection.m_database)
        m_connection.m_database->EndSnapshot();
}

void Connection::SetStatementHook(StatementHook hook)
{
    m_hook = std::move(hook);
}
