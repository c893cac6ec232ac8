#include "controls/ListBox.h"

#include "runtime/RuntimeError.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

class tst_list_box : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clearing_and_adding_raise_nothing();
    void choosing_by_code_raises_once_and_only_a_change();
    void no_position_is_no_click();
    void a_click_raises_also_on_the_same_item();
    void a_click_beside_the_items_raises_nothing();
    void keys_choose_and_raise();
    void a_double_click_is_one_click_and_one_double_click();
    void a_double_click_that_ends_on_another_item_clicks_that_one();
    void the_right_button_changes_nothing();
    void arriving_focus_makes_no_current_item();
    void removing_the_current_item_leaves_none_and_raises_nothing();
    void removing_another_item_keeps_the_current_one();
    void removing_without_an_item_is_error_381();
    void selecting_in_a_single_choice_is_choosing();
    void multiple_selection_turns_over_by_click_and_space();
    void multiple_selection_by_code_raises_nothing();
    void looking_for_an_item_by_letters_selects_nothing();
    void a_click_anywhere_on_the_row_turns_a_check_over();
    void fast_clicks_turn_a_check_over_twice();
    void space_turns_the_current_check_over();
    void checks_survive_the_removal_of_another_item();
    void items_carry_text_data_and_check_state_for_others();
    void a_handler_may_keep_a_key_from_the_list();
    void choosing_inside_a_fill_raises_at_once();
    void rows_chosen_before_the_form_is_shown_get_the_height_of_its_style();
    void a_text_without_room_is_told_whole_by_its_tip();
    void twenty_thousand_items_are_shown_at_the_chosen_one();

private:
    void Fill(ListBox::Mode mode, int count = 4);
    void MouseOn(int row, Qt::MouseButton button = Qt::LeftButton);
    void DoubleClickOn(int row);
    QPoint CentreOf(int row) const;

    std::unique_ptr<QWidget> m_form;
    QLineEdit* m_before = nullptr;
    ListBox* m_list = nullptr;
    std::unique_ptr<QSignalSpy> m_clicks;
};

void tst_list_box::init()
{
    m_form = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_form.get());
    m_before = new QLineEdit;
    m_list = new ListBox;
    layout->addWidget(m_before);
    layout->addWidget(m_list);
    m_form->resize(300, 400);
    m_form->show();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    m_clicks = std::make_unique<QSignalSpy>(m_list, &ListBox::Click);
}

void tst_list_box::cleanup()
{
    m_clicks.reset();
    m_form.reset();
}

void tst_list_box::Fill(ListBox::Mode mode, int count)
{
    m_list->setMode(mode);
    for (int i = 0; i < count; ++i) {
        m_list->AddItem(QString(QChar(u'A' + i % 26)) + QString::number(i));
        m_list->SetItemData(m_list->NewIndex(), 100 + i);
    }
}

QPoint tst_list_box::CentreOf(int row) const
{
    return m_list->visualRect(m_list->model()->index(row, 0)).center();
}

void tst_list_box::MouseOn(int row, Qt::MouseButton button)
{
    QTest::mouseClick(m_list->viewport(), button, {}, CentreOf(row));
}

void tst_list_box::DoubleClickOn(int row)
{
    MouseOn(row);
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, CentreOf(row));
    QTest::mouseRelease(m_list->viewport(), Qt::LeftButton, {}, CentreOf(row));
}

void tst_list_box::clearing_and_adding_raise_nothing()
{
    Fill(ListBox::SingleChoice);
    QCOMPARE(m_list->ListIndex(), -1);
    m_list->SetListIndex(2);
    m_clicks->clear();
    m_list->Clear();
    QCOMPARE(m_list->ListCount(), 0);
    QCOMPARE(m_list->ListIndex(), -1);
    m_list->AddItem(u"x"_s);
    QCOMPARE(m_list->ListIndex(), -1);
    QCOMPARE(m_clicks->size(), 0);
}

void tst_list_box::choosing_by_code_raises_once_and_only_a_change()
{
    Fill(ListBox::SingleChoice);
    int atClick = -2;
    connect(m_list, &ListBox::Click, m_list, [&] { atClick = m_list->ListIndex(); });
    m_list->SetListIndex(2);
    QCOMPARE(m_clicks->size(), 1);
    QCOMPARE(atClick, 2);
    QVERIFY(m_list->Selected(2));
    m_list->SetListIndex(2);
    QCOMPARE(m_clicks->size(), 1);
}

