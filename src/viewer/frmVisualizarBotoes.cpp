// What the buttons do, and the keys: they reach the form before any control.

#include "viewer/frmVisualizar.h"

#include "controls/Handler.h"

#include <QKeyEvent>

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

void frmVisualizar::Prepara_Teclado()
{
    installEventFilter(this);
    for (QWidget* controle : findChildren<QWidget*>())
        controle->installEventFilter(this);
}

bool frmVisualizar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int tecla = static_cast<QKeyEvent*>(event)->key();
    bool vai_adiante = false;
    RunHandler([&] { vai_adiante = Form_KeyDown(tecla); });
    return !vai_adiante;
}

bool frmVisualizar::Form_KeyDown(int tecla)
{
    if (Editando)
        return true;
    switch (tecla) {
    case Qt::Key_P:
        Proxima_Musica();
        break;
    case Qt::Key_A:
        Musica_Anterior();
        break;
    case Qt::Key_Escape:
        cmdFechar_Click();
        break;
    default:
        break;
    }
    return false;
}
