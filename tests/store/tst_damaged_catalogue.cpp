#include "runtime/RuntimeError.h"
#include "store/Connection.h"
#include "support/GeneratedSongs.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <functional>
#include <optional>
#include <sqlite3.h>

/// A catalogue that is damaged under the program: every statement is answered or fails with a
/// message, and a change is either in the file or the file is what it was.
class tst_damaged_catalogue : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void staysAnswerable_data();
    void staysAnswerable();
    void writesNothingIntoAnEmptiedFile();
    void survivesAJournalThatIsNone();
    void cleanupTestCase() const;

private:
    void Damaged(const QByteArray& content, bool whileOpen);
    void ReadEverything(Connection& connection);
    void CheckSearch(Connection& connection, const QList<QStringList>& expected);
    void CheckChange(Connection& connection, bool sound);

    TestCatalogue m_catalogue;
    QByteArray m_content;
    int m_cases = 0;
    int m_refused = 0;  ///< not even opened
    int m_failed = 0;   ///< statements that failed
    int m_answered = 0; ///< statements that were answered
    int m_compared = 0; ///< searches compared with what plain SQLite finds
    int m_changed = 0;  ///< changes that arrived
    int m_kept = 0;     ///< changes that failed
};

namespace {

constexpr int Songs = 40;
constexpr int PageSize = 16384;
constexpr int FileHeader = 100;

QByteArray Content(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read");
    return file.readAll();
}

void Overwrite(const QString& path, const QByteArray& content)
{
    QFile file(path);
    // Not truncated first: the program may have it open.
    if (!file.open(QIODevice::ReadWrite) || file.write(content) != content.size() ||
        !file.resize(content.size()))
        qFatal("cannot write");
}

/// @return what plain SQLite gives for a statement, or nothing when it finds the file damaged.
std::optional<QList<QStringList>> PlainRows(const QString& path, const char* sql)
{
    sqlite3* handle = nullptr;
    sqlite3_stmt* statement = nullptr;
    QList<QStringList> rows;
    int result = sqlite3_open(path.toUtf8().constData(), &handle);
    if (result == SQLITE_OK)
        result = sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr);
    while (result == SQLITE_OK || result == SQLITE_ROW) {
        result = sqlite3_step(statement);
        if (result != SQLITE_ROW)
            break;
        QStringList row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            row << QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                sqlite3_column_bytes(statement, i));
        rows << row;
    }
    sqlite3_finalize(statement);
    sqlite3_close(handle);
    return result == SQLITE_DONE ? std::optional(rows) : std::nullopt;
}

bool IsSound(const QString& path)
{
    const auto rows = PlainRows(path, "PRAGMA integrity_check");
    return rows && *rows == QList<QStringList>{{u"ok"_qs}};
}

const QString Found = u"SELECT DISTINCT MUSICA.ID, MUSICA.TITULO, MUSICA.REFERENCIA, MUSICA.TOM,"
                      " MUSICA.VARIACAO, MUSICA.CONTADOR, MUSICA.MUSICA  FROM MUSICA INNER JOIN"
                      " TEMA_MUSICA ON MUSICA.ID = TEMA_MUSICA.ID_MUSICA  WHERE"
                      " MUSICA.CATEGORIA IN (1,2) "_qs;
constexpr char PlainFound[] =
    "SELECT DISTINCT ID FROM MUSICA INNER JOIN TEMA_MUSICA ON ID = ID_MUSICA"
    " WHERE CATEGORIA IN (1, 2) ORDER BY ID";

/// What the search panel, the viewer and the fillers ask.
const QStringList& Queries()
{
    static const QStringList queries{
        Found + u" ORDER BY MUSICA.TITULO "_qs,
        Found + u" AND MUSICA.TITULO LIKE '%a%'  ORDER BY MUSICA.CONTADOR DESC, MUSICA.TITULO "_qs,
        Found + u" AND MUSICA.MUSICA LIKE '%a%o%'  AND TEMA_MUSICA.ID_TEMA IN (1,2) "_qs,
        u"SELECT * FROM MUSICA WHERE ID = 03"_qs,
        u"SELECT * FROM MUSICA WHERE ID = 041"_qs,
        u"SELECT * FROM TOM ORDER BY ORDEM"_qs,
        u"SELECT * FROM TEMA ORDER BY ORDEM, DESCRICAO"_qs,
        u"SELECT DESCRICAO FROM TEMA INNER JOIN TEMA_MUSICA ON TEMA.ID = TEMA_MUSICA.ID_TEMA"
        " WHERE ID_MUSICA = 03"_qs,
        u"SELECT ID, NOME, Day(DATA) & '/' & Month(DATA) & '/' & Year(DATA) AS DATA FROM LISTA"
        " ORDER BY DATA DESC"_qs,
        u"SELECT * FROM VARIACAO"_qs,
        u"SELECT MAX(ID) FROM MUSICA"_qs};
    return queries;
}

