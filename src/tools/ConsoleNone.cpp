// Where a terminal shows UTF-8 and stays.

#include "tools/Console.h"

Console::Console() = default;

Console::~Console() = default;

bool Console::ClosesWithTheCommand()
{
    return false;
}
