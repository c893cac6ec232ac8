#include "store/RecordsetRows.h"

int Recordset::Rows::Find(QStringView name) const
{
    for (int i = 0; i < m_names.size(); ++i) {
        if (name.compare(m_names[i], Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}
