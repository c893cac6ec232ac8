// Editing a song where it is shown: still to come.

#include "viewer/frmVisualizar.h"

void frmVisualizar::Muda_Status_Edicao(bool) {}

void frmVisualizar::Descartar_Edicao() {}

bool frmVisualizar::Salvar()
{
    return true;
}

void frmVisualizar::cmdEditar_Click() {}

void frmVisualizar::cmdSalvar_Click() {}

void frmVisualizar::cmdDescartar_Click() {}
