// Scrolling by keys and by itself: positions, speed, indicator, and what is painted.

#include "ScrollingBench.h"

#include "controls/Appearance.h"
#include "controls/RecordingDialogs.h"
#include "runtime/RuntimeError.h"
#include "viewer/Rola_Texto.h"

#include <QPaintEvent>

namespace {

constexpr int Unreachable = 32768; // the first position that the box cannot be sent to

/// Adds up what is painted of a form, and of one widget in it.
class Painted : public QObject
{
public:
    Painted(QWidget& form, const QWidget& part)
        : m_form(form)
        , m_part(part)
    {
        form.installEventFilter(this);
        for (QWidget* control : form.findChildren<QWidget*>())
            control->installEventFilter(this);
    }

    QRegion all; ///< in the form's pixels
    QRegion ofPart;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            const auto* widget = static_cast<QWidget*>(watched);
            const QRegion region = static_cast<QPaintEvent*>(event)->region().translated(
                widget->mapTo(&m_form, QPoint()));
            all += region;
            if (widget == &m_part)
                ofPart += region;
        }
        return false;
    }

private:
    QWidget& m_form;
    const QWidget& m_part;
};

} // namespace

class tst_viewer_scrolling : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Appearance::Apply(*qApp); }
    void init()
    {
        bench = std::make_unique<ViewerBench>();
        viewer = bench->Open({.text = LongSong(60), .text2 = LongSong(60)});
    }
    void cleanup() { bench.reset(); }

    void arrowsScrollByAHundred();
    void downAtTheEndKeepsTheLimit();
    void upAtTheTopKeepsTheTop();
    void theMouseDoesNotMoveTheStoredPosition();
    void aRenderStartsAtTheTopAgain();
    void homeJumpsToTheTopAndStops();
    void endAndSpaceJumpToTheEndAndGoOn_data();
    void endAndSpaceJumpToTheEndAndGoOn();
    void enterStartsAndStops_data();
    void enterStartsAndStops();
    void theButtonsStartAndStop();
    void theStopButtonTakesThePlaceOfTheStartButton();
    void aTickTakesOnePixel();
    void theEndIsKeptAndTheTimerRunsOn();
    void aPositionPastTheLimitStops();
    void aShortSongStaysWhereItIs();
    void scrollingAloneDoesNotStopAtAnotherVersionsLimit();
    void eachVersionScrollsByItself();
    void thePositionIsOneOrderOfThirtyTwoBits_data();
    void thePositionIsOneOrderOfThirtyTwoBits();
    void aKeyPastTheLastPositionFailsEveryTime();
    void aTimerPastTheLastPositionFailsOnce();
    void aTickPaintsNothingButTheBox();
    void missedTicksDoNotPileUp();
    void everyViewerScrollsAlone();
    void scrollingGoesOnWhileMinimised();

private:
    std::unique_ptr<ViewerBench> bench;
    QPointer<frmVisualizar> viewer;
};

void tst_viewer_scrolling::arrowsScrollByAHundred()
{
    for (const int position : {100, 200, 300}) {
        Press(viewer, Qt::Key_Down);
        QCOMPARE(Shown(viewer), position);
    }
    for (const int position : {200, 100, 0}) {
        Press(viewer, Qt::Key_Up);
        QCOMPARE(Shown(viewer), position);
    }
}

void tst_viewer_scrolling::downAtTheEndKeepsTheLimit()
{
    const int limit = Limit(viewer);
    QVERIFY(limit > 500);
    Press(viewer, Qt::Key_Down, limit / 100 + 3);
    QCOMPARE(Shown(viewer), limit);
    Press(viewer, Qt::Key_Up);
    QCOMPARE(Shown(viewer), limit - 100);
}

void tst_viewer_scrolling::upAtTheTopKeepsTheTop()
{
    Press(viewer, Qt::Key_Up, 3);
    QCOMPARE(Shown(viewer), 0);
    Press(viewer, Qt::Key_Down);
    QCOMPARE(Shown(viewer), 100);
}

void tst_viewer_scrolling::theMouseDoesNotMoveTheStoredPosition()
{
    Press(viewer, Qt::Key_Down);
    Box(viewer, 2)->verticalScrollBar()->setValue(500);
    Press(viewer, Qt::Key_Down);
    QCOMPARE(Shown(viewer), 200);
}

