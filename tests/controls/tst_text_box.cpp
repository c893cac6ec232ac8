#include "controls/TextBox.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_text_box : public QObject
{
    Q_OBJECT

private slots:
    void typing_and_code_change_the_text();
    void enter_reaches_the_form_data();
    void enter_reaches_the_form();
    void held_enter_is_told_once_data();
    void held_enter_is_told_once();
    void a_double_click_may_empty_the_box();
    void focus_is_told();
};

void tst_text_box::typing_and_code_change_the_text()
{
    TextBox box;
    QSignalSpy changes(&box, &TextBox::Change);
    QTest::keyClicks(&box, u"lu"_s);
    QCOMPARE(changes.size(), 2);
    box.setText(u"luz"_s);
    QCOMPARE(changes.size(), 3);
    box.setText(u"luz"_s);
    QCOMPARE(changes.size(), 3);
}

void tst_text_box::enter_reaches_the_form_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("told");
    QTest::newRow("Enter") << int{Qt::Key_Return} << int{Qt::Key_Return};
    QTest::newRow("the keypad's Enter") << int{Qt::Key_Enter} << int{Qt::Key_Return};
    QTest::newRow("Down") << int{Qt::Key_Down} << int{Qt::Key_Down};
}

void tst_text_box::enter_reaches_the_form()
{
    QFETCH(int, key);
    QFETCH(int, told);
    TextBox box;
    QSignalSpy keys(&box, &TextBox::KeyDown);
    QTest::keyClick(&box, static_cast<Qt::Key>(key));
    QCOMPARE(keys.size(), 1);
    QCOMPARE(keys[0][0].toInt(), told);
    QCOMPARE(box.text(), QString());
}

void tst_text_box::held_enter_is_told_once_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("times");
    QTest::newRow("Enter") << int{Qt::Key_Return} << 1;
    QTest::newRow("the keypad's Enter") << int{Qt::Key_Enter} << 1;
    QTest::newRow("a key that moves the caret") << int{Qt::Key_Left} << 4;
}

void tst_text_box::held_enter_is_told_once()
{
    QFETCH(int, key);
    QFETCH(int, times);
    TextBox box;
    QSignalSpy keys(&box, &TextBox::KeyDown);
    for (const bool repeated : {false, true, true, true}) {
        QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(&box, &held);
    }
    QCOMPARE(keys.size(), times);
}

void tst_text_box::a_double_click_may_empty_the_box()
{
    TextBox box;
    box.setText(u"Asa Branca"_s);
    connect(&box, &TextBox::DblClick, &box, &QLineEdit::clear);
    QTest::mouseDClick(&box, Qt::RightButton);
    QCOMPARE(box.text(), u"Asa Branca"_s);
    QTest::mouseDClick(&box, Qt::LeftButton);
    QCOMPARE(box.text(), QString());
}

void tst_text_box::focus_is_told()
{
    TextBox box;
    QSignalSpy got(&box, &TextBox::GotFocus);
    QSignalSpy lost(&box, &TextBox::LostFocus);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    box.setFocus();
    QTRY_COMPARE(got.size(), 1);
    box.clearFocus();
    QCOMPARE(lost.size(), 1);
}

QTEST_MAIN(tst_text_box)
#include "tst_text_box.moc"
