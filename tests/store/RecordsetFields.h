#pragma once

#include "store/Recordset.h"

#include <QList>
#include <QStringList>

/// @return all fields of all rows from the current one on; NULL is a null QString
inline QList<QStringList> AllFields(Recordset rows)
{
    QList<QStringList> all;
    const int columns = int(rows.FieldNames().size());
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList row;
        for (int i = 0; i < columns; ++i) {
            const Value field = rows.Fields(i);
            const QString text = field.ToText();
            row.append(field.IsNull() ? QString() : text.isNull() ? QStringLiteral("") : text);
        }
        all.append(row);
    }
    return all;
}
