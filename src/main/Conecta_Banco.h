#pragma once

class QWidget;

/// Ends the program at once, from any depth of its start: nothing else of a form runs. It is no
/// std::exception, so that no error path takes it for a failure to tell; the program's entry
/// catches it.
struct Fim_Programa
{
};

namespace Funcoes {

/// Opens Conexao on the catalogue that config.ini of the program's folder names ([BANCO] Endereco).
/// Without such a key config.ini is written anew with the default place, Melodario.mdb in the
/// program's folder; where the named file is missing, the user is asked for its path and the answer
/// is stored before it is tried. A catalogue in the older format is offered to be converted.
/// @param pai  the form above which boxes open; nullptr for none
/// @throws Fim_Programa after telling the user, when the connection cannot be opened
void Conecta_Banco(QWidget* pai = nullptr);

/// Closes Conexao. @throws RuntimeError ObjectClosed when it is not open
void Desconecta_Banco();

} // namespace Funcoes