void tst_viewer_scrolling::aRenderStartsAtTheTopAgain()
{
    Press(viewer, Qt::Key_Down, 3);
    Press(viewer, Qt::Key_S);
    QCOMPARE(Shown(viewer), 0);
    Press(viewer, Qt::Key_Down);
    QCOMPARE(Shown(viewer), 100);
}

void tst_viewer_scrolling::homeJumpsToTheTopAndStops()
{
    Press(viewer, Qt::Key_Down, 3);
    viewer->Auto_Rolagem(true);
    Press(viewer, Qt::Key_Home);
    QCOMPARE(Shown(viewer), 0);
    QVERIFY(!Runs(viewer));
    QVERIFY(!In(viewer, "ProgressBarRolagem")->isVisible());
}

void tst_viewer_scrolling::endAndSpaceJumpToTheEndAndGoOn_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("End") << int(Qt::Key_End);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void tst_viewer_scrolling::endAndSpaceJumpToTheEndAndGoOn()
{
    QFETCH(int, key);
    Press(viewer, Qt::Key(key));
    QCOMPARE(Shown(viewer), Limit(viewer));
    QVERIFY(!Runs(viewer)); // nor does it start
    Press(viewer, Qt::Key_Home);
    viewer->Auto_Rolagem(true);
    Press(viewer, Qt::Key(key));
    QCOMPARE(Shown(viewer), Limit(viewer));
    QVERIFY(Runs(viewer));
}

void tst_viewer_scrolling::enterStartsAndStops_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("main keyboard") << int(Qt::Key_Return);
    QTest::newRow("number block") << int(Qt::Key_Enter);
}

void tst_viewer_scrolling::enterStartsAndStops()
{
    QFETCH(int, key);
    Press(viewer, Qt::Key(key));
    QVERIFY(Runs(viewer));
    QVERIFY(In(viewer, "cmdAutoRolagem2")->isVisible());
    Press(viewer, Qt::Key(key));
    QVERIFY(!Runs(viewer));
    QVERIFY(In(viewer, "cmdAutoRolagem")->isVisible());
}

void tst_viewer_scrolling::theButtonsStartAndStop()
{
    Click(viewer, "cmdAutoRolagem");
    QVERIFY(Runs(viewer));
    QVERIFY(!In(viewer, "cmdAutoRolagem")->isVisible());
    QVERIFY(In(viewer, "ProgressBarRolagem")->isVisible());
    QCOMPARE(In(viewer, "cmdAutoRolagem2")->pos(), In(viewer, "cmdAutoRolagem")->pos());
    Click(viewer, "cmdAutoRolagem2");
    QVERIFY(!Runs(viewer));
    QVERIFY(In(viewer, "cmdAutoRolagem")->isVisible());
    QVERIFY(!In(viewer, "cmdAutoRolagem2")->isVisible());
    QVERIFY(!In(viewer, "ProgressBarRolagem")->isVisible());
}

void tst_viewer_scrolling::theStopButtonTakesThePlaceOfTheStartButton()
{
    const QPoint elsewhere(120, 3);
    In(viewer, "cmdAutoRolagem")->move(elsewhere);
    Click(viewer, "cmdAutoRolagem");
    QCOMPARE(In(viewer, "cmdAutoRolagem2")->pos(), elsewhere);
}

void tst_viewer_scrolling::aTickTakesOnePixel()
{
    viewer->Auto_Rolagem(true);
    for (const int position : {1, 2, 3}) {
        Tick(viewer, "TimerRolagem");
        QCOMPARE(Shown(viewer), position);
    }
    Press(viewer, Qt::Key_Down);
    Tick(viewer, "TimerRolagem");
    QCOMPARE(Shown(viewer), 104);
}

void tst_viewer_scrolling::theEndIsKeptAndTheTimerRunsOn()
{
    viewer->Auto_Rolagem(true);
    Press(viewer, Qt::Key_End);
    Tick(viewer, "TimerRolagem", 20);
    QVERIFY(Runs(viewer));
    QCOMPARE(Shown(viewer), Limit(viewer));
    // It holds the text there, too, when somebody moves it.
    Box(viewer, 2)->verticalScrollBar()->setValue(0);
    Tick(viewer, "TimerRolagem");
    QCOMPARE(Shown(viewer), Limit(viewer));
}

