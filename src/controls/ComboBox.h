#pragma once

#include "store/ListControl.h"

#include <QComboBox>

#include <functional>

class ItemModel;

/// A combo box with a number beside each item, a drop-down list unless made editable. It costs
/// nothing per entry until it is opened, and little then; a style sheet of the box's own must say
/// `combobox-popup: 0` for that. Indices count from 0, -1 means none; an index without an
/// item is error 381 (RuntimeError InvalidIndex).
class ComboBox : public QComboBox, public ListControl
{
    Q_OBJECT

public:
    explicit ComboBox(QWidget* parent = nullptr);

    void Clear() override;
    void AddItem(const QString& text) override;
    int NewIndex() const override;
    qint64 ItemData(int index) const override;
    void SetItemData(int index, qint64 number) override;
    int ListIndex() const override;
    void SetListIndex(int index) override;
    bool Selected(int index) const override;
    void SetSelected(int index, bool selected) override;
    int ListCount() const override;
    int Style() const override;
    void BeginFill() override;
    void EndFill() override;

    QString Text(int index) const;

    void showPopup() override;

signals:
    /// The user chose an item, also the same again, or code chose another one.
    void Click();

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void ChangeItems(const std::function<void()>& change);

    ItemModel* m_items;
    bool m_filling = false; ///< items come or go: what happens to the current one is our doing
    bool m_told = false;    ///< the user's present choice was raised already
};
