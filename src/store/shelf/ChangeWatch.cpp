#include "store/shelf/ChangeWatch.h"

#include <sqlite3.h>

ChangeWatch::ChangeWatch(sqlite3* database)
    : m_database(database)
{
    sqlite3_update_hook(
        database,
        [](void* watch, int, const char*, const char* table, sqlite3_int64 row) {
            static_cast<ChangeWatch*>(watch)->NoteRow(table, row);
        },
        this);
    sqlite3_rollback_hook(
        database, [](void* watch) { static_cast<ChangeWatch*>(watch)->Distrust(); }, this);
}

ChangeWatch::~ChangeWatch()
{
    sqlite3_update_hook(m_database, nullptr, nullptr);
    sqlite3_rollback_hook(m_database, nullptr, nullptr);
}

void ChangeWatch::NoteRow(const char* table, qint64 row)
{
    if (sqlite3_stricmp(table, "TEMA") == 0) {
        m_allThemes = m_allThemes || m_themes.size() >= MostRows;
        if (!m_allThemes)
            m_themes.push_back(row);
        return;
    }
    const bool isSong = sqlite3_stricmp(table, "MUSICA") == 0;
    if (!isSong && sqlite3_stricmp(table, "TEMA_MUSICA") != 0)
        return;
    if (m_songs.size() + m_links.size() >= MostRows)
        m_everything = true;
    if (!m_everything)
        (isSong ? m_songs : m_links).push_back(row);
}

void ChangeWatch::Announce(const Syntax::Statement& statement)
{
    const auto* deletion = std::get_if<Syntax::Delete>(&statement);
    if (deletion && !deletion->where)
        Distrust();
}

void ChangeWatch::SeeVersion(qint64 version)
{
    if (version != m_version)
        Distrust();
    m_version = version;
}

void ChangeWatch::ForgetThemes()
{
    m_allThemes = false;
    m_themes.clear();
}

void ChangeWatch::Forget()
{
    m_everything = false;
    m_songs.clear();
    m_links.clear();
}
