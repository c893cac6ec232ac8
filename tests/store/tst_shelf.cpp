#include "runtime/RuntimeError.h"
#include "store/CatalogueSchema.h"
#include "store/Failed.h"
#include "store/RecordsetFields.h"
#include "store/RecordsetRows.h"
#include "store/SearchText.h"
#include "store/dialect/Dialect.h"
#include "store/shelf/SongShelf.h"
#include "store/sqlite/SqlFunctions.h"
#include "store/sqlite/StatementCache.h"
#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

#include <algorithm>
#include <sqlite3.h>

/// What the songs in memory cost: how much they take, and when they are read.
class tst_shelf : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void readsTheSongsOnce();
    void readsNoSongTextForATitle();
    void readsAChangedSongAlone();
    void readsAllAfterManyChanges();
    void readsLyricsInSlices();
    void readsLyricsWhileNobodySearches();
    void answersTitlesWithoutRoomForLyrics();
    void leavesLyricsToSqliteWhenTitlesTakeTheirRoom();
    void leavesTheSameSongToSqliteWithoutRoom();
    void leavesLongThemesToSqlite();
    void answersNothingWithoutRoom();
    void givesTheRoomOfManyChangesBack();
    void readsOnlyTheTextsOfShownSongsThatGo_data();
    void readsOnlyTheTextsOfShownSongsThatGo();
    void readsNoTextWhenItGoes();
    void aHeldFileIsWaitedForOnce();
    void findsTheSameSongWithoutReading();
    void readsAChangedSongAloneForTheSameSong();

private:
    bool Answers(SongShelf& shelf, const SearchText& search = {});
    static QStringList SameAs(SongShelf& shelf, QString title);
    QStringList Titles() const;
    int Runs(const QString& beginning) const;

    static constexpr int Songs = 300;
    TestCatalogue m_catalogue;
    sqlite3* m_database = nullptr;
    std::unique_ptr<StatementCache> m_statements;
    QStringList m_run; ///< what SQLite was asked
};

void tst_shelf::initTestCase()
{
    SongGenerator generator(7);
    PlainSqlite database(m_catalogue.Path());
    for (int i = 0; i < Songs; ++i) {
        const GeneratedSong song = generator.Next();
        database.Rows(
            u"INSERT INTO MUSICA (TITULO, MUSICA, CATEGORIA, CONTADOR) VALUES (?, ?, 1, 0)"_qs,
            {song.title, song.text});
        database.Rows(u"INSERT INTO TEMA_MUSICA VALUES (?, 1)"_qs, {database.LastId()});
    }
}

