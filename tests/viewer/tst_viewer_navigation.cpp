// Stepping through the song list of a viewer.

#include "SongListBench.h"

#include "controls/Appearance.h"
#include "controls/RecordingDialogs.h"
#include "runtime/RuntimeError.h"

#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

class tst_viewer_navigation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init() { bench = std::make_unique<SongListBench>(); }
    void cleanup() { bench.reset(); }

    void steppingThroughASetlist_data();
    void steppingThroughASetlist();
    void steppingThroughACategory();
    void endsOfTheList_data();
    void endsOfTheList();
    void aMoveStartsInTheStoredKeyAndKeepsTheRest();
    void aMoveTakesTheWholeHeaderAlong();
    void aMoveStartsAtTheTopAndStopsScrolling();
    void choosingAnEntryIsLikeReachingIt();
    void choosingTheShownSongLoadsItAgain();
    void theSameSongTwice();
    void twoHundredSongs();
    void openingAndMovingLeaveTheCountdownsSecondUnderWay();
    void movingToASongThatWasDeletedMeanwhile();
    void aDeletedSongReadsTheNotesAgain();
    void anUnknownKeyTakesTheIndexOfTheSongBefore();
    void aSongOfNumberZeroBuildsTheListAnew();
    void theWheelChoosesNothing();
    void keysWhileTheListIsOpenAreTheForms();
    void aSongReachedByKeyWhileTheListIsOpenCanBeChosenAgain();
    void twoViewersStepApart();
    void movingWithoutAConnectionIsOneMessage();
    void aSongThatCannotBeLoadedLeavesTheShownOne_data();
    void aSongThatCannotBeLoadedLeavesTheShownOne();
    void aThirteenthNoteLeavesTheShownKey();

private:
    std::unique_ptr<SongListBench> bench;
};

void tst_viewer_navigation::steppingThroughASetlist_data()
{
    QTest::addColumn<bool>("keys");
    QTest::addColumn<int>("held");
    QTest::newRow("with the buttons") << false << 0;
    QTest::newRow("with the keys") << true << int(Qt::NoModifier);
    QTest::newRow("with the keys, Shift held") << true << int(Qt::ShiftModifier);
    QTest::newRow("with the keys, Ctrl and Alt held")
        << true << int(Qt::ControlModifier | Qt::AltModifier);
}

