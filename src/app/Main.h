#pragma once

#include <QString>
#include <QStringList>

class QApplication;

namespace Funcoes {

/// Gives the program its names, its language and its look, before anything is shown.
void Prepara(QApplication& programa);

/// @param argumentos  the program's name and what it was started with
/// @return the path of the exchange file to import: the whole command line without double quotes,
/// since a path with blanks may come in one argument or in several; "" for none
QString Linha_Comando(const QStringList& argumentos);

/// Starts the program: gives it its names and its look, shows the splash, which loads the main
/// form, and runs until the last form is closed. The command line, without the program's name, is
/// the path of an exchange file.
/// @return the program's exit code; 1 when the catalogue could not be opened
int Main(QApplication& programa);

} // namespace Funcoes
