#include "store/Connection.h"
#include "store/Failed.h"
#include "store/WatchedFiles.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace {

/// What a song's saving does: a changed row, links removed, links made anew.
const QStringList& SavingASong()
{
    static const QStringList statements = {
        u"UPDATE MUSICA SET TITULO = 'Depois' WHERE ID = 01"_qs,
        u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 01"_qs,
        u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 2)"_qs,
        u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA)  VALUES (1, 3)"_qs};
    return statements;
}

/// The song with its themes, as another tool finds it in the file.
QString State(const QString& path)
{
    PlainSqlite database(path);
    if (database.Rows(u"PRAGMA integrity_check"_qs).first().first() != u"ok"_qs)
        return u"damaged"_qs;
    return database
        .Rows(u"SELECT TITULO || ':' || (SELECT group_concat(ID_TEMA) FROM TEMA_MUSICA) "
              "FROM MUSICA WHERE ID = 1"_qs)
        .first()
        .first();
}

const QString Before = u"Antes:1"_qs;
const QString After = u"Depois:2,3"_qs;

} // namespace

class tst_batch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsOthersNothingBeforeTheCommit();
    void seesItsOwnChanges();
    void beginsWithTheFirstChange();
    void commitsNothingWithoutABatch();
    void commitsOnClosing();
    void commitsWhenItGoes();
    void keepsWhatRanBeforeAFailure();
    void undoesTheFailedStatementAlone();
    void undoesEverythingWhenTheCommitFails();
    void worksOnAfterAFailedCommit();
    void saysThatTheDiskIsFull();
    void leavesOldOrNewStateAtEveryStep();
    void leavesOldOrNewStateAtEveryStepOfALargeBatch();
    void refusesWhatAColumnCannotHold_data();
    void refusesWhatAColumnCannotHold();

private:
    void RunAll(const QStringList& statements);
    QStringList StatesAfterACrash(const QStringList& statements);

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<WatchedFiles> m_files;
    std::unique_ptr<Connection> m_connection;
};

void tst_batch::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    m_catalogue->AddSong(u"Antes"_qs);
    for (const char16_t* theme : {u"Louvor", u"Natal", u"Sem Tema"})
        m_catalogue->AddTheme(QString::fromUtf16(theme));
    m_catalogue->Link(1, 1);
    m_files = std::make_unique<WatchedFiles>();
    m_connection = std::make_unique<Connection>();
    m_connection->Open(m_catalogue->ConnectionString());
}

void tst_batch::cleanup()
{
    m_connection.reset();
    m_files.reset();
    m_catalogue.reset();
}

void tst_batch::RunAll(const QStringList& statements)
{
    for (const QString& statement : statements)
        m_connection->Execute(statement);
}

void tst_batch::showsOthersNothingBeforeTheCommit()
{
    RunAll(SavingASong());
    QCOMPARE(State(m_catalogue->Path()), Before);
    m_connection->CommitBatch();
    QCOMPARE(State(m_catalogue->Path()), After);
}

void tst_batch::seesItsOwnChanges()
{
    m_connection->Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('Nova')"_qs);
    QCOMPARE(m_connection->Execute(u"SELECT MAX(ID) AS ID FROM MUSICA"_qs).Fields(u"ID"), Value(2));
}