/// Reads every field. @return the first of each row
QList<QStringList> Read(Recordset& recordset)
{
    QList<QStringList> rows;
    for (; !recordset.Eof(); recordset.MoveNext()) {
        for (int i = 0; i < recordset.FieldNames().size(); ++i)
            recordset.Fields(i).ToText();
        rows << QStringList{recordset.Fields(0).ToText()};
    }
    return rows;
}

/// @return whether it ended without an error; the error has words for the user
bool Succeeds(const std::function<void()>& action)
{
    try {
        action();
        return true;
    } catch (const RuntimeError& error) {
        if (error.WhatFailed().isEmpty())
            qFatal("an error without words");
        return false;
    }
}

} // namespace

void tst_damaged_catalogue::initTestCase()
{
    SongGenerator generator(2011);
    PlainSqlite database(m_catalogue.Path());
    database.Run("BEGIN");
    database.Run("INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('Louvor', 1), ('Natal', 2)");
    database.Run("INSERT INTO LISTA (NOME, DATA) VALUES ('Culto', '2009-03-05')");
    for (int i = 0; i < Songs; ++i) {
        const GeneratedSong song = generator.Next();
        database.Rows(u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, TOM, VARIACAO, CATEGORIA,"
                      " CONTADOR) VALUES (?, ?, ?, ?, ?, ?, ?)"_qs,
                      {song.title, song.reference, song.text, song.key, song.variation,
                       song.category, song.count});
        database.Rows(u"INSERT INTO TEMA_MUSICA VALUES (?, ?)"_qs, {i + 1, i % 2 + 1});
    }
    // Over several pages.
    database.Rows(u"INSERT INTO MUSICA (TITULO, MUSICA, CATEGORIA) VALUES ('Longa', ?, 1)"_qs,
                  {u"Santo "_qs.repeated(10000)});
    database.Run("INSERT INTO TEMA_MUSICA VALUES (41, 1)");
    database.Run("COMMIT");
    m_content = Content(m_catalogue.Path());
    QCOMPARE(m_content.size() % PageSize, 0);
    QVERIFY(IsSound(m_catalogue.Path()));
}

void tst_damaged_catalogue::staysAnswerable_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("whileOpen");
    const char* const kinds[] = {"one bit turned", "a byte of ones", "a sector of zeros",
                                 "a sector of noise", "cut off"};
    for (int kind = 0; kind < 5; ++kind) {
        QTest::addRow("%s before opening", kinds[kind]) << kind << false;
        QTest::addRow("%s under the open catalogue", kinds[kind]) << kind << true;
    }
}

void tst_damaged_catalogue::staysAnswerable()
{
    QFETCH(int, kind);
    QFETCH(bool, whileOpen);
    // Every byte of the file's header, the head of every page, and places all over the file.
    QList<qsizetype> places;
    if (kind < 2) {
        for (qsizetype at = 0; at < FileHeader; at += whileOpen ? 7 : 1)
            places << at;
        for (qsizetype page = 1; page < m_content.size() / PageSize; ++page) {
            for (qsizetype at = 0; at < 12; at += whileOpen ? 5 : 1)
                places << page * PageSize + at;
        }
    }
    const int spread = whileOpen ? 20 : 60;
    for (int i = 0; i < spread; ++i)
        places << (m_content.size() - 1) * i / spread + i * 37 % 512;

    for (const qsizetype at : places) {
        QByteArray content = m_content;
        const qsizetype sector = std::min<qsizetype>(512, content.size() - at);
        if (kind == 0)
            content[at] = static_cast<char>(content[at] ^ (1 << at % 8));
        else if (kind == 1)
            content[at] = '\xFF';
        else if (kind == 2)
            content.replace(at, sector, QByteArray(sector, '\0'));
        else if (kind == 3)
            for (qsizetype i = 0; i < sector; ++i)
                content[at + i] = static_cast<char>(content[at + i] ^ (i * 73 + at));
        else
            content.truncate(at);
        Damaged(content, whileOpen);
        if (QTest::currentTestFailed()) {
            qWarning("at byte %lld", static_cast<long long>(at));
            return;
        }
    }
}

