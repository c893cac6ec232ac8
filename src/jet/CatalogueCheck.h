#pragma once

#include "store/Value.h"
#include "store/dialect/Schema.h"
#include "store/sqlite/Statement.h"

#include <vector>

struct sqlite3;

/// Compares a new catalogue with the rows that the old file tells a second time.
class CatalogueCheck
{
public:
    /// @param catalogue  open; outlives this
    /// @param tables     of the catalogue; outlive this
    /// @throws RuntimeError StoreFailure
    CatalogueCheck(sqlite3* catalogue, const std::vector<Table>& tables);

    /// A row with an ID must be there under it, any other is the next one of its table.
    /// @param table   position among the tables
    /// @param fields  one for each column
    /// @throws RuntimeError StoreFailure when the catalogue holds another row
    void Compare(std::size_t table, const std::vector<Value>& fields);

    /// @throws RuntimeError StoreFailure when the catalogue holds more rows, or is not sound
    void Finish();

private:
    struct Progress
    {
        Statement rows;
        qint64 compared = 0;
    };

    sqlite3* m_catalogue;
    const std::vector<Table>& m_tables;
    std::vector<Progress> m_progress; ///< one for each table
};
