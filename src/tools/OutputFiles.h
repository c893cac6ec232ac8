#pragma once

#include "tools/DestinationKind.h"

/// @return why no file can be written there, in Portuguese, with the path; empty when it can
QString WhyNoFile(const QString& path);

/// Looks at everything that can be known without writing, so that a simulation promises nothing
/// that is then refused.
/// @param folder  as for WriteFiles
/// @param force   files that are there may be replaced
/// @return why the files cannot be written, in Portuguese; empty when nothing is known against it
QString WhyNotWritten(const QList<OutputFile>& files, const QString& folder, bool force);

/// Writes files, each whole or not at all.
/// @param folder  made first when it is not there; empty for a single file, whose folder would be
///                missing by a slip of the keyboard
/// @return why it failed, with the file; empty when all are there
QString WriteFiles(const QList<OutputFile>& files, const QString& folder);