void tst_shelf::init()
{
    QCOMPARE(sqlite3_open(m_catalogue.Path().toUtf8().constData(), &m_database), SQLITE_OK);
    SqlFunctions::AddAll(m_database);
    m_statements = std::make_unique<StatementCache>(m_database);
    // Nothing is lost that a test would miss.
    sqlite3_exec(m_database, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    const auto note = [](unsigned, void* test, void*, void* sql) {
        static_cast<tst_shelf*>(test)->m_run.append(QString::fromUtf8(static_cast<char*>(sql)));
        return 0;
    };
    sqlite3_trace_v2(m_database, SQLITE_TRACE_STMT, note, this);
    m_run.clear();
}

void tst_shelf::cleanup()
{
    m_statements.reset();
    sqlite3_close(m_database);
}

bool tst_shelf::Answers(SongShelf& shelf, const SearchText& search)
{
    static const Schema schema = CatalogueSchema();
    const auto rows = shelf.Answer(*SongSearch::Recognise(ReadStatement(search.Sql(), schema)));
    return rows && Recordset(rows).RecordCount() == Songs;
}

/// @return the IDs of the songs of that title by Ana
QStringList tst_shelf::SameAs(SongShelf& shelf, QString title)
{
    const QString sql = u"SELECT ID FROM MUSICA WHERE TITULO = '"_qs +
                        title.replace(u'\'', u"''"_qs) + u"' AND REFERENCIA = 'Ana'";
    const auto rows = shelf.Answer(*SameSong::Recognise(ReadStatement(sql, CatalogueSchema())));
    QStringList ids;
    for (const QStringList& song : AllFields(Recordset(rows)))
        ids.append(song.at(0));
    return ids;
}

/// @return the titles as a search for all songs shows them
QStringList tst_shelf::Titles() const
{
    SongShelf shelf(m_database, *m_statements);
    const Schema schema = CatalogueSchema();
    const auto rows =
        shelf.Answer(*SongSearch::Recognise(ReadStatement(SearchText{}.Sql(), schema)));
    QStringList titles;
    for (const QStringList& song : AllFields(Recordset(rows)))
        titles.append(song.at(1));
    return titles;
}

int tst_shelf::Runs(const QString& beginning) const
{
    return int(std::count_if(m_run.begin(), m_run.end(),
                             [&](const QString& sql) { return sql.startsWith(beginning); }));
}

namespace {

const QString AllSongs = u"SELECT rowid, ID, CATEGORIA, CONTADOR, TITULO, REFERENCIA, TOM, "
                         "VARIACAO FROM MUSICA WHERE typeof"_qs;
const QString OneSong = u"SELECT rowid, ID, CATEGORIA, CONTADOR, TITULO, REFERENCIA, TOM, "
                        "VARIACAO FROM MUSICA WHERE rowid"_qs;
const QString Lyrics = u"SELECT rowid, MUSICA FROM MUSICA"_qs;
const QString OneText = u"SELECT MUSICA, MUSICA2 FROM MUSICA WHERE ID"_qs;

} // namespace

void tst_shelf::readsTheSongsOnce()
{
    SongShelf shelf(m_database, *m_statements);
    QCOMPARE(Runs(AllSongs), 0);
    for (int i = 0; i < 3; ++i)
        QVERIFY(Answers(shelf));
    QVERIFY(Answers(shelf, {.lyrics = u"a"_qs}));
    QCOMPARE(Runs(AllSongs), 1);
    QCOMPARE(Runs(Lyrics), 1);
}

void tst_shelf::readsNoSongTextForATitle()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(Answers(shelf));
    QCOMPARE(Runs(Lyrics), 0);
    Statement plan(m_database, "EXPLAIN QUERY PLAN " + m_run.at(2).toUtf8());
    QVERIFY(plan.Step());
    QCOMPARE(plan.Text(3), "SCAN MUSICA USING COVERING INDEX MUSICA_LISTAGEM");
}

void tst_shelf::readsAChangedSongAlone()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(Answers(shelf, {.lyrics = u"a"_qs}));
    m_run.clear();
    const std::size_t size = shelf.Size();
    for (int i = 0; i < 3; ++i) {
        sqlite3_exec(m_database, "UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 5", nullptr,
                     nullptr, nullptr);
        QVERIFY(Answers(shelf, {.lyrics = u"a"_qs}));
    }
    QCOMPARE(Runs(OneSong), 3);
    QCOMPARE(Runs(AllSongs), 0);
    QCOMPARE(Runs(Lyrics), 0);
    // Three songs and the block of texts that they may begin; all songs once more take 40 KiB.
    QVERIFY(shelf.Size() < size + std::size_t{12} * 1024);
}

void tst_shelf::readsAllAfterManyChanges()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(Answers(shelf));
    for (int i = 0; i < 10; ++i)
        sqlite3_exec(m_database, "UPDATE MUSICA SET CONTADOR = CONTADOR + 1", nullptr, nullptr,
                     nullptr);
    m_run.clear();
    QVERIFY(Answers(shelf));
    QCOMPARE(Runs(AllSongs), 1);
    QCOMPARE(Runs(OneSong), 0);
}

void tst_shelf::readsLyricsInSlices()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(!shelf.ReadAhead(0)); // nothing is known yet
    QVERIFY(Answers(shelf));
    QVERIFY(shelf.ReadAhead(0)); // a slice without time reads no lyrics, and more is left
    int slices = 1;
    while (shelf.ReadAhead(1))
        ++slices;
    m_run.clear();
    QVERIFY(Answers(shelf, {.lyrics = u"a"_qs}));
    QCOMPARE(Runs(Lyrics), 0);
}

void tst_shelf::readsLyricsWhileNobodySearches()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(Answers(shelf));
    const std::size_t size = shelf.Size();
    QTRY_VERIFY(shelf.Size() > size + std::size_t{Songs} * 1500);
}

void tst_shelf::answersTitlesWithoutRoomForLyrics()
{
    constexpr std::size_t room =
        std::size_t{250} * 1024; // titles take a third of it, lyrics twice as much
    SongShelf shelf(m_database, *m_statements, room);
    QVERIFY(Answers(shelf));
    QVERIFY(!Answers(shelf, {.lyrics = u"a"_qs}));
    QVERIFY(shelf.Size() <= room);
    QVERIFY(Answers(shelf));
    for (int slices = 0; shelf.ReadAhead(1000); ++slices)
        QVERIFY(slices < 10);
    QVERIFY(shelf.Size() <= room);
    QVERIFY(Answers(shelf));
}

