// What the viewer shows of a song: loading, key lookup and header.

#include "ViewerBench.h"

#include "chords/Notas.h"
#include "runtime/RuntimeError.h"

#include <QTimer>
#include <QWindow>

class tst_viewer_song : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<ViewerBench>(); }
    void cleanup() { bench.reset(); }

    void headerShowsTitleKeyReferenceThemesAndVersion();
    void headerKeepsTheGivenDistances();
    void theCaptionIsTheTitleAndTheReference_data();
    void theCaptionIsTheTitleAndTheReference();
    void settingTheVariablesLoadsNothing();
    void showReadsTheSongItsThemesAndTheNotes();
    void openedOnASongTheSetlistIsForgotten();
    void nullColumnsAreEmptyTexts();
    void emptySecondVersionShowsTheFirst_data();
    void emptySecondVersionShowsTheFirst();
    void aSecondVersionOfBlanksIsShownAsItIs();
    void aSongThatIsGoneShowsNothing();
    void aSongThatIsGoneKeepsWhatWasShown();
    void aSetlistWithoutItsListShowsNothing();
    void keyInTheOtherSpellingIsShownAsNotasSpellsIt();
    void keyLookupIsExact();
    void theLastNoteThatNamesTheKeyCounts();
    void unknownKeyOfAFreshViewer_data();
    void unknownKeyOfAFreshViewer();
    void unknownKeyKeepsTheIndexOfTheSongBefore();
    void elevenNotesLeaveTheTwelfthAsItWas();
    void notesStandInTheOrderOfTheirColumn();
    void thirteenNotesAreAnErrorAndTheFormGoes();
    void anOpenViewerShowsTenAndTicksEverySecond();
    void aSongThatIsFoundStartsTheCountdown();
    void aSongThatIsGoneLeavesTheCountdownStopped();
    void loadingAgainKeepsTheSecondUnderWay();

private:
    std::unique_ptr<ViewerBench> bench;
};

void tst_viewer_song::headerShowsTitleKeyReferenceThemesAndVersion()
{
    const auto& catalogue = bench->catalogue;
    const qint64 song = catalogue.AddSong({.title = u"Ó Luar"_qs,
                                           .reference = u"Cancioneiro"_qs,
                                           .key = u"A"_qs,
                                           .variation = u"m"_qs});
    catalogue.Link(song, catalogue.AddTheme(u"Sem Tema"_qs, 3));
    catalogue.Link(song, catalogue.AddTheme(u"Louvor"_qs));
    catalogue.Link(song, catalogue.AddTheme(u"Adoração"_qs));

    const auto viewer = bench->Open(song);
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Ó Luar"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(Am)"_qs);
    QCOMPARE(Caption(viewer, "lblReferencia"), u"Cancioneiro"_qs);
    QCOMPARE(Caption(viewer, "lblTemas"), u"Adoração, Louvor, Sem Tema"_qs);
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.2"_qs);
    QCOMPARE(viewer->windowTitle(), u"Ó Luar (Cancioneiro)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"D  A7\r\nSanto Deus"_qs);
}

void tst_viewer_song::headerKeepsTheGivenDistances()
{
    const auto& catalogue = bench->catalogue;
    const qint64 song = catalogue.AddSong(TestSong{});
    catalogue.Link(song, catalogue.AddTheme(u"Louvor"_qs));
    const auto viewer = bench->Open(song);

    const QRect title = In(viewer, "lblTitulo")->geometry();
    const QRect key = In(viewer, "lblTom")->geometry();
    const QRect reference = In(viewer, "lblReferencia")->geometry();
    const QRect themes = In(viewer, "lblTemas")->geometry();
    // 120 and 240 twips are 8 and 16 pixels.
    QCOMPARE(title.left(), 8);
    QCOMPARE(key.left(), title.width() + 8 + 16);
    QCOMPARE(reference.left(), title.width() + 8 + 8 + key.width() + 16);
    QCOMPARE(themes.left(), title.width() + 8 + 8 + key.width() + 8 + reference.width() + 16);
    QVERIFY(title.width() > 0 && key.width() > 0 && reference.width() > 0 && themes.width() > 0);
}

void tst_viewer_song::theCaptionIsTheTitleAndTheReference_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("reference");
    QTest::newRow("words") << u"Ó Luar"_qs << u"Cancioneiro"_qs;
    QTest::newRow("nothing") << u""_qs << u""_qs;
    QTest::newRow("signs of markup") << u"<b>Tom & Som</b>"_qs << u"&amp;"_qs;
    QTest::newRow("what marks changed documents") << u"Santo [*]"_qs << u"[*][*]"_qs;
}

