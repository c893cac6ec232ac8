#include "store/RecordsetRows.h"

std::optional<QByteArray> Recordset::Rows::Utf8At(int row, int column) const
{
    const Value value = At(row, column);
    if (value.IsNull())
        return std::nullopt;
    return value.ToText().toUtf8();
}

int Recordset::Rows::Find(QStringView name) const
{
    for (int i = 0; i < m_names.size(); ++i) {
        if (name.compare(m_names[i], Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}
