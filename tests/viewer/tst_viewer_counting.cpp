// The play count: the countdown, and what lies in the catalogue after it.

#include "Ticks.h"

#include "controls/RecordingDialogs.h"
#include "runtime/RuntimeError.h"
#include "support/PlainSqlite.h"
#include "viewer/Musicas_Contadas.h"

using Funcoes::Musicas_Contadas;

class tst_viewer_counting : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Musicas_Contadas.clear();
        bench = std::make_unique<ViewerBench>();
    }
    void cleanup() { bench.reset(); }

    void theLabelCountsDownAndThePlayIsCounted();
    void theStatementExcludesWhatWasCounted_data();
    void theStatementExcludesWhatWasCounted();
    void anotherViewerDoesNotCountTheSongAgain();
    void choosingACountedSongAgainCountsDownOnly();
    void movingOnEarlierCountsOnlyTheNextSong();
    void movingOnDoesNotTouchTheLabelBeforeTheNextSecond();
    void closingEarlierCountsNothing();
    void aSongThatCannotBeLoadedLeavesTheCountdown();
    void everySongOfASetlistIsCountedOnce();
    void twoViewersCountSideBySide();
    void aViewerWithoutASongTicksOnce();
    void aViewerThatFailedToOpenCountsNothing();
    void renderingDoesNotRestartTheCountdown();
    void aFailureToCountIsToldOnceAndTriedAgain();
    void aCountThatIsNotStoredIsTriedAgain();
    void aSongThatIsGoneIsCountedNowhere();

private:
    QString Count(qint64 song) const
    {
        return bench->catalogue.Field(u"SELECT CONTADOR FROM MUSICA WHERE ID = %1"_qs.arg(song));
    }
    static bool CountsDown(const QWidget* viewer)
    {
        return In<QTimer>(viewer, "tmrContador")->isActive();
    }

    std::unique_ptr<ViewerBench> bench;
};

void tst_viewer_counting::theLabelCountsDownAndThePlayIsCounted()
{
    const qint64 song = bench->catalogue.AddSong({.count = 41});
    const auto viewer = bench->Open(song);
    QCOMPARE(In<QTimer>(viewer, "tmrContador")->interval(), 1000);
    QVERIFY(In(viewer, "lblCont")->isVisible());
    QCOMPARE(Caption(viewer, "lblCont"), u"10"_qs);
    for (int left = 9; left >= 0; --left) {
        Tick(viewer, "tmrContador");
        QCOMPARE(Caption(viewer, "lblCont"), QString::number(left));
        QVERIFY(In(viewer, "lblCont")->isVisible());
        QCOMPARE(Count(song), u"41"_qs);
    }
    Tick(viewer, "tmrContador");
    QCOMPARE(Count(song), u"42"_qs);
    QVERIFY(!In(viewer, "lblCont")->isVisible());
    QVERIFY(!CountsDown(viewer));
    QCOMPARE(Musicas_Contadas, u"%1,"_qs.arg(song));
}

void tst_viewer_counting::theStatementExcludesWhatWasCounted_data()
{
    QTest::addColumn<QString>("counted");
    QTest::addColumn<QString>("statement"); // empty: none
    QTest::addColumn<QString>("after");
    const QString update =
        u"UPDATE MUSICA SET CONTADOR = CONTADOR + 1 WHERE ID = 01 AND ID NOT IN "_qs;
    QTest::newRow("nothing yet") << QString() << QString(update + u"(0)"_qs) << u"1,"_qs;
    QTest::newRow("another song") << u"7,"_qs << QString(update + u"(7)"_qs) << u"7,1,"_qs;
    QTest::newRow("two others, of similar numbers")
        << u"11,21,"_qs << QString(update + u"(11,21)"_qs) << u"11,21,1,"_qs;
    QTest::newRow("this one, alone") << u"1,"_qs << QString() << u"1,"_qs;
    QTest::newRow("this one, first") << u"1,21,"_qs << QString() << u"1,21,"_qs;
    QTest::newRow("this one, last") << u"21,1,"_qs << QString() << u"21,1,"_qs;
}

void tst_viewer_counting::theStatementExcludesWhatWasCounted()
{
    QFETCH(QString, counted);
    QFETCH(QString, statement);
    QFETCH(QString, after);
    const auto viewer = bench->Open(TestSong{});
    QCOMPARE(viewer->ID_Musica, 1.0);
    Musicas_Contadas = counted;
    QStringList statements;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) { statements += sql; });
    Tick(viewer, "tmrContador", 20);
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(statements, statement.isEmpty() ? QStringList() : QStringList(statement));
    QCOMPARE(Musicas_Contadas, after);
    QCOMPARE(Count(1), statement.isEmpty() ? u"0"_qs : u"1"_qs);
    QVERIFY(!CountsDown(viewer));
}

