#pragma once

#include <QString>

class QWidget;

namespace Funcoes {

/// Where the catalogue is a file in the older format, asks once whether to convert it, and on Yes
/// puts a new catalogue into its place; the old file stays beside it under another name. What the
/// question could not tell of what stays behind is told afterwards. Any other file, and a No,
/// changes nothing.
/// @param pai      the form above which boxes open; nullptr for none
/// @param caminho  the path of the catalogue
/// @throws RuntimeError when it could not be converted; the old file is in its place then
void Oferece_Conversao(QWidget* pai, const QString& caminho);

} // namespace Funcoes