void tst_batch::beginsWithTheFirstChange()
{
    m_connection->Execute(u"SELECT * FROM MUSICA"_qs);
    PlainSqlite other(m_catalogue->Path());
    other.Run("BEGIN IMMEDIATE");
    other.Run("ROLLBACK");
    m_connection->Execute(u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 01"_qs);
    // From here on nobody else writes.
    QVERIFY(QFile::exists(m_catalogue->Path() + u"-journal"_qs));
    m_connection->CommitBatch();
    QVERIFY(!QFile::exists(m_catalogue->Path() + u"-journal"_qs));
    other.Run("BEGIN IMMEDIATE");
}

void tst_batch::commitsNothingWithoutABatch()
{
    int steps = 0;
    m_files->Watch([&steps](WatchedFiles::Step) {
        ++steps;
        return true;
    });
    m_connection->CommitBatch();
    m_connection->Execute(u"SELECT * FROM MUSICA"_qs);
    m_connection->CommitBatch();
    QCOMPARE(steps, 0);
}

void tst_batch::commitsOnClosing()
{
    RunAll(SavingASong());
    m_connection->Close();
    QCOMPARE(State(m_catalogue->Path()), After);
}

void tst_batch::commitsWhenItGoes()
{
    RunAll(SavingASong());
    m_connection.reset();
    QCOMPARE(State(m_catalogue->Path()), After);
}

void tst_batch::keepsWhatRanBeforeAFailure()
{
    QStringList statements = SavingASong();
    statements.insert(2, u"INSERT INTO NADA (X) VALUES (1)"_qs);
    QCOMPARE(Failed([&] { RunAll(statements); }).number, int{RuntimeError::StoreFailure});
    m_connection->CommitBatch();
    QCOMPARE(m_catalogue->Field(u"SELECT TITULO FROM MUSICA"_qs), u"Depois"_qs);
    QCOMPARE(m_catalogue->Field(u"SELECT count(*) FROM TEMA_MUSICA"_qs), u"0"_qs);
}

void tst_batch::undoesTheFailedStatementAlone()
{
    for (const int count : {1, 2, 2147483647, 4}) {
        TestSong song;
        song.count = count;
        m_catalogue->AddSong(song);
    }
    m_connection->Execute(u"UPDATE MUSICA SET CONTADOR = 10 WHERE ID = 02"_qs);
    const Failed failed(
        [&] { m_connection->Execute(u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1"_qs); });
    QCOMPARE(failed.number, int{RuntimeError::Overflow});
    m_connection->Execute(u"UPDATE MUSICA SET CONTADOR = 40 WHERE ID = 05"_qs);
    m_connection->CommitBatch();
    QCOMPARE(m_catalogue->Field(u"SELECT group_concat(CONTADOR) FROM MUSICA"_qs),
             u"0,10,2,2147483647,40"_qs);
}

void tst_batch::undoesEverythingWhenTheCommitFails()
{
    RunAll(SavingASong());
    PlainSqlite reader(m_catalogue->Path());
    reader.Run("BEGIN; SELECT count(*) FROM MUSICA");
    const Failed failed([&] { m_connection->CommitBatch(); });
    QCOMPARE(failed.number, int{RuntimeError::StoreFailure});
    QCOMPARE(failed.whatFailed,
             u"O banco de dados está sendo usado por outro programa. As alterações desta operação "
             "foram desfeitas."_qs);
    reader.Run("COMMIT");
    QCOMPARE(State(m_catalogue->Path()), Before);
    QCOMPARE(m_connection->Execute(u"SELECT TITULO FROM MUSICA"_qs).Fields(0).ToText(),
             u"Antes"_qs);
}

void tst_batch::worksOnAfterAFailedCommit()
{
    m_files->Watch([](WatchedFiles::Step step) { return step != WatchedFiles::Step::Flush; });
    QVERIFY(Failed([&] {
                RunAll(SavingASong());
                m_connection->CommitBatch();
            }).number);
    m_files->Watch({});
    QCOMPARE(State(m_catalogue->Path()), Before);
    RunAll(SavingASong());
    m_connection->CommitBatch();
    QCOMPARE(State(m_catalogue->Path()), After);
}

void tst_batch::saysThatTheDiskIsFull()
{
    RunAll(SavingASong());
    m_files->Watch([](WatchedFiles::Step step) { return step != WatchedFiles::Step::Write; });
    const Failed failed([&] { m_connection->CommitBatch(); });
    m_files->Watch({});
    // Here SQLite has undone it itself: it is said once all the same.
    QCOMPARE(failed.whatFailed,
             u"O disco está cheio. As alterações desta operação foram desfeitas."_qs);
    QVERIFY(failed.description.contains(u"database or disk is full"_qs));
    QCOMPARE(State(m_catalogue->Path()), Before);
}

/// Copies the folder before every step to the disk, as a crash there would leave it.
/// @return what a catalogue opened from each copy holds
QStringList tst_batch::StatesAfterACrash(const QStringList& statements)
{
    QTemporaryDir copies;
    int steps = 0;
    const QString path = m_catalogue->Path();
    const QString journal = u"-journal"_qs;
    const auto copy = [&](WatchedFiles::Step) {
        const QString target = copies.filePath(QString::number(steps++));
        QFile::copy(path, target);
        if (QFile::exists(path + journal))
            QFile::copy(path + journal, target + journal);
        return true;
    };
    m_files->Watch(copy);
    RunAll(statements);
    m_connection->CommitBatch();
    copy(WatchedFiles::Step::Write);
    m_files->Watch({});
    QStringList states;
    for (int step = 0; step < steps; ++step) {
        const QString target = copies.filePath(QString::number(step));
        Connection reopened;
        reopened.Open(TestCatalogue::ConnectionString(target));
        reopened.Close();
        states << State(target);
    }
    return states;
}

void tst_batch::leavesOldOrNewStateAtEveryStep()
{
    const QStringList states = StatesAfterACrash(SavingASong());
    QVERIFY2(states.size() > 8, qPrintable(QString::number(states.size())));
    const qsizetype firstAfter = states.indexOf(After);
    QVERIFY(firstAfter > 0);
    for (qsizetype step = 0; step < states.size(); ++step)
        QCOMPARE(states[step], step < firstAfter ? Before : After);
}

void tst_batch::leavesOldOrNewStateAtEveryStepOfALargeBatch()
{
    // Many pages, old and new ones.
    QStringList statements = SavingASong();
    for (int i = 0; i < 8; ++i)
        statements << u"INSERT INTO MUSICA (TITULO, MUSICA) VALUES ('x', '"_qs +
                          QString(30000, u'x') + u"')"_qs;
    statements << u"DELETE FROM MUSICA WHERE ID = 03"_qs;
    const QStringList states = StatesAfterACrash(statements);
    QVERIFY(states.contains(Before));
    QCOMPARE(states.last(), After);
    for (const QString& state : states)
        QVERIFY2(state == Before || state == After, qPrintable(state));
}

void tst_batch::refusesWhatAColumnCannotHold_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<int>("number");
    const int overflow = RuntimeError::Overflow;
    const int mismatch = RuntimeError::TypeMismatch;
    QTest::newRow("32 bits and one more")
        << u"UPDATE MUSICA SET CONTADOR = 2147483647 + 1"_qs << overflow;
    QTest::newRow("far beyond 32 bits")
        << u"UPDATE MUSICA SET CONTADOR = 99999999999999999999"_qs << overflow;
    QTest::newRow("16 bits and one more") << u"UPDATE MUSICA SET CATEGORIA = 32768"_qs << overflow;
    QTest::newRow("no number") << u"UPDATE MUSICA SET CATEGORIA = 'dois'"_qs << mismatch;
    QTest::newRow("no number in an insert")
        << u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('a', 'b')"_qs << mismatch;
    QTest::newRow("no date")
        << u"INSERT INTO LISTA (NOME, DATA) VALUES ('a', CDATE('31/02/2009'))"_qs << mismatch;
}

void tst_batch::refusesWhatAColumnCannotHold()
{
    QFETCH(QString, statement);
    QFETCH(int, number);
    const QString contents =
        u"SELECT CATEGORIA, CONTADOR, (SELECT count(*) FROM TEMA), (SELECT count(*) FROM LISTA) "
        "FROM MUSICA"_qs;
    const auto before = m_catalogue->Rows(contents);
    const Failed failed([&] { m_connection->Execute(statement); });
    QCOMPARE(failed.number, number);
    m_connection->CommitBatch();
    QCOMPARE(m_catalogue->Rows(contents), before);
}

QTEST_GUILESS_MAIN(tst_batch)
#include "tst_batch.moc"
