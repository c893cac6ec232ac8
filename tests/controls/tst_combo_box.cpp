#include "controls/ComboBox.h"

#include "runtime/RuntimeError.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QSignalSpy>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QWheelEvent>

#include <functional>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

class tst_combo_box : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void adding_and_clearing_choose_and_raise_nothing();
    void choosing_by_code_raises_once_and_only_a_change();
    void a_bad_index_is_error_381();
    void the_user_chooses_from_the_list();
    void choosing_the_same_item_again_raises();
    void choosing_by_key_raises_once();
    void a_choice_after_one_by_code_raises();
    void a_choice_by_code_while_the_list_is_open_hides_no_choice();
    void a_handler_that_chooses_another_item_is_called_once_for_the_users();
    void the_wheel_over_a_box_without_focus_chooses_nothing();
    void choosing_inside_a_fill_raises_at_once();
    void a_handler_may_fill_the_box_anew();
    void it_is_a_drop_down_list_unless_editable();
    void items_carry_their_data_for_others();
    void a_text_without_room_is_cut_in_the_drawing_only();
    void twenty_thousand_entries_open_at_the_chosen_one();

private:
    void Fill(int count = 4);
    void ChooseInPopup(int row, const std::function<void()>& whileOpen = {});

    std::unique_ptr<ComboBox> m_box;
    std::unique_ptr<QSignalSpy> m_clicks;
};

void tst_combo_box::init()
{
    m_box = std::make_unique<ComboBox>();
    m_box->resize(220, 30);
    m_box->show();
    QVERIFY(QTest::qWaitForWindowActive(m_box.get()));
    m_clicks = std::make_unique<QSignalSpy>(m_box.get(), &ComboBox::Click);
}

void tst_combo_box::cleanup()
{
    m_clicks.reset();
    m_box.reset();
}

void tst_combo_box::Fill(int count)
{
    for (int i = 0; i < count; ++i) {
        m_box->AddItem(QString(QChar(u'A' + i % 26)) + QString::number(i));
        m_box->SetItemData(m_box->NewIndex(), 100 + i);
    }
}

void tst_combo_box::ChooseInPopup(int row, const std::function<void()>& whileOpen)
{
    QTest::mouseClick(m_box.get(), Qt::LeftButton);
    QAbstractItemView* list = m_box->view();
    QTRY_VERIFY(list->isVisible());
    // The release of the click that opened the popup must not be taken for a choice.
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    if (whileOpen)
        whileOpen();
    QTest::mouseMove(list->viewport(), list->visualRect(list->model()->index(row, 0)).center());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(row, 0)).center());
    QTRY_VERIFY(!list->isVisible());
}

void tst_combo_box::adding_and_clearing_choose_and_raise_nothing()
{
    Fill();
    QCOMPARE(m_box->ListIndex(), -1);
    QCOMPARE(m_box->ListCount(), 4);
    m_box->SetListIndex(3);
    m_clicks->clear();
    m_box->Clear();
    QCOMPARE(m_box->ListIndex(), -1);
    QCOMPARE(m_box->ListCount(), 0);
    QCOMPARE(m_box->currentText(), QString());
    Fill();
    QCOMPARE(m_box->ListIndex(), -1);
    QCOMPARE(m_clicks->size(), 0);
}

void tst_combo_box::choosing_by_code_raises_once_and_only_a_change()
{
    Fill();
    m_box->SetListIndex(2);
    m_box->SetListIndex(2);
    QCOMPARE(m_clicks->size(), 1);
    QCOMPARE(m_box->currentText(), u"C2"_s);
    m_box->SetListIndex(-1);
    QCOMPARE(m_clicks->size(), 1);
    QCOMPARE(m_box->ListIndex(), -1);
    m_box->SetSelected(1, true);
    QVERIFY(m_box->Selected(1));
    QCOMPARE(m_clicks->size(), 2);
    m_box->SetSelected(3, false);
    QCOMPARE(m_box->ListIndex(), 1);
    m_box->SetSelected(1, false);
    QCOMPARE(m_box->ListIndex(), -1);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_combo_box::a_bad_index_is_error_381()
{
    Fill();
    int errors = 0;
    for (const int index : {-2, 4}) {
        try {
            m_box->SetListIndex(index);
        } catch (const RuntimeError& error) {
            errors += error.Number() == 381;
        }
    }
    QCOMPARE(errors, 2);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, m_box->ItemData(-1));
}

void tst_combo_box::the_user_chooses_from_the_list()
{
    Fill();
    ChooseInPopup(2);
    QCOMPARE(m_box->ListIndex(), 2);
    QCOMPARE(m_clicks->size(), 1);
}

