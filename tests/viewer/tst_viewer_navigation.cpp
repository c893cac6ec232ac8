// The song list of a viewer: how it comes up, and stepping through it.

#include "ViewerBench.h"

#include "controls/Appearance.h"
#include "controls/ComboBox.h"
#include "controls/RecordingDialogs.h"

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTimer>
#include <QWheelEvent>

namespace {

ComboBox* List(const QWidget* viewer)
{
    return In<ComboBox>(viewer, "cmbLista");
}

QStringList Entries(const QWidget* viewer)
{
    QStringList entries;
    for (int i = 0; i < List(viewer)->ListCount(); ++i)
        entries.append(List(viewer)->Text(i));
    return entries;
}

QString Title(const QWidget* viewer)
{
    return Caption(viewer, "lblTitulo");
}

/// @return which of the two arrows are to be seen: "<", ">", "<>" or nothing
QString Arrows(const QWidget* viewer)
{
    return QString(In(viewer, "cmdAnterior")->isVisible() ? u"<"_qs : QString()) +
           (In(viewer, "cmdProxima")->isVisible() ? u">"_qs : QString());
}

/// Opens the list with the mouse and clicks on an entry.
void Choose(const QWidget* viewer, int row)
{
    ComboBox* list = List(viewer);
    QTest::mouseClick(list, Qt::LeftButton);
    QAbstractItemView* popup = list->view();
    QTRY_VERIFY(popup->isVisible());
    // The release of the click that opened the list must not be taken for a choice.
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    const QPoint place = popup->visualRect(popup->model()->index(row, 0)).center();
    QTest::mouseMove(popup->viewport(), place);
    QTest::mouseClick(popup->viewport(), Qt::LeftButton, {}, place);
    QTRY_VERIFY(!popup->isVisible());
}

/// Everything that the program hands to the store while it lives.
class Statements : public QStringList
{
public:
    Statements()
    {
        Funcoes::Conexao.SetStatementHook([this](const QString& sql) { append(sql); });
    }
    ~Statements() { Funcoes::Conexao.SetStatementHook({}); }
    Statements(const Statements&) = delete;
    Statements& operator=(const Statements&) = delete;
};

} // namespace

class tst_viewer_navigation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init();
    void cleanup() { bench.reset(); }

    void aSetlistOfThreeSongs();
    void aSongOpenedAlone_data();
    void aSongOpenedAlone();
    void theSetlistsStatement();
    void theCategorysStatement();
    void steppingThroughASetlist_data();
    void steppingThroughASetlist();
    void steppingThroughACategory();
    void endsOfTheList_data();
    void endsOfTheList();
    void aMoveStartsInTheStoredKeyAndKeepsTheRest();
    void aMoveStartsAtTheTopAndStopsScrolling();
    void choosingAnEntryIsLikeReachingIt();
    void choosingTheShownSongLoadsItAgain();
    void anEmptySetlist();
    void aSetlistWhoseSongsAreAllGone();
    void aSetlistOfOneSong();
    void theSameSongTwice();
    void deletedSongsOfASetlistAreLeftOut();
    void twoHundredSongs();
    void openingLoadsTheSongOnce_data();
    void openingLoadsTheSongOnce();
    void openingAndMovingLeaveTheCountdownsSecondUnderWay();
    void theListStaysAsItWasBuilt();
    void movingToASongThatWasDeletedMeanwhile();
    void anUnknownKeyTakesTheIndexOfTheSongBefore();
    void emptyFieldsInAnEntry();
    void aSongWithoutACategoryHasNoList();
    void titlesOfAnyKindAreShownAsTheyAre();
    void theWheelChoosesNothing();
    void theListMeasuresOnlyWhatItShows();
    void twoViewersStepApart();
    void movingWithoutAConnectionIsOneMessage();

private:
    qint64 Song(const QString& title, const QString& key = u"C"_qs,
                const QString& variation = u""_qs, int category = 1) const;
    QPointer<frmVisualizar> ThreeSongs();

    std::unique_ptr<ViewerBench> bench;
};

void tst_viewer_navigation::init()
{
    bench = std::make_unique<ViewerBench>();
}

qint64 tst_viewer_navigation::Song(const QString& title, const QString& key,
                                   const QString& variation, int category) const
{
    return bench->catalogue.AddSong({.title = title,
                                     .reference = u"Ref. "_qs + title,
                                     .text = u"C\r\nUm "_qs + title,
                                     .text2 = u"C\r\nDois "_qs + title,
                                     .key = key,
                                     .variation = variation,
                                     .category = category});
}

