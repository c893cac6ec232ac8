#pragma once

#include "tools/jet/Libmdb.h"

#include <cstdint>
#include <string>
#include <vector>

/// The user's tables in an open file.
class JetTables
{
public:
    struct Entry
    {
        std::string name;
        JetTableHandle table; ///< nullptr when its definition cannot be read
        std::int32_t lastNumber = 0;
    };

    /// @throws JetTrouble when there is no such file or the list of its tables cannot be read
    explicit JetTables(const char* path);

    MdbHandle& File() const { return *m_file; }
    const std::vector<Entry>& All() const { return m_entries; }

    /// @param name  letter case is ignored
    /// @throws JetTrouble when there is no such table, or it cannot be read
    MdbTableDef& Find(const std::string& name) const;

    /// @return the column; letter case is ignored. @throws JetTrouble when there is none
    static const MdbColumn& Find(const MdbTableDef& table, const std::string& column);

private:
    void Add(MdbCatalogEntry& entry);

    JetFileHandle m_file; ///< outlives the tables
    std::vector<Entry> m_entries;
};