void tst_damaged_catalogue::Damaged(const QByteArray& content, bool whileOpen)
{
    ++m_cases;
    QFile::remove(m_catalogue.Path() + u"-journal"_qs);
    Overwrite(m_catalogue.Path(), whileOpen ? m_content : content);
    Connection connection;
    if (whileOpen) {
        connection.Open(m_catalogue.ConnectionString());
        connection.Execute(Queries().first());
        Overwrite(m_catalogue.Path(), content);
    }
    const bool sound = IsSound(m_catalogue.Path());
    if (!whileOpen && !Succeeds([&] { connection.Open(m_catalogue.ConnectionString()); })) {
        ++m_refused;
        // Looking at it changed nothing.
        QCOMPARE(Content(m_catalogue.Path()), content);
        return;
    }
    ReadEverything(connection);
    if (sound && !whileOpen) {
        const auto expected = PlainRows(m_catalogue.Path(), PlainFound);
        QVERIFY(expected);
        CheckSearch(connection, *expected);
    }
    QCOMPARE(Content(m_catalogue.Path()), content);
    // Each change waits for the disk.
    if (m_cases % 6 == 0)
        CheckChange(connection, sound && !whileOpen);
}

void tst_damaged_catalogue::ReadEverything(Connection& connection)
{
    for (const QString& sql : Queries()) {
        const bool answered = Succeeds([&] {
            Recordset recordset = connection.Execute(sql);
            Read(recordset);
        });
        ++(answered ? m_answered : m_failed);
    }
}

/// A file that SQLite finds nothing wrong with: the search gives what lies in it.
void tst_damaged_catalogue::CheckSearch(Connection& connection, const QList<QStringList>& expected)
{
    ++m_compared;
    Recordset recordset = connection.Execute(Found + u" ORDER BY MUSICA.ID"_qs);
    QCOMPARE(Read(recordset), expected);
}

void tst_damaged_catalogue::CheckChange(Connection& connection, bool sound)
{
    const QByteArray before = Content(m_catalogue.Path());
    bool begun = false;
    const bool arrived = Succeeds([&] {
        connection.Execute(u"UPDATE MUSICA SET CONTADOR = 12345, MUSICA = 'x' WHERE ID = 03"_qs);
        begun = true;
        connection.Execute(u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 04"_qs);
        connection.CommitBatch();
    });
    ++(arrived ? m_changed : m_kept);
    // Every handler ends with a commit; what failed is undone, what ran before it is kept.
    Succeeds([&] { connection.CommitBatch(); });
    Succeeds([&] { connection.Close(); });
    QVERIFY(!QFile::exists(m_catalogue.Path() + u"-journal"_qs));
    if (!begun)
        QCOMPARE(Content(m_catalogue.Path()), before);
    if (sound) {
        QVERIFY(arrived);
        QVERIFY(IsSound(m_catalogue.Path()));
    }
    const auto rows =
        PlainRows(m_catalogue.Path(), "SELECT CONTADOR = 12345, MUSICA = 'x' FROM MUSICA"
                                      " WHERE ID = 3");
    // Both or neither.
    for (const QStringList& row : rows.value_or(QList<QStringList>()))
        QCOMPARE(row[0], row[1]);
}

/// A change that fails leaves not even the first page of a new database behind.
void tst_damaged_catalogue::writesNothingIntoAnEmptiedFile()
{
    Overwrite(m_catalogue.Path(), m_content);
    Connection connection;
    connection.Open(m_catalogue.ConnectionString());
    Overwrite(m_catalogue.Path(), QByteArray());
    QVERIFY(!Succeeds([&] { connection.Execute(u"DELETE FROM MUSICA WHERE ID = 03"_qs); }));
    connection.CommitBatch();
    connection.Close();
    QCOMPARE(Content(m_catalogue.Path()), QByteArray());
}

/// A journal left by nobody says nothing about the catalogue.
void tst_damaged_catalogue::survivesAJournalThatIsNone()
{
    for (const QByteArray& journal : {QByteArray("not a journal"), QByteArray(4096, '\xEE'),
                                      QByteArray(), m_content.left(5000)}) {
        Overwrite(m_catalogue.Path(), m_content);
        Overwrite(m_catalogue.Path() + u"-journal"_qs, journal);
        Connection connection;
        connection.Open(m_catalogue.ConnectionString());
        QCOMPARE(connection.Execute(Queries().first()).RecordCount(), Songs + 1);
        QCOMPARE(Content(m_catalogue.Path()), m_content);
    }
}

void tst_damaged_catalogue::cleanupTestCase() const
{
    qInfo("%d damaged catalogues: %d refused; %d statements answered, %d failed; %d searches"
          " compared; %d changes arrived, %d failed",
          m_cases, m_refused, m_answered, m_failed, m_compared, m_changed, m_kept);
    // Damage that reaches nothing, or everything, shows nothing.
    QVERIFY(m_cases > 700);
    QVERIFY(m_refused > 100);
    QVERIFY(m_failed > 50);
    QVERIFY(m_answered > 1000);
    QVERIFY(m_compared > 50);
    QVERIFY(m_changed > 50);
}

QTEST_GUILESS_MAIN(tst_damaged_catalogue)
#include "tst_damaged_catalogue.moc"
