#include "tools/jet/ProcessLimits.h"

#include <sys/resource.h>

// The sanitizer reserves terabytes of addresses for itself.
#if defined(__SANITIZE_ADDRESS__)
#define MELODARIO_ADDRESSES_ARE_WATCHED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MELODARIO_ADDRESSES_ARE_WATCHED 1
#endif
#endif

namespace {

template <typename Resource>
void Bound(Resource resource, rlim_t soft, rlim_t hard)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0)
        return;
    // Never above what somebody else has set.
    limit.rlim_max = limit.rlim_max < hard ? limit.rlim_max : hard;
    limit.rlim_cur = limit.rlim_max < soft ? limit.rlim_max : soft;
    setrlimit(resource, &limit);
}

} // namespace

void ProcessLimits::Set(unsigned seconds, std::size_t bytes)
{
    Bound(RLIMIT_CPU, seconds, seconds + 1);
    Bound(RLIMIT_CORE, 0, 0); // a crash is expected, nobody needs its picture
#ifndef MELODARIO_ADDRESSES_ARE_WATCHED
    Bound(RLIMIT_AS, bytes, bytes);
#else
    static_cast<void>(bytes);
#endif
}
