// The sheet: key, font, chords, version, scroll limit and copy.

#include "ViewerBench.h"

#include "controls/Appearance.h"
#include "controls/RecordingDialogs.h"

#include <QClipboard>
#include <QProgressBar>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>

namespace {

const QStringList Names = {u"C"_qs,  u"C#"_qs, u"D"_qs,  u"D#"_qs, u"E"_qs,  u"F"_qs,
                           u"F#"_qs, u"G"_qs,  u"G#"_qs, u"A"_qs,  u"A#"_qs, u"B"_qs};

/// @return the sheet's letter size in points; it must be the same everywhere
double Points(const RichTextBox* box)
{
    QTextCursor cursor(box->document());
    cursor.setPosition(1);
    return cursor.charFormat().fontPointSize();
}

QString FirstLine(const RichTextBox* box)
{
    return box->Text().section(u"\r\n"_qs, 0, 0);
}

void ControlsThatRender()
{
    QTest::addColumn<QByteArray>("control");
    for (const char* control : {"cmdSobe", "cmdDesce", "cmdTomOriginal", "cmdLetra",
                                "cmdAumentaFonte", "cmdDiminuiFonte", "lblVersao"})
        QTest::newRow(control) << QByteArray(control);
}

QString LongSong(int verses)
{
    QString text;
    for (int i = 0; i < verses; ++i)
        text += u"C       G7\r\nSanto Deus, verso %1\r\n"_qs.arg(i);
    return text;
}

} // namespace

class tst_viewer_sheet : public QObject
{
    Q_OBJECT

private slots:
    // The scroll bars' sizes come with the program's look.
    void initTestCase() { Appearance::Apply(*qApp); }
    void init() { bench = std::make_unique<ViewerBench>(); }
    void cleanup() { bench.reset(); }

    void theKeyStepsBySemitonesAcrossTheWrap_data();
    void theKeyStepsBySemitonesAcrossTheWrap();
    void twelveUpIsTheSongAsWritten();
    void upFromTheLastNoteIsTheFirst();
    void theOriginalKeyComesBack();
    void theFontGrowsToItsLimit();
    void theFontShrinksOneStepBelowItsLimit();
    void theFontComesBackFromItsSmallest();
    void chordsHideAndComeBack();
    void theVersionSwitchKeepsKeyFontAndChords();
    void everyVersionButOneIsTheSecond_data();
    void everyVersionButOneIsTheSecond();
    void aVersionThatWasNotShownIsNotRendered();
    void everyRenderStartsFromTheStoredText();
    void theScrollLimitIsRightOnceShown_data();
    void theScrollLimitIsRightOnceShown();
    void theScrollLimitFollowsTheSheet();
    void aShortSongDoesNotScroll();
    void everyChangeGoesBackToTheTop_data();
    void everyChangeGoesBackToTheTop();
    void everyChangeStopsTheAutomaticScrolling_data();
    void everyChangeStopsTheAutomaticScrolling();
    void copyTakesWhatIsShown();

private:
    std::unique_ptr<ViewerBench> bench;
};

void tst_viewer_sheet::theKeyStepsBySemitonesAcrossTheWrap_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("step");
    for (int key = 0; key < Names.size(); ++key) {
        QTest::addRow("up from %s", qPrintable(Names[key])) << key << 1;
        QTest::addRow("down from %s", qPrintable(Names[key])) << key << -1;
    }
}

void tst_viewer_sheet::theKeyStepsBySemitonesAcrossTheWrap()
{
    QFETCH(int, key);
    QFETCH(int, step);
    const QString& chord = Names[key];
    const auto viewer = bench->Open({.text2 = chord + u"\r\nSanto Deus"_qs, .key = chord});
    for (int i = 1; i <= 27; ++i) {
        Click(viewer, step > 0 ? "cmdSobe" : "cmdDesce");
        const QString& expected = Names[(key + step * i + 36) % 12];
        QCOMPARE(Caption(viewer, "lblTom"), u"("_qs + expected + u")"_qs);
        QCOMPARE(FirstLine(Box(viewer, 2)), expected);
    }
}

