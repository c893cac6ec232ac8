#pragma once

#include <QString>

/// Where the pictures lie.
namespace Artwork {

/// @param name  a picture's path without its ending, "viewer/cmdSobe"
/// @return its place among the resources, ":/artwork/viewer/cmdSobe.svg"
QString Path(const QString& name);

} // namespace Artwork
