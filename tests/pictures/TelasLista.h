#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// The setlist panel: empty, in use, and with each box that it asks with.
void ShowSetlists(Pictures& pictures, Principal& form);

} // namespace Telas