void tst_viewer_navigation::steppingThroughASetlist()
{
    QFETCH(bool, keys);
    QFETCH(int, held);
    const auto viewer = bench->ThreeSongs();
    const auto step = [&](Qt::Key key, const char* button) {
        if (keys)
            QTest::keyClick(viewer.data(), key, Qt::KeyboardModifiers(held));
        else
            Click(viewer, button);
    };
    const auto next = [&] { step(Qt::Key_P, "cmdProxima"); };
    const auto previous = [&] { step(Qt::Key_A, "cmdAnterior"); };
    next();
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QCOMPARE(viewer->windowTitle(), u"Amar (Ref. Amar)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Amar"_qs);
    QCOMPARE(List(viewer)->currentText(), u"2 - Amar (D) Ref. Amar"_qs);
    QCOMPARE(viewer->ID_Musica, double(List(viewer)->ItemData(1)));
    QCOMPARE(Arrows(viewer), u"<>"_qs);
    next();
    QCOMPARE(Title(viewer), u"Luar"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(A#)"_qs);
    QCOMPARE(Arrows(viewer), u"<"_qs);
    previous();
    QCOMPARE(Title(viewer), u"Amar"_qs);
    previous();
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Arrows(viewer), u">"_qs);
}

void tst_viewer_navigation::steppingThroughACategory()
{
    bench->Song(u"Zelo"_qs);
    const qint64 first = bench->Song(u"Amar"_qs);
    bench->Song(u"Baião"_qs, u"C"_qs, u""_qs, 2);
    bench->Song(u"Luar"_qs);
    const auto viewer = bench->Open(first);
    QStringList shown;
    for (int i = 0; i < 3; ++i) {
        shown.append(Title(viewer));
        QTest::keyClick(viewer.data(), Qt::Key_P);
    }
    QCOMPARE(shown, QStringList({u"Amar"_qs, u"Luar"_qs, u"Zelo"_qs}));
}

void tst_viewer_navigation::endsOfTheList_data()
{
    QTest::addColumn<int>("at");
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("next on the last") << 2 << int(Qt::Key_P) << QByteArray("cmdProxima");
    QTest::newRow("previous on the first") << 0 << int(Qt::Key_A) << QByteArray("cmdAnterior");
}

void tst_viewer_navigation::endsOfTheList()
{
    QFETCH(int, at);
    QFETCH(int, key);
    QFETCH(QByteArray, button);
    const auto viewer = bench->ThreeSongs();
    List(viewer)->SetListIndex(at);
    const QString title = Title(viewer);
    Click(viewer, "cmdSobe");
    const QString shifted = Caption(viewer, "lblTom");
    QVERIFY(!In(viewer, button.constData())->isVisible());
    const Statements statements;
    QTest::keyClick(viewer.data(), Qt::Key(key));
    QCOMPARE(List(viewer)->ListIndex(), at);
    QCOMPARE(Title(viewer), title);
    QCOMPARE(Caption(viewer, "lblTom"), shifted); // not even loaded again
    QCOMPARE(statements.size(), 0);
}

void tst_viewer_navigation::aMoveStartsInTheStoredKeyAndKeepsTheRest()
{
    const auto viewer = bench->ThreeSongs();
    for (const char* control : {"cmdSobe", "cmdSobe", "cmdAumentaFonte", "cmdLetra", "lblVersao"})
        Click(viewer, control);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Bm)"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Caption(viewer, "lblTom"), u"(D)"_qs);
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.1"_qs);
    QVERIFY(Box(viewer, 1)->isVisible());
    QVERIFY(!Box(viewer, 2)->isVisible());
    QCOMPARE(Box(viewer, 1)->Text(), u"\r\nUm Amar"_qs); // no chords
    QVERIFY(Box(viewer, 1)->TextRTF().contains(u"\\fs38"_qs));
    Click(viewer, "cmdLetra");
    QCOMPARE(Box(viewer, 1)->Text(), u"C\r\nUm Amar"_qs); // as written
    QTest::keyClick(viewer.data(), Qt::Key_A);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
}

