#include "tools/NewCatalogue.h"

#include "runtime/RuntimeError.h"
#include "store/sqlite/FileName.h"
#include "tools/SeedFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

/// A catalogue file that is gone again unless it was kept.
class Draft
{
public:
    explicit Draft(const QString& output)
        : m_output(output)
        , m_path(output + u".parcial")
    {
        QFile::remove(m_path);
        sqlite3* db = nullptr;
        const QByteArray name = SqliteFileName(m_path);
        const int rc = sqlite3_open_v2(name.constData(), &db,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        m_db.reset(db);
        if (rc != SQLITE_OK)
            FailHere();
    }

    ~Draft()
    {
        m_db.reset();
        QFile::remove(m_path);
    }

    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    sqlite3* Handle() const { return m_db.get(); }

    /// Gives the file its name, unless somebody else took it meanwhile.
    void Keep()
    {
        m_db.reset();
        if (!QFile::rename(m_path, m_output))
            Seed::FailAt(m_output, 0, u"não foi possível criar o arquivo"_qs);
    }

    [[noreturn]] void FailHere() const
    {
        Seed::FailAt(m_output, 0, QString::fromUtf8(sqlite3_errmsg(m_db.get())));
    }

private:
    struct Closer
    {
        void operator()(sqlite3* db) const { sqlite3_close(db); }
    };

    QString m_output;
    QString m_path;
    std::unique_ptr<sqlite3, Closer> m_db;
};

struct Finalizer
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

/// @return where the next statement begins: after blanks, line ends and comments
const char* StatementStart(const char* at)
{
    for (;; ++at) {
        if (at[0] == '-' && at[1] == '-')
            at += std::strcspn(at, "\n");
        if (*at != ' ' && *at != '\n' && *at != '\t')
            return at;
    }
}

/// Runs all statements of a script; an error names the line it was found in.
void RunScript(const Draft& draft, const QString& file)
{
    const QByteArray script = Seed::ReadLines(file).join(u'\n').toUtf8();
    const char* at = StatementStart(script.constData());
    while (*at != '\0') {
        const char* next = nullptr;
        sqlite3_stmt* raw = nullptr;
        int rc = sqlite3_prepare_v2(draft.Handle(), at, -1, &raw, &next);
        const Statement statement(raw);
        if (rc == SQLITE_OK && raw != nullptr) {
            do
                rc = sqlite3_step(raw);
            while (rc == SQLITE_ROW);
        }
        if (rc != SQLITE_OK && rc != SQLITE_DONE) {
            const int offset = std::max(0, sqlite3_error_offset(draft.Handle()));
            const qsizetype read = at - script.constData() + offset;
            Seed::FailAt(file, static_cast<int>(script.first(read).count('\n')) + 1,
                         QString::fromUtf8(sqlite3_errmsg(draft.Handle())));
        }
        at = StatementStart(next);
    }
}

void Bind(sqlite3_stmt* statement, int index, const QString& value)
{
    const QByteArray text = value.toUtf8();
    sqlite3_bind_text(statement, index, text.constData(), static_cast<int>(text.size()),
                      SQLITE_TRANSIENT);
}

void Bind(sqlite3_stmt* statement, int index, qint64 value)
{
    sqlite3_bind_int64(statement, index, value);
}

/// Binds texts and whole numbers in order and runs the statement.
/// @return the first column of the first row, 0 when there is none
template <typename... Values>
qint64 Run(const Draft& draft, const char* sql, const Values&... values)
{
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(draft.Handle(), sql, -1, &raw, nullptr) != SQLITE_OK)
        draft.FailHere();
    const Statement statement(raw);
    [[maybe_unused]] int index = 0;
    (Bind(raw, ++index, values), ...);
    const int rc = sqlite3_step(raw);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        draft.FailHere();
    return rc == SQLITE_ROW ? sqlite3_column_int64(raw, 0) : 0;
}

using ThemeIds = QHash<QString, qint64>;

ThemeIds InsertThemes(const Draft& draft, const QList<Seed::Theme>& themes)
{
    ThemeIds ids;
    for (const Seed::Theme& theme : themes) {
        Run(draft, "INSERT INTO TEMA (DESCRICAO, ORDEM, COR) VALUES (?, ?, '')", theme.description,
            theme.order);
        ids.insert(theme.description, sqlite3_last_insert_rowid(draft.Handle()));
    }
    return ids;
}

void InsertSong(const Draft& draft, const QString& file, const Seed::Song& song,
                const ThemeIds& themes)
{
    if (Run(draft, "SELECT COUNT(*) FROM TOM WHERE NOTA = ?", song.key) == 0)
        Seed::FailAt(file, song.lines.value(u"TOM"_qs),
                     u"o tom \"%1\" não existe"_qs.arg(song.key));
    if (Run(draft, "SELECT COUNT(*) FROM VARIACAO WHERE NOMENCLATURA = ?", song.variation) == 0)
        Seed::FailAt(file, song.lines.value(u"VARIACAO"_qs),
                     u"a variação \"%1\" não existe"_qs.arg(song.variation));
    if (Run(draft, "SELECT COUNT(*) FROM MUSICA WHERE TITULO = ?", song.title) != 0)
        Seed::FailAt(file, song.lines.value(u"TITULO"_qs),
                     u"o título \"%1\" já existe"_qs.arg(song.title));

    Run(draft,
        "INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA) "
        "VALUES (?, ?, ?, ?, ?, ?, ?)",
        song.title, song.reference, song.text, song.secondText, song.key, song.variation,
        song.category);
    const qint64 id = sqlite3_last_insert_rowid(draft.Handle());
    for (const QString& theme : song.themes) {
        if (!themes.contains(theme))
            Seed::FailAt(file, song.lines.value(u"TEMAS"_qs),
                         u"o tema \"%1\" não está em themes.txt"_qs.arg(theme));
        Run(draft, "INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) VALUES (?, ?)", id,
            themes.value(theme));
    }
}

} // namespace

CatalogueCounts MakeCatalogue(const QString& dataFolder, const QString& output)
{
    const QFileInfo target(output);
    if (target.exists() || target.isSymLink())
        Seed::FailAt(output, 0, u"o arquivo já existe e não será substituído"_qs);

    const QDir data(dataFolder);
    const QList<Seed::Theme> themes = Seed::ReadThemes(data.filePath(u"themes.txt"_qs));
    QDir songs(data.filePath(u"songs"_qs));
    const QStringList names =
        songs.entryList({u"*.txt"_qs}, QDir::Files, QDir::Name); // by code point: the same anywhere

    Draft draft(output);
    // A draft that a power cut spoils is made again: only its last commit must reach the disk, and
    // that one carries all before it.
    Run(draft, "PRAGMA journal_mode = MEMORY");
    Run(draft, "PRAGMA synchronous = OFF");
    // The page size counts only before the first table, outside a transaction.
    RunScript(draft, data.filePath(u"schema.sql"_qs));
    Run(draft, "PRAGMA synchronous = FULL");
    Run(draft, "BEGIN");
    RunScript(draft, data.filePath(u"fixed.sql"_qs));
    const ThemeIds ids = InsertThemes(draft, themes);
    for (const QString& name : names) {
        const QString file = songs.filePath(name);
        InsertSong(draft, file, Seed::ReadSong(file), ids);
    }
    Run(draft, "COMMIT");
    draft.Keep();
    return {static_cast<int>(themes.size()), static_cast<int>(names.size())};
}