void tst_viewer_counting::anotherViewerDoesNotCountTheSongAgain()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    const auto first = bench->Open(song);
    Tick(first, "tmrContador", 11);
    Click(first, "cmdFechar");
    const auto second = bench->Open(song);
    QCOMPARE(Caption(second, "lblCont"), u"10"_qs);
    Tick(second, "tmrContador", 11);
    QVERIFY(!In(second, "lblCont")->isVisible());
    QCOMPARE(Count(song), u"1"_qs);
}

void tst_viewer_counting::choosingACountedSongAgainCountsDownOnly()
{
    const qint64 song = bench->catalogue.AddSong({.title = u"Amém"_qs});
    bench->catalogue.AddSong({.title = u"Vem"_qs});
    const auto viewer = bench->Open(song);
    Tick(viewer, "tmrContador", 11);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QTest::keyClick(viewer.data(), Qt::Key_A);
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Amém"_qs);
    QVERIFY(CountsDown(viewer));
    Tick(viewer, "tmrContador", 11);
    QCOMPARE(Count(song), u"1"_qs);
    QVERIFY(!CountsDown(viewer));
}

void tst_viewer_counting::movingOnEarlierCountsOnlyTheNextSong()
{
    const qint64 first = bench->catalogue.AddSong({.title = u"Amém"_qs});
    const qint64 next = bench->catalogue.AddSong({.title = u"Vem"_qs});
    const auto viewer = bench->Open(first);
    Tick(viewer, "tmrContador", 5);
    QCOMPARE(Caption(viewer, "lblCont"), u"5"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    Tick(viewer, "tmrContador");
    QCOMPARE(Caption(viewer, "lblCont"), u"9"_qs);
    Tick(viewer, "tmrContador", 9);
    QCOMPARE(Count(next), u"0"_qs);
    Tick(viewer, "tmrContador");
    QCOMPARE(Count(first), u"0"_qs);
    QCOMPARE(Count(next), u"1"_qs);
}

void tst_viewer_counting::movingOnDoesNotTouchTheLabelBeforeTheNextSecond()
{
    bench->catalogue.AddSong({.title = u"Amém"_qs});
    bench->catalogue.AddSong({.title = u"Vem"_qs});
    const auto viewer = bench->Open(1);
    Tick(viewer, "tmrContador", 3);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Caption(viewer, "lblCont"), u"7"_qs);
    Tick(viewer, "tmrContador", 11);
    QTest::keyClick(viewer.data(), Qt::Key_A);
    QVERIFY(!In(viewer, "lblCont")->isVisible());
    Tick(viewer, "tmrContador");
    QVERIFY(In(viewer, "lblCont")->isVisible());
    QCOMPARE(Caption(viewer, "lblCont"), u"9"_qs);
}

void tst_viewer_counting::closingEarlierCountsNothing()
{
    const auto viewer = bench->Open(TestSong{});
    Tick(viewer, "tmrContador", 10);
    Click(viewer, "cmdFechar");
    QVERIFY(Gone(viewer));
    QCOMPARE(Count(1), u"0"_qs);
    QCOMPARE(Musicas_Contadas, QString());
}

