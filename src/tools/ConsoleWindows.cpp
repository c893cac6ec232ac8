#include "tools/Console.h"

#include <cstdio>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

Console::Console()
    : m_before(GetConsoleOutputCP())
{
    SetConsoleOutputCP(CP_UTF8);
    // What goes through a pipe is a file: its line ends stay as they are.
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
}

Console::~Console()
{
    // The window belongs to whoever started the command.
    if (m_before != 0)
        SetConsoleOutputCP(m_before);
}

bool Console::ClosesWithTheCommand()
{
    DWORD mode = 0;
    DWORD processes[2] = {};
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0 &&
           GetConsoleProcessList(processes, 2) == 1;
}
