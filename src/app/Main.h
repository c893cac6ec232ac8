#pragma once

class QApplication;

namespace Funcoes {

/// Starts the program: gives it its names and its look, shows the splash, which loads the main
/// form, and runs until the last form is closed. The command line, without the program's name, is
/// the path of an exchange file.
/// @return the program's exit code; 1 when the catalogue could not be opened
int Main(QApplication& programa);

} // namespace Funcoes
