#pragma once

#include <QString>

class QFileDevice;

/// @param file  of which something has just failed
/// @return why, in Portuguese; its own words would be English or the system's
QString FileTrouble(const QFileDevice& file);
