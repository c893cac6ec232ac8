#include "controls/ComboBox.h"

#include "controls/ItemModel.h"
#include "controls/LongTexts.h"

#include <QKeyEvent>
#include <QListView>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int RowsInPopup = 16;
constexpr int ShortestText = 6; // characters

} // namespace

ComboBox::ComboBox(QWidget* parent)
    : QComboBox(parent)
    , m_items(new ItemModel(this))
{
    // The popup that looks like a menu measures every entry, and so does fitting the box to its
    // contents: half a second at 20,000.
    setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }"));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(ShortestText);
    setMaxVisibleItems(RowsInPopup);
    auto* list = new QListView(this);
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setView(list);
    setItemDelegate(new LongTexts::Delegate(this));
    setModel(m_items);

    // A choice of another item is told by the first, a choice of the same one by the second only.
    connect(this, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (m_filling)
            return;
        m_told = true;
        if (index >= 0)
            emit Click();
    });
    connect(this, &QComboBox::activated, this, [this] {
        if (!std::exchange(m_told, false))
            emit Click();
    });
}

void ComboBox::ChangeItems(const std::function<void()>& change)
{
    // Left alone, the box chooses the first item that comes into it.
    const bool outer = std::exchange(m_filling, true);
    const int before = currentIndex();
    change();
    if (before < 0 && currentIndex() >= 0)
        setCurrentIndex(-1);
    m_filling = outer;
}

void ComboBox::Clear()
{
    ChangeItems([this] {
        m_items->Clear();
        setCurrentIndex(-1);
    });
}

void ComboBox::AddItem(const QString& text)
{
    ChangeItems([&] { m_items->Append(text); });
}

int ComboBox::NewIndex() const
{
    return m_items->NewIndex();
}

qint64 ComboBox::ItemData(int index) const
{
    return m_items->Data(index);
}

void ComboBox::SetItemData(int index, qint64 number)
{
    m_items->SetData(index, number);
}

int ComboBox::ListIndex() const
{
    return currentIndex();
}

void ComboBox::SetListIndex(int index)
{
    if (index != -1)
        m_items->Require(index);
    ChangeItems([this] { m_items->Flush(); });
    // While the list is open, or from inside a choice: what code chooses is no part of it.
    const bool told = m_told;
    setCurrentIndex(index);
    m_told = told;
}

bool ComboBox::Selected(int index) const
{
    m_items->Require(index);
    return index == currentIndex();
}

void ComboBox::SetSelected(int index, bool selected)
{
    m_items->Require(index);
    if (selected)
        SetListIndex(index);
    else if (index == currentIndex())
        SetListIndex(-1);
}

int ComboBox::ListCount() const
{
    return m_items->Count();
}

int ComboBox::Style() const
{
    return isEditable() ? EditableCombo : DropDownList;
}

void ComboBox::BeginFill()
{
    m_items->BeginFill();
}

void ComboBox::EndFill()
{
    ChangeItems([this] { m_items->EndFill(); });
}

QString ComboBox::Text(int index) const
{
    return m_items->Text(index);
}

/// What has no room in the box ends in an ellipsis instead of half a letter.
void ComboBox::initStyleOption(QStyleOptionComboBox* option) const
{
    QComboBox::initStyleOption(option);
    constexpr int Margin = 2; // pixels that styles leave beside the text
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    option->currentText =
        fontMetrics().elidedText(LongTexts::Beginning(option->currentText), Qt::ElideRight,
                                 std::max(field.width() - Margin, 0));
}

void ComboBox::showPopup()
{
    m_told = false;
    QComboBox::showPopup();
}

void ComboBox::keyPressEvent(QKeyEvent* event)
{
    m_told = false;
    QComboBox::keyPressEvent(event);
}

void ComboBox::wheelEvent(QWheelEvent* event)
{
    // Scrolling what lies around the box must not choose something in it by accident.
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_told = false;
    QComboBox::wheelEvent(event);
}