void tst_list_box::no_position_is_no_click()
{
    Fill(ListBox::SingleChoice);
    m_list->SetListIndex(2);
    m_list->SetListIndex(-1);
    QCOMPARE(m_clicks->size(), 1);
    QCOMPARE(m_list->ListIndex(), -1);
    QVERIFY(!m_list->Selected(2));
}

void tst_list_box::a_click_raises_also_on_the_same_item()
{
    Fill(ListBox::SingleChoice);
    MouseOn(1);
    QCOMPARE(m_list->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 1);
    MouseOn(1);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_list_box::a_click_beside_the_items_raises_nothing()
{
    Fill(ListBox::SingleChoice, 1);
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, QPoint(50, 200));
    QCOMPARE(m_clicks->size(), 0);
    QCOMPARE(m_list->ListIndex(), -1);
}

void tst_list_box::keys_choose_and_raise()
{
    Fill(ListBox::SingleChoice);
    m_list->setFocus();
    QTest::keyClick(m_list, Qt::Key_Down);
    QCOMPARE(m_list->ListIndex(), 0);
    QTest::keyClick(m_list, Qt::Key_End);
    QCOMPARE(m_list->ListIndex(), 3);
    QVERIFY(m_list->Selected(3));
    QVERIFY(!m_list->Selected(0));
    QTest::keyClick(m_list, Qt::Key_Down);
    QCOMPARE(m_clicks->size(), 2);
    QTest::keyClick(m_list, Qt::Key_B);
    QCOMPARE(m_list->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 3);
}

void tst_list_box::a_double_click_is_one_click_and_one_double_click()
{
    Fill(ListBox::SingleChoice);
    QSignalSpy doubles(m_list, &ListBox::DblClick);
    DoubleClickOn(2);
    QCOMPARE(m_list->ListIndex(), 2);
    QCOMPARE(m_clicks->size(), 1);
    QCOMPARE(doubles.size(), 1);
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, QPoint(50, 250));
    QCOMPARE(doubles.size(), 1);
}

void tst_list_box::a_double_click_that_ends_on_another_item_clicks_that_one()
{
    Fill(ListBox::SingleChoice);
    QList<int> told;
    connect(m_list, &ListBox::Click, m_list, [&] { told.append(m_list->ListIndex()); });
    MouseOn(1);
    QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, CentreOf(2));
    QTest::mouseRelease(m_list->viewport(), Qt::LeftButton, {}, CentreOf(2));
    QCOMPARE(m_list->ListIndex(), 2);
    QCOMPARE(told, QList<int>({1, 2}));
}

void tst_list_box::the_right_button_changes_nothing()
{
    Fill(ListBox::CheckBoxes);
    QSignalSpy released(m_list, &ListBox::MouseUp);
    MouseOn(1, Qt::RightButton);
    QCOMPARE(m_list->ListIndex(), -1);
    QVERIFY(!m_list->Selected(1));
    QCOMPARE(m_clicks->size(), 0);
    QCOMPARE(released.size(), 1);
    QCOMPARE(released[0][0].value<Qt::MouseButton>(), Qt::RightButton);
}

void tst_list_box::arriving_focus_makes_no_current_item()
{
    Fill(ListBox::SingleChoice);
    QSignalSpy got(m_list, &ListBox::GotFocus);
    m_before->setFocus();
    QTest::keyClick(m_before, Qt::Key_Tab);
    QVERIFY(m_list->hasFocus());
    QCOMPARE(got.size(), 1);
    QCOMPARE(m_list->ListIndex(), -1);
    QCOMPARE(m_clicks->size(), 0);
}

void tst_list_box::removing_the_current_item_leaves_none_and_raises_nothing()
{
    Fill(ListBox::SingleChoice);
    m_list->SetListIndex(1);
    m_clicks->clear();
    m_list->RemoveItem(1);
    QCOMPARE(m_list->ListIndex(), -1);
    QCOMPARE(m_list->ListCount(), 3);
    QCOMPARE(m_list->Text(1), u"C2"_s);
    QCOMPARE(m_clicks->size(), 0);
    for (int i = 0; i < 3; ++i)
        QVERIFY(!m_list->Selected(i));

    // The position set afterwards is what counts as a click.
    m_list->SetListIndex(1);
    QCOMPARE(m_clicks->size(), 1);
}

