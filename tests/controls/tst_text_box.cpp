#include "controls/TextBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

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
    void another_window_takes_no_focus_from_a_box();
    void focus_moved_behind_another_window_is_told();
    void a_box_that_goes_with_the_focus_tells_nothing();
    void pasted_text_ends_at_its_first_line_break_data();
    void pasted_text_ends_at_its_first_line_break();
    void the_menu_pastes_one_line_too();
    void dropped_text_ends_at_its_first_line_break();
    void the_address_of_a_file_is_no_text();
    void line_breaks_set_by_code_stay();
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

void tst_text_box::another_window_takes_no_focus_from_a_box()
{
    QWidget form;
    TextBox box(&form);
    QSignalSpy got(&box, &TextBox::GotFocus);
    QSignalSpy lost(&box, &TextBox::LostFocus);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    box.setFocus();
    QCOMPARE(got.size(), 1);
    {
        QLineEdit other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QVERIFY(!box.hasFocus());
    }
    form.activateWindow();
    QTRY_VERIFY(box.hasFocus());
    QMenu menu;
    menu.addAction(u"Colar"_s);
    menu.popup(form.pos());
    menu.close();
    QVERIFY(box.hasFocus());
    QCOMPARE(got.size(), 1);
    QCOMPARE(lost.size(), 0);
}

void tst_text_box::focus_moved_behind_another_window_is_told()
{
    QWidget form;
    TextBox before(&form);
    TextBox after(&form);
    QSignalSpy got(&after, &TextBox::GotFocus);
    QSignalSpy lost(&before, &TextBox::LostFocus);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    before.setFocus();
    {
        QLineEdit other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        after.setFocus();
        QCOMPARE(lost.size(), 0);
    }
    form.activateWindow();
    QTRY_VERIFY(after.hasFocus());
    QCOMPARE(lost.size(), 1);
    QCOMPARE(got.size(), 1);
}

/// Somebody passes the focus on at once, while the box is half gone.
void tst_text_box::a_box_that_goes_with_the_focus_tells_nothing()
{
    QWidget form;
    QLineEdit next(&form);
    auto* box = new TextBox(&form);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    box->setFocus();
    QVERIFY(box->hasFocus());
    QSignalSpy lost(box, &TextBox::LostFocus);
    connect(qApp, &QApplication::focusChanged, &next, [&](QWidget*, const QWidget* now) {
        if (!now)
            next.setFocus();
    });
    delete box;
    QVERIFY(next.hasFocus());
    QCOMPARE(lost.size(), 0);
}

void tst_text_box::pasted_text_ends_at_its_first_line_break_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << u"Natal"_s << u"<Natal>"_s;
    QTest::newRow("LF at the end") << u"Natal\n"_s << u"<Natal>"_s;
    QTest::newRow("CR LF at the end") << u"Natal\r\n"_s << u"<Natal>"_s;
    QTest::newRow("CR in the middle") << u"Noite\rFeliz"_s << u"<Noite>"_s;
    QTest::newRow("line separator of a word processor") << u"Noite\u2028Feliz"_s << u"<Noite>"_s;
    QTest::newRow("leading breaks") << u"\r\n\n Natal \nde novo"_s << u"< Natal >"_s;
    QTest::newRow("breaks only") << u"\r\n\n"_s << u"<>"_s;
}

void tst_text_box::pasted_text_ends_at_its_first_line_break()
{
    QFETCH(QString, pasted);
    QFETCH(QString, text);
    TextBox box;
    box.setText(u"<>"_s);
    box.setCursorPosition(1);
    QGuiApplication::clipboard()->setText(pasted);
    QTest::keySequence(&box, QKeySequence::Paste);
    QCOMPARE(box.text(), text);
    box.undo();
    QCOMPARE(box.text(), u"<>"_s);
}

void tst_text_box::the_menu_pastes_one_line_too()
{
    TextBox box;
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QGuiApplication::clipboard()->setText(u"Natal\r\nPaz"_s);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, box.rect().center(),
                            box.mapToGlobal(box.rect().center()));
    QCoreApplication::sendEvent(&box, &asked);
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    const auto entries = menu->actions();
    for (QAction* entry : entries) {
        if (entry->text().startsWith(u"&Paste"))
            entry->trigger();
    }
    menu->close();
    QCOMPARE(box.text(), u"Natal"_s);
}

void tst_text_box::dropped_text_ends_at_its_first_line_break()
{
    TextBox box;
    QMimeData dragged;
    dragged.setText(u"\nNatal\nPaz"_s);
    QDragEnterEvent enter({2, 2}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &drop);
    QCOMPARE(box.text(), u"Natal"_s);
    QVERIFY(drop.isAccepted());
}

void tst_text_box::the_address_of_a_file_is_no_text()
{
    TextBox box;
    auto* copied = new QMimeData; // the clipboard owns it
    copied->setUrls({QUrl(u"file:///tmp/a.txt"_s)});
    QGuiApplication::clipboard()->setMimeData(copied);
    QTest::keySequence(&box, QKeySequence::Paste);
    QCOMPARE(box.text(), QString());
}

void tst_text_box::line_breaks_set_by_code_stay()
{
    TextBox box;
    box.setText(u"um\r\ndois"_s);
    QTest::keyClick(&box, Qt::Key_End);
    QTest::keyClicks(&box, u"a"_s);
    QCOMPARE(box.text(), u"um\r\ndoisa"_s);
}

QTEST_MAIN(tst_text_box)
#include "tst_text_box.moc"