void tst_combo_box::choosing_the_same_item_again_raises()
{
    Fill();
    m_box->SetListIndex(2);
    m_clicks->clear();
    ChooseInPopup(2);
    QCOMPARE(m_clicks->size(), 1);
    ChooseInPopup(2);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_combo_box::choosing_by_key_raises_once()
{
    Fill();
    m_box->setFocus();
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QCOMPARE(m_box->ListIndex(), 0);
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QCOMPARE(m_clicks->size(), 2);
    QTest::keyClick(m_box.get(), Qt::Key_D);
    QCOMPARE(m_box->ListIndex(), 3);
    QCOMPARE(m_clicks->size(), 3);
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QCOMPARE(m_clicks->size(), 3);
}

void tst_combo_box::a_choice_after_one_by_code_raises()
{
    Fill();
    m_box->SetListIndex(0);
    QTest::keyClick(m_box.get(), Qt::Key_Down);
    QCOMPARE(m_clicks->size(), 2);
    m_box->SetListIndex(0);
    ChooseInPopup(0);
    QCOMPARE(m_clicks->size(), 4);
}

void tst_combo_box::a_choice_by_code_while_the_list_is_open_hides_no_choice()
{
    Fill();
    m_box->SetListIndex(0);
    ChooseInPopup(1, [this] { m_box->SetListIndex(1); });
    QCOMPARE(m_box->ListIndex(), 1);
    QCOMPARE(m_clicks->size(), 3);
    ChooseInPopup(3, [this] { m_box->SetListIndex(2); });
    QCOMPARE(m_box->ListIndex(), 3);
    QCOMPARE(m_clicks->size(), 5);
}

void tst_combo_box::a_handler_that_chooses_another_item_is_called_once_for_the_users()
{
    Fill();
    connect(m_box.get(), &ComboBox::Click, m_box.get(), [this] {
        if (m_box->ListIndex() == 2)
            m_box->SetListIndex(3);
    });
    ChooseInPopup(2);
    QCOMPARE(m_box->ListIndex(), 3);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_combo_box::the_wheel_over_a_box_without_focus_chooses_nothing()
{
    Fill();
    m_box->SetListIndex(1);
    m_box->clearFocus();
    QWheelEvent wheel(QPointF(5, 5), m_box->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_box.get(), &wheel);
    QCOMPARE(m_box->ListIndex(), 1);
    m_box->setFocus();
    QApplication::sendEvent(m_box.get(), &wheel);
    QCOMPARE(m_box->ListIndex(), 2);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_combo_box::choosing_inside_a_fill_raises_at_once()
{
    m_box->BeginFill();
    m_box->AddItem(u"TODAS"_s);
    m_box->SetListIndex(0);
    m_box->AddItem(u"Louvor"_s);
    m_box->SetListIndex(m_box->NewIndex());
    QCOMPARE(m_clicks->size(), 2);
    m_box->AddItem(u"Natal"_s);
    m_box->EndFill();
    QCOMPARE(m_box->ListIndex(), 1);
    QCOMPARE(m_box->count(), 3);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_combo_box::a_handler_may_fill_the_box_anew()
{
    Fill();
    bool once = true;
    connect(m_box.get(), &ComboBox::Click, m_box.get(), [&] {
        if (!std::exchange(once, false))
            return;
        m_box->Clear();
        Fill(2);
        m_box->SetListIndex(1);
    });
    m_box->SetListIndex(3);
    QCOMPARE(m_box->ListIndex(), 1);
    QCOMPARE(m_box->ListCount(), 2);
    QCOMPARE(m_clicks->size(), 2);
}

void tst_combo_box::it_is_a_drop_down_list_unless_editable()
{
    QCOMPARE(m_box->Style(), ListControl::DropDownList);
    m_box->setEditable(true);
    QCOMPARE(m_box->Style(), ListControl::EditableCombo);
}

void tst_combo_box::items_carry_their_data_for_others()
{
    Fill();
    QCOMPARE(m_box->itemText(1), u"B1"_s);
    QCOMPARE(m_box->itemData(1).toLongLong(), 101);
    QCOMPARE(m_box->ItemData(1), 101);
}

void tst_combo_box::a_text_without_room_is_cut_in_the_drawing_only()
{
    struct : ComboBox
    {
        using ComboBox::initStyleOption;
    } box;
    box.resize(120, 30);
    const QString title(200, u'W');
    box.AddItem(title);
    box.AddItem(u"Luar"_s);
    box.SetListIndex(0);
    QStyleOptionComboBox option;
    box.initStyleOption(&option);
    QVERIFY(option.currentText.endsWith(u'…'));
    QVERIFY(box.fontMetrics().horizontalAdvance(option.currentText) < 120);
    QCOMPARE(box.currentText(), title);
    box.SetListIndex(1);
    box.initStyleOption(&option);
    QCOMPARE(option.currentText, u"Luar"_s);
}

void tst_combo_box::twenty_thousand_entries_open_at_the_chosen_one()
{
    m_box->BeginFill();
    Fill(20'000);
    m_box->EndFill();
    m_box->SetListIndex(15'000);
    m_box->showPopup();
    m_box->view()->window()->grab();
    QVERIFY(m_box->view()->viewport()->rect().intersects(
        m_box->view()->visualRect(m_box->model()->index(15'000, 0))));
    QVERIFY(m_box->view()->window()->height() < 700);
}

QTEST_MAIN(tst_combo_box)
#include "tst_combo_box.moc"