QPointer<frmVisualizar> tst_viewer_navigation::ThreeSongs()
{
    const QList<qint64> songs = {Song(u"Rosa"_qs, u"A"_qs, u"m"_qs), Song(u"Amar"_qs, u"D"_qs),
                                 Song(u"Luar"_qs, u"Bb"_qs)};
    return bench->OpenList(bench->catalogue.AddSetlist(u"Domingo"_qs, QDate(2014, 5, 11), songs));
}

void tst_viewer_navigation::aSetlistOfThreeSongs()
{
    const auto viewer = ThreeSongs();
    QCOMPARE(Entries(viewer),
             QStringList({u"1 - Rosa (Am) Ref. Rosa"_qs, u"2 - Amar (D) Ref. Amar"_qs,
                          u"3 - Luar (Bb) Ref. Luar"_qs}));
    QCOMPARE(List(viewer)->ListIndex(), 0);
    QCOMPARE(List(viewer)->currentText(), u"1 - Rosa (Am) Ref. Rosa"_qs);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"C\r\nDois Rosa"_qs);
    QCOMPARE(viewer->ID_Musica, double(List(viewer)->ItemData(0)));
    QCOMPARE(Arrows(viewer), u">"_qs);
}

void tst_viewer_navigation::aSongOpenedAlone_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("arrows");
    QTest::newRow("the first of its category") << u"abacate"_qs << 0 << u">"_qs;
    QTest::newRow("in the middle") << u"Ábaco"_qs << 1 << u"<>"_qs;
    QTest::newRow("the last") << u"Zelo"_qs << 3 << u"<"_qs;
}

void tst_viewer_navigation::aSongOpenedAlone()
{
    QFETCH(QString, title);
    QFETCH(int, index);
    QFETCH(QString, arrows);
    QMap<QString, qint64> ids;
    for (const QString& name : {u"Zelo"_qs, u"Ábaco"_qs, u"abade"_qs, u"abacate"_qs})
        ids[name] = Song(name, u"G"_qs);
    Song(u"Baião"_qs, u"C"_qs, u""_qs, 2);

    const auto viewer = bench->Open(ids[title]);
    QStringList entries;
    for (const QString& name : {u"abacate"_qs, u"Ábaco"_qs, u"abade"_qs, u"Zelo"_qs})
        entries.append(u"%1 - %2 (G) Ref. %2"_qs.arg(ids[name]).arg(name));
    QCOMPARE(Entries(viewer), entries);
    QCOMPARE(List(viewer)->ListIndex(), index);
    QCOMPARE(Title(viewer), title);
    QCOMPARE(viewer->ID_Musica, double(ids[title]));
    QCOMPARE(Arrows(viewer), arrows);
}

void tst_viewer_navigation::theSetlistsStatement()
{
    const qint64 setlist =
        bench->catalogue.AddSetlist(u"Domingo"_qs, QDate(2014, 5, 11), {Song(u"Rosa"_qs)});
    const Statements statements;
    bench->OpenList(setlist);
    QCOMPARE(statements.first(),
             u"SELECT MUSICA.ID, (LISTA_MUSICA.ORDEM+1) & ' - ' & MUSICA.TITULO & ' (' & "
             "MUSICA.TOM & MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS  FROM MUSICA  INNER "
             "JOIN LISTA_MUSICA ON MUSICA.ID = LISTA_MUSICA.ID_MUSICA  WHERE LISTA_MUSICA.ID_LISTA "
             "= 0%1  ORDER BY LISTA_MUSICA.ORDEM "_qs.arg(setlist));
}

void tst_viewer_navigation::theCategorysStatement()
{
    const qint64 song = Song(u"Rosa"_qs);
    const Statements statements;
    bench->Open(song);
    QCOMPARE(statements.first(),
             u"SELECT MUSICA.ID, MUSICA.ID & ' - ' & MUSICA.TITULO & ' (' & MUSICA.TOM & "
             "MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS  FROM MUSICA  WHERE "
             "MUSICA.CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE ID = 0%1) ORDER BY "
             "MUSICA.TITULO "_qs.arg(song));
}

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
    const auto viewer = ThreeSongs();
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
    Song(u"Zelo"_qs);
    const qint64 first = Song(u"Amar"_qs);
    Song(u"Baião"_qs, u"C"_qs, u""_qs, 2);
    Song(u"Luar"_qs);
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
    const auto viewer = ThreeSongs();
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
    const auto viewer = ThreeSongs();
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
    const auto viewer = ThreeSongs();
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
    const auto viewer = ThreeSongs();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    bench->catalogue.Run(u"UPDATE MUSICA SET TITULO = 'Rosa Branca' WHERE TITULO = 'Rosa'"_qs);
    Click(viewer, "cmdSobe");
    Choose(viewer, 0);
    QCOMPARE(Title(viewer), u"Rosa Branca"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
}