void tst_viewer_scrolling::aPositionPastTheLimitStops()
{
    Press(viewer, Qt::Key_Down, 3);
    viewer->Auto_Rolagem(true);
    Box(viewer, 2)->setProperty("Tag", u"300"_qs);
    Tick(viewer, "TimerRolagem");
    QVERIFY(Runs(viewer)); // at the limit, not past it
    Box(viewer, 2)->setProperty("Tag", u"200"_qs);
    Tick(viewer, "TimerRolagem");
    QVERIFY(!Runs(viewer));
    QVERIFY(!In(viewer, "ProgressBarRolagem")->isVisible());
    QCOMPARE(Shown(viewer), 200);
}

void tst_viewer_scrolling::aShortSongStaysWhereItIs()
{
    viewer = bench->Open(TestSong{});
    Press(viewer, Qt::Key_Down);
    Press(viewer, Qt::Key_End);
    viewer->Auto_Rolagem(true);
    Tick(viewer, "TimerRolagem", 5);
    QCOMPARE(Shown(viewer), 0);
    QVERIFY(Runs(viewer));
}

void tst_viewer_scrolling::scrollingAloneDoesNotStopAtAnotherVersionsLimit()
{
    viewer = bench->Open({.text = u"C\r\nSanto"_qs, .text2 = LongSong(60)});
    viewer->Muda_Versao();
    Press(viewer, Qt::Key_Down);
    QCOMPARE(Box(viewer, 1)->verticalScrollBar()->value(), 0);
    viewer->Muda_Versao();
    Press(viewer, Qt::Key_Down);
    QCOMPARE(Shown(viewer), 100);
}

void tst_viewer_scrolling::eachVersionScrollsByItself()
{
    viewer = bench->Open({.text = LongSong(40), .text2 = LongSong(60)});
    Press(viewer, Qt::Key_End);
    viewer->Muda_Versao();
    const auto first = [this] { return Box(viewer, 1)->verticalScrollBar()->value(); };
    const int limit = Box(viewer, 1)->property("Tag").toString().toInt();
    QVERIFY(limit > 500 && limit < Limit(viewer));
    Press(viewer, Qt::Key_Down);
    QCOMPARE(first(), 100);
    viewer->Auto_Rolagem(true);
    Tick(viewer, "TimerRolagem");
    QCOMPARE(first(), 101);
    QVERIFY(Runs(viewer)); // though the other one stands below this one's end
    Press(viewer, Qt::Key_End);
    QCOMPARE(first(), limit);
    Tick(viewer, "TimerRolagem");
    QVERIFY(Runs(viewer));
    Press(viewer, Qt::Key_Up);
    QCOMPARE(first(), limit - 100);
    QCOMPARE(Shown(viewer), Limit(viewer)); // the other one stands where it stood
    // Rendered anew, this one starts at its top as well.
    Press(viewer, Qt::Key_S);
    QCOMPARE(first(), 0);
    Press(viewer, Qt::Key_Down);
    QCOMPARE(first(), 100);
    Press(viewer, Qt::Key_Home);
    QCOMPARE(first(), 0);
}

void tst_viewer_scrolling::thePositionIsOneOrderOfThirtyTwoBits_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("fits");
    QTest::newRow("the top") << 0 << true;
    QTest::newRow("one pixel") << 1 << true;
    QTest::newRow("the last that fits") << Unreachable - 1 << true;
    QTest::newRow("the first that does not") << Unreachable << false;
    QTest::newRow("far below") << 70000 << false;
    QTest::newRow("the largest number") << std::numeric_limits<int>::max() << false;
}

void tst_viewer_scrolling::thePositionIsOneOrderOfThirtyTwoBits()
{
    QFETCH(int, position);
    QFETCH(bool, fits);
    viewer = bench->Open({.text2 = LongSong(1500)});
    QVERIFY(Limit(viewer) > Unreachable);
    RichTextBox* box = Box(viewer, 2);
    box->verticalScrollBar()->setValue(50);
    int number = 0;
    try {
        Funcoes::Rola_Texto(*box, position);
    } catch (const RuntimeError& error) {
        number = error.Number();
    }
    QCOMPARE(number, fits ? 0 : int(RuntimeError::Overflow));
    QCOMPARE(Shown(viewer), fits ? position : 50);
}

