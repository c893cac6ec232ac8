// How the form lies over the screen, and in whatever size the desktop gives it; run on screens of
// several sizes. Places in twips are cut to pixels, 15 twips each.

#include "Ticks.h"

#include "controls/Twips.h"

#include <QScreen>
#include <QScrollBar>

using Twips::ToPixels;

class tst_viewer_layout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<QSize>("given");
        QTest::newRow("as it asks for") << QSize();
        QTest::newRow("smaller") << QSize(800, 500);
        QTest::newRow("larger") << QSize(2000, 1300);
        QTest::newRow("as before") << QSize();
    }
    void initTestCase()
    {
        bench = std::make_unique<ViewerBench>();
        screen = QGuiApplication::primaryScreen()->geometry();
        viewer = bench->Open({.title = u"muito comprido "_qs.repeated(30),
                              .text = LongSong(70),
                              .text2 = LongSong(60)});
        QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    }
    void init()
    {
        QFETCH_GLOBAL(QSize, given);
        const QSize asked(screen.width(), screen.height() - 32);
        viewer->resize(given.isEmpty() ? asked : given);
    }
    void cleanupTestCase() { bench.reset(); }

    void theFormLeavesAStripAtTheBottom();
    void theCloseButtonSitsAtTheTopRight();
    void theCountdownIsRightAligned();
    void thePanelOfButtonsEndsBeforeMinimise();
    void theSongListIsRightAlignedAndHidesNoButton();
    void buttonsStandAtTheTopOfTheirPanel();
    void twinsLieOnTheirButtons_data();
    void twinsLieOnTheirButtons();
    void theFrameClosesAroundTheSong();
    void theSongFillsTheFrame();
    void theBoxesLieOnTopOfEachOther();
    void linesDrawTheBorderAndTheBand();
    void theHeaderEndsBeforeTheCountdown();
    void theSheetScrollsToItsEnd();
    void theSheetStaysWhereItIsRead();
    void scrollingGoesOnInATallerForm_data();
    void scrollingGoesOnInATallerForm();
    void aTinyFormHasNoNegativeWidths_data();
    void aTinyFormHasNoNegativeWidths();

private:
    QRect Of(const char* name) const { return In(viewer, name)->geometry(); }

    std::unique_ptr<ViewerBench> bench;
    QPointer<frmVisualizar> viewer;
    QRect screen;
};

void tst_viewer_layout::theFormLeavesAStripAtTheBottom()
{
    QFETCH_GLOBAL(QSize, given);
    QCOMPARE(viewer->pos(), screen.topLeft());
    if (given.isEmpty())
        QCOMPARE(viewer->size(), QSize(screen.width(), screen.height() - 32));
}

void tst_viewer_layout::theCloseButtonSitsAtTheTopRight()
{
    const QRect close = Of("cmdFechar");
    // The border's line of one pixel and 40 twips from the right, the line and 20 from the top.
    QCOMPARE(close.left(), (15 * viewer->width() - 15 * close.width() - 15 - 30 - 10) / 15);
    QCOMPARE(close.top(), (15 + 20) / 15);
    QCOMPARE(Of("cmdMinimizar").right() + 1, close.left());
    QCOMPARE(Of("cmdMinimizar").top(), close.top());
}

void tst_viewer_layout::theCountdownIsRightAligned()
{
    QCOMPARE(Of("lblCont").right(), Of("cmdFechar").right());
}

void tst_viewer_layout::thePanelOfButtonsEndsBeforeMinimise()
{
    const QRect panel = Of("pctBotoes");
    QCOMPARE(panel.left(), 64);
    QCOMPARE(panel.height(), 25);
    QCOMPARE(panel.width(), Of("cmdMinimizar").left() - 64 - 4);
    QVERIFY(panel.bottom() < Of("Line2").top());
}

void tst_viewer_layout::theSongListIsRightAlignedAndHidesNoButton()
{
    const QRect list = Of("pctLista");
    QCOMPARE(list.left(), Of("pctBotoes").width() - list.width());
    QCOMPARE(list.height(), 25);
    QCOMPARE(In(viewer, "pctLista")->parentWidget(), In(viewer, "pctBotoes"));
    QVERIFY(Of("cmdProxima").right() < list.width());
    QVERIFY(Of("cmbLista").right() < Of("cmdProxima").left());
    QVERIFY(Of("cmbLista").left() > Of("cmdAnterior").right());
    if (viewer->width() >= 800)
        QVERIFY(list.left() > Of("cmdDescartar").right());
}

