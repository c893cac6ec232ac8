#include "store/sqlite/Statement.h"

#include "runtime/Date.h"
#include "store/sqlite/Failure.h"

#include <sqlite3.h>

void Statement::Finalize::operator()(sqlite3_stmt* statement) const noexcept
{
    // What it returns is the failure of the last step, told already.
    sqlite3_finalize(statement);
}

Statement::Statement(sqlite3* database, const QByteArray& sql, bool kept)
    : m_database(database)
{
    sqlite3_stmt* statement = nullptr;
    const unsigned flags = kept ? SQLITE_PREPARE_PERSISTENT : 0;
    const int result = sqlite3_prepare_v3(database, sql.constData(), static_cast<int>(sql.size()),
                                          flags, &statement, nullptr);
    m_statement.reset(statement);
    if (result != SQLITE_OK)
        Failure::ThrowLast(database);
    if (!statement)
        Failure::Throw(SQLITE_ERROR, QStringLiteral("empty statement"));
}

void Statement::Bind(const std::vector<Value>& values)
{
    int position = 0;
    for (const Value& value : values) {
        if (BindOne(++position, value) != SQLITE_OK)
            Failure::ThrowLast(m_database);
    }
}

int Statement::BindOne(int position, const Value& value)
{
    sqlite3_stmt* const statement = m_statement.get();
    if (const auto* number = std::get_if<qint64>(&value.Get()))
        return sqlite3_bind_int64(statement, position, *number);
    if (const auto* number = std::get_if<double>(&value.Get()))
        return sqlite3_bind_double(statement, position, *number);
    if (value.IsNull())
        return sqlite3_bind_null(statement, position);
    const auto* date = std::get_if<QDate>(&value.Get());
    const QByteArray& text =
        m_texts.emplace_back((date ? Date::ToStored(*date) : value.ToText()).toUtf8());
    return sqlite3_bind_text64(statement, position, text.constData(),
                               static_cast<sqlite3_uint64>(text.size()), SQLITE_STATIC,
                               SQLITE_UTF8);
}

bool Statement::Step()
{
    const bool inBatch = sqlite3_txn_state(m_database, nullptr) == SQLITE_TXN_WRITE;
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        Failure::ThrowLast(m_database, inBatch);
    return false;
}

void Statement::Reset() noexcept
{
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
    m_texts.clear();
}

int Statement::ColumnCount() const
{
    return sqlite3_column_count(m_statement.get());
}

const QStringList& Statement::ColumnNames()
{
    if (m_names.isEmpty()) {
        for (int column = 0; column < ColumnCount(); ++column)
            m_names << QString::fromUtf8(sqlite3_column_name(m_statement.get(), column));
    }
    return m_names;
}

bool Statement::IsDateColumn(int column) const
{
    const char* type = sqlite3_column_decltype(m_statement.get(), column);
    return type && sqlite3_stricmp(type, "DATE") == 0;
}

Statement::Kind Statement::ColumnKind(int column) const
{
    switch (sqlite3_column_type(m_statement.get(), column)) {
    case SQLITE_NULL:
        return Kind::Null;
    case SQLITE_INTEGER:
        return Kind::Whole;
    case SQLITE_FLOAT:
        return Kind::Real;
    default:
        return Kind::Text;
    }
}

bool Statement::IsBlob(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_BLOB;
}

qint64 Statement::Whole(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::Real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

std::string_view Statement::Text(int column) const
{
    const auto* text =
        reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    const int length = sqlite3_column_bytes(m_statement.get(), column);
    if (!text && length > 0)
        Failure::Throw(SQLITE_NOMEM, QString::fromUtf8(sqlite3_errstr(SQLITE_NOMEM)));
    return {text ? text : "", static_cast<std::size_t>(length)};
}
