// What the buttons do.

#include "viewer/frmVisualizar.h"

void frmVisualizar::cmdSobe_Click()
{
    Sobe_Tom();
}

void frmVisualizar::cmdDesce_Click()
{
    Desce_Tom();
}

void frmVisualizar::cmdTomOriginal_Click()
{
    Reseta_Tom();
}

void frmVisualizar::cmdLetra_Click()
{
    Mostra_Cifra();
}

void frmVisualizar::cmdAumentaFonte_Click()
{
    Aumenta_Fonte();
}

void frmVisualizar::cmdDiminuiFonte_Click()
{
    Diminui_Fonte();
}

void frmVisualizar::lblVersao_Click()
{
    Muda_Versao();
}

void frmVisualizar::cmdAnterior_Click()
{
    Musica_Anterior();
}

void frmVisualizar::cmdProxima_Click()
{
    Proxima_Musica();
}