/// As the desktop shows it, in a task bar for one.
void tst_viewer_song::theCaptionIsTheTitleAndTheReference()
{
    QFETCH(QString, title);
    QFETCH(QString, reference);
    const auto viewer = bench->Open({.title = title, .reference = reference});
    QCOMPARE(viewer->windowHandle()->title(), QString(title + u" ("_qs + reference + u")"_qs));
}

void tst_viewer_song::settingTheVariablesLoadsNothing()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    QStringList statements;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) { statements.append(sql); });

    auto* viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(song);
    viewer->ID_Lista = 3;
    QCoreApplication::processEvents();
    Funcoes::Conexao.SetStatementHook({});
    QCOMPARE(statements, QStringList());
    QVERIFY(!viewer->isVisible());
    QCOMPARE(Caption(viewer, "lblTitulo"), QString());
}

void tst_viewer_song::showReadsTheSongItsThemesAndTheNotes()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    QStringList statements;
    Funcoes::Conexao.SetStatementHook([&](const QString& sql) { statements.append(sql); });
    const auto viewer = bench->Open(song);
    Funcoes::Conexao.SetStatementHook({});

    QVERIFY(statements.contains(u"SELECT * FROM MUSICA WHERE ID = 0%1"_qs.arg(song)));
    QCOMPARE(statements.last(), u"SELECT * FROM TOM ORDER BY ORDEM"_qs);
    QCOMPARE(Funcoes::Notas[0], u"?"_qs);
    QCOMPARE(Funcoes::Notas_Mais[0], u"?"_qs);
    QCOMPARE(Funcoes::Notas[2], u"C#"_qs);
    QCOMPARE(Funcoes::Notas_Mais[2], u"Db"_qs);
    QCOMPARE(Funcoes::Notas[12], u"B"_qs);
    QVERIFY(viewer->isVisible());
}

void tst_viewer_song::openedOnASongTheSetlistIsForgotten()
{
    auto* viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(bench->catalogue.AddSong(TestSong{}));
    viewer->ID_Lista = 7;
    viewer->Show();
    QCOMPARE(viewer->ID_Lista, 0.0);
}

void tst_viewer_song::nullColumnsAreEmptyTexts()
{
    const QString null;
    const auto viewer = bench->Open({.title = null,
                                     .reference = null,
                                     .text = null,
                                     .text2 = null,
                                     .key = null,
                                     .variation = null,
                                     .category = {}});
    QCOMPARE(Caption(viewer, "lblTitulo"), QString());
    QCOMPARE(Caption(viewer, "lblReferencia"), QString());
    QCOMPARE(Caption(viewer, "lblTemas"), QString());
    QCOMPARE(Caption(viewer, "lblTom"), u"(B)"_qs); // the key of no row
    QCOMPARE(viewer->windowTitle(), u" ()"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), QString());
    viewer->Muda_Versao();
    QCOMPARE(Box(viewer, 1)->Text(), QString());
}

void tst_viewer_song::emptySecondVersionShowsTheFirst_data()
{
    QTest::addColumn<QString>("second");
    QTest::newRow("empty text") << u""_qs;
    QTest::newRow("NULL") << QString();
}

void tst_viewer_song::emptySecondVersionShowsTheFirst()
{
    QFETCH(QString, second);
    const auto viewer = bench->Open({.text = u"C  G7\r\nSanto Deus"_qs, .text2 = second});
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.2"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"C  G7\r\nSanto Deus"_qs);
    Click(viewer, "lblVersao");
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.1"_qs);
    QCOMPARE(Box(viewer, 1)->Text(), u"C  G7\r\nSanto Deus"_qs);
}

void tst_viewer_song::aSecondVersionOfBlanksIsShownAsItIs()
{
    const auto viewer = bench->Open({.text = u"C  G7\r\nSanto Deus"_qs, .text2 = u"\r\n \r\n"_qs});
    QCOMPARE(Box(viewer, 2)->Text(), u"\r\n \r\n"_qs);
    Click(viewer, "lblVersao");
    QCOMPARE(Box(viewer, 1)->Text(), u"C  G7\r\nSanto Deus"_qs);
}

