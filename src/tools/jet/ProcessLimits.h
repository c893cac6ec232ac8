#pragma once

#include <cstddef>

namespace ProcessLimits {

/// Bounds what this process may use from now on; whoever exceeds it is ended by the system. Where a
/// system cannot do that, the parent's own patience is what remains.
/// @param seconds  of processor time
/// @param bytes    of memory
void Set(unsigned seconds, std::size_t bytes);

} // namespace ProcessLimits
