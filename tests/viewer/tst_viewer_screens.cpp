// Two screens, of which the primary one does not begin at the desktop's corner.

#include "EditingBench.h"

#include <QScreen>

namespace {

const QRect Primary(1280, 0, 1366, 768);
const QRect Other(0, 0, 1280, 1024);

} // namespace

class tst_viewer_screens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QCOMPARE(QGuiApplication::primaryScreen()->geometry(), Primary);
        QCOMPARE(QGuiApplication::screens().at(1)->geometry(), Other);
    }
    void init() { bench = std::make_unique<EditingBench>(); }
    void cleanup() { bench.reset(); }

    void theViewerCoversThePrimaryScreen();
    void theChoiceStandsOverItsViewer();
    void aViewerThatWasMovedIsLaidOutWhereItIs();

private:
    std::unique_ptr<EditingBench> bench;
};

void tst_viewer_screens::theViewerCoversThePrimaryScreen()
{
    // Also when it is opened from a form on the other one.
    QWidget form;
    form.setGeometry(100, 100, 800, 600);
    form.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    const auto viewer = bench->OpenActive();
    QCOMPARE(viewer->geometry(), QRect(1280, 0, 1366, 768 - 32));
    QCOMPARE(viewer->screen()->geometry(), Primary);
}

void tst_viewer_screens::theChoiceStandsOverItsViewer()
{
    const auto viewer = bench->OpenActive();
    Edit(viewer, u" forte"_qs);
    QRect place;
    QVERIFY(WithChoice([&] { Click(viewer, "cmdSalvar"); },
                       [&](QWidget& dialog) {
                           place = dialog.frameGeometry();
                           Click(&dialog, "cmdNaoSalvar");
                       }));
    QVERIFY(viewer->geometry().contains(place));
}

void tst_viewer_screens::aViewerThatWasMovedIsLaidOutWhereItIs()
{
    const auto viewer = bench->OpenActive();
    const QRect close = In(viewer, "cmdFechar")->geometry();
    viewer->setGeometry(Other);
    QCOMPARE(viewer->screen()->geometry(), Other);
    QCOMPARE(In(viewer, "cmdFechar")->geometry(), close.translated(1280 - 1366, 0));
    QCOMPARE(In(viewer, "imgFundoInf")->geometry().bottom(), Other.height() - 1);
}

QTEST_MAIN(tst_viewer_screens)
#include "tst_viewer_screens.moc"
