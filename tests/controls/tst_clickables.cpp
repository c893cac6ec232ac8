#include "controls/ClickableLabel.h"
#include "controls/ImageButton.h"

#include <QAccessible>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_clickables : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void a_label_is_clicked_by_the_left_button_only();
    void a_press_that_leaves_the_label_is_no_click();
    void a_label_is_reached_by_keys_only_when_asked();
    void a_label_that_keys_reach_is_drawn_like_any_other();
    void a_label_shows_markup_as_typed();
    void a_disabled_label_reacts_to_nothing();
    void a_picture_is_clicked();
    void an_inert_picture_takes_clicks_and_does_nothing();
    void a_picture_takes_no_focus_unless_asked();
    void a_picture_is_named_after_its_tool_tip();
    void a_picture_keeps_its_proportions();
    void a_disabled_picture_looks_faded();
    void a_picture_is_sharp_at_any_scale();

private:
    QString m_image;
    QTemporaryDir m_folder;
};

void tst_clickables::initTestCase()
{
    // Left half black, right half empty: the edge between them shows how sharp it is drawn.
    m_image = m_folder.filePath(u"meio.svg"_s);
    QFile file(m_image);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<svg xmlns='http://www.w3.org/2000/svg' width='24' height='24' viewBox='0 0 24 24'>"
               "<rect x='0' y='0' width='12' height='24' fill='#000000'/></svg>");
}

void tst_clickables::a_label_is_clicked_by_the_left_button_only()
{
    ClickableLabel label(u"Tudo"_s);
    label.resize(60, 20);
    QSignalSpy clicks(&label, &ClickableLabel::clicked);
    QTest::mouseClick(&label, Qt::RightButton);
    QCOMPARE(clicks.size(), 0);
    QTest::mouseClick(&label, Qt::LeftButton);
    QCOMPARE(clicks.size(), 1);
    QCOMPARE(label.cursor().shape(), Qt::PointingHandCursor);
}

void tst_clickables::a_press_that_leaves_the_label_is_no_click()
{
    ClickableLabel label(u"Tudo"_s);
    label.resize(60, 20);
    QSignalSpy clicks(&label, &ClickableLabel::clicked);
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(200, 5));
    QCOMPARE(clicks.size(), 0);
}

void tst_clickables::a_label_is_reached_by_keys_only_when_asked()
{
    ClickableLabel label(u"Tudo"_s);
    QSignalSpy clicks(&label, &ClickableLabel::clicked);
    QCOMPARE(label.focusPolicy(), Qt::NoFocus);
    QTest::keyClick(&label, Qt::Key_Space);
    QCOMPARE(clicks.size(), 0);
    label.setKeyboardReachable(true);
    QCOMPARE(label.focusPolicy(), Qt::TabFocus);
    QTest::keyClick(&label, Qt::Key_Space);
    QTest::keyClick(&label, Qt::Key_Return);
    QCOMPARE(clicks.size(), 2);
}

void tst_clickables::a_label_that_keys_reach_is_drawn_like_any_other()
{
    QWidget form;
    auto* plain = new QLabel(u"Letra"_s, &form);
    auto* label = new ClickableLabel(u"Letra"_s, &form);
    label->setKeyboardReachable(true);
    form.resize(200, 60);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    QCOMPARE(label->sizeHint(), plain->sizeHint());
    plain->setGeometry(0, 0, 100, 40);
    label->setGeometry(100, 0, 100, 40);
    QCOMPARE(label->focusPolicy(), Qt::TabFocus);
    label->clearFocus(); // it is the only one that takes it
    QCOMPARE(label->grab().toImage(), plain->grab().toImage());
    // The focus adds its frame and goes without a trace.
    label->setFocus();
    QVERIFY(label->hasFocus());
    QVERIFY(label->grab().toImage() != plain->grab().toImage());
    label->clearFocus();
    QCOMPARE(label->grab().toImage(), plain->grab().toImage());
}