void tst_viewer_navigation::anEmptySetlist()
{
    Song(u"Rosa"_qs);
    const auto viewer = bench->OpenList(bench->catalogue.AddSetlist(u"Vazia"_qs, QDate()));
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(Entries(viewer), QStringList(u"Não Cadastrado"_qs));
        QCOMPARE(List(viewer)->ListIndex(), 0);
        QCOMPARE(viewer->ID_Musica, 0.0);
        QCOMPARE(Title(viewer), QString());
        QCOMPARE(Box(viewer, 2)->Text(), QString());
        QCOMPARE(Arrows(viewer), QString());
        // Choosing the entry, or going on from it, changes nothing.
        Choose(viewer, 0);
        QTest::keyClick(viewer.data(), Qt::Key_P);
        QTest::keyClick(viewer.data(), Qt::Key_A);
    }
}

void tst_viewer_navigation::aSetlistWhoseSongsAreAllGone()
{
    const qint64 setlist =
        bench->catalogue.AddSetlist(u"Antiga"_qs, QDate(2009, 3, 5), {71, 72, 73});
    const auto viewer = bench->OpenList(setlist);
    QCOMPARE(Entries(viewer), QStringList(u"Não Cadastrado"_qs));
    QCOMPARE(Title(viewer), QString());
    QCOMPARE(Arrows(viewer), QString());
}

void tst_viewer_navigation::aSetlistOfOneSong()
{
    const auto viewer =
        bench->OpenList(bench->catalogue.AddSetlist(u"Só uma"_qs, QDate(), {Song(u"Rosa"_qs)}));
    QCOMPARE(List(viewer)->currentText(), u"1 - Rosa (C) Ref. Rosa"_qs);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Arrows(viewer), QString());
}

void tst_viewer_navigation::theSameSongTwice()
{
    const qint64 refrain = Song(u"Refrão"_qs);
    const auto viewer = bench->OpenList(bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(), {refrain, Song(u"Rosa"_qs), refrain, refrain}));
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

void tst_viewer_navigation::deletedSongsOfASetlistAreLeftOut()
{
    const qint64 gone = Song(u"Perdida"_qs);
    const qint64 setlist = bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(), {gone, Song(u"Rosa"_qs), gone, Song(u"Amar"_qs)});
    bench->catalogue.Run(u"DELETE FROM MUSICA WHERE TITULO = 'Perdida'"_qs);
    const auto viewer = bench->OpenList(setlist);
    // Positions are those of the stored setlist.
    QCOMPARE(Entries(viewer),
             QStringList({u"2 - Rosa (C) Ref. Rosa"_qs, u"4 - Amar (C) Ref. Amar"_qs}));
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QCOMPARE(Arrows(viewer), u"<"_qs);
}

void tst_viewer_navigation::twoHundredSongs()
{
    QList<qint64> songs;
    for (int i = 0; i < 20; ++i)
        songs.append(Song(u"Canto %1"_qs.arg(i)));
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

void tst_viewer_navigation::openingLoadsTheSongOnce_data()
{
    QTest::addColumn<bool>("setlist");
    QTest::newRow("a setlist") << true;
    QTest::newRow("a song") << false;
}

void tst_viewer_navigation::openingLoadsTheSongOnce()
{
    QFETCH(bool, setlist);
    const qint64 song = Song(u"Rosa"_qs);
    const qint64 list = bench->catalogue.AddSetlist(u"Só uma"_qs, QDate(), {song, song});
    const Statements statements;
    const auto viewer = setlist ? bench->OpenList(list) : bench->Open(song);
    QCOMPARE(statements.count(u"SELECT * FROM MUSICA WHERE ID = 0%1"_qs.arg(song)), 1);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Caption(viewer, "lblCont"), u"10"_qs);
}

void tst_viewer_navigation::openingAndMovingLeaveTheCountdownsSecondUnderWay()
{
    const auto viewer = ThreeSongs();
    auto* timer = In<QTimer>(viewer, "tmrContador");
    QVERIFY(timer->isActive());
    const int id = timer->timerId();
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(timer->timerId(), id); // a timer that was started anew has another
    timer->stop();
    QTest::keyClick(viewer.data(), Qt::Key_A);
    QVERIFY(timer->isActive());
}

