#pragma once

#include "jet/FrameReader.h"
#include "store/Value.h"
#include "store/dialect/Schema.h"

/// Fields of the older format as values of a catalogue.
namespace JetFields {

/// Reads the next field of a row.
/// @param table     for messages
/// @param column    whose type the field must have
/// @param codePage  of texts of one byte a character; 0 for unknown
/// @throws RuntimeError StoreFailure when it has another type, or no catalogue can hold it
Value Read(FrameContent& row, const Table& table, const Column& column, quint32 codePage);

/// @param days  since 1899-12-30; the fraction is the time, also before that day
/// @return the day; invalid when it lies outside the years 100 to 9999
QDate DayOf(double days);

} // namespace JetFields
