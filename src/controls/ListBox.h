#pragma once

#include "controls/FocusTurn.h"
#include "store/ListControl.h"

#include <QListView>

class ItemModel;

/// A list box with a number beside each item. Indices count from 0, -1 means none; an index without
/// an item is error 381 (RuntimeError InvalidIndex).
///
/// The current item changes by the left button, by keys and by code, never because the focus
/// arrives, another item goes or the right button is used: an item that is removed while current
/// leaves the list without a current one.
class ListBox : public QListView, public ListControl
{
    Q_OBJECT
    Q_PROPERTY(Mode mode READ mode WRITE setMode)

public:
    enum Mode {
        SingleChoice,      ///< the current item is the selected one
        MultipleSelection, ///< each click turns the selection of one item over
        CheckBoxes,        ///< a check box per item; a click anywhere on the row turns it over
    };
    Q_ENUM(Mode)

    explicit ListBox(QWidget* parent = nullptr);

    Mode mode() const { return m_mode; }
    /// To be set before the list is filled.
    void setMode(Mode mode);

    void Clear() override;
    void AddItem(const QString& text) override;
    int NewIndex() const override;
    qint64 ItemData(int index) const override;
    void SetItemData(int index, qint64 number) override;
    int ListIndex() const override;
    void SetListIndex(int index) override;
    /// Checked, in a list with check boxes.
    bool Selected(int index) const override;
    /// Where there is a single choice, this makes the item the current one as SetListIndex does;
    /// elsewhere the current item stays and nothing is raised.
    void SetSelected(int index, bool selected) override;
    int ListCount() const override;
    int Style() const override;
    void BeginFill() override;
    void EndFill() override;

    QString Text(int index) const;
    void SetText(int index, const QString& text);
    /// Raises nothing.
    void RemoveItem(int index);

signals:
    /// The user chose an item (also the same again), turned one over, or code chose another one.
    void Click();
    void DblClick();
    /// Before the list looks at the key; a handler that accepts the event keeps it from the list.
    void KeyDown(QKeyEvent* event);
    /// The menu key of the keyboard stands for the right button.
    void MouseUp(Qt::MouseButton button);
    /// The focus moves within the form; a switch to another window and back tells nothing.
    void GotFocus();
    void LostFocus();

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    void MakeCurrent(int index);
    void TurnOver(int index);
    void ShowWholeText(const QPoint& position, const QPoint& onScreen);

    ItemModel* m_items;
    FocusTurn m_turn;
    Mode m_mode = SingleChoice;
    int m_pressed = -1;         ///< where the left button went down
    bool m_secondPress = false; ///< it was the second one of a double click on the current item
};
