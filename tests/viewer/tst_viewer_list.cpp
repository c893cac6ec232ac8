// How the song list of a viewer comes up.

#include "SongListBench.h"

#include "controls/Appearance.h"

#include <QMap>
#include <QStyle>
#include <QStyleOptionComboBox>

class tst_viewer_list : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init() { bench = std::make_unique<SongListBench>(); }
    void cleanup() { bench.reset(); }

    void aSetlistOfThreeSongs();
    void aSongOpenedAlone_data();
    void aSongOpenedAlone();
    void theSetlistsStatement();
    void theCategorysStatement();
    void anEmptySetlist();
    void aSetlistWhoseSongsAreAllGone();
    void aSetlistOfOneSong();
    void deletedSongsOfASetlistAreLeftOut();
    void openingLoadsTheSongOnce_data();
    void openingLoadsTheSongOnce();
    void theListStaysAsItWasBuilt();
    void emptyFieldsInAnEntry();
    void aSongWithoutACategoryHasNoList();
    void withoutSongAndSetlistThereIsNoneBeforeOrAfter();
    void equalTitlesComeByTheirNumber();
    void titlesOfAnyKindAreShownAsTheyAre();
    void theListMeasuresOnlyWhatItShows();

private:
    std::unique_ptr<SongListBench> bench;
};

void tst_viewer_list::aSetlistOfThreeSongs()
{
    const auto viewer = bench->ThreeSongs();
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

void tst_viewer_list::aSongOpenedAlone_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("arrows");
    QTest::newRow("the first of its category") << u"abacate"_qs << 0 << u">"_qs;
    QTest::newRow("in the middle") << u"Ábaco"_qs << 1 << u"<>"_qs;
    QTest::newRow("the last") << u"Zelo"_qs << 3 << u"<"_qs;
}

