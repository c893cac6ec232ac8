#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// The boxes and texts that no picture is taken of, because they look like others.
/// @param catalogue  a copy of the delivered one; it gets setlists
void ShowTheRest(Pictures& pictures, const QString& catalogue);

} // namespace Telas
