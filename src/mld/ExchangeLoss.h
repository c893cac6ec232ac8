#pragma once

#include "mld/ExchangeSong.h"

/// What an exchange file does to a song that it cannot hold as it is. Of "<" and ">" only those are
/// told that reach the file: titles, references and lyrics simply do without them.
struct ExchangeLoss
{
    bool letters = false;    ///< characters without a place in the code page are written as "?"
    bool unreadable = false; ///< "&", "<", ">" or a control character may make every reader refuse
                             ///< the whole file

    bool operator==(const ExchangeLoss&) const = default;

    /// @return what the song is going to suffer when it is written
    static ExchangeLoss Of(const ExchangeSong& song);
};
