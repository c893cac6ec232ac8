#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

struct sqlite3;

/// One short connection to a SQLite file, without anything of ours: no functions, no collation.
/// Every failure is fatal.
class PlainSqlite
{
public:
    /// Opens the file and creates it when it is missing.
    explicit PlainSqlite(const QString& path);
    ~PlainSqlite();
    PlainSqlite(const PlainSqlite&) = delete;
    PlainSqlite& operator=(const PlainSqlite&) = delete;

    /// Runs any number of statements.
    void Run(const QByteArray& sql);

    /// Runs any number of statements without waiting for anybody; a transaction that they leave
    /// open when they fail is undone.
    /// @return false when the file was locked
    bool RunUnlessLocked(const QByteArray& sql);

    /// Runs one statement. @param values  null, whole number or text each
    /// @return its rows; NULL is a null QString
    QList<QStringList> Rows(const QString& sql, const QVariantList& values = {});

    qint64 LastId() const;

private:
    void Check(int result, const QByteArray& sql) const;

    sqlite3* m_handle = nullptr;
};