void tst_viewer_scrolling::aKeyPastTheLastPositionFailsEveryTime()
{
    viewer = bench->Open({.text2 = LongSong(1500)});
    RecordingDialogs dialogs;
    Press(viewer, Qt::Key_End);
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].icon, Icone::Critico);
    QCOMPARE(Shown(viewer), 0);
    Press(viewer, Qt::Key_Space);
    QCOMPARE(dialogs.boxes.size(), 2);
    Press(viewer, Qt::Key_Home);
    QCOMPARE(dialogs.boxes.size(), 2);
    Press(viewer, Qt::Key_Down, 327);
    QCOMPARE(Shown(viewer), 32700);
    QCOMPARE(dialogs.boxes.size(), 2);
    Press(viewer, Qt::Key_Down);
    QCOMPARE(dialogs.boxes.size(), 3);
    QCOMPARE(Shown(viewer), 32700);
}

void tst_viewer_scrolling::aTimerPastTheLastPositionFailsOnce()
{
    viewer = bench->Open({.text2 = LongSong(1500)});
    Press(viewer, Qt::Key_Down, 327);
    viewer->Auto_Rolagem(true);
    RecordingDialogs dialogs;
    Tick(viewer, "TimerRolagem", 67);
    QCOMPARE(Shown(viewer), Unreachable - 1);
    QCOMPARE(dialogs.boxes.size(), 0);
    Tick(viewer, "TimerRolagem", 10);
    QCOMPARE(Shown(viewer), Unreachable - 1);
    QCOMPARE(dialogs.boxes.size(), 1);
    QVERIFY(Runs(viewer));

    // Once it went well again, the same failure is news.
    Press(viewer, Qt::Key_Up);
    Tick(viewer, "TimerRolagem", 89);
    QCOMPARE(Shown(viewer), Unreachable - 1 - 1);
    QCOMPARE(dialogs.boxes.size(), 1);
    Tick(viewer, "TimerRolagem", 10);
    QCOMPARE(dialogs.boxes.size(), 2);
}

void tst_viewer_scrolling::aTickPaintsNothingButTheBox()
{
    viewer->Auto_Rolagem(true);
    In<QTimer>(viewer, "tmrContador")->stop(); // the label is another matter
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    QCoreApplication::processEvents();
    RichTextBox* box = Box(viewer, 2);
    const QRect whole(box->mapTo(viewer.data(), QPoint()), box->size());
    Painted painted(*viewer, *box->viewport());
    Tick(viewer, "TimerRolagem");
    QCoreApplication::processEvents();
    QCOMPARE(painted.all - whole, QRegion());
    // The sheet itself is moved; painted is the line of pixels that comes up.
    const QRect sheet = painted.ofPart.boundingRect();
    QVERIFY(!sheet.isEmpty());
    QVERIFY2(sheet.height() <= 2, qPrintable(QString::number(sheet.height())));
}

void tst_viewer_scrolling::missedTicksDoNotPileUp()
{
    viewer->Auto_Rolagem(true);
    QTest::qSleep(900); // six periods during which nothing can be done
    QCoreApplication::processEvents();
    QVERIFY(Shown(viewer) >= 1);
    QVERIFY(Shown(viewer) <= 3);
}

void tst_viewer_scrolling::everyViewerScrollsAlone()
{
    const auto other = bench->Open({.text2 = LongSong(60)});
    Press(viewer, Qt::Key_Right);
    viewer->Auto_Rolagem(true);
    Tick(viewer, "TimerRolagem", 7);
    Press(other, Qt::Key_Down);
    QCOMPARE(Shown(viewer), 7);
    QCOMPARE(Shown(other), 100);
    QVERIFY(!Runs(other));
    QCOMPARE(Speed(other), u"150"_qs);
    QCOMPARE(Level(other), 4);
}

void tst_viewer_scrolling::scrollingGoesOnWhileMinimised()
{
    viewer->Auto_Rolagem(true);
    Click(viewer, "cmdMinimizar");
    Tick(viewer, "TimerRolagem", 5);
    viewer->showNormal();
    QVERIFY(Runs(viewer));
    QCOMPARE(Shown(viewer), 5);
    QVERIFY(In(viewer, "ProgressBarRolagem")->isVisible());
}

QTEST_MAIN(tst_viewer_scrolling)
#include "tst_viewer_scrolling.moc"