void tst_viewer_navigation::aMoveTakesTheWholeHeaderAlong()
{
    const auto& catalogue = bench->catalogue;
    const qint64 first = bench->Song(u"Rosa"_qs, u"A"_qs, u"m"_qs);
    catalogue.Link(first, catalogue.AddTheme(u"Louvor"_qs));
    const qint64 bare = catalogue.AddSong({.title = u""_qs, .reference = u""_qs});
    const auto viewer =
        bench->OpenList(catalogue.AddSetlist(u"Domingo"_qs, QDate(), {first, bare, first}));
    QCOMPARE(Caption(viewer, "lblTemas"), u"Louvor"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Caption(viewer, "lblTitulo"), QString());
    QCOMPARE(Caption(viewer, "lblTom"), u"(C)"_qs);
    QCOMPARE(Caption(viewer, "lblReferencia"), QString());
    QCOMPARE(Caption(viewer, "lblTemas"), QString());
    QCOMPARE(viewer->windowTitle(), u" ()"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
    QCOMPARE(Caption(viewer, "lblReferencia"), u"Ref. Rosa"_qs);
    QCOMPARE(Caption(viewer, "lblTemas"), u"Louvor"_qs);
}

void tst_viewer_navigation::aMoveStartsAtTheTopAndStopsScrolling()
{
    const QString lines = u"C\r\nSanto\r\n"_qs.repeated(100);
    const auto& catalogue = bench->catalogue;
    const QList<qint64> songs = {catalogue.AddSong({.text2 = lines}),
                                 catalogue.AddSong({.text2 = lines + u"Fim"_qs})};
    const auto viewer = bench->OpenList(catalogue.AddSetlist(u"Longa"_qs, QDate(), songs));
    QScrollBar* bar = Box(viewer, 2)->verticalScrollBar();
    bar->setValue(bar->maximum());
    viewer->Auto_Rolagem(true);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(bar->value(), 0);
    QVERIFY(!In<QTimer>(viewer, "TimerRolagem")->isActive());
    QCOMPARE(Box(viewer, 2)->property("Tag").toInt(), bar->maximum());
}

void tst_viewer_navigation::choosingAnEntryIsLikeReachingIt()
{
    const auto viewer = bench->ThreeSongs();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    Click(viewer, "cmdDesce");
    Choose(viewer, 2);
    QCOMPARE(Title(viewer), u"Luar"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(A#)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Luar"_qs);
    QCOMPARE(Arrows(viewer), u"<"_qs);
    Choose(viewer, 0);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Arrows(viewer), u">"_qs);
    // The keys still belong to the form.
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
}

void tst_viewer_navigation::choosingTheShownSongLoadsItAgain()
{
    const auto viewer = bench->ThreeSongs();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    bench->catalogue.Run(u"UPDATE MUSICA SET TITULO = 'Rosa Branca' WHERE TITULO = 'Rosa'"_qs);
    Click(viewer, "cmdSobe");
    Choose(viewer, 0);
    QCOMPARE(Title(viewer), u"Rosa Branca"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
}

void tst_viewer_navigation::theSameSongTwice()
{
    const qint64 refrain = bench->Song(u"Refrão"_qs);
    const auto viewer = bench->OpenList(bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(), {refrain, bench->Song(u"Rosa"_qs), refrain, refrain}));
    QStringList shown;
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(List(viewer)->ListIndex(), i);
        shown.append(Title(viewer));
        Click(viewer, "cmdSobe");
        QTest::keyClick(viewer.data(), Qt::Key_P);
    }
    QCOMPARE(shown, QStringList({u"Refrão"_qs, u"Rosa"_qs, u"Refrão"_qs, u"Refrão"_qs}));
    QTest::keyClick(viewer.data(), Qt::Key_A);
    QCOMPARE(List(viewer)->currentText(), u"3 - Refrão (C) Ref. Refrão"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(C)"_qs); // also from a song to itself
}

void tst_viewer_navigation::twoHundredSongs()
{
    QList<qint64> songs;
    for (int i = 0; i < 20; ++i)
        songs.append(bench->Song(u"Canto %1"_qs.arg(i)));
    QList<qint64> setlist;
    for (int i = 0; i < 200; ++i)
        setlist.append(songs[i * 7 % 20]);
    const auto viewer =
        bench->OpenList(bench->catalogue.AddSetlist(u"Vigília"_qs, QDate(), setlist));
    QCOMPARE(List(viewer)->ListCount(), 200);
    for (int i = 0; i < 200; ++i) {
        QCOMPARE(viewer->ID_Musica, double(setlist[i]));
        QCOMPARE(Title(viewer), u"Canto %1"_qs.arg(i * 7 % 20));
        QTest::keyClick(viewer.data(), Qt::Key_P);
    }
    QCOMPARE(List(viewer)->currentText(), u"200 - Canto 13 (C) Ref. Canto 13"_qs);
    QCOMPARE(Arrows(viewer), u"<"_qs);
    for (int i = 0; i < 250; ++i)
        QTest::keyClick(viewer.data(), Qt::Key_A);
    QCOMPARE(List(viewer)->ListIndex(), 0);
    QCOMPARE(Arrows(viewer), u">"_qs);
}

void tst_viewer_navigation::openingAndMovingLeaveTheCountdownsSecondUnderWay()
{
    const auto viewer = bench->ThreeSongs();
    auto* timer = In<QTimer>(viewer, "tmrContador");
    QVERIFY(timer->isActive());
    const int id = timer->timerId();
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(timer->timerId(), id); // a timer that was started anew has another
    timer->stop();
    QTest::keyClick(viewer.data(), Qt::Key_A);
    QVERIFY(timer->isActive());
}

void tst_viewer_navigation::movingToASongThatWasDeletedMeanwhile()
{
    const auto viewer = bench->ThreeSongs();
    bench->catalogue.Run(u"DELETE FROM MUSICA WHERE TITULO = 'Amar'"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_S);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    // What the song before it left stays on the screen, in its stored key; the list goes on.
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Rosa"_qs);
    QCOMPARE(List(viewer)->ListIndex(), 1);
    QCOMPARE(viewer->ID_Musica, double(List(viewer)->ItemData(1)));
    QCOMPARE(Arrows(viewer), u"<>"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Luar"_qs);
}

void tst_viewer_navigation::aDeletedSongReadsTheNotesAgain()
{
    const auto viewer = bench->ThreeSongs();
    bench->catalogue.Run(u"DELETE FROM MUSICA WHERE TITULO = 'Amar'"_qs);
    bench->catalogue.Run(u"UPDATE TOM SET ORDEM = 13 - ORDEM"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    // The shown song's key has its new place among them.
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_S);
    QCOMPARE(Caption(viewer, "lblTom"), u"(G#m)"_qs);
}

void tst_viewer_navigation::anUnknownKeyTakesTheIndexOfTheSongBefore()
{
    const auto viewer = bench->OpenList(bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(),
        {bench->Song(u"Rosa"_qs, u"E"_qs), bench->Song(u"Amar"_qs, u"H"_qs)}));
    Click(viewer, "cmdSobe");
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(E)"_qs);
}

/// While no song is known by its number, each step builds the setlist as it is by then.
void tst_viewer_navigation::aSongOfNumberZeroBuildsTheListAnew()
{
    const auto& catalogue = bench->catalogue;
    const qint64 zero = bench->Song(u"Zero"_qs);
    catalogue.Run(u"UPDATE MUSICA SET ID = 0 WHERE ID = %1"_qs.arg(zero));
    const QList<qint64> songs = {0, bench->Song(u"Rosa"_qs), bench->Song(u"Amar"_qs)};
    const qint64 setlist = catalogue.AddSetlist(u"Domingo"_qs, QDate(), songs);
    const auto viewer = bench->OpenList(setlist);
    QCOMPARE(Title(viewer), u"Zero"_qs);
    QCOMPARE(List(viewer)->ListCount(), 3);
    catalogue.Run(u"DELETE FROM LISTA_MUSICA WHERE ORDEM = 2"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(List(viewer)->ListIndex(), 1);
    QCOMPARE(List(viewer)->ListCount(), 2);
    QCOMPARE(Arrows(viewer), u"<"_qs);
}

void tst_viewer_navigation::keysWhileTheListIsOpenAreTheForms()
{
    const auto viewer = bench->ThreeSongs();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    QTest::mouseClick(List(viewer), Qt::LeftButton);
    QAbstractItemView* popup = List(viewer)->view();
    QTRY_VERIFY(popup->isVisible());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Return, Qt::Key_L})
        QTest::keyClick(popup, key);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QTest::keyClick(popup, Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QTest::keyClick(popup, Qt::Key_Escape);
    QVERIFY(Gone(viewer));
}

void tst_viewer_navigation::aSongReachedByKeyWhileTheListIsOpenCanBeChosenAgain()
{
    const auto viewer = bench->ThreeSongs();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    QTest::mouseClick(List(viewer), Qt::LeftButton);
    QAbstractItemView* popup = List(viewer)->view();
    QTRY_VERIFY(popup->isVisible());
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::keyClick(popup, Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    bench->catalogue.Run(u"UPDATE MUSICA SET TITULO = 'Amarelo' WHERE TITULO = 'Amar'"_qs);
    const QPoint place = popup->visualRect(popup->model()->index(1, 0)).center();
    QTest::mouseMove(popup->viewport(), place);
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, place);
    QTRY_VERIFY(!popup->isVisible());
    QCOMPARE(Title(viewer), u"Amarelo"_qs);
}

void tst_viewer_navigation::theWheelChoosesNothing()
{
    const auto viewer = bench->ThreeSongs();
    ComboBox* list = List(viewer);
    QWheelEvent wheel(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &wheel);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
}

void tst_viewer_navigation::twoViewersStepApart()
{
    const qint64 setlist = bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(), {bench->Song(u"Rosa"_qs), bench->Song(u"Amar"_qs)});
    const auto first = bench->OpenList(setlist);
    const auto second = bench->OpenList(setlist);
    QTest::keyClick(second.data(), Qt::Key_P);
    QCOMPARE(Title(first), u"Rosa"_qs);
    QCOMPARE(Title(second), u"Amar"_qs);
}

void tst_viewer_navigation::movingWithoutAConnectionIsOneMessage()
{
    const auto viewer = bench->ThreeSongs();
    RecordingDialogs dialogs;
    Funcoes::Conexao.Close();
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].title, u"Melodario"_qs);
    QVERIFY(viewer);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
}

