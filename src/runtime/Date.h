#pragma once

#include <QDate>
#include <QString>

#include <optional>

/// The one reading of a date text: the store's CDATE, the test before a setlist is saved and both
/// conversions below agree because they share it.
namespace Date {

/// @param text  day/month/year; one or two digits each for day and month, three or four for the
///              year, 100 to 9999
/// @return the day, or nothing when text is no date or names a day that does not exist
std::optional<QDate> FromText(QStringView text);

/// @return dd/mm/yyyy, as a date column reads.
QString ToText(QDate date);

/// @return yyyy-mm-dd, as a date column is stored.
QString ToStored(QDate date);

} // namespace Date
