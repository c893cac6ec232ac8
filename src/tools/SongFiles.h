#pragma once

#include <QStringList>

class ConversionReport;

/// Finds the files that songs are read from. What of a folder cannot be read is told: names that
/// are not UTF-8, folders without permission, links that lead nowhere or to other folders. Hidden
/// files are not meant and stay out.
/// @param sources      files, folders and "-", as the user wrote them
/// @param destination  what is written; lying in one of the folders, it is left out and told, else
///                     the songs of the last run came twice. A folder that is named as a source is
///                     read all the same
/// @return in the order of the sources; of a folder first its own files by name, then those below
QStringList FindSongFiles(const QStringList& sources, const QString& destination,
                          ConversionReport& report);
