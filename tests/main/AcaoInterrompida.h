#pragma once

#include "main/frmPrincipal.h"

#include <functional>

/// Brings the form into the state in which the user acts.
/// @param acao  which of the program's actions
/// @return the act itself: what is stopped at its boundaries
using PreparaAcao = std::function<std::function<void()>(frmPrincipal& form, const QString& acao)>;

/// What a program for tests that kill it does: it opens a catalogue in the real main form, prepares
/// an action, acts, and stands still at one of the boundaries on the way: a statement that is about
/// to run or a box that opens. Boxes are answered with Yes or OK; one that refuses is fatal.
///
/// Arguments: CATALOGUE ACTION BOUNDARY, the last counted from 0.
/// @return the program's exit code: 0 after an action that ran to its end
int Executa_E_Para(int argc, char* argv[], const PreparaAcao& prepara);
