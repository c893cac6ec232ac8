#pragma once

#include <QString>

#include <system_error>

class QFileDevice;

/// Why something failed with a file, in Portuguese; the library's own words would be English or the
/// system's.
/// @param file  of which something has just failed
QString FileTrouble(const QFileDevice& file);

/// The same of an error that the system tells by a number.
QString FileTrouble(const std::error_code& failure);
