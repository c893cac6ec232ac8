// Keys that are held: they wait for what they render, and begin or close nothing twice.

#include "KeyBench.h"

class tst_viewer_held_keys : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { bench = std::make_unique<KeyBench>(); }
    void cleanupTestCase() { bench.reset(); }

    void aHeldKeyWaitsForTheSheet_data();
    void aHeldKeyWaitsForTheSheet();
    void aHeldKeyGoesOnOverAnEmptySheet();
    void aKeyThatChangesNothingHoldsNobodyUp();
    void everyPressCounts();
    void theHeldKeyThatBeganEditingIsNotTyped();
    void aHeldEnterScrollsOnce();
    void aHeldEscClosesNothing();

private:
    std::unique_ptr<KeyBench> bench;
};

void tst_viewer_held_keys::aHeldKeyWaitsForTheSheet_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("S") << int(Qt::Key_S) << u"key (D)"_qs << u"key (D#)"_qs;
    QTest::newRow("D") << int(Qt::Key_D) << u"key (C)"_qs << u"key (B)"_qs;
    QTest::newRow("+") << int(Qt::Key_Plus) << u"points 19"_qs << u"points 21"_qs;
    QTest::newRow("-") << int(Qt::Key_Minus) << u"points 15"_qs << u"points 13"_qs;
    QTest::newRow("C") << int(Qt::Key_C) << u"lines 121"_qs << u"lines 241"_qs;
    QTest::newRow("V") << int(Qt::Key_V) << u"version v.1"_qs << u"version v.2"_qs;
}

void tst_viewer_held_keys::aHeldKeyWaitsForTheSheet()
{
    QFETCH(int, key);
    QFETCH(QString, first);
    QFETCH(QString, second);
    const auto viewer = bench->Prepared();
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    QCoreApplication::processEvents();
    const QString what = first.section(u' ', 0, 0);
    const auto shown = [&] { return QString(what + u' ' + Look(viewer).value(what)); };
    Send(viewer, {key});
    for (int i = 0; i < 30; ++i)
        Send(viewer, {key}, true);
    QCOMPARE(shown(), first);
    // The sheet has been seen: the next repeat acts, and only that one.
    Box(viewer, Box(viewer, 1)->isVisible() ? 1 : 2)->viewport()->repaint();
    for (int i = 0; i < 30; ++i)
        Send(viewer, {key}, true);
    QCOMPARE(shown(), second);
    delete viewer;
}

void tst_viewer_held_keys::aHeldKeyGoesOnOverAnEmptySheet()
{
    const auto viewer = bench->Open({.text = u""_qs, .text2 = u""_qs});
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    QCoreApplication::processEvents();
    Send(viewer, {Qt::Key_S});
    for (const QString& key : {u"(D)"_qs, u"(D#)"_qs, u"(E)"_qs}) {
        QCoreApplication::processEvents(); // whatever is to be painted is
        Send(viewer, {Qt::Key_S}, true);
        QCOMPARE(Look(viewer).value(u"key"_qs), key);
    }
    delete viewer;
}

void tst_viewer_held_keys::aKeyThatChangesNothingHoldsNobodyUp()
{
    const auto viewer = bench->Prepared();
    QVERIFY(QTest::qWaitForWindowExposed(viewer.data()));
    Send(viewer, {Qt::Key_P});
    Box(viewer, 2)->viewport()->repaint();
    const auto atTheEnd = Look(viewer);
    Send(viewer, {Qt::Key_P}); // there is no song after the last: nothing to paint
    QCOMPARE(Difference(atTheEnd, Look(viewer)), QString());
    Send(viewer, {Qt::Key_S}, true); // a key held since another window had the keyboard
    QCOMPARE(Look(viewer).value(u"key"_qs), u"(C#)"_qs);
    delete viewer;
}

void tst_viewer_held_keys::everyPressCounts()
{
    const auto viewer = bench->Prepared();
    for (int i = 0; i < 5; ++i)
        Send(viewer, {Qt::Key_S});
    QCOMPARE(Look(viewer).value(u"key"_qs), u"(F#)"_qs);
    // Scrolling costs little: a held arrow never waits.
    for (int i = 0; i < 5; ++i)
        Send(viewer, {Qt::Key_Down}, true);
    QCOMPARE(Look(viewer).value(u"position"_qs), u"500"_qs);
    delete viewer;
}

void tst_viewer_held_keys::theHeldKeyThatBeganEditingIsNotTyped()
{
    const auto viewer = bench->Prepared();
    QVERIFY(QTest::qWaitForWindowActive(viewer.data()));
    RichTextBox* box = Box(viewer, 2);
    const QString text = box->Text();
    const auto type = [&](bool repeated) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_E, Qt::ShiftModifier, u"E"_qs, repeated);
        QApplication::sendEvent(viewer->focusWidget() ? viewer->focusWidget() : viewer, &press);
    };
    type(false);
    for (int i = 0; i < 5; ++i)
        type(true);
    QCOMPARE(Look(viewer).value(u"edits"_qs), u"yes"_qs);
    QCOMPARE(box->Text(), text);
    type(false);
    type(true);
    QCOMPARE(box->Text().size(), text.size() + 2);
    delete viewer;
}

void tst_viewer_held_keys::aHeldEnterScrollsOnce()
{
    const auto viewer = bench->Open(TestSong{});
    const auto* timer = In<QTimer>(viewer, "TimerRolagem");
    // Held since before the viewer came, and on from a press of its own.
    for (int i = 0; i < 3; ++i)
        QTest::simulateEvent(viewer, true, Qt::Key_Return, {}, QString(), true);
    QVERIFY(!timer->isActive());
    QTest::keyClick(viewer.data(), Qt::Key_Return);
    for (int i = 0; i < 3; ++i)
        QTest::simulateEvent(viewer, true, Qt::Key_Return, {}, QString(), true);
    QVERIFY(timer->isActive());
}

void tst_viewer_held_keys::aHeldEscClosesNothing()
{
    const auto viewer = bench->Open(TestSong{});
    // Held since it closed a box in front of the viewer.
    for (int i = 0; i < 3; ++i)
        Send(viewer, {Qt::Key_Escape}, true);
    QVERIFY(!Gone(viewer));
    QVERIFY(viewer->isVisible());
    Send(viewer, {Qt::Key_Escape});
    QVERIFY(Gone(viewer));
}

QTEST_MAIN(tst_viewer_held_keys)
#include "tst_viewer_held_keys.moc"
