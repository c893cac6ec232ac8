#pragma once

#include <QString>

/// What the fillers know of a list: any list box or combo box of the forms offers it.
/// Indices count from 0; -1 means none.
class ListControl
{
public:
    /// Style() of an editable combo box, the one kind that stays empty when a query finds nothing.
    static constexpr int EditableCombo = 0;
    static constexpr int DropDownList = 2;

    virtual ~ListControl() = default;

    virtual void Clear() = 0;
    virtual void AddItem(const QString& text) = 0;
    /// @return the index of the item that was added last.
    virtual int NewIndex() const = 0;
    virtual qint64 ItemData(int index) const = 0;
    virtual void SetItemData(int index, qint64 data) = 0;
    virtual int ListIndex() const = 0;
    /// A new current item raises the list's click handler, once, and only when it changed.
    virtual void SetListIndex(int index) = 0;
    virtual bool Selected(int index) const = 0;
    virtual void SetSelected(int index, bool selected) = 0;
    virtual int ListCount() const = 0;
    virtual int Style() const = 0;

    /// Frame a fill: in between, a list may keep its view from looking at each added row.
    virtual void BeginFill() {}
    virtual void EndFill() {}
};
