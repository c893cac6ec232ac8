#pragma once

#include "tools/DestinationKind.h"

/// @return the first of the files that is there already; empty when there is none
QString FirstTaken(const QList<OutputFile>& files);

/// Writes files, each whole or not at all, and the folder that they are in.
/// @return why it failed, with the file; empty when all are there
QString WriteFiles(const QList<OutputFile>& files);