void tst_viewer_layout::buttonsStandAtTheTopOfTheirPanel()
{
    for (const QString& panel : {u"pctBotoes"_qs, u"pctLista"_qs}) {
        const auto buttons = viewer->findChild<QWidget*>(panel)->findChildren<QWidget*>(
            QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget* button : buttons) {
            if (!button->objectName().startsWith(u"cmd"))
                continue;
            const bool original = button->objectName().startsWith(u"cmdTomOriginal");
            QCOMPARE(button->y(), original ? 4 : 0);
            QVERIFY(button->geometry().bottom() < 25);
        }
    }
}

void tst_viewer_layout::twinsLieOnTheirButtons_data()
{
    QTest::addColumn<QByteArray>("button");
    for (const char* button :
         {"cmdSobe", "cmdTomOriginal", "cmdDesce", "cmdLetra", "cmdAumentaFonte", "cmdDiminuiFonte",
          "cmdAnterior", "cmdProxima", "cmdDescartar"})
        QTest::newRow(button) << QByteArray(button);
}

void tst_viewer_layout::twinsLieOnTheirButtons()
{
    QFETCH(QByteArray, button);
    const QByteArray twin = button + "2";
    QCOMPARE(Of(twin.constData()), Of(button.constData()));
    QVERIFY(!qobject_cast<QAbstractButton*>(In(viewer, twin.constData())));
}

void tst_viewer_layout::theFrameClosesAroundTheSong()
{
    const int top = ToPixels(1240);
    const int bottom = viewer->height();
    const int width = viewer->width();
    const QRect topLeft = Of("imgFundoSupEsq");
    const QRect topRight = Of("imgFundoSupDir");
    const QRect bottomLeft = Of("imgFundoInfEsq");
    const QRect bottomRight = Of("imgFundoInfDir");
    QCOMPARE(topLeft.topLeft(), QPoint(0, top));
    QCOMPARE(topRight.topRight(), QPoint(width - 1, top));
    QCOMPARE(bottomLeft.bottomLeft(), QPoint(0, bottom - 1));
    QCOMPARE(bottomRight.bottomRight(), QPoint(width - 1, bottom - 1));

    // Edges run from corner to corner without a gap.
    QCOMPARE(Of("imgFundoSup"),
             QRect(topLeft.topRight() + QPoint(1, 0), topRight.bottomLeft() - QPoint(1, 0)));
    QCOMPARE(Of("imgFundoInf"),
             QRect(bottomLeft.topRight() + QPoint(1, 0), bottomRight.bottomLeft() - QPoint(1, 0)));
    QCOMPARE(Of("imgFundoEsq"),
             QRect(topLeft.bottomLeft() + QPoint(0, 1), bottomLeft.topRight() - QPoint(0, 1)));
    QCOMPARE(Of("imgFundoDir"),
             QRect(topRight.bottomLeft() + QPoint(0, 1), bottomRight.topRight() - QPoint(0, 1)));
}

void tst_viewer_layout::theSongFillsTheFrame()
{
    QCOMPARE(Of("pctMusica"), QRect(Of("imgFundoSupEsq").bottomRight() + QPoint(1, 1),
                                    Of("imgFundoInfDir").topLeft() - QPoint(1, 1)));
}

void tst_viewer_layout::theBoxesLieOnTopOfEachOther()
{
    const QSize area = Of("pctMusica").size();
    QCOMPARE(Of("RichTextBox_1"), QRect(8, 8, area.width() - 16, area.height() - 16));
    QCOMPARE(Of("RichTextBox_2"), Of("RichTextBox_1"));
    QCOMPARE(In(viewer, "RichTextBox_1")->parentWidget(), In(viewer, "pctMusica"));
}

void tst_viewer_layout::linesDrawTheBorderAndTheBand()
{
    const int width = viewer->width();
    const int height = viewer->height();
    QCOMPARE(Of("Line1").top(), 80);
    QCOMPARE(Of("Line2").top(), 36);
    for (const char* line : {"Line1", "Line2"}) {
        QCOMPARE(Of(line).left(), 18);
        QCOMPARE(Of(line).right() + 1, width - 18);
    }
    QCOMPARE(Of("lnSup").top(), 1);
    QCOMPARE(Of("lnEsq").left(), 1);
    QVERIFY(Of("lnInf").bottom() >= height - 3 && Of("lnInf").bottom() < height - 1);
    QVERIFY(Of("lnDir").right() >= width - 3 && Of("lnDir").right() < width - 1);

    QImage picture(viewer->size(), QImage::Format_RGB32); // one pixel each, whatever the scale
    viewer->render(&picture);
    const QRgb darkGrey = qRgb(0x40, 0x40, 0x40);
    QCOMPARE(picture.pixel(Of("lnSup").center()), darkGrey);
    QCOMPARE(picture.pixel(Of("lnEsq").center()), darkGrey);
    QCOMPARE(picture.pixel(Of("lnInf").center()), darkGrey);
    QCOMPARE(picture.pixel(Of("lnDir").center()), darkGrey);
    QCOMPARE(picture.pixel(Of("Line1").center()), darkGrey);
    QCOMPARE(picture.pixel(Of("Line2").center()), darkGrey);
}