void tst_viewer_song::aSongThatIsGoneShowsNothing()
{
    const auto viewer = bench->Open(999);
    QVERIFY(viewer->isVisible());
    QCOMPARE(Caption(viewer, "lblTitulo"), QString());
    QCOMPARE(Caption(viewer, "lblTom"), u"(B)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), QString());
    QCOMPARE(viewer->ID_Musica, 0.0); // what the only entry of its list stands for
}

void tst_viewer_song::aSongThatIsGoneKeepsWhatWasShown()
{
    const auto viewer = bench->Open({.title = u"Primeira"_qs, .key = u"E"_qs});
    viewer->ID_Musica = 999;
    viewer->Carrega_Musica();
    viewer->Atualiza_Musica(2);
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Primeira"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(E)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"D  A7\r\nSanto Deus"_qs);
}

void tst_viewer_song::aSetlistWithoutItsListShowsNothing()
{
    auto* viewer = new frmVisualizar;
    viewer->ID_Lista =
        static_cast<double>(bench->catalogue.AddSetlist(u"Vazia"_qs, QDate(2014, 5, 11)));
    viewer->Show();
    QVERIFY(viewer->isVisible());
    QCOMPARE(viewer->ID_Musica, 0.0);
    QCOMPARE(Caption(viewer, "lblTitulo"), QString());
}

void tst_viewer_song::keyInTheOtherSpellingIsShownAsNotasSpellsIt()
{
    const auto viewer = bench->Open({.key = u"Bb"_qs, .variation = u"m"_qs});
    QCOMPARE(Caption(viewer, "lblTom"), u"(A#m)"_qs);
    viewer->Sobe_Tom();
    QCOMPARE(Caption(viewer, "lblTom"), u"(Bm)"_qs);
}

void tst_viewer_song::keyLookupIsExact()
{
    const auto viewer = bench->Open({.key = u"c"_qs});
    QCOMPARE(Caption(viewer, "lblTom"), u"(B)"_qs);
}

void tst_viewer_song::theLastNoteThatNamesTheKeyCounts()
{
    bench->catalogue.Run(u"UPDATE TOM SET MAIS = 'C' WHERE NOTA = 'B'"_qs);
    const auto viewer = bench->Open({.key = u"C"_qs});
    QCOMPARE(Caption(viewer, "lblTom"), u"(B)"_qs);
}

void tst_viewer_song::unknownKeyOfAFreshViewer_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("shown");
    QTest::newRow("as stored: the last note") << 0 << u"(B)"_qs;
    QTest::newRow("one up: the first note") << 1 << u"(C)"_qs;
    QTest::newRow("twelve up: the last note") << 12 << u"(B)"_qs;
    QTest::newRow("one down: the eleventh note") << -1 << u"(A#)"_qs;
    QTest::newRow("eleven down: the first note") << -11 << u"(C)"_qs;
    QTest::newRow("twelve down: none at all") << -12 << u"(?)"_qs;
}

void tst_viewer_song::unknownKeyOfAFreshViewer()
{
    QFETCH(int, offset);
    QFETCH(QString, shown);
    const auto viewer = bench->Open({.key = u"H"_qs});
    for (int i = 0; i < qAbs(offset); ++i)
        Click(viewer, offset > 0 ? "cmdSobe" : "cmdDesce");
    QCOMPARE(Caption(viewer, "lblTom"), shown);
}

void tst_viewer_song::unknownKeyKeepsTheIndexOfTheSongBefore()
{
    const auto viewer = bench->Open({.key = u"D"_qs});
    viewer->ID_Musica =
        static_cast<double>(bench->catalogue.AddSong({.title = u"Outra"_qs, .key = u"H"_qs}));
    viewer->Carrega_Musica();
    viewer->Atualiza_Musica(2);
    QCOMPARE(Caption(viewer, "lblTitulo"), u"Outra"_qs);
    QCOMPARE(Caption(viewer, "lblTom"), u"(D)"_qs);
}

