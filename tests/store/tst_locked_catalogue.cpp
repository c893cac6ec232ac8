#include "store/Connection.h"
#include "store/Failed.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

/// Another program holds the catalogue: what it keeps the program from fails with a message,
/// nothing is lost, and everything works again afterwards.
class tst_locked_catalogue : public QObject
{
    Q_OBJECT

private slots:
    void saysSoAndWorksAgain_data();
    void saysSoAndWorksAgain();
    void opensOnceTheFileIsFree_data();
    void opensOnceTheFileIsFree();
    void aLockInTheMiddleOfABatchLosesNothing();
};

namespace {

const QString InUse = u"O banco de dados está sendo usado por outro programa."_qs;
/// A batch that ran and could not be committed.
const QString Undone = InUse + u" As alterações desta operação foram desfeitas."_qs;

int Count(Connection& connection)
{
    return connection.Execute(u"SELECT * FROM MUSICA"_qs).RecordCount();
}

void AddOne(Connection& connection)
{
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('dois')"_qs);
    connection.CommitBatch();
}

} // namespace

void tst_locked_catalogue::saysSoAndWorksAgain_data()
{
    QTest::addColumn<QByteArray>("lock");
    QTest::addColumn<bool>("reads");
    QTest::addColumn<QString>("whatFailed");
    QTest::newRow("it reads (SHARED)")
        << QByteArray("BEGIN; SELECT * FROM MUSICA") << true << Undone;
    QTest::newRow("it is about to write (RESERVED)")
        << QByteArray("BEGIN IMMEDIATE") << true << InUse;
    QTest::newRow("it writes (EXCLUSIVE)") << QByteArray("BEGIN EXCLUSIVE") << false << InUse;
    QTest::newRow("it has written more than it keeps in memory (EXCLUSIVE)")
        << QByteArray("PRAGMA cache_size = 5; BEGIN; UPDATE MUSICA SET MUSICA2 ="
                      " hex(zeroblob(400000))")
        << false << InUse;
}

void tst_locked_catalogue::saysSoAndWorksAgain()
{
    QFETCH(QByteArray, lock);
    QFETCH(bool, reads);
    QFETCH(QString, whatFailed);
    const TestCatalogue catalogue;
    catalogue.AddSong(u"um"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    PlainSqlite other(catalogue.Path());
    other.Run(lock);

    int found = 0;
    const Failed reading([&] { found = Count(connection); });
    QCOMPARE(reading.whatFailed, reads ? QString() : InUse);
    QCOMPARE(found, reads ? 1 : 0);
    const Failed writing([&] { AddOne(connection); });
    QCOMPARE(writing.number, int{RuntimeError::StoreFailure});
    QCOMPARE(writing.whatFailed, whatFailed);
    QVERIFY2(writing.description.contains(u"database is locked"), qPrintable(writing.description));
    // The handler that failed ends with a commit: of nothing.
    connection.CommitBatch();

    other.Run("ROLLBACK");
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
    QCOMPARE(Count(connection), 1);
    AddOne(connection);
    QCOMPARE(Count(connection), 2);
    connection.Close();
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"2"_qs);
    QCOMPARE(catalogue.Field(u"PRAGMA integrity_check"_qs), u"ok"_qs);
}

void tst_locked_catalogue::opensOnceTheFileIsFree_data()
{
    QTest::addColumn<QByteArray>("lock");
    QTest::addColumn<QString>("whatFailed");
    QTest::newRow("it reads") << QByteArray("BEGIN; SELECT * FROM MUSICA") << QString();
    QTest::newRow("it is about to write") << QByteArray("BEGIN IMMEDIATE") << QString();
    QTest::newRow("it writes") << QByteArray("BEGIN EXCLUSIVE") << InUse;
}

void tst_locked_catalogue::opensOnceTheFileIsFree()
{
    QFETCH(QByteArray, lock);
    QFETCH(QString, whatFailed);
    const TestCatalogue catalogue;
    catalogue.AddSong(u"um"_qs);
    PlainSqlite other(catalogue.Path());
    other.Run(lock);
    Connection connection;
    QCOMPARE(Failed([&] { connection.Open(catalogue.ConnectionString()); }).whatFailed, whatFailed);
    QCOMPARE(connection.IsOpen(), whatFailed.isEmpty());
    other.Run("ROLLBACK");
    if (!connection.IsOpen())
        connection.Open(catalogue.ConnectionString());
    QCOMPARE(Count(connection), 1);
}

void tst_locked_catalogue::aLockInTheMiddleOfABatchLosesNothing()
{
    const TestCatalogue catalogue;
    catalogue.AddSong(u"um"_qs);
    Connection connection;
    connection.Open(catalogue.ConnectionString());
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('dois')"_qs);
    PlainSqlite other(catalogue.Path());
    other.Run("BEGIN; SELECT * FROM MUSICA");
    connection.Execute(u"INSERT INTO MUSICA (TITULO) VALUES ('tres')"_qs);
    const Failed failed([&] { connection.CommitBatch(); });
    QCOMPARE(failed.whatFailed, Undone);
    other.Run("COMMIT");
    // All of the batch or nothing of it.
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"1"_qs);
    QCOMPARE(Count(connection), 1);
    AddOne(connection);
    QCOMPARE(catalogue.Field(u"SELECT count(*) FROM MUSICA"_qs), u"2"_qs);
}

QTEST_GUILESS_MAIN(tst_locked_catalogue)
#include "tst_locked_catalogue.moc"
