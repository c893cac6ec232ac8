#pragma once

#include <QString>

/// @return a text as it stands between the single quotes of a statement: each quote doubled
inline QString Dobra_Apostrofos(QString texto)
{
    return texto.replace(u'\'', QStringLiteral("''"));
}
