// Uses up what it is allowed: gasta tempo|memoria. Ends with 0 when nothing stops it.

#include "tools/jet/ProcessLimits.h"

#include <cstring>
#include <memory>
#include <string_view>

namespace {

constexpr std::size_t Allowed = std::size_t{256} * 1024 * 1024;

int UseMemory()
{
    const std::size_t much = 2 * Allowed;
    const std::unique_ptr<char[]> bytes(new char[much]);
    std::memset(bytes.get(), 1, much);
    return bytes[much - 1] - 1;
}

int UseTime()
{
    volatile unsigned turns = 0;
    for (;;)
        turns = turns + 1;
}

} // namespace

int main(int argc, char** argv)
{
    const bool time = argc == 2 && std::string_view(argv[1]) == "tempo";
    // On a busy machine half a gigabyte takes longer than a second: only one limit is to be met.
    ProcessLimits::Set(time ? 1 : 60, Allowed);
    return time ? UseTime() : UseMemory();
}
