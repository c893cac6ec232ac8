#include "controls/ItemModel.h"

#include "runtime/RuntimeError.h"

void ItemModel::SetCheckable(bool checkable)
{
    if (m_checkable == checkable)
        return;
    beginResetModel();
    m_checkable = checkable;
    endResetModel();
}

void ItemModel::Clear()
{
    m_newIndex = -1;
    if (m_items.empty())
        return;
    beginResetModel();
    m_items.clear();
    m_told = 0;
    endResetModel();
}

void ItemModel::Append(const QString& text)
{
    m_items.push_back({text});
    m_newIndex = Count() - 1;
    if (m_fills == 0)
        Flush();
}

const QString& ItemModel::Text(int index) const
{
    return At(index).text;
}

void ItemModel::SetText(int index, const QString& text)
{
    At(index).text = text;
    Tell(index, Qt::DisplayRole);
}

qint64 ItemModel::Data(int index) const
{
    return At(index).data;
}

void ItemModel::SetData(int index, qint64 data)
{
    At(index).data = data;
    Tell(index, Qt::UserRole);
}

bool ItemModel::Checked(int index) const
{
    return At(index).checked;
}

void ItemModel::SetChecked(int index, bool checked)
{
    if (At(index).checked == checked)
        return;
    At(index).checked = checked;
    Tell(index, Qt::CheckStateRole);
}

void ItemModel::Remove(int index)
{
    Require(index);
    Flush();
    beginRemoveRows({}, index, index);
    m_items.erase(m_items.begin() + index);
    --m_told;
    endRemoveRows();
    if (m_newIndex >= index)
        m_newIndex = m_newIndex == index ? -1 : m_newIndex - 1;
}

void ItemModel::Require(int index) const
{
    if (index < 0 || index >= Count())
        throw RuntimeError(RuntimeError::InvalidIndex,
                           QStringLiteral("Não há item nessa posição da lista."),
                           QStringLiteral("Invalid property array index"));
}

void ItemModel::EndFill()
{
    if (--m_fills == 0)
        Flush();
}

void ItemModel::Flush()
{
    if (m_told == Count())
        return;
    beginInsertRows({}, m_told, Count() - 1);
    m_told = Count();
    endInsertRows();
}

int ItemModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_told;
}

QVariant ItemModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_told)
        return {};
    const Item& item = At(index.row());
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return item.text;
    if (role == Qt::UserRole)
        return item.data;
    if (role == Qt::CheckStateRole && m_checkable)
        return item.checked ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool ItemModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !m_checkable || !index.isValid())
        return false;
    SetChecked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ItemModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return m_checkable ? flags | Qt::ItemIsUserCheckable : flags;
}

ItemModel::Item& ItemModel::At(int index)
{
    Require(index);
    return m_items[static_cast<std::size_t>(index)];
}

const ItemModel::Item& ItemModel::At(int index) const
{
    Require(index);
    return m_items[static_cast<std::size_t>(index)];
}

void ItemModel::Tell(int index, int role)
{
    if (index >= m_told)
        return;
    const QModelIndex changed = createIndex(index, 0);
    emit dataChanged(changed, changed, {role});
}
