#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// The export form before it writes, with its notice, and each box that it asks or answers with.
void ShowExport(Pictures& pictures, Principal& form);

/// With songs that a file cannot hold as they are.
/// @param catalogue  its file, which gets the songs
void ShowExportNotice(Pictures& pictures, Principal& form, const QString& catalogue);

/// While many songs are written.
/// @param songs  how many the form finds
void ShowExportProgress(Pictures& pictures, Principal& form, int songs);

} // namespace Telas
