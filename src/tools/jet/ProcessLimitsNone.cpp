#include "tools/jet/ProcessLimits.h"

// A system without limits that a process sets itself.

void ProcessLimits::Set(unsigned /*seconds*/, std::size_t /*bytes*/) {}
