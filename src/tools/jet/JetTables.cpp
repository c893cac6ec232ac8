#include "tools/jet/JetTables.h"

#include "tools/jet/JetTrouble.h"

namespace {

constexpr unsigned MostColumns = 255; // of the format

/// In a table's definition: the last number that its AutoNumber column gave out.
constexpr unsigned LastNumberAt = 20;
constexpr unsigned LastNumberAtInJet3 = 16;

bool SameName(const char* a, const std::string& b)
{
    return g_ascii_strcasecmp(a, b.c_str()) == 0;
}

} // namespace

JetTables::JetTables(const char* path)
    : m_file(mdb_open(path, MDB_NOFLAGS))
{
    if (!m_file)
        throw JetTrouble{RowStream::Trouble::Unreadable, path};
    const GPtrArray* catalog = mdb_read_catalog(m_file.get(), MDB_TABLE);
    if (!catalog)
        JetTrouble::Damaged("a relação das tabelas não pode ser lida");
    for (unsigned i = 0; i < catalog->len; ++i) {
        auto& entry = *static_cast<MdbCatalogEntry*>(catalog->pdata[i]);
        if (mdb_is_user_table(&entry))
            Add(entry);
    }
}

void JetTables::Add(MdbCatalogEntry& entry)
{
    Entry added{entry.object_name, JetTableHandle(mdb_read_table(&entry)), 0};
    if (added.table) {
        // The definition's first page is in the buffer now, and no longer once the columns are
        // read.
        const unsigned at = IS_JET3(m_file) ? LastNumberAtInJet3 : LastNumberAt;
        added.lastNumber = static_cast<std::int32_t>(Libmdb::DoubleWord(m_file->pg_buf + at));
        if (added.table->num_cols > MostColumns || !mdb_read_columns(added.table.get()) ||
            added.table->columns->len != added.table->num_cols)
            added.table.reset();
    }
    m_entries.push_back(std::move(added));
}

MdbTableDef& JetTables::Find(const std::string& name) const
{
    const Entry* found = nullptr;
    for (const Entry& entry : m_entries) {
        if (!SameName(entry.name.c_str(), name))
            continue;
        if (found)
            JetTrouble::Damaged("há duas tabelas " + name);
        found = &entry;
    }
    if (!found)
        throw JetTrouble{RowStream::Trouble::MissingTable, name};
    if (!found->table)
        JetTrouble::Damaged("a definição da tabela " + name + " não pode ser lida");
    return *found->table;
}

const MdbColumn& JetTables::Find(const MdbTableDef& table, const std::string& column)
{
    const MdbColumn* found = nullptr;
    for (unsigned i = 0; i < table.num_cols; ++i) {
        const MdbColumn& candidate = Libmdb::Column(table, i);
        if (!SameName(candidate.name, column))
            continue;
        if (found)
            JetTrouble::Damaged("há duas colunas " + column);
        found = &candidate;
    }
    if (!found)
        throw JetTrouble{RowStream::Trouble::MissingColumn, std::string(table.name) + '.' + column};
    return *found;
}