/// The lyrics just fit, and go when the same search has the titles folded.
void tst_shelf::leavesLyricsToSqliteWhenTitlesTakeTheirRoom()
{
    std::size_t room = 0;
    {
        SongShelf shelf(m_database, *m_statements);
        QVERIFY(Answers(shelf, {.lyrics = u"a"_qs}));
        room = shelf.Size();
    }
    SongShelf shelf(m_database, *m_statements, room);
    QVERIFY(!Answers(shelf, {.title = u"a"_qs, .lyrics = u"a"_qs}));
    QVERIFY(shelf.Size() <= room);
    QVERIFY(!Answers(shelf, {.lyrics = u"a"_qs}));
    QVERIFY(Answers(shelf));
}

void tst_shelf::leavesTheSameSongToSqliteWithoutRoom()
{
    std::size_t room = 0;
    {
        SongShelf shelf(m_database, *m_statements);
        QVERIFY(Answers(shelf));
        room = shelf.Size();
    }
    SongShelf shelf(m_database, *m_statements, room);
    QVERIFY(Answers(shelf));
    const QString sql = u"SELECT ID FROM MUSICA WHERE TITULO = 'A' AND REFERENCIA = 'Ana'"_qs;
    QVERIFY(!shelf.Answer(*SameSong::Recognise(ReadStatement(sql, CatalogueSchema()))));
    QVERIFY(shelf.Size() <= room);
}

void tst_shelf::answersNothingWithoutRoom()
{
    constexpr std::size_t room = std::size_t{20} * 1024;
    SongShelf shelf(m_database, *m_statements, room);
    QVERIFY(!Answers(shelf));
    m_run.clear();
    QVERIFY(!Answers(shelf));
    QCOMPARE(Runs(AllSongs), 0);
    QVERIFY(shelf.Size() <= room);
}

void tst_shelf::readsOnlyTheTextsOfShownSongsThatGo_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("texts");
    QTest::newRow("themes of a song") << u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 07"_qs << 0;
    QTest::newRow("a setlist") << u"DELETE FROM LISTA WHERE ID = 07"_qs << 0;
    QTest::newRow("a play") << u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 07"_qs << 0;
    QTest::newRow("a saved song")
        << u"UPDATE MUSICA SET TITULO = 'A', MUSICA = 'b'  WHERE ID = 07"_qs << 1;
    QTest::newRow("a second text") << u"UPDATE MUSICA SET MUSICA2 = 'b'  WHERE ID = 07"_qs << 1;
    QTest::newRow("a deleted song") << u"DELETE FROM MUSICA WHERE ID = 07"_qs << 1;
    QTest::newRow("any of them") << u"DELETE FROM MUSICA WHERE CATEGORIA = 1"_qs << Songs;
}

void tst_shelf::readsOnlyTheTextsOfShownSongsThatGo()
{
    QFETCH(QString, change);
    QFETCH(int, texts);
    SongShelf shelf(m_database, *m_statements);
    const Schema schema = CatalogueSchema();
    const auto shown =
        shelf.Answer(*SongSearch::Recognise(ReadStatement(SearchText{}.Sql(), schema)));
    m_run.clear();
    shelf.BeforeChange(ReadStatement(change, schema));
    QCOMPARE(Runs(OneText), texts);
}

void tst_shelf::readsNoTextWhenItGoes()
{
    auto shelf = std::make_unique<SongShelf>(m_database, *m_statements);
    const Schema schema = CatalogueSchema();
    const auto shown =
        shelf->Answer(*SongSearch::Recognise(ReadStatement(SearchText{}.Sql(), schema)));
    const QStringList titles = Titles();
    m_run.clear();
    shelf.reset();
    QCOMPARE(m_run, QStringList());
    QCOMPARE(shown->Count(), Songs);
    // What was in memory stays; a text that nobody had read is gone, and says so.
    Recordset rows(shown);
    for (const QString& title : titles) {
        QCOMPARE(rows.Fields(u"TITULO").ToText(), title);
        rows.MoveNext();
    }
    QVERIFY(rows.Eof());
    rows.MoveTo(0);
    QCOMPARE(Failed([&] { rows.Fields(u"MUSICA"); }).number, int{RuntimeError::ObjectClosed});
    QCOMPARE(m_run, QStringList());
}

