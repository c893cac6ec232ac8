#pragma once

#include <QAbstractListModel>
#include <QString>

#include <vector>

/// The items of a list or combo box: a text, a number beside it (Qt::UserRole) and, where asked
/// for, a check mark (Qt::CheckStateRole). Indices count from 0.
///
/// During a fill views do not learn of each item that comes in: they are told of all new ones at
/// once, at the fill's end or when something is done that needs them (selecting, removing).
class ItemModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void SetCheckable(bool checkable);

    void Clear();
    void Append(const QString& text);
    /// @return the index of the item that was added last; -1 when it is gone
    int NewIndex() const { return m_newIndex; }
    int Count() const { return static_cast<int>(m_items.size()); }

    // All of these: @throws RuntimeError InvalidIndex when there is no such item.
    const QString& Text(int index) const;
    void SetText(int index, const QString& text);
    qint64 Data(int index) const;
    void SetData(int index, qint64 data);
    bool Checked(int index) const;
    void SetChecked(int index, bool checked);
    void Remove(int index);
    void Require(int index) const;

    /// Fills nest; every BeginFill needs its EndFill.
    void BeginFill() { ++m_fills; }
    void EndFill();

    /// Tells the views of items that came in during the fill so far.
    void Flush();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Item
    {
        QString text;
        qint64 data = 0;
        bool checked = false;
    };

    Item& At(int index);
    const Item& At(int index) const;
    void Tell(int index, int role);

    std::vector<Item> m_items;
    int m_told = 0; ///< how many items the views know of
    int m_fills = 0;
    int m_newIndex = -1;
    bool m_checkable = false;
};
