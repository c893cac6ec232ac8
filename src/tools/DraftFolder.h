#pragma once

#include "tools/DestinationKind.h"

#include <QString>

/// Files on their way into a folder: they are written into a draft of it on the same disk, and get
/// their places only when all are there. What was not kept is removed.
///
/// Nothing waits for the disk to have it all: thousands of files would take minutes then, and what
/// a failing power supply takes can be made again from the sources, which are never changed.
class DraftFolder
{
public:
    /// @param folder  that the files shall lie in; it may not be there yet
    explicit DraftFolder(const QString& folder);
    ~DraftFolder();
    DraftFolder(const DraftFolder&) = delete;
    DraftFolder& operator=(const DraftFolder&) = delete;

    /// Makes the draft. @return why not, in Portuguese; empty when it is there
    QString Begin();

    /// @param file  lies in the folder itself
    /// @return why it cannot be written, in Portuguese; empty when it is in the draft
    QString Add(const OutputFile& file);

    /// Gives all files their places: with the whole folder in one step where it is new, else each
    /// in one step, in the place of what has its name.
    /// @return why not, in Portuguese, with the file
    QString Keep();

private:
    QString KeepInNewFolder();
    QString KeepFile(const OutputFile& file) const;

    QString m_folder;
    QString m_place; ///< the folder, or the nearest above it that is there
    QString m_draft; ///< empty while there is none
    QList<OutputFile> m_files;
};
