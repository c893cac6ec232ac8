#pragma once

#include "pictures/ScreenPictures.h"

namespace Telas {

/// Songs, the first of them scrolling, with other fonts and without chords.
/// @param songs  MUSICA.ID each
void ShowViewers(Pictures& pictures, const QList<qint64>& songs);

/// A song corrected where it is shown, in the middle of a list, with both boxes that it asks with.
void ShowEditing(Pictures& pictures);

/// The viewer on the first, a middle and the last song of a setlist, and with its list open.
/// @param catalogue  its file, which gets the setlist
void ShowSetlist(Pictures& pictures, const QString& catalogue);

/// A header of which nothing fits, and one that lacks what stands in its middle.
/// @param catalogue  its file, which gets the song
void ShowLongHeader(Pictures& pictures, const QString& catalogue);

} // namespace Telas