void tst_viewer_song::elevenNotesLeaveTheTwelfthAsItWas()
{
    bench->catalogue.Run(u"DELETE FROM TOM WHERE ID = 12"_qs);
    Funcoes::Notas.fill(QString());
    Funcoes::Notas_Mais.fill(QString());
    const auto viewer = bench->Open({.text2 = u"A#  Bb\r\nSanto Deus"_qs, .key = u"A#"_qs});
    QCOMPARE(Funcoes::Notas[11], u"A#"_qs);
    QCOMPARE(Funcoes::Notas_Mais[11], u"Bb"_qs);
    QCOMPARE(Funcoes::Notas[12], QString());
    QCOMPARE(Funcoes::Notas_Mais[12], QString());
    QCOMPARE(Caption(viewer, "lblTom"), u"(A#)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), u"A#  Bb\r\nSanto Deus"_qs);
    Click(viewer, "cmdDesce");
    QCOMPARE(Caption(viewer, "lblTom"), u"(A)"_qs);
    Click(viewer, "cmdSobe");
    Click(viewer, "cmdSobe");
    QCOMPARE(Caption(viewer, "lblTom"), u"()"_qs); // the note of no row
}

void tst_viewer_song::notesStandInTheOrderOfTheirColumn()
{
    // Seven steps further each time: no row stays where its identifier would put it.
    bench->catalogue.Run(u"UPDATE TOM SET ORDEM = (ID * 7) % 12 + 1"_qs);
    Funcoes::Notas.fill(u"old"_qs);
    Funcoes::Notas_Mais.fill(u"old"_qs);
    const auto viewer = bench->Open(TestSong{});
    const Funcoes::Escala names{u"?"_qs, u"B"_qs, u"F#"_qs, u"C#"_qs, u"G#"_qs, u"D#"_qs, u"A#"_qs,
                                u"F"_qs, u"C"_qs, u"G"_qs,  u"D"_qs,  u"A"_qs,  u"E"_qs};
    const Funcoes::Escala others{u"?"_qs, u"B"_qs, u"Gb"_qs, u"Db"_qs, u"Ab"_qs, u"Eb"_qs, u"Bb"_qs,
                                 u"F"_qs, u"C"_qs, u"G"_qs,  u"D"_qs,  u"A"_qs,  u"E"_qs};
    for (std::size_t i = 0; i < names.size(); ++i) {
        QCOMPARE(Funcoes::Notas[i], names[i]);
        QCOMPARE(Funcoes::Notas_Mais[i], others[i]);
    }
}

void tst_viewer_song::thirteenNotesAreAnErrorAndTheFormGoes()
{
    const qint64 song = bench->catalogue.AddSong(TestSong{});
    bench->catalogue.Run(u"INSERT INTO TOM (ID, NOTA, ORDEM, MAIS) VALUES (13, 'H', 13, 'H')"_qs);

    const QPointer<frmVisualizar> viewer = new frmVisualizar;
    viewer->ID_Musica = static_cast<double>(song);
    int number = 0;
    try {
        viewer->Show();
    } catch (const RuntimeError& error) {
        number = error.Number();
    }
    QCOMPARE(number, int(RuntimeError::SubscriptOutOfRange));
    QVERIFY(!viewer->isVisible());
    QVERIFY(Gone(viewer));
}

void tst_viewer_song::anOpenViewerShowsTenAndTicksEverySecond()
{
    const auto viewer = bench->Open(TestSong{});
    const auto* timer = In<QTimer>(viewer, "tmrContador");
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 1000);
    QCOMPARE(Caption(viewer, "lblCont"), u"10"_qs);
    QVERIFY(In(viewer, "lblCont")->isVisible());
}

void tst_viewer_song::aSongThatIsFoundStartsTheCountdown()
{
    const auto viewer = bench->Open(TestSong{});
    auto* timer = In<QTimer>(viewer, "tmrContador");
    timer->stop();
    viewer->Carrega_Musica();
    QVERIFY(timer->isActive());
}

void tst_viewer_song::aSongThatIsGoneLeavesTheCountdownStopped()
{
    const auto viewer = bench->Open(TestSong{});
    auto* timer = In<QTimer>(viewer, "tmrContador");
    timer->stop();
    viewer->ID_Musica = 999;
    viewer->Carrega_Musica();
    QVERIFY(!timer->isActive());
}

void tst_viewer_song::loadingAgainKeepsTheSecondUnderWay()
{
    const auto viewer = bench->Open(TestSong{});
    const auto* timer = In<QTimer>(viewer, "tmrContador");
    QTest::qWait(200);
    const int left = timer->remainingTime();
    viewer->Carrega_Musica();
    QVERIFY(timer->isActive());
    QVERIFY2(timer->remainingTime() <= left, qPrintable(QString::number(left)));
}

QTEST_MAIN(tst_viewer_song)
#include "tst_viewer_song.moc"
