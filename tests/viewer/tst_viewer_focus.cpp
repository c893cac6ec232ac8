// The sheet is only read outside edit mode: it takes no focus, shows no caret and gets no keys.

#include "EditingBench.h"

namespace {

const QString Before = u"D  A7\r\nSanto Deus"_qs; // version 2 as shown at first

} // namespace

class tst_viewer_focus : public QObject
{
    Q_OBJECT

private slots:
    void init() { bench = std::make_unique<EditingBench>(); }
    void cleanup() { bench.reset(); }

    void focusPassesOnOutsideEditMode_data();
    void focusPassesOnOutsideEditMode();
    void focusPassesOnAgainAfterEditing();
    void focusGivenBeforeTheWindowIsActivePassesOn();
    void nobodyTakesTheFocusAndNothingLoops();
    void choosingASongLeavesNoCaret();

private:
    std::unique_ptr<EditingBench> bench;
};

void tst_viewer_focus::focusPassesOnOutsideEditMode_data()
{
    QTest::addColumn<int>("reason"); // -1: real clicks, -2: real Tab keys
    QTest::newRow("clicks into the text") << -1;
    QTest::newRow("Tab keys") << -2;
    QTest::newRow("as by Tab") << int{Qt::TabFocusReason};
    QTest::newRow("as by Shift+Tab") << int{Qt::BacktabFocusReason};
    QTest::newRow("as by the mouse") << int{Qt::MouseFocusReason};
    QTest::newRow("as by a shortcut") << int{Qt::ShortcutFocusReason};
    QTest::newRow("by the program") << int{Qt::OtherFocusReason};
}

void tst_viewer_focus::focusPassesOnOutsideEditMode()
{
    QFETCH(int, reason);
    const auto viewer = bench->OpenActive();
    RichTextBox* box = Box(viewer, 2);
    const QImage before = box->grab().toImage();
    if (reason == -1) {
        QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
        QTest::mouseDClick(box->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    } else if (reason == -2) {
        for (int i = 0; i < 3; ++i)
            Press(viewer, Qt::Key_Tab);
    } else {
        box->setFocus(static_cast<Qt::FocusReason>(reason));
    }
    QVERIFY(!box->hasFocus());
    QCOMPARE(viewer->focusWidget(), viewer.data());
    QCOMPARE(box->grab().toImage(), before); // no caret, no selection
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_Delete, Qt::Key_Backspace})
        Press(viewer, key);
    QCOMPARE(box->Text(), Before);
}

void tst_viewer_focus::focusPassesOnAgainAfterEditing()
{
    const auto viewer = bench->OpenActive();
    RichTextBox* box = Box(viewer, 2);
    const QImage before = box->grab().toImage();
    Edit(viewer, u" forte"_qs);
    Press(viewer, Qt::Key_A, Qt::ControlModifier);
    Click(viewer, "cmdDescartar");
    QVERIFY(!box->hasFocus());
    QTest::mouseClick(box->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QVERIFY(!box->hasFocus());
    QCOMPARE(box->viewport()->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(box->grab().toImage(), before);
    // The keys are the viewer's again.
    Press(viewer, Qt::Key_S);
    QCOMPARE(Caption(viewer, "lblTom"), u"(C#)"_qs);
}

void tst_viewer_focus::focusGivenBeforeTheWindowIsActivePassesOn()
{
    const auto viewer = bench->Open(TestSong{});
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    Box(viewer, 2)->setFocus();
    viewer->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    QTRY_VERIFY(!Box(viewer, 2)->hasFocus());
    Press(viewer, Qt::Key_X);
    QCOMPARE(Box(viewer, 2)->Text(), Before);
}

void tst_viewer_focus::nobodyTakesTheFocusAndNothingLoops()
{
    const auto viewer = bench->OpenActive();
    viewer->setFocusPolicy(Qt::NoFocus);
    Box(viewer, 2)->setFocus(Qt::TabFocusReason);
    QVERIFY(!Box(viewer, 2)->hasFocus());
    QVERIFY(!Box(viewer, 1)->hasFocus());
}

void tst_viewer_focus::choosingASongLeavesNoCaret()
{
    const auto viewer = EditingBench::Active(bench->ThreeSongs());
    Choose(viewer, 1);
    QCOMPARE(Title(viewer), u"Amar"_qs);
    QVERIFY(!Box(viewer, 2)->hasFocus());
    Press(viewer, Qt::Key_S);
    QCOMPARE(Caption(viewer, "lblTom"), u"(D#)"_qs);
}

QTEST_MAIN(tst_viewer_focus)
#include "tst_viewer_focus.moc"