void tst_list_box::removing_another_item_keeps_the_current_one()
{
    Fill(ListBox::SingleChoice);
    m_list->SetListIndex(2);
    m_clicks->clear();
    m_list->RemoveItem(0);
    QCOMPARE(m_list->ListIndex(), 1);
    QVERIFY(m_list->Selected(1));
    QCOMPARE(m_list->ItemData(1), 102);
    QCOMPARE(m_clicks->size(), 0);
}

void tst_list_box::removing_without_an_item_is_error_381()
{
    Fill(ListBox::SingleChoice);
    for (const int index : {-1, 4}) {
        int number = 0;
        try {
            m_list->RemoveItem(index);
        } catch (const RuntimeError& error) {
            number = error.Number();
        }
        QCOMPARE(number, 381);
    }
    QCOMPARE(m_list->ListCount(), 4);
}

void tst_list_box::selecting_in_a_single_choice_is_choosing()
{
    Fill(ListBox::SingleChoice);
    m_list->SetSelected(1, true);
    QCOMPARE(m_list->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 1);
    m_list->SetSelected(3, false);
    QCOMPARE(m_list->ListIndex(), 1);
    m_list->SetSelected(1, false);
    QCOMPARE(m_list->ListIndex(), -1);
    QCOMPARE(m_clicks->size(), 1);
}

void tst_list_box::multiple_selection_turns_over_by_click_and_space()
{
    Fill(ListBox::MultipleSelection);
    MouseOn(0);
    MouseOn(2);
    QCOMPARE(m_clicks->size(), 2);
    QVERIFY(m_list->Selected(0) && !m_list->Selected(1) && m_list->Selected(2));
    MouseOn(0);
    QVERIFY(!m_list->Selected(0));
    QCOMPARE(m_clicks->size(), 3);

    // Walking with the arrows chooses nothing yet.
    QTest::keyClick(m_list, Qt::Key_Down);
    QCOMPARE(m_list->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 3);
    QTest::keyClick(m_list, Qt::Key_Space);
    QVERIFY(m_list->Selected(1) && m_list->Selected(2));
    QCOMPARE(m_clicks->size(), 4);
}

void tst_list_box::multiple_selection_by_code_raises_nothing()
{
    Fill(ListBox::MultipleSelection);
    m_list->SetSelected(1, true);
    m_list->SetSelected(3, true);
    m_list->SetSelected(1, false);
    QVERIFY(!m_list->Selected(1) && m_list->Selected(3));
    QCOMPARE(m_list->ListIndex(), -1);
    QCOMPARE(m_clicks->size(), 0);
}

void tst_list_box::looking_for_an_item_by_letters_selects_nothing()
{
    Fill(ListBox::MultipleSelection);
    m_list->setFocus();
    QTest::keyClick(m_list, Qt::Key_C);
    QCOMPARE(m_list->ListIndex(), 2);
    for (int i = 0; i < 4; ++i)
        QVERIFY(!m_list->Selected(i));
    QCOMPARE(m_clicks->size(), 0);
}

void tst_list_box::a_click_anywhere_on_the_row_turns_a_check_over()
{
    Fill(ListBox::CheckBoxes);
    MouseOn(1);
    QVERIFY(m_list->Selected(1));
    QCOMPARE(m_list->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 1);

    // On the box itself once, not twice.
    const QRect row = m_list->visualRect(m_list->model()->index(2, 0));
    QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 10, row.center().y()));
    QVERIFY(m_list->Selected(2));
    QCOMPARE(m_clicks->size(), 2);
    QTest::qWait(QApplication::doubleClickInterval() + 20);
    MouseOn(1);
    QVERIFY(!m_list->Selected(1));
}

void tst_list_box::fast_clicks_turn_a_check_over_twice()
{
    Fill(ListBox::CheckBoxes);
    DoubleClickOn(1);
    QVERIFY(!m_list->Selected(1));
    QCOMPARE(m_clicks->size(), 2);
}

void tst_list_box::space_turns_the_current_check_over()
{
    Fill(ListBox::CheckBoxes);
    m_list->setFocus();
    QTest::keyClick(m_list, Qt::Key_Space);
    QCOMPARE(m_clicks->size(), 0);
    QTest::keyClick(m_list, Qt::Key_Down);
    QCOMPARE(m_clicks->size(), 0);
    QTest::keyClick(m_list, Qt::Key_Space);
    QVERIFY(m_list->Selected(0));
    QCOMPARE(m_clicks->size(), 1);
}

