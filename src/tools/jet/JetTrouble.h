#pragma once

#include "jet/RowStream.h"

#include <string>

/// Why a file cannot be read; ends the reading.
struct JetTrouble
{
    RowStream::Trouble trouble;
    std::string about; ///< as RowStream tells of the trouble

    [[noreturn]] static void Damaged(std::string what)
    {
        throw JetTrouble{RowStream::Trouble::Damaged, std::move(what)};
    }
};
