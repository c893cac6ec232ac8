#include "harness/Catalogue.h"

#include "support/GeneratedSongs.h"

#include <sqlite3.h>

namespace {

constexpr int Themes = 12;
constexpr std::uint64_t Seed = 20000;

/// A prepared statement; every failure is fatal.
class Insert
{
public:
    Insert(sqlite3* database, const char* sql)
    {
        if (sqlite3_prepare_v2(database, sql, -1, &m_statement, nullptr) != SQLITE_OK)
            qFatal("%s: %s", sql, sqlite3_errmsg(database));
    }
    ~Insert() { sqlite3_finalize(m_statement); }
    Insert(const Insert&) = delete;
    Insert& operator=(const Insert&) = delete;

    Insert& Text(const QString& text)
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(m_statement, ++m_position, utf8.constData(),
                          static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Insert& Number(qint64 number)
    {
        sqlite3_bind_int64(m_statement, ++m_position, number);
        return *this;
    }
    void Run()
    {
        if (sqlite3_step(m_statement) != SQLITE_DONE)
            qFatal("a generated row is refused");
        sqlite3_reset(m_statement);
        m_position = 0;
    }

private:
    sqlite3_stmt* m_statement = nullptr;
    int m_position = 0;
};

void Fill(sqlite3* database, int songs)
{
    SongGenerator generator(Seed);
    Insert theme(database, "INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES (?, 1, '')");
    for (int i = 0; i < Themes; ++i)
        theme.Text(u"Tema %1"_qs.arg(i + 1)).Run();
    Insert song(database, "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO,"
                          " CATEGORIA, CONTADOR) VALUES (?, ?, ?, '', ?, ?, ?, ?)");
    Insert link(database, "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (?, ?)");
    for (int i = 0; i < songs; ++i) {
        const GeneratedSong made = generator.Next();
        song.Text(made.title).Text(made.reference).Text(made.text).Text(made.key);
        song.Text(made.variation).Number(made.category).Number(made.count).Run();
        const qint64 id = sqlite3_last_insert_rowid(database);
        const int links = 1 + generator.Below(3);
        const int first = generator.Below(Themes);
        for (int j = 0; j < links; ++j)
            link.Number(id).Number(1 + (first + j) % Themes).Run();
    }
}

} // namespace

GeneratedCatalogue::GeneratedCatalogue(int songs)
{
    sqlite3* database = nullptr;
    if (sqlite3_open(Path().toUtf8().constData(), &database) != SQLITE_OK)
        qFatal("the generated catalogue does not open");
    sqlite3_exec(database, "PRAGMA synchronous = OFF; BEGIN", nullptr, nullptr, nullptr);
    Fill(database, songs);
    if (sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("the generated catalogue cannot be written");
    sqlite3_close(database);
}
