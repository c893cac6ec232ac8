#include "jet/CatalogueCheck.h"

#include "jet/JetFailure.h"
#include "runtime/Date.h"

namespace {

QByteArray SelectFrom(const Table& table)
{
    QStringList names;
    for (const Column& column : table.columns)
        names += column.name;
    const QString sql = u"SELECT " + names.join(u", ") + u" FROM " + table.name +
                        (table.Key() ? u" WHERE ID = ?"_qs : u" ORDER BY rowid"_qs);
    return sql.toUtf8();
}

bool HoldsText(const Statement& row, int column, const QString& text)
{
    return row.ColumnKind(column) == Statement::Kind::Text && !row.IsBlob(column) &&
           row.Text(column) == text.toUtf8().toStdString();
}

bool Holds(const Statement& row, int column, const Value& value)
{
    if (value.IsNull())
        return row.ColumnKind(column) == Statement::Kind::Null;
    if (const auto* number = std::get_if<qint64>(&value.Get()))
        return row.ColumnKind(column) == Statement::Kind::Whole && row.Whole(column) == *number;
    if (const auto* date = std::get_if<QDate>(&value.Get()))
        return HoldsText(row, column, Date::ToStored(*date));
    const auto* text = std::get_if<QString>(&value.Get());
    return text && HoldsText(row, column, *text);
}

[[noreturn]] void Refuse(const QString& where)
{
    JetFailure::Throw(u"O catálogo novo não confere com o antigo."_qs, where);
}

} // namespace

CatalogueCheck::CatalogueCheck(sqlite3* catalogue, const std::vector<Table>& tables)
    : m_catalogue(catalogue)
    , m_tables(tables)
{
    for (const Table& table : m_tables)
        m_progress.push_back({Statement(catalogue, SelectFrom(table), true), 0});
}

void CatalogueCheck::Compare(std::size_t table, const std::vector<Value>& fields)
{
    Progress& progress = m_progress[table];
    ++progress.compared;
    const QString where = m_tables[table].name + u" " + QString::number(progress.compared);
    if (const std::optional<int> key = m_tables[table].Find(u"ID")) {
        progress.rows.Reset();
        progress.rows.Bind({fields[static_cast<std::size_t>(*key)]});
    }
    if (!progress.rows.Step())
        Refuse(where);
    for (std::size_t column = 0; column < fields.size(); ++column) {
        if (!Holds(progress.rows, static_cast<int>(column), fields[column]))
            Refuse(where + u' ' + m_tables[table].columns[column].name);
    }
}

void CatalogueCheck::Finish()
{
    for (std::size_t table = 0; table < m_tables.size(); ++table) {
        const QString& name = m_tables[table].name;
        Statement count(m_catalogue, "SELECT COUNT(*) FROM " + name.toUtf8());
        count.Step();
        if (count.Whole(0) != m_progress[table].compared)
            Refuse(name + u": " + QString::number(m_progress[table].compared) + u" e " +
                   QString::number(count.Whole(0)));
    }
    m_progress.clear();
    Statement integrity(m_catalogue, "PRAGMA integrity_check(1)");
    integrity.Step();
    if (integrity.Text(0) != "ok")
        Refuse(u"a estrutura do arquivo não está certa"_qs);
}
