#pragma once

#include <exception>

/// What ends a conversion whose user pressed Ctrl+C: whoever has a draft removes it on its way out.
class Interrupted : public std::exception
{
public:
    const char* what() const noexcept override { return "interrupted"; }
};

/// Ctrl+C and the system's wish that the program end, as a question that long work asks itself.
namespace Interruption {

/// From here on the first such wish is only noted, and none was yet; the second ends the program on
/// the spot.
void Watch();

/// From here on such a wish ends the program on the spot: for a wait that nothing else would end,
/// while there is no draft.
void LetThrough();

/// @throws Interrupted when the wish was noted
void Check();

} // namespace Interruption
