#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// Every screen of the program on the catalogue that it is delivered with, one after the other:
/// the splash, the panels, their boxes, the viewer and the export. Ends with every form closed.
/// @param catalogue  a copy of the delivered one; it gets songs and setlists
void ShowDelivered(Pictures& pictures, const QString& catalogue);

} // namespace Telas
