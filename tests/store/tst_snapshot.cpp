#include "store/Connection.h"
#include "store/Failed.h"
#include "support/PlainSqlite.h"
#include "support/TestCatalogue.h"

#include <QTest>

/// Several queries see the catalogue in one state, and nobody waits for them longer than needed.
class tst_snapshot : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void withoutOneEachQuerySeesTheLatest();
    void queriesSeeOneState();
    void lettersTypedSeeTheSameState();
    void endsWithAChangeOfOurs();
    void endsWithACommit();
    void insideABatchLeavesTheBatchAlone();
    void insideAnotherLastsAsLongAsTheOuterOne();
    void failsOnAClosedConnection();
    void outlivesItsConnection();
    void aLockedFileFailsTheQueryAndNothingElse();

private:
    using Snapshot = Connection::Snapshot;

    QString Title() { return m_connection.Execute(Titles).Fields(0).ToText(); }
    bool OtherChanges(const QByteArray& title)
    {
        return m_other->RunUnlessLocked("UPDATE MUSICA SET TITULO = '" + title + "'");
    }

    const QString Titles = u"SELECT TITULO FROM MUSICA"_qs;
    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<PlainSqlite> m_other;
    Connection m_connection;
};

void tst_snapshot::init()
{
    m_catalogue = std::make_unique<TestCatalogue>();
    m_catalogue->AddSong(u"um"_qs);
    m_connection.Open(m_catalogue->ConnectionString());
    m_other = std::make_unique<PlainSqlite>(m_catalogue->Path());
}

void tst_snapshot::cleanup()
{
    if (m_connection.IsOpen())
        m_connection.Close();
    m_other.reset();
    m_catalogue.reset();
}

void tst_snapshot::withoutOneEachQuerySeesTheLatest()
{
    QCOMPARE(Title(), u"um"_qs);
    QVERIFY(OtherChanges("dois"));
    QCOMPARE(Title(), u"dois"_qs);
}

void tst_snapshot::queriesSeeOneState()
{
    {
        const Snapshot snapshot(m_connection);
        QCOMPARE(Title(), u"um"_qs);
        QVERIFY(!OtherChanges("dois"));
        QCOMPARE(Title(), u"um"_qs);
    }
    QVERIFY(OtherChanges("dois"));
    QCOMPARE(Title(), u"dois"_qs);
}

void tst_snapshot::lettersTypedSeeTheSameState()
{
    const QString search =
        u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE 'u%' ORDER BY "
        "TITULO & ' - ' & REFERENCIA"_qs;
    QCOMPARE(m_connection.Execute(search).RecordCount(), 1);
    QVERIFY(OtherChanges("ultimo"));
    const Snapshot snapshot(m_connection);
    QCOMPARE(m_connection.Execute(search).Fields(1).ToText(), u"ultimo - Anônimo"_qs);
    QVERIFY(!OtherChanges("dois"));
    QCOMPARE(m_connection.Execute(search).RecordCount(), 1);
    QCOMPARE(Title(), u"ultimo"_qs);
}

void tst_snapshot::endsWithAChangeOfOurs()
{
    const Snapshot snapshot(m_connection);
    QCOMPARE(Title(), u"um"_qs);
    m_connection.Execute(u"UPDATE MUSICA SET TITULO = 'nosso'"_qs);
    QVERIFY(m_connection.CommitBatch());
    QCOMPARE(m_catalogue->Field(Titles), u"nosso"_qs);
    QVERIFY(OtherChanges("dois"));
    QCOMPARE(Title(), u"dois"_qs);
}

void tst_snapshot::endsWithACommit()
{
    const Snapshot snapshot(m_connection);
    QCOMPARE(Title(), u"um"_qs);
    // As before any box: it may stand open for an hour.
    QVERIFY(!m_connection.CommitBatch());
    QVERIFY(OtherChanges("dois"));
    QCOMPARE(Title(), u"dois"_qs);
}

void tst_snapshot::insideABatchLeavesTheBatchAlone()
{
    m_connection.Execute(u"UPDATE MUSICA SET TITULO = 'nosso'"_qs);
    {
        const Snapshot snapshot(m_connection);
        QCOMPARE(Title(), u"nosso"_qs);
    }
    QCOMPARE(m_catalogue->Field(Titles), u"um"_qs);
    QVERIFY(m_connection.CommitBatch());
    QCOMPARE(m_catalogue->Field(Titles), u"nosso"_qs);
}

void tst_snapshot::insideAnotherLastsAsLongAsTheOuterOne()
{
    const auto outer = std::make_unique<Snapshot>(m_connection);
    QCOMPARE(Title(), u"um"_qs);
    {
        const Snapshot inner(m_connection);
        QCOMPARE(Title(), u"um"_qs);
    }
    QVERIFY(!OtherChanges("dois"));
}

void tst_snapshot::failsOnAClosedConnection()
{
    m_connection.Close();
    QCOMPARE(Failed([this] { const Snapshot snapshot(m_connection); }).number,
             int{RuntimeError::ObjectClosed});
}

void tst_snapshot::outlivesItsConnection()
{
    {
        const Snapshot snapshot(m_connection);
        QCOMPARE(Title(), u"um"_qs);
        m_connection.Close();
        QVERIFY(OtherChanges("dois"));
    }
    QVERIFY(!m_connection.IsOpen());
}

void tst_snapshot::aLockedFileFailsTheQueryAndNothingElse()
{
    m_other->Run("BEGIN EXCLUSIVE");
    {
        const Snapshot snapshot(m_connection);
        QCOMPARE(Failed([this] { Title(); }).whatFailed,
                 u"O banco de dados está sendo usado por outro programa."_qs);
    }
    m_other->Run("ROLLBACK");
    QCOMPARE(Title(), u"um"_qs);
    m_connection.Execute(u"UPDATE MUSICA SET TITULO = 'nosso'"_qs);
    QVERIFY(m_connection.CommitBatch());
}

QTEST_GUILESS_MAIN(tst_snapshot)
#include "tst_snapshot.moc"
