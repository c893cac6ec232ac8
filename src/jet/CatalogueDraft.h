#pragma once

#include "store/Value.h"
#include "store/dialect/Schema.h"
#include "store/sqlite/Statement.h"

#include <QString>

#include <memory>
#include <vector>

class QLockFile;
struct sqlite3;

/// A new catalogue while it is made. Its file is gone again unless it was kept.
class CatalogueDraft
{
public:
    /// Makes the tables. @param path  of the file to make, in the place of one that an interrupted
    /// conversion left; "" for memory.
    /// @throws RuntimeError StoreFailure, also while another program makes that file
    explicit CatalogueDraft(QString path);
    ~CatalogueDraft();
    CatalogueDraft(const CatalogueDraft&) = delete;
    CatalogueDraft& operator=(const CatalogueDraft&) = delete;

    const QString& Path() const { return m_path; }

    /// @return the seven tables with their columns
    const std::vector<Table>& Tables() const { return m_tables; }

    /// @param table   position in Tables()
    /// @param fields  one for each column
    /// @throws RuntimeError StoreFailure, also for a row whose ID is NULL or there already
    void Insert(std::size_t table, const std::vector<Value>& fields);

    /// New rows get larger numbers than this. @throws RuntimeError StoreFailure
    void SetLastNumber(std::size_t table, qint64 number);

    /// Makes what was inserted durable and opens the file anew, for reading only.
    /// @throws RuntimeError StoreFailure
    void Commit();

    /// @return the open database; whoever has statements on it ends before this
    sqlite3* Handle() const { return m_handle.get(); }

    /// Closes the file.
    void Close();

    /// Leaves the file where it is.
    void Keep() { m_kept = true; }

private:
    struct CloseHandle
    {
        void operator()(sqlite3* handle) const noexcept;
    };

    void Open(int flags);
    void Run(const QByteArray& sql);
    void Remove() const;

    void Lock();

    QString m_path;
    std::unique_ptr<QLockFile> m_lock; ///< goes last
    std::unique_ptr<sqlite3, CloseHandle> m_handle;
    std::vector<Table> m_tables;
    std::vector<Statement> m_inserts; ///< one for each table
    bool m_kept = false;
};