void tst_viewer_navigation::theListStaysAsItWasBuilt()
{
    const auto viewer = bench->Open(Song(u"Rosa"_qs));
    const QStringList before = Entries(viewer);
    const qint64 later = Song(u"Zelo"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Entries(viewer), before);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Entries(bench->Open(later)).size(), 2);
}

void tst_viewer_navigation::movingToASongThatWasDeletedMeanwhile()
{
    const auto viewer = ThreeSongs();
    bench->catalogue.Run(u"DELETE FROM MUSICA WHERE TITULO = 'Amar'"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    // What the song before it left stays on the screen, the list goes on.
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(List(viewer)->ListIndex(), 1);
    QCOMPARE(viewer->ID_Musica, double(List(viewer)->ItemData(1)));
    QCOMPARE(Arrows(viewer), u"<>"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Luar"_qs);
}

void tst_viewer_navigation::anUnknownKeyTakesTheIndexOfTheSongBefore()
{
    const auto viewer = bench->OpenList(bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(), {Song(u"Rosa"_qs, u"E"_qs), Song(u"Amar"_qs, u"H"_qs)}));
    Click(viewer, "cmdSobe");
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(E)"_qs);
}

void tst_viewer_navigation::emptyFieldsInAnEntry()
{
    const QString null;
    const qint64 song = bench->catalogue.AddSong({.title = null,
                                                  .reference = null,
                                                  .text = null,
                                                  .text2 = null,
                                                  .key = null,
                                                  .variation = null});
    const auto viewer = bench->Open(song);
    QCOMPARE(Entries(viewer), QStringList(u"%1 -  () "_qs.arg(song)));
}

void tst_viewer_navigation::aSongWithoutACategoryHasNoList()
{
    // NULL is in no list of categories, so nothing is found and the placeholder stands for no song.
    const auto viewer = bench->Open({.title = u"Rosa"_qs, .category = {}});
    QCOMPARE(Entries(viewer), QStringList(u"Não Cadastrado"_qs));
    QCOMPARE(viewer->ID_Musica, 0.0);
    QCOMPARE(Title(viewer), QString());
}

void tst_viewer_navigation::titlesOfAnyKindAreShownAsTheyAre()
{
    const QString title = u"<b>D'água</b> & \"Só\" %_ \u266B"_qs;
    const qint64 song = Song(title);
    const auto viewer = bench->Open(song);
    QCOMPARE(Entries(viewer), QStringList(u"%1 - %2 (C) Ref. %2"_qs.arg(song).arg(title)));
    const qint64 large = Song(QString(100'000, u'z'));
    const auto other = bench->Open(large);
    QCOMPARE(List(other)->ListIndex(), 1);
    QCOMPARE(Title(other).size(), 100'000);
    In(other, "pctLista")->grab();
    List(other)->showPopup();
    List(other)->view()->window()->grab();
    QVERIFY(List(other)->view()->window()->width() <= other->width());
}

void tst_viewer_navigation::theWheelChoosesNothing()
{
    const auto viewer = ThreeSongs();
    ComboBox* list = List(viewer);
    QWheelEvent wheel(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &wheel);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
}

void tst_viewer_navigation::theListMeasuresOnlyWhatItShows()
{
    // A popup in the manner of a menu would shape every entry when it opens.
    const auto viewer = ThreeSongs();
    QStyleOptionComboBox option;
    option.initFrom(List(viewer));
    QCOMPARE(List(viewer)->style()->styleHint(QStyle::SH_ComboBox_Popup, &option, List(viewer)), 0);
    QVERIFY(!QApplication::isEffectEnabled(Qt::UI_AnimateCombo));
}

void tst_viewer_navigation::twoViewersStepApart()
{
    const qint64 setlist =
        bench->catalogue.AddSetlist(u"Domingo"_qs, QDate(), {Song(u"Rosa"_qs), Song(u"Amar"_qs)});
    const auto first = bench->OpenList(setlist);
    const auto second = bench->OpenList(setlist);
    QTest::keyClick(second.data(), Qt::Key_P);
    QCOMPARE(Title(first), u"Rosa"_qs);
    QCOMPARE(Title(second), u"Amar"_qs);
}

void tst_viewer_navigation::movingWithoutAConnectionIsOneMessage()
{
    const auto viewer = ThreeSongs();
    RecordingDialogs dialogs;
    Funcoes::Conexao.Close();
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].title, u"Melodario"_qs);
    QVERIFY(viewer);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
}

QTEST_MAIN(tst_viewer_navigation)
#include "tst_viewer_navigation.moc"
