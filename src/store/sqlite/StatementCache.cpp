#include "store/sqlite/StatementCache.h"

Statement& StatementCache::Get(const QByteArray& sql)
{
    if (const auto found = m_byText.constFind(sql); found != m_byText.cend()) {
        m_entries.splice(m_entries.begin(), m_entries, *found);
        return m_entries.front().second;
    }
    m_entries.emplace_front(sql, Statement(m_database, sql, true));
    m_byText.insert(sql, m_entries.begin());
    if (m_byText.size() > Capacity) {
        m_byText.remove(m_entries.back().first);
        m_entries.pop_back();
    }
    return m_entries.front().second;
}

void StatementCache::Clear()
{
    m_byText.clear();
    m_entries.clear();
}
