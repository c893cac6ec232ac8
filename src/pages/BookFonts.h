#pragma once

#include <QFont>

/// The types of a printed book: those of the program's screens.
namespace Pages {

/// @return Consolas, else what comes nearest to it and is installed
QFont SheetFont(double size, bool bold);

/// @return Calibri, else what comes nearest to it and is installed
QFont TitleFont(double size, bool bold);

/// @return how wide a character of the sheet's type is, in parts of its size
double SheetCharWidth();

} // namespace Pages