void tst_viewer_sheet::twelveUpIsTheSongAsWritten()
{
    const auto viewer = bench->Open(TestSong{});
    const QString written = Box(viewer, 2)->Text();
    for (int i = 0; i < 12; ++i)
        viewer->Sobe_Tom();
    QCOMPARE(Caption(viewer, "lblTom"), u"(C)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), written);
    viewer->Sobe_Tom();
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);

    viewer->Reseta_Tom();
    for (int i = 0; i < 12; ++i)
        viewer->Desce_Tom();
    QCOMPARE(Box(viewer, 2)->Text(), written);
    viewer->Desce_Tom();
    QCOMPARE(Caption(viewer, "lblTom"), u"(B)"_qs);
}

void tst_viewer_sheet::upFromTheLastNoteIsTheFirst()
{
    const auto viewer = bench->Open({.key = u"B"_qs});
    Click(viewer, "cmdSobe");
    QCOMPARE(Caption(viewer, "lblTom"), u"(C)"_qs);
}

void tst_viewer_sheet::theOriginalKeyComesBack()
{
    const auto viewer = bench->Open(TestSong{});
    const QString written = Box(viewer, 2)->Text();
    for (int i = 0; i < 5; ++i)
        Click(viewer, "cmdDesce");
    QCOMPARE(Caption(viewer, "lblTom"), u"(G)"_qs);
    Click(viewer, "cmdTomOriginal");
    QCOMPARE(Caption(viewer, "lblTom"), u"(C)"_qs);
    QCOMPARE(Box(viewer, 2)->Text(), written);
}

void tst_viewer_sheet::theFontGrowsToItsLimit()
{
    const auto viewer = bench->Open(TestSong{});
    QCOMPARE(Points(Box(viewer, 2)), 17.0);
    for (const double points : {19.0, 21.0, 23.0, 25.0, 25.0}) {
        Click(viewer, "cmdAumentaFonte");
        QCOMPARE(Points(Box(viewer, 2)), points);
    }
}

void tst_viewer_sheet::theFontShrinksOneStepBelowItsLimit()
{
    const auto viewer = bench->Open(TestSong{});
    for (const double points : {15.0, 13.0, 11.0, 9.0, 7.0, 7.0}) {
        Click(viewer, "cmdDiminuiFonte");
        QCOMPARE(Points(Box(viewer, 2)), points);
    }
}

void tst_viewer_sheet::theFontComesBackFromItsSmallest()
{
    const auto viewer = bench->Open(TestSong{});
    for (int i = 0; i < 6; ++i)
        viewer->Diminui_Fonte();
    viewer->Aumenta_Fonte();
    QCOMPARE(Points(Box(viewer, 2)), 9.0);
}

void tst_viewer_sheet::chordsHideAndComeBack()
{
    const auto viewer = bench->Open(TestSong{});
    viewer->Sobe_Tom();
    const QString whole = Box(viewer, 2)->Text();
    QCOMPARE(whole, u"D#  A#7\r\nSanto Deus"_qs);
    Click(viewer, "cmdLetra");
    QVERIFY(!Box(viewer, 2)->Text().contains(u"A#7"));
    QVERIFY(Box(viewer, 2)->Text().contains(u"Santo Deus"));
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
    Click(viewer, "cmdLetra");
    QCOMPARE(Box(viewer, 2)->Text(), whole);
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
}

void tst_viewer_sheet::theVersionSwitchKeepsKeyFontAndChords()
{
    const auto viewer = bench->Open({.text = u"C\r\nPrimeira"_qs, .text2 = u"D\r\nSegunda"_qs});
    Click(viewer, "cmdSobe");
    Click(viewer, "cmdAumentaFonte");
    Click(viewer, "cmdLetra");

    Click(viewer, "lblVersao");
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.1"_qs);
    QVERIFY(Box(viewer, 1)->isVisible());
    QVERIFY(!Box(viewer, 2)->isVisible());
    QVERIFY(Box(viewer, 1)->Text().contains(u"Primeira"));
    QVERIFY(!Box(viewer, 1)->Text().contains(u"C#"));
    QCOMPARE(Points(Box(viewer, 1)), 19.0);
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
    Click(viewer, "cmdLetra");
    QCOMPARE(FirstLine(Box(viewer, 1)), u"C#"_qs);

    Click(viewer, "lblVersao");
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.2"_qs);
    QVERIFY(Box(viewer, 2)->isVisible());
    QVERIFY(!Box(viewer, 1)->isVisible());
    QCOMPARE(Box(viewer, 2)->Text(), u"D#\r\nSegunda"_qs);
    QCOMPARE(Points(Box(viewer, 2)), 19.0);
}