void tst_shelf::leavesLongThemesToSqlite()
{
    constexpr std::size_t Names = std::size_t{300} * 10000; // bytes
    const auto theme = SameTheme::Recognise(
        ReadStatement(u"SELECT ID FROM TEMA WHERE DESCRICAO = 'Luz'"_qs, CatalogueSchema()));
    const auto run = [this](const char* sql) {
        QCOMPARE(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    };
    run("BEGIN");
    run("WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300) "
        "INSERT INTO TEMA (DESCRICAO) SELECT i || hex(zeroblob(5000)) FROM n");
    {
        SongShelf roomy(m_database, *m_statements);
        QVERIFY(roomy.Answer(*theme));
        QVERIFY(roomy.Size() >= Names);
        SongShelf small(m_database, *m_statements, Names / 2);
        m_run.clear();
        QVERIFY(!small.Answer(*theme));
        QCOMPARE(Runs(u"SELECT rowid, ID, DESCRICAO"_qs), 1);
        QVERIFY(small.Size() <= Names / 2);
        m_run.clear();
        QVERIFY(!small.Answer(*theme));
        QCOMPARE(Runs(u"SELECT rowid, ID, DESCRICAO"_qs), 0); // tried once
    }
    run("ROLLBACK");
}

void tst_shelf::aHeldFileIsWaitedForOnce()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(Answers(shelf));
    PlainSqlite other(m_catalogue.Path());
    other.Run("BEGIN EXCLUSIVE");
    // It is the search that fails; whoever ran it again would wait again.
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Answers(shelf));
    other.Run("ROLLBACK");
    QVERIFY(Answers(shelf));
}

void tst_shelf::givesTheRoomOfManyChangesBack()
{
    SongShelf shelf(m_database, *m_statements);
    QVERIFY(Answers(shelf));
    const std::size_t size = shelf.Size();
    for (int i = 0; i < 3000; ++i) {
        sqlite3_exec(m_database, "UPDATE MUSICA SET CONTADOR = 0 WHERE ID = 5", nullptr, nullptr,
                     nullptr);
        if (i % 100 == 0)
            QVERIFY(Answers(shelf));
    }
    QVERIFY(shelf.Size() < 4 * size);
}

void tst_shelf::findsTheSameSongWithoutReading()
{
    SongShelf shelf(m_database, *m_statements);
    QCOMPARE(SameAs(shelf, u"Nada"_qs), QStringList());
    QCOMPARE(Runs(AllSongs), 1);
    sqlite3_exec(m_database, "UPDATE MUSICA SET REFERENCIA = 'Ana'", nullptr, nullptr, nullptr);
    QCOMPARE(SameAs(shelf, u"Nada"_qs), QStringList());
    m_run.clear();
    const QList<QStringList> songs =
        PlainSqlite(m_catalogue.Path()).Rows(u"SELECT ID, TITULO FROM MUSICA"_qs);
    for (const QStringList& song : songs)
        QVERIFY(SameAs(shelf, song.at(1)).contains(song.at(0)));
    // Whether anything has changed is all that is asked.
    m_run.removeIf([](const QString& sql) { return !sql.contains(u"FROM"); });
    QCOMPARE(m_run, QStringList());
    sqlite3_exec(m_database, "UPDATE MUSICA SET REFERENCIA = NULL", nullptr, nullptr, nullptr);
}

void tst_shelf::readsAChangedSongAloneForTheSameSong()
{
    SongShelf shelf(m_database, *m_statements);
    QCOMPARE(SameAs(shelf, u"Nada"_qs), QStringList());
    for (const char* change : {"UPDATE MUSICA SET REFERENCIA = 'Ana' WHERE ID = 5",
                               "INSERT INTO MUSICA (ID, TITULO) VALUES (1000, 'Nova')",
                               "DELETE FROM MUSICA WHERE ID = 1000",
                               "UPDATE MUSICA SET REFERENCIA = NULL WHERE ID = 5"}) {
        sqlite3_exec(m_database, change, nullptr, nullptr, nullptr);
        m_run.clear();
        QCOMPARE(SameAs(shelf, u"Nada"_qs), QStringList());
        QCOMPARE(Runs(OneSong), 1);
        QCOMPARE(Runs(AllSongs), 0);
    }
}

QTEST_GUILESS_MAIN(tst_shelf)
#include "tst_shelf.moc"
