#include "controls/ListBox.h"

#include "controls/ItemModel.h"
#include "controls/LongTexts.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextDocument>
#include <QToolTip>

#include <utility>

ListBox::ListBox(QWidget* parent)
    : QListView(parent)
    , m_items(new ItemModel(this))
{
    setModel(m_items);
    setItemDelegate(new LongTexts::Delegate(this));
    setUniformItemSizes(true); // else every row is measured, and there may be 20,000
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setMode(SingleChoice);
    m_turn.Follow(*this, [this] { emit LostFocus(); });
}

void ListBox::setMode(Mode mode)
{
    m_mode = mode;
    setSelectionMode(mode == MultipleSelection ? MultiSelection : SingleSelection);
    m_items->SetCheckable(mode == CheckBoxes);
}

void ListBox::Clear()
{
    m_items->Clear();
}

void ListBox::AddItem(const QString& text)
{
    m_items->Append(text);
}

int ListBox::NewIndex() const
{
    return m_items->NewIndex();
}

qint64 ListBox::ItemData(int index) const
{
    return m_items->Data(index);
}

void ListBox::SetItemData(int index, qint64 number)
{
    m_items->SetData(index, number);
}

int ListBox::ListIndex() const
{
    return currentIndex().row();
}

void ListBox::SetListIndex(int index)
{
    if (index != -1)
        m_items->Require(index);
    if (index == ListIndex())
        return;
    MakeCurrent(index);
    if (index >= 0)
        emit Click();
}

bool ListBox::Selected(int index) const
{
    m_items->Require(index);
    if (m_mode == CheckBoxes)
        return m_items->Checked(index);
    return selectionModel()->isSelected(m_items->index(index));
}

void ListBox::SetSelected(int index, bool selected)
{
    m_items->Require(index);
    m_items->Flush();
    if (m_mode == CheckBoxes)
        m_items->SetChecked(index, selected);
    else if (m_mode == MultipleSelection)
        selectionModel()->select(m_items->index(index), selected ? QItemSelectionModel::Select
                                                                 : QItemSelectionModel::Deselect);
    else if (selected)
        SetListIndex(index);
    else if (index == ListIndex())
        SetListIndex(-1);
}

int ListBox::ListCount() const
{
    return m_items->Count();
}

int ListBox::Style() const
{
    return DropDownList; // whatever is not editable is filled alike
}

void ListBox::BeginFill()
{
    m_items->BeginFill();
}

void ListBox::EndFill()
{
    m_items->EndFill();
}

QString ListBox::Text(int index) const
{
    return m_items->Text(index);
}

void ListBox::SetText(int index, const QString& text)
{
    m_items->SetText(index, text);
}

void ListBox::RemoveItem(int index)
{
    m_items->Require(index);
    // The view would move its current item on to a neighbour, and tell.
    if (index == ListIndex())
        MakeCurrent(-1);
    m_items->Remove(index);
}

void ListBox::MakeCurrent(int index)
{
    m_items->Flush();
    const auto command =
        m_mode == MultipleSelection
            ? QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate)
            : QItemSelectionModel::SelectionFlags(QItemSelectionModel::ClearAndSelect);
    const QModelIndex current = index < 0 ? QModelIndex() : m_items->index(index);
    if (!current.isValid() && m_mode != MultipleSelection)
        clearSelection();
    selectionModel()->setCurrentIndex(current, command);
}

void ListBox::TurnOver(int index)
{
    m_items->SetChecked(index, !m_items->Checked(index));
    emit Click();
}

bool ListBox::event(QEvent* event)
{
    const bool done = QListView::event(event);
    // Forms fill their lists before they are shown; until now rows had the height of another style.
    if (event->type() == QEvent::Polish)
        scheduleDelayedItemsLayout();
    return done;
}

void ListBox::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->accept();
        return;
    }
    m_secondPress = false;
    m_pressed = indexAt(event->position().toPoint()).row();
    QListView::mousePressEvent(event);
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->accept();
        return;
    }
    // Somebody who clicks fast turns an item over twice, as with two slow clicks.
    QMouseEvent press(QEvent::MouseButtonPress, event->position(), event->globalPosition(),
                      event->button(), event->buttons(), event->modifiers());
    const int before = ListIndex();
    mousePressEvent(&press);
    m_secondPress = ListIndex() == before; // the first press may have met the row next to it
    if (m_pressed >= 0)
        emit DblClick();
}

void ListBox::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        QListView::mouseReleaseEvent(event);
        const int pressed = std::exchange(m_pressed, -1);
        if (pressed >= 0 && m_mode == CheckBoxes) {
            if (indexAt(event->position().toPoint()).row() == pressed)
                TurnOver(pressed);
        } else if (pressed >= 0 && (m_mode == MultipleSelection || !m_secondPress)) {
            emit Click();
        }
    }
    emit MouseUp(event->button());
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
    emit KeyDown(event);
    if (event->isAccepted())
        return;
    event->accept();

    if (m_mode == CheckBoxes && event->key() == Qt::Key_Space) {
        if (ListIndex() >= 0)
            TurnOver(ListIndex());
        return;
    }
    const int before = ListIndex();
    bool turnedOver = false;
    const auto watch = connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
                               [&turnedOver] { turnedOver = true; });
    QListView::keyPressEvent(event);
    disconnect(watch);
    if (m_mode == MultipleSelection ? turnedOver : m_mode == SingleChoice && ListIndex() != before)
        emit Click();
}

void ListBox::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard) {
        QListView::contextMenuEvent(event);
        return;
    }
    event->accept();
    emit MouseUp(Qt::RightButton);
}

void ListBox::focusInEvent(QFocusEvent* event)
{
    // Not QListView's: it makes the first item current when there is none.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    if (m_turn.In())
        emit GotFocus();
}

void ListBox::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    if (m_turn.Out(*event))
        emit LostFocus();
}

bool ListBox::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowWholeText(help->pos(), help->globalPos());
    return true;
}

void ListBox::ShowWholeText(const QPoint& position, const QPoint& onScreen)
{
    const QModelIndex index = indexAt(position);
    const int needed = index.isValid() ? sizeHintForIndex(index).width() : 0;
    if (needed <= viewport()->width()) {
        QToolTip::hideText();
        return;
    }
    const QString text = LongTexts::Beginning(m_items->Text(index.row()));
    QToolTip::showText(onScreen, Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text,
                       viewport(), visualRect(index));
}

bool ListBox::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    // Left alone, the delegate would turn a check box over a second time.
    return m_mode != CheckBoxes && QListView::edit(index, trigger, event);
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const
{
    if (m_mode != MultipleSelection)
        return index.isValid() ? QItemSelectionModel::ClearAndSelect
                               : QItemSelectionModel::NoUpdate;
    // Typing the first letters of an item looks for it, no more.
    return event ? QListView::selectionCommand(index, event)
                 : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
}
