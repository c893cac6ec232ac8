#pragma once

#include <QString>

/// The date texts of the setlists. What a date is, Date::FromText decides for these, for the test
/// before a setlist is saved and for the store's CDATE alike.
namespace Funcoes {

/// @param Data  day/month/year, with or without leading zeros
/// @return dd/mm/yyyy; "" when Data denotes no date, as that of a setlist without one
QString Prepara_Data(const QString& Data);

/// @param Data  as for Prepara_Data
/// @return yyyy-mm-dd; "" when Data denotes no date
QString Inverte_Data(const QString& Data);

} // namespace Funcoes