void tst_viewer_sheet::everyVersionButOneIsTheSecond_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("box");
    QTest::newRow("0") << 0 << 2;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("2") << 2 << 2;
    QTest::newRow("3") << 3 << 2;
    QTest::newRow("below zero") << -1 << 2;
}

void tst_viewer_sheet::everyVersionButOneIsTheSecond()
{
    QFETCH(int, version);
    QFETCH(int, box);
    const auto viewer = bench->Open({.text = u"C\r\nPrimeira"_qs, .text2 = u"D\r\nSegunda"_qs});
    viewer->Atualiza_Musica(box == 1 ? 2 : 1); // from the other one
    viewer->Atualiza_Musica(static_cast<std::int16_t>(version));
    QCOMPARE(Caption(viewer, "lblVersao"), u"v.%1"_qs.arg(version));
    QVERIFY(Box(viewer, box)->isVisible());
    QVERIFY(!Box(viewer, 3 - box)->isVisible());
    QCOMPARE(Box(viewer, box)->Text(), box == 1 ? u"C\r\nPrimeira"_qs : u"D\r\nSegunda"_qs);
}

void tst_viewer_sheet::aVersionThatWasNotShownIsNotRendered()
{
    const auto viewer = bench->Open(TestSong{});
    QCOMPARE(Box(viewer, 1)->Text(), QString());
    QVERIFY(!Box(viewer, 1)->isVisible());
    viewer->Muda_Versao();
    viewer->Sobe_Tom();
    // The hidden box keeps its last rendering.
    QCOMPARE(FirstLine(Box(viewer, 1)), u"C#  G#7"_qs);
    QCOMPARE(FirstLine(Box(viewer, 2)), u"D  A7"_qs);
}

void tst_viewer_sheet::everyRenderStartsFromTheStoredText()
{
    const auto viewer = bench->Open(TestSong{});
    Box(viewer, 2)->SetText(u"typed over"_qs);
    viewer->Atualiza_Musica(2);
    QCOMPARE(Box(viewer, 2)->Text(), u"D  A7\r\nSanto Deus"_qs);
}

void tst_viewer_sheet::theScrollLimitIsRightOnceShown_data()
{
    QTest::addColumn<QString>("song");
    QTest::newRow("three screens") << LongSong(40);
    QTest::newRow("as long as a book") << LongSong(1500);
    QTest::newRow("one line wider than the screen")
        << LongSong(40) + u"Santo Deus "_qs.repeated(40) + u"\r\n"_qs;
}

void tst_viewer_sheet::theScrollLimitIsRightOnceShown()
{
    QFETCH(QString, song);
    const auto viewer = bench->Open({.text = song, .text2 = song});
    const QString limit = Box(viewer, 2)->property("Tag").toString();

    // What the scroll bar says once the form is on the screen and the layout has settled.
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    QTest::qWait(song.size() > 10000 ? 300 : 50);
    QVERIFY(limit.toInt() > 1000);
    QCOMPARE(limit, QString::number(Box(viewer, 2)->verticalScrollBar()->maximum()));

    viewer->Muda_Versao();
    const QString other = Box(viewer, 1)->property("Tag").toString();
    QTest::qWait(song.size() > 10000 ? 300 : 50);
    QCOMPARE(other, QString::number(Box(viewer, 1)->verticalScrollBar()->maximum()));
    QCOMPARE(other, limit);
}

void tst_viewer_sheet::theScrollLimitFollowsTheSheet()
{
    const auto viewer = bench->Open({.text2 = LongSong(40)});
    const int normal = Box(viewer, 2)->property("Tag").toString().toInt();
    viewer->Aumenta_Fonte();
    const int larger = Box(viewer, 2)->property("Tag").toString().toInt();
    QVERIFY(larger > normal);
    viewer->Mostra_Cifra();
    QVERIFY(Box(viewer, 2)->property("Tag").toString().toInt() < larger);
    QCOMPARE(Box(viewer, 2)->verticalScrollBar()->value(), 0);
}

