#include "artwork/Artwork.h"

namespace Artwork {

QString Path(const QString& name)
{
    return u":/artwork/" % name % u".svg";
}

} // namespace Artwork