void tst_clickables::a_label_shows_markup_as_typed()
{
    ClickableLabel label(u"<b>x</b>"_s);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), u"<b>x</b>"_s);
}

void tst_clickables::a_disabled_label_reacts_to_nothing()
{
    ClickableLabel label(u"v.2"_s);
    QSignalSpy clicks(&label, &ClickableLabel::clicked);
    label.setEnabled(false);
    QTest::mouseClick(&label, Qt::LeftButton);
    QCOMPARE(clicks.size(), 0);
    QCOMPARE(label.cursor().shape(), Qt::ArrowCursor);
}

void tst_clickables::a_picture_is_clicked()
{
    ImageButton button;
    button.setImage(m_image);
    button.resize(24, 24);
    QCOMPARE(button.sizeHint(), QSize(24, 24));
    QSignalSpy clicks(&button, &ImageButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks.size(), 1);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(clicks.size(), 2);
}

void tst_clickables::an_inert_picture_takes_clicks_and_does_nothing()
{
    QWidget form;
    ImageButton below(&form);
    ImageButton twin(&form);
    for (ImageButton* button : {&below, &twin}) {
        button->setImage(m_image);
        button->setGeometry(0, 0, 24, 24);
    }
    twin.setInert(true);
    form.resize(50, 50);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QSignalSpy clicks(&twin, &ImageButton::clicked);
    QSignalSpy through(&below, &ImageButton::clicked);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(clicks.size(), 0);
    QCOMPARE(through.size(), 0);
    twin.setInert(false);
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(clicks.size(), 1);
}

void tst_clickables::a_picture_takes_no_focus_unless_asked()
{
    ImageButton button;
    button.setImage(m_image);
    QCOMPARE(button.focusPolicy(), Qt::NoFocus);
    button.setKeyboardReachable(true);
    QCOMPARE(button.focusPolicy(), Qt::TabFocus);
    QSignalSpy clicks(&button, &ImageButton::clicked);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Enter);
    QCOMPARE(clicks.size(), 2);
}

void tst_clickables::a_picture_is_named_after_its_tool_tip()
{
    ImageButton button;
    button.setToolTip(u"Fechar"_s);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(accessible->text(QAccessible::Name), u"Fechar"_s);
    QCOMPARE(accessible->role(), QAccessible::Button);
}

void tst_clickables::a_picture_keeps_its_proportions()
{
    ImageButton button;
    button.setImage(m_image);
    button.resize(48, 24);
    const QImage drawn = button.grab().toImage();
    QCOMPARE(drawn.pixelColor(2, 12), drawn.pixelColor(46, 12));
    QCOMPARE(drawn.pixelColor(15, 12), QColor(Qt::black));
    QVERIFY(drawn.pixelColor(30, 12) != QColor(Qt::black));
}

void tst_clickables::a_disabled_picture_looks_faded()
{
    ImageButton button;
    button.setImage(m_image);
    button.resize(24, 24);
    button.setEnabled(false);
    QVERIFY(button.grab().toImage().pixelColor(3, 12).lightness() > 100);
    button.setEnabled(true);
    QCOMPARE(button.grab().toImage().pixelColor(3, 12), QColor(Qt::black));
}

void tst_clickables::a_picture_is_sharp_at_any_scale()
{
    ImageButton button;
    button.setImage(m_image);
    button.resize(24, 24);
    QImage twice(48, 48, QImage::Format_ARGB32_Premultiplied);
    twice.setDevicePixelRatio(2);
    twice.fill(Qt::white);
    button.resize(24, 24);
    button.render(&twice);
    QCOMPARE(twice.pixelColor(22, 20), QColor(Qt::black));
    QVERIFY(twice.pixelColor(25, 20).lightness() > 200);
}

QTEST_MAIN(tst_clickables)
#include "tst_clickables.moc"
