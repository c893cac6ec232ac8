#include "support/PlainSqlite.h"

#include <QtGlobal>

#include <sqlite3.h>

namespace {

constexpr int LockPatience = 2000; // ms

int Bind(sqlite3_stmt* statement, int position, const QVariant& value)
{
    if (value.isNull())
        return sqlite3_bind_null(statement, position);
    if (value.typeId() == QMetaType::QString) {
        const QByteArray text = value.toString().toUtf8();
        return sqlite3_bind_text64(statement, position, text.constData(),
                                   static_cast<sqlite3_uint64>(text.size()), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    }
    return sqlite3_bind_int64(statement, position, value.toLongLong());
}

QString Field(sqlite3_stmt* statement, int column)
{
    const unsigned char* text = sqlite3_column_text(statement, column);
    if (!text)
        return QString();
    // Not from a null pointer: an empty text has to differ from NULL.
    return QString::fromUtf8(reinterpret_cast<const char*>(text),
                             sqlite3_column_bytes(statement, column));
}

} // namespace

PlainSqlite::PlainSqlite(const QString& path)
{
    Check(sqlite3_open(path.toUtf8().constData(), &m_handle), "open " + path.toUtf8());
    sqlite3_busy_timeout(m_handle, LockPatience);
    // No test survives a power cut; waiting for the disk would take most of its time.
    Run("PRAGMA synchronous = OFF");
}

PlainSqlite::~PlainSqlite()
{
    sqlite3_close(m_handle);
}

void PlainSqlite::Check(int result, const QByteArray& sql) const
{
    if (result != SQLITE_OK && result != SQLITE_ROW && result != SQLITE_DONE)
        qFatal("%s: %s", sql.constData(), sqlite3_errmsg(m_handle));
}

void PlainSqlite::Run(const QByteArray& sql)
{
    Check(sqlite3_exec(m_handle, sql.constData(), nullptr, nullptr, nullptr), sql);
}

bool PlainSqlite::RunUnlessLocked(const QByteArray& sql)
{
    sqlite3_busy_timeout(m_handle, 0);
    const int result = sqlite3_exec(m_handle, sql.constData(), nullptr, nullptr, nullptr);
    sqlite3_busy_timeout(m_handle, LockPatience);
    if (result != SQLITE_BUSY)
        Check(result, sql);
    else if (sqlite3_get_autocommit(m_handle) == 0)
        Run("ROLLBACK");
    return result == SQLITE_OK;
}

QList<QStringList> PlainSqlite::Rows(const QString& sql, const QVariantList& values)
{
    const QByteArray bytes = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(m_handle, bytes.constData(), -1, &statement, nullptr), bytes);
    for (int i = 0; i < values.size(); ++i)
        Check(Bind(statement, i + 1, values[i]), bytes);
    QList<QStringList> rows;
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
        QStringList row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            row << Field(statement, column);
        rows << row;
    }
    Check(result, bytes);
    sqlite3_finalize(statement);
    return rows;
}

qint64 PlainSqlite::LastId() const
{
    return sqlite3_last_insert_rowid(m_handle);
}
