#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// The export form before it writes, with its notice, and each box that it asks or answers with.
void ShowExport(Pictures& pictures, Principal& form);

/// With songs that a file cannot hold as they are.
/// @param catalogue  its file, which gets the songs
void ShowExportNotice(Pictures& pictures, Principal& form, const QString& catalogue);

/// While many songs are written.
/// @param written  how many are, when the picture is taken
void ShowExportProgress(Pictures& pictures, Principal& form, int written);

} // namespace Telas
