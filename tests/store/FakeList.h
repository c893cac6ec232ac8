#pragma once

#include "runtime/RuntimeError.h"
#include "store/ListControl.h"

#include <QStringList>

#include <functional>
#include <vector>

/// A list without a window. Its click handler runs as a form's would.
class FakeList : public ListControl
{
public:
    struct Item
    {
        QString text;
        qint64 data = 0;
        bool selected = false;
    };

    void Clear() override
    {
        items.clear();
        current = -1;
    }
    void AddItem(const QString& text) override { items.push_back({text, 0, false}); }
    int NewIndex() const override { return static_cast<int>(items.size()) - 1; }
    qint64 ItemData(int index) const override { return At(index).data; }
    void SetItemData(int index, qint64 data) override { At(index).data = data; }
    int ListIndex() const override { return current; }
    void SetListIndex(int index) override
    {
        if (std::exchange(current, index) != index && click)
            click();
    }
    bool Selected(int index) const override { return At(index).selected; }
    void SetSelected(int index, bool selected) override
    {
        if (index == refused)
            throw RuntimeError(RuntimeError::InvalidIndex, QString(), QString());
        At(index).selected = selected;
    }
    int ListCount() const override { return static_cast<int>(items.size()); }
    int Style() const override { return style; }
    void BeginFill() override { ++fills; }
    void EndFill() override { --fills; }

    QStringList Texts() const
    {
        QStringList texts;
        for (const Item& item : items)
            texts << item.text;
        return texts;
    }
    /// The identifiers, those of selected items in brackets.
    QString Ids() const
    {
        QStringList ids;
        for (const Item& item : items)
            ids << (item.selected ? u"[%1]"_qs : u"%1"_qs).arg(item.data);
        return ids.join(u' ');
    }

    std::vector<Item> items;
    int current = -1;
    int style = DropDownList;
    int refused = -1; ///< index that cannot be selected
    int fills = 0;    ///< begun and not ended
    std::function<void()> click;

private:
    Item& At(int index) { return items.at(static_cast<std::size_t>(index)); }
    const Item& At(int index) const { return items.at(static_cast<std::size_t>(index)); }
};
