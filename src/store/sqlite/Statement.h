#pragma once

#include "store/Value.h"

#include <QByteArray>
#include <QStringList>

#include <memory>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// One prepared SQLite statement.
class Statement
{
public:
    enum class Kind { Null, Whole, Real, Text };

    /// @param sql   one statement, UTF-8
    /// @param kept  whether it will be run many times
    /// @throws RuntimeError StoreFailure
    Statement(sqlite3* database, const QByteArray& sql, bool kept = false);

    /// Binds all parameters in order, until Reset. @throws RuntimeError StoreFailure
    void Bind(const std::vector<Value>& values);

    /// @return true while there is a row. @throws RuntimeError of Failure
    bool Step();

    /// Ends a run, so that the statement holds no lock and no values.
    void Reset() noexcept;

    int ColumnCount() const;
    const QStringList& ColumnNames();
    /// @return true when the column is read as it is from a column declared as a date.
    bool IsDateColumn(int column) const;

    /// Of the current row.
    Kind ColumnKind(int column) const;
    /// Bytes of no kind, which ColumnKind calls Text.
    bool IsBlob(int column) const;
    qint64 Whole(int column) const;
    double Real(int column) const;
    /// Valid until the next step or reset. @throws RuntimeError StoreFailure without memory
    std::string_view Text(int column) const;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };

    int BindOne(int position, const Value& value);

    sqlite3* m_database;
    std::vector<QByteArray> m_texts; ///< that are bound
    QStringList m_names;             ///< once they were asked for
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// Ends a statement's run when the scope is left.
class StatementRun
{
public:
    explicit StatementRun(Statement& statement)
        : m_statement(statement)
    {
    }
    ~StatementRun() { m_statement.Reset(); }
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

private:
    Statement& m_statement;
};