void tst_list_box::checks_survive_the_removal_of_another_item()
{
    Fill(ListBox::CheckBoxes);
    m_list->SetSelected(0, true);
    m_list->SetSelected(3, true);
    QCOMPARE(m_clicks->size(), 0);
    m_list->SetListIndex(1);
    m_list->RemoveItem(1);
    QCOMPARE(m_list->ListIndex(), -1);
    QVERIFY(m_list->Selected(0) && !m_list->Selected(1) && m_list->Selected(2));
}

void tst_list_box::items_carry_text_data_and_check_state_for_others()
{
    Fill(ListBox::CheckBoxes);
    m_list->SetSelected(1, true);
    m_list->SetText(1, u"<b>novo"_s);
    const QModelIndex item = m_list->model()->index(1, 0);
    QCOMPARE(item.data().toString(), u"<b>novo"_s);
    QCOMPARE(item.data(Qt::UserRole).toLongLong(), 101);
    QCOMPARE(item.data(Qt::CheckStateRole).toInt(), int{Qt::Checked});
}

void tst_list_box::a_handler_may_keep_a_key_from_the_list()
{
    Fill(ListBox::SingleChoice);
    m_list->SetListIndex(2);
    m_list->setFocus();
    QList<int> keys;
    connect(m_list, &ListBox::KeyDown, m_list, [&](QKeyEvent* event) {
        keys.append(event->key());
        if (event->modifiers() == Qt::ShiftModifier)
            event->accept();
    });
    QTest::keyClick(m_list, Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(m_list->ListIndex(), 2);
    QTest::keyClick(m_list, Qt::Key_Up);
    QCOMPARE(m_list->ListIndex(), 1);
    QVERIFY(keys.contains(int{Qt::Key_Up}));
    QCOMPARE(keys.count(int{Qt::Key_Up}), 2);
}

void tst_list_box::choosing_inside_a_fill_raises_at_once()
{
    m_list->BeginFill();
    m_list->AddItem(u"TODAS"_s);
    m_list->SetListIndex(0);
    m_list->AddItem(u"Louvor"_s);
    m_list->SetListIndex(m_list->NewIndex());
    QCOMPARE(m_clicks->size(), 2);
    QCOMPARE(m_list->ListIndex(), 1);
    m_list->EndFill();
    QCOMPARE(m_list->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_list_box::rows_chosen_before_the_form_is_shown_get_the_height_of_its_style()
{
    qApp->setStyleSheet(u"QListView::item { padding: 9px; }"_s);
    ListBox list;
    list.AddItem(u"a"_s);
    list.SetListIndex(0);
    list.visualRect(list.model()->index(0, 0));
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QTRY_COMPARE(list.visualRect(list.model()->index(0, 0)).height(), list.sizeHintForRow(0));
    QVERIFY(list.sizeHintForRow(0) > QFontMetrics(list.font()).height() + 17);
    qApp->setStyleSheet({});
}

void tst_list_box::a_text_without_room_is_told_whole_by_its_tip()
{
    Fill(ListBox::SingleChoice, 2);
    const QString whole = u"Uma <b>letra</b> "_s.repeated(20);
    m_list->AddItem(whole);
    const auto tip = [this](int row) {
        QHelpEvent help(QEvent::ToolTip, CentreOf(row),
                        m_list->viewport()->mapToGlobal(CentreOf(row)));
        QApplication::sendEvent(m_list->viewport(), &help);
        return QToolTip::text();
    };
    QCOMPARE(tip(0), QString());
    QTextDocument shown;
    shown.setHtml(tip(2));
    QCOMPARE(shown.toPlainText().simplified(), whole.simplified());
}

void tst_list_box::twenty_thousand_items_are_shown_at_the_chosen_one()
{
    m_list->BeginFill();
    Fill(ListBox::SingleChoice, 20'000);
    m_list->EndFill();
    m_list->SetListIndex(19'999);
    m_list->grab();
    QVERIFY(m_list->viewport()->rect().intersects(
        m_list->visualRect(m_list->model()->index(19'999, 0))));
}

QTEST_MAIN(tst_list_box)
#include "tst_list_box.moc"