void tst_viewer_list::aSongOpenedAlone()
{
    QFETCH(QString, title);
    QFETCH(int, index);
    QFETCH(QString, arrows);
    QMap<QString, qint64> ids;
    for (const QString& name : {u"Zelo"_qs, u"Ábaco"_qs, u"abade"_qs, u"abacate"_qs})
        ids[name] = bench->Song(name, u"G"_qs);
    bench->Song(u"Baião"_qs, u"C"_qs, u""_qs, 2);

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

void tst_viewer_list::theSetlistsStatement()
{
    const qint64 setlist =
        bench->catalogue.AddSetlist(u"Domingo"_qs, QDate(2014, 5, 11), {bench->Song(u"Rosa"_qs)});
    const Statements statements;
    bench->OpenList(setlist);
    QCOMPARE(statements.first(),
             u"SELECT MUSICA.ID, (LISTA_MUSICA.ORDEM+1) & ' - ' & MUSICA.TITULO & ' (' & "
             "MUSICA.TOM & MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS  FROM MUSICA  INNER "
             "JOIN LISTA_MUSICA ON MUSICA.ID = LISTA_MUSICA.ID_MUSICA  WHERE LISTA_MUSICA.ID_LISTA "
             "= 0%1  ORDER BY LISTA_MUSICA.ORDEM "_qs.arg(setlist));
}

void tst_viewer_list::theCategorysStatement()
{
    const qint64 song = bench->Song(u"Rosa"_qs);
    const Statements statements;
    bench->Open(song);
    QCOMPARE(statements.first(),
             u"SELECT MUSICA.ID, MUSICA.ID & ' - ' & MUSICA.TITULO & ' (' & MUSICA.TOM & "
             "MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS  FROM MUSICA  WHERE "
             "MUSICA.CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE ID = 0%1) ORDER BY "
             "MUSICA.TITULO "_qs.arg(song));
}

void tst_viewer_list::anEmptySetlist()
{
    bench->Song(u"Rosa"_qs);
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

void tst_viewer_list::aSetlistWhoseSongsAreAllGone()
{
    const qint64 setlist =
        bench->catalogue.AddSetlist(u"Antiga"_qs, QDate(2009, 3, 5), {71, 72, 73});
    const auto viewer = bench->OpenList(setlist);
    QCOMPARE(Entries(viewer), QStringList(u"Não Cadastrado"_qs));
    QCOMPARE(Title(viewer), QString());
    QCOMPARE(Arrows(viewer), QString());
}

void tst_viewer_list::aSetlistOfOneSong()
{
    const auto viewer = bench->OpenList(
        bench->catalogue.AddSetlist(u"Só uma"_qs, QDate(), {bench->Song(u"Rosa"_qs)}));
    QCOMPARE(List(viewer)->currentText(), u"1 - Rosa (C) Ref. Rosa"_qs);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Arrows(viewer), QString());
}

void tst_viewer_list::deletedSongsOfASetlistAreLeftOut()
{
    const qint64 gone = bench->Song(u"Perdida"_qs);
    const qint64 setlist = bench->catalogue.AddSetlist(
        u"Domingo"_qs, QDate(), {gone, bench->Song(u"Rosa"_qs), gone, bench->Song(u"Amar"_qs)});
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

void tst_viewer_list::openingLoadsTheSongOnce_data()
{
    QTest::addColumn<bool>("setlist");
    QTest::newRow("a setlist") << true;
    QTest::newRow("a song") << false;
}

void tst_viewer_list::openingLoadsTheSongOnce()
{
    QFETCH(bool, setlist);
    const qint64 song = bench->Song(u"Rosa"_qs);
    const qint64 list = bench->catalogue.AddSetlist(u"Só uma"_qs, QDate(), {song, song});
    const Statements statements;
    const auto viewer = setlist ? bench->OpenList(list) : bench->Open(song);
    QCOMPARE(statements.count(u"SELECT * FROM MUSICA WHERE ID = 0%1"_qs.arg(song)), 1);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Caption(viewer, "lblCont"), u"10"_qs);
}

void tst_viewer_list::theListStaysAsItWasBuilt()
{
    const auto viewer = bench->Open(bench->Song(u"Rosa"_qs));
    const QStringList before = Entries(viewer);
    const qint64 later = bench->Song(u"Zelo"_qs);
    QTest::keyClick(viewer.data(), Qt::Key_P);
    QCOMPARE(Entries(viewer), before);
    QCOMPARE(Title(viewer), u"Rosa"_qs);
    QCOMPARE(Entries(bench->Open(later)).size(), 2);
}

void tst_viewer_list::emptyFieldsInAnEntry()
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

void tst_viewer_list::aSongWithoutACategoryHasNoList()
{
    // NULL is in no list of categories, so nothing is found and the placeholder stands for no song.
    const auto viewer = bench->Open({.title = u"Rosa"_qs, .category = {}});
    QCOMPARE(Entries(viewer), QStringList(u"Não Cadastrado"_qs));
    QCOMPARE(viewer->ID_Musica, 0.0);
    QCOMPARE(Title(viewer), QString());
}

void tst_viewer_list::withoutSongAndSetlistThereIsNoneBeforeOrAfter()
{
    bench->Song(u"Rosa"_qs);
    const auto viewer = bench->OpenList(0);
    QCOMPARE(Entries(viewer), QStringList());
    QCOMPARE(Title(viewer), QString());
    QCOMPARE(Arrows(viewer), QString());
}

void tst_viewer_list::equalTitlesComeByTheirNumber()
{
    const qint64 zelo = bench->Song(u"Zelo"_qs);
    for (int i = 0; i < 3; ++i)
        bench->Song(u"Amar"_qs);
    const auto viewer = bench->Open(zelo);
    QStringList numbers;
    for (const QString& entry : Entries(viewer))
        numbers.append(entry.section(u' ', 0, 0));
    QCOMPARE(numbers, QStringList({u"2"_qs, u"3"_qs, u"4"_qs, u"1"_qs}));
}

void tst_viewer_list::titlesOfAnyKindAreShownAsTheyAre()
{
    const QString title = u"<b>D'água</b> & \"Só\" %_ \u266B"_qs;
    const qint64 song = bench->Song(title);
    const auto viewer = bench->Open(song);
    QCOMPARE(Entries(viewer), QStringList(u"%1 - %2 (C) Ref. %2"_qs.arg(song).arg(title)));
    const qint64 large = bench->Song(QString(100'000, u'z'));
    const auto other = bench->Open(large);
    QCOMPARE(List(other)->ListIndex(), 1);
    QCOMPARE(Title(other).size(), 100'000);
    In(other, "pctLista")->grab();
    List(other)->showPopup();
    List(other)->view()->window()->grab();
    QVERIFY(List(other)->view()->window()->width() <= other->width());
}

void tst_viewer_list::theListMeasuresOnlyWhatItShows()
{
    // A popup in the manner of a menu would shape every entry when it opens.
    const auto viewer = bench->ThreeSongs();
    QStyleOptionComboBox option;
    option.initFrom(List(viewer));
    QCOMPARE(List(viewer)->style()->styleHint(QStyle::SH_ComboBox_Popup, &option, List(viewer)), 0);
    QVERIFY(!QApplication::isEffectEnabled(Qt::UI_AnimateCombo));
}

QTEST_MAIN(tst_viewer_list)
#include "tst_viewer_list.moc"