void tst_viewer_layout::theHeaderEndsBeforeTheCountdown()
{
    const QRect title = Of("lblTitulo");
    QVERIFY(Of("lblTom").left() > title.right());
    QVERIFY(Of("lblReferencia").right() + 8 < Of("lblCont").left());
    // The long title takes all the room that there is, give or take what is cut to pixels.
    QVERIFY(Of("lblReferencia").right() + 8 > Of("lblCont").left() - 8);
}

void tst_viewer_layout::theSheetScrollsToItsEnd()
{
    RichTextBox* box = Box(viewer, 2);
    QVERIFY(box->verticalScrollBar()->maximum() > 0);
    QCOMPARE(box->property("Tag").toString(), QString::number(box->verticalScrollBar()->maximum()));
    QTest::keyClick(viewer.data(), Qt::Key_End);
    QCOMPARE(box->verticalScrollBar()->value(), box->verticalScrollBar()->maximum());
    QTest::keyClick(viewer.data(), Qt::Key_Home);
}

void tst_viewer_layout::theSheetStaysWhereItIsRead()
{
    const QScrollBar* bar = Box(viewer, 2)->verticalScrollBar();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(viewer.data(), Qt::Key_Down);
    QCOMPARE(bar->value(), 300);
    viewer->Auto_Rolagem(true);
    viewer->resize(viewer->size() - QSize(60, 40));
    QCOMPARE(bar->value(), 300);
    QVERIFY(In<QTimer>(viewer, "TimerRolagem")->isActive());
    QTest::keyClick(viewer.data(), Qt::Key_Down);
    QCOMPARE(bar->value(), 400);
    QTest::keyClick(viewer.data(), Qt::Key_Home);
}

void tst_viewer_layout::scrollingGoesOnInATallerForm_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 1") << 1;
    QTest::newRow("version 2") << 2;
}

/// At the end, where the form's getting taller takes the limit back.
void tst_viewer_layout::scrollingGoesOnInATallerForm()
{
    QFETCH(int, version);
    if (version == 1)
        viewer->Muda_Versao();
    QTest::keyClick(viewer.data(), Qt::Key_End);
    viewer->Auto_Rolagem(true);
    viewer->resize(viewer->size() + QSize(0, 100));
    const RichTextBox* box = Box(viewer, version);
    const QScrollBar* bar = box->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(box->property("Tag").toString(), QString::number(bar->maximum()));
    QCOMPARE(bar->value(), bar->maximum());
    Tick(viewer, "TimerRolagem");
    QVERIFY(In<QTimer>(viewer, "TimerRolagem")->isActive());
    QTest::keyClick(viewer.data(), Qt::Key_Up);
    QCOMPARE(bar->value(), bar->maximum() - 100);
    QTest::keyClick(viewer.data(), Qt::Key_Home);
    if (version == 1)
        viewer->Muda_Versao();
}

void tst_viewer_layout::aTinyFormHasNoNegativeWidths_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("a pixel") << QSize(1, 1);
    QTest::newRow("a strip") << QSize(300, 1);
    QTest::newRow("a column") << QSize(1, 300);
}

void tst_viewer_layout::aTinyFormHasNoNegativeWidths()
{
    QFETCH(QSize, size);
    viewer->setMinimumSize(1, 1);
    viewer->resize(size);
    QCOMPARE(viewer->size(), size);
    for (const char* name : {"lblTitulo", "lblTom", "lblReferencia", "lblTemas"}) {
        const auto* label = In<QLabel>(viewer, name);
        QVERIFY2(label->width() >= 0, name);
        QVERIFY2(label->x() >= 0, name);
        QVERIFY2(label->maximumWidth() >= 0, name);
    }
    viewer->grab();
}

QTEST_MAIN(tst_viewer_layout)
#include "tst_viewer_layout.moc"
