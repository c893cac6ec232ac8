#include "jet/CatalogueDraft.h"

#include "jet/JetFailure.h"
#include "runtime/RuntimeError.h"
#include "store/CatalogueFile.h"
#include "store/sqlite/Failure.h"
#include "store/sqlite/FileName.h"

#include <QFile>
#include <QLockFile>

#include <sqlite3.h>

namespace {

QByteArray SchemaScript()
{
    QFile script(u":/jet/schema.sql"_qs);
    return script.open(QIODevice::ReadOnly) ? script.readAll() : QByteArray();
}

QByteArray InsertInto(const Table& table)
{
    QStringList names;
    QStringList marks;
    for (const Column& column : table.columns) {
        names += column.name;
        marks += u"?"_qs;
    }
    const QString sql = u"INSERT INTO " + table.name + u" (" + names.join(u", ") + u") VALUES (" +
                        marks.join(u", ") + u')';
    return sql.toUtf8();
}

} // namespace

void CatalogueDraft::CloseHandle::operator()(sqlite3* handle) const noexcept
{
    sqlite3_close_v2(handle);
}

CatalogueDraft::CatalogueDraft(QString path)
    : m_path(std::move(path))
{
    Lock();
    Remove();
    try {
        Open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        // A draft that is interrupted is thrown away: only its last commit must reach the disk, and
        // that one carries all before it.
        Run("PRAGMA journal_mode = MEMORY");
        Run("PRAGMA synchronous = OFF");
        Run(SchemaScript());
        Run("PRAGMA synchronous = FULL");
        m_tables = CatalogueFile::NeededFrom(CatalogueFile::ReadSchema(m_handle.get()));
        for (const Table& table : m_tables)
            m_inserts.emplace_back(m_handle.get(), InsertInto(table), true);
        Run("BEGIN");
    } catch (const RuntimeError&) {
        Close();
        Remove();
        throw;
    }
}

CatalogueDraft::~CatalogueDraft()
{
    Close();
    if (!m_kept)
        Remove();
}

/// Two programs that wrote the same file would spoil it. The lock of one that was killed counts no
/// more.
void CatalogueDraft::Lock()
{
    if (m_path.isEmpty())
        return;
    m_lock = std::make_unique<QLockFile>(m_path + u".lock");
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock())
        return;
    if (m_lock->error() == QLockFile::LockFailedError)
        JetFailure::Throw(u"O catálogo está sendo convertido por outro programa."_qs, m_path);
    JetFailure::Throw(u"Não é possível gravar na pasta do catálogo novo."_qs,
                      m_lock->error() == QLockFile::PermissionError
                          ? u"falta a permissão"_qs
                          : u"o disco está cheio ou não aceita a gravação"_qs);
}

void CatalogueDraft::Open(int flags)
{
    const QByteArray name = m_path.isEmpty() ? QByteArray(":memory:") : SqliteFileName(m_path);
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(
        name.constData(), &handle, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    m_handle.reset(handle);
    if (!handle)
        Failure::Throw(SQLITE_NOMEM, QString::fromUtf8(sqlite3_errstr(SQLITE_NOMEM)));
    if (result != SQLITE_OK)
        Failure::ThrowLast(handle);
}

void CatalogueDraft::Run(const QByteArray& sql)
{
    if (sqlite3_exec(m_handle.get(), sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Failure::ThrowLast(m_handle.get());
}

void CatalogueDraft::Insert(std::size_t table, const std::vector<Value>& fields)
{
    const Table& target = m_tables[table];
    const std::optional<int> key = target.Find(u"ID");
    // SQLite would make a number of its own of it.
    if (key && fields[static_cast<std::size_t>(*key)].IsNull())
        JetFailure::ThrowDamaged(u"há uma linha sem ID na tabela "_qs + target.name);
    Statement& insert = m_inserts[table];
    const StatementRun run(insert);
    insert.Bind(fields);
    insert.Step();
}

void CatalogueDraft::SetLastNumber(std::size_t table, qint64 number)
{
    const QString name = m_tables[table].name;
    Statement clear(m_handle.get(), "DELETE FROM sqlite_sequence WHERE name = ? AND seq < ?");
    clear.Bind({name, number});
    clear.Step();
    Statement set(m_handle.get(), "INSERT INTO sqlite_sequence (name, seq) SELECT ?1, ?2 WHERE NOT "
                                  "EXISTS (SELECT * FROM sqlite_sequence WHERE name = ?1)");
    set.Bind({name, number});
    set.Step();
}

void CatalogueDraft::Commit()
{
    m_inserts.clear();
    Run("COMMIT");
    if (m_path.isEmpty())
        return; // memory is gone once it is closed
    Close();
    Open(SQLITE_OPEN_READONLY);
}

void CatalogueDraft::Close()
{
    m_inserts.clear();
    m_handle.reset();
}

void CatalogueDraft::Remove() const
{
    if (m_path.isEmpty())
        return;
    QFile::remove(m_path);
    QFile::remove(m_path + u"-journal");
}
