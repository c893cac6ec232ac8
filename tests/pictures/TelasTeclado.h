#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// The on-screen keyboard: each of its places, an accent and the key touched last.
void ShowKeyboard(Pictures& pictures, const QWidget& form);

} // namespace Telas
