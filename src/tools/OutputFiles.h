#pragma once

#include "tools/DestinationKind.h"

/// @return why no file can be written there, in Portuguese, with the path; empty when it can
QString WhyNoFile(const QString& path);

/// @return why the folder, which may not be there yet, takes no files, in Portuguese
QString WhyNoFolder(const QString& folder);

/// Looks at everything that can be known without writing, so that a simulation promises nothing
/// that is then refused.
/// @param folder  as for WriteFiles
/// @param force   files that are there may be replaced
/// @return why the files cannot be written, in Portuguese; empty when nothing is known against it
QString WhyNotWritten(const QList<OutputFile>& files, const QString& folder, bool force);

/// Writes a file whole or not at all; what is replaced is safe until the new one is on the disk.
/// @param mayEnd  false where some of several files are in their places already
/// @return why it failed, in Portuguese, without the file; empty when it is there
/// @throws Interrupted when it may end and somebody wishes so
QString WriteFile(const OutputFile& output, bool mayEnd = true);

/// Writes files, each whole or not at all; those of a folder all together (DraftFolder.h).
/// @param folder  made when it is not there; empty for a single file, whose folder would be missing
///                by a slip of the keyboard
/// @return why it failed, with the file; empty when all are there
/// @throws Interrupted when the report's progress does; nothing was written then
QString WriteFiles(const QList<OutputFile>& files, const QString& folder,
                   const ConversionReport& report);
