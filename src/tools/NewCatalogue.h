#pragma once

#include <QString>

/// How many rows a new catalogue was given.
struct CatalogueCounts
{
    int themes = 0;
    int songs = 0;
};

/// Makes a catalogue. Reads schema.sql, fixed.sql, themes.txt and songs/*.txt (in the order of
/// their names) of a data folder. The file appears whole or not at all, and the same data make the
/// same bytes.
/// @param dataFolder  where the data lie
/// @param output      the file to make; it must not exist
/// @throws RuntimeError FileFailure with file and line of what is wrong, or when the output exists
///         or cannot be written
CatalogueCounts MakeCatalogue(const QString& dataFolder, const QString& output);