void tst_viewer_sheet::aShortSongDoesNotScroll()
{
    const auto viewer = bench->Open(TestSong{});
    QCOMPARE(Box(viewer, 2)->property("Tag").toString(), u"0"_qs);
}

void tst_viewer_sheet::everyChangeGoesBackToTheTop_data()
{
    ControlsThatRender();
}

void tst_viewer_sheet::everyChangeGoesBackToTheTop()
{
    QFETCH(QByteArray, control);
    const auto viewer = bench->Open({.text = LongSong(60), .text2 = LongSong(60)});
    viewer->Muda_Versao(); // both sheets are rendered
    viewer->Muda_Versao();
    for (const int version : {1, 2}) {
        Box(viewer, version)->verticalScrollBar()->setValue(300);
        QCOMPARE(Box(viewer, version)->verticalScrollBar()->value(), 300);
    }
    Click(viewer, control.constData());
    const int shown = Box(viewer, 1)->isVisible() ? 1 : 2;
    QCOMPARE(shown, control == "lblVersao" ? 1 : 2);
    QCOMPARE(Box(viewer, shown)->verticalScrollBar()->value(), 0);
}

void tst_viewer_sheet::everyChangeStopsTheAutomaticScrolling_data()
{
    ControlsThatRender();
}

void tst_viewer_sheet::everyChangeStopsTheAutomaticScrolling()
{
    QFETCH(QByteArray, control);
    const auto viewer = bench->Open(TestSong{});
    const auto* timer = In<QTimer>(viewer, "TimerRolagem");
    QVERIFY(!timer->isActive());
    QCOMPARE(timer->interval(), 150);
    QCOMPARE(timer->property("Tag").toString(), u"150"_qs);
    QCOMPARE(In<QProgressBar>(viewer, "ProgressBarRolagem")->value(), 4);

    viewer->Auto_Rolagem(true);
    QVERIFY(timer->isActive());
    QVERIFY(In(viewer, "ProgressBarRolagem")->isVisible());
    QVERIFY(!In(viewer, "cmdAutoRolagem")->isVisible());
    QVERIFY(In(viewer, "cmdAutoRolagem2")->isVisible());
    QCOMPARE(In(viewer, "cmdAutoRolagem2")->pos(), In(viewer, "cmdAutoRolagem")->pos());

    Click(viewer, control.constData());
    QVERIFY(!timer->isActive());
    QVERIFY(!In(viewer, "ProgressBarRolagem")->isVisible());
    QVERIFY(In(viewer, "cmdAutoRolagem")->isVisible());
    QVERIFY(!In(viewer, "cmdAutoRolagem2")->isVisible());
}

void tst_viewer_sheet::copyTakesWhatIsShown()
{
    RecordingDialogs dialogs;
    const auto viewer =
        bench->Open({.text = u"C\r\nPrimeira"_qs, .text2 = u"D  A7\r\nSanto Deus"_qs});
    viewer->Sobe_Tom();
    viewer->Copia_Musica();
    QCOMPARE(QGuiApplication::clipboard()->text(), u"D#  A#7\r\nSanto Deus"_qs);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].text,
             u"Música copiada para a Área de Transferência.\r\n"
             u"Abra um editor de textos de sua preferência e pressione CTRL + V"_qs);
    QCOMPARE(dialogs.boxes[0].icon, Icone::Informacao);
    QCOMPARE(dialogs.boxes[0].title, u"Melodario"_qs);

    viewer->Mostra_Cifra();
    viewer->Copia_Musica();
    QCOMPARE(QGuiApplication::clipboard()->text(), Box(viewer, 2)->Text());
    QVERIFY(!QGuiApplication::clipboard()->text().contains(u"D#"));

    viewer->Muda_Versao();
    viewer->Copia_Musica();
    QVERIFY(QGuiApplication::clipboard()->text().contains(u"Primeira"));
}

QTEST_MAIN(tst_viewer_sheet)
#include "tst_viewer_sheet.moc"
