#pragma once

#include <QtGlobal>

namespace Memory {

/// @return what the program holds from the allocator now, in bytes; 0 where that is not known
qint64 Held();

/// @return the most memory that the process ever had, in bytes; 0 where that is not known
qint64 Peak();

} // namespace Memory
