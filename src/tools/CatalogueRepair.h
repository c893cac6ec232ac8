#pragma once

#include "tools/CatalogueCheck.h"

#include <QStringList>

class CheckedCatalogue;

/// Writes what a catalogue holds into a new one and mends what can be mended without asking: links
/// to what is gone, songs without a theme, fixed rows, indexes, damage. The old one is only read.
namespace CatalogueRepair {

struct Outcome
{
    QStringList mended;           ///< what differs from the old catalogue, in Portuguese
    QStringList lost;             ///< what could not be read, in Portuguese
    CatalogueCheck::Result after; ///< what the new catalogue still has
};

/// @param output  where no file is
/// @throws RuntimeError StoreFailure when nothing of the old catalogue can be read or the new one
///         cannot be written. The unfinished file is left to the caller
Outcome Repair(const CheckedCatalogue& catalogue, const QString& output,
               const CatalogueCheck::Progress& progress = {});

} // namespace CatalogueRepair
