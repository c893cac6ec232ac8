#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// The entry panel: for a new song with each box that a save answers, and with a stored song.
/// @param catalogue  its file
void ShowEntry(Pictures& pictures, Principal& form, const QString& catalogue);

/// Both suggestion lists, with nothing to suggest and with many.
void ShowSuggestions(Pictures& pictures, frmPrincipal& form);

} // namespace Telas
