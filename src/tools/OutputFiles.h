#pragma once

#include "tools/DestinationKind.h"

/// @return the first of the files that is there already; empty when there is none
QString FirstTaken(const QList<OutputFile>& files);

/// Writes files, each whole or not at all.
/// @param folder  made first when it is not there; empty for a single file, whose folder would be
///                missing by a slip of the keyboard
/// @return why it failed, with the file; empty when all are there
QString WriteFiles(const QList<OutputFile>& files, const QString& folder);
