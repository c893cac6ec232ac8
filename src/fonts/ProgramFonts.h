#pragma once

#include <QStringList>

/// Fonts that travel with the program, for computers that have none with signs of one width and
/// none like the one for texts.
namespace ProgramFonts {

/// Makes every font file (.ttf, .otf) of a folder known to this program alone. To be called before
/// the first family is asked for.
/// @param folder  the folder's path; one that does not exist holds no fonts
/// @return the families that were found, each once; a damaged file gives none
QStringList Load(const QString& folder);

} // namespace ProgramFonts
