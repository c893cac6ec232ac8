// Moving through the song list: still to come.

#include "viewer/frmVisualizar.h"

void frmVisualizar::Carrega_Musicas_Lista(int) {}

void frmVisualizar::Proxima_Musica() {}

void frmVisualizar::Musica_Anterior() {}

void frmVisualizar::Mostra_Proximo_Anterior() {}

void frmVisualizar::cmbLista_Click() {}