void tst_viewer_navigation::aSongThatCannotBeLoadedLeavesTheShownOne_data()
{
    QTest::addColumn<QString>("failing"); // how the statement begins that does
    QTest::addColumn<int>("shown");       // in the list, from 0
    QTest::newRow("the song") << u"SELECT * FROM MUSICA"_qs << 0;
    QTest::newRow("its themes") << u"SELECT TEMA.DESCRICAO"_qs << 0;
    QTest::newRow("the keys") << u"SELECT * FROM TOM"_qs << 0;
    QTest::newRow("the song after the second") << u"SELECT * FROM MUSICA"_qs << 1;
}

void tst_viewer_navigation::aSongThatCannotBeLoadedLeavesTheShownOne()
{
    QFETCH(QString, failing);
    QFETCH(int, shown);
    const auto viewer = bench->ThreeSongs();
    for (int i = 0; i < shown; ++i)
        QTest::keyClick(viewer.data(), Qt::Key_P);
    const double song = viewer->ID_Musica;
    const QString title = Title(viewer);
    const QString entry = In<QComboBox>(viewer, "cmbLista")->currentText();
    RecordingDialogs dialogs;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) {
        if (sql.startsWith(failing))
            throw RuntimeError(RuntimeError::StoreFailure, u"Falha."_qs, u"failed"_qs);
    });
    QTest::keyClick(viewer.data(), Qt::Key_P);
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(Title(viewer), title);
    QCOMPARE(viewer->ID_Musica, song);
    QCOMPARE(In<QComboBox>(viewer, "cmbLista")->currentText(), entry);
    // On from there as if nothing had been.
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QVERIFY(viewer->ID_Musica != song);
    QVERIFY(Title(viewer) != title);
    QCOMPARE(dialogs.boxes.size(), 1);
}

void tst_viewer_navigation::aThirteenthNoteLeavesTheShownKey()
{
    const auto viewer = bench->ThreeSongs();
    bench->catalogue.Run(u"INSERT INTO TOM (NOTA, MAIS, ORDEM) VALUES ('H', 'H', 13)"_qs);
    RecordingDialogs dialogs;
    QTest::keyClick(viewer.data(), Qt::Key_P); // to a song in D
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_R);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_S);
    QCOMPARE(Caption(viewer, "lblTom"), u"(A#m)"_qs);
}

QTEST_MAIN(tst_viewer_navigation)
#include "tst_viewer_navigation.moc"