void tst_viewer_counting::aSongThatCannotBeLoadedLeavesTheCountdown()
{
    const qint64 first = bench->catalogue.AddSong({.title = u"Amém"_qs});
    const qint64 next = bench->catalogue.AddSong({.title = u"Vem"_qs});
    const auto viewer = bench->Open(first);
    Tick(viewer, "tmrContador", 5);
    RecordingDialogs dialogs;
    bench->catalogue.Run(u"INSERT INTO TOM (NOTA, MAIS, ORDEM) VALUES ('H', 'H', 13)"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(dialogs.boxes.size(), 1);
    Tick(viewer, "tmrContador");
    QCOMPARE(Caption(viewer, "lblCont"), u"4"_qs);
    Tick(viewer, "tmrContador", 5);
    QCOMPARE(Count(first), u"1"_qs);
    QCOMPARE(Count(next), u"0"_qs);
    QVERIFY(!CountsDown(viewer));
    // Nor does a failed load start a countdown that had ended.
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(dialogs.boxes.size(), 2);
    QVERIFY(!CountsDown(viewer));
}

void tst_viewer_counting::everySongOfASetlistIsCountedOnce()
{
    QList<qint64> songs;
    for (const QString& title : {u"Um"_qs, u"Dois"_qs, u"Três"_qs})
        songs += bench->catalogue.AddSong(title);
    const auto viewer = bench->OpenList(bench->catalogue.AddSetlist(u"Missa"_qs, {}, songs));
    for (int i = 0; i < 3; ++i) {
        Tick(viewer, "tmrContador", 11);
        QTest::keyClick(viewer.data(), Qt::Key_P);
    }
    for (const qint64 song : songs)
        QCOMPARE(Count(song), u"1"_qs);
    QCOMPARE(Musicas_Contadas, u"%1,%2,%3,"_qs.arg(songs[0]).arg(songs[1]).arg(songs[2]));
}

void tst_viewer_counting::twoViewersCountSideBySide()
{
    const auto first = bench->Open(TestSong{});
    const auto second = bench->Open(TestSong{});
    const auto third = bench->Open(1);
    for (int i = 0; i < 11; ++i)
        for (const auto& viewer : {first, second, third})
            Tick(viewer, "tmrContador");
    QCOMPARE(Count(1), u"1"_qs);
    QCOMPARE(Count(2), u"1"_qs);
}

void tst_viewer_counting::aViewerWithoutASongTicksOnce()
{
    bench->catalogue.AddSong(TestSong{});
    const auto viewer = bench->Open(qint64(0));
    QVERIFY(CountsDown(viewer));
    QCOMPARE(Caption(viewer, "lblCont"), u"10"_qs);
    Tick(viewer, "tmrContador");
    QVERIFY(!CountsDown(viewer));
    QVERIFY(!In(viewer, "lblCont")->isVisible());
    QCOMPARE(Count(1), u"0"_qs);
}

void tst_viewer_counting::aViewerThatFailedToOpenCountsNothing()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    bench->catalogue.Run(u"INSERT INTO TOM (NOTA, MAIS, ORDEM) VALUES ('H', 'H', 13)"_qs);
    const QPointer<frmVisualizar> viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(song);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, viewer->Show());
    // As long as a box tells why, the form is still there.
    QVERIFY(viewer);
    Tick(viewer, "tmrContador", 11);
    QCOMPARE(Count(song), u"0"_qs);
    QCOMPARE(Musicas_Contadas, QString());
}

void tst_viewer_counting::renderingDoesNotRestartTheCountdown()
{
    const auto viewer = bench->Open(TestSong{});
    Tick(viewer, "tmrContador", 4);
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_V, Qt::Key_C, Qt::Key_Plus})
        QTest::keyClick(viewer.data(), key);
    Tick(viewer, "tmrContador");
    QCOMPARE(Caption(viewer, "lblCont"), u"5"_qs);
}

void tst_viewer_counting::aFailureToCountIsToldOnceAndTriedAgain()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    const auto viewer = bench->Open(song);
    const QString provider = bench->catalogue.ConnectionString();
    Funcoes::Conexao.Close();
    RecordingDialogs dialogs;
    Tick(viewer, "tmrContador", 10);
    QCOMPARE(dialogs.boxes.size(), 0);
    Tick(viewer, "tmrContador");
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].icon, Icone::Critico);
    QVERIFY(CountsDown(viewer));
    QCOMPARE(Musicas_Contadas, QString());
    Tick(viewer, "tmrContador"); // the countdown begins anew
    QCOMPARE(Caption(viewer, "lblCont"), u"9"_qs);
    Tick(viewer, "tmrContador", 43);
    QCOMPARE(dialogs.boxes.size(), 1);
    QVERIFY(CountsDown(viewer));

    Funcoes::Conexao.Open(provider);
    Tick(viewer, "tmrContador", 11);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(Count(song), u"1"_qs);
    QVERIFY(!CountsDown(viewer));
}

void tst_viewer_counting::aCountThatIsNotStoredIsTriedAgain()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    const auto viewer = bench->Open(song);
    RecordingDialogs dialogs;
    PlainSqlite reader(bench->catalogue.Path());
    reader.Run("BEGIN; SELECT COUNT(*) FROM MUSICA"); // lets others write, but not commit
    Tick(viewer, "tmrContador", 11);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(Musicas_Contadas, QString());
    QVERIFY(CountsDown(viewer));
    reader.Run("COMMIT");
    QCOMPARE(Count(song), u"0"_qs);
    Tick(viewer, "tmrContador", 11);
    QCOMPARE(Count(song), u"1"_qs);
    QCOMPARE(Musicas_Contadas, u"%1,"_qs.arg(song));
}

void tst_viewer_counting::aSongThatIsGoneIsCountedNowhere()
{
    const auto viewer = bench->Open(TestSong{});
    bench->catalogue.AddSong(TestSong{});
    bench->catalogue.Run(u"DELETE FROM MUSICA WHERE ID = 1"_qs);
    RecordingDialogs dialogs;
    Tick(viewer, "tmrContador", 11);
    QCOMPARE(dialogs.boxes.size(), 0);
    QCOMPARE(Count(2), u"0"_qs);
    QVERIFY(!CountsDown(viewer));
}

QTEST_MAIN(tst_viewer_counting)
#include "tst_viewer_counting.moc"
