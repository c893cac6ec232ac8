// Scrolling by itself and the play count. Only what every render needs is here: stopping; the steps
// themselves are still to come.

#include "viewer/frmVisualizar.h"

#include "ui_frmVisualizar.h"

#include <QTimer>

namespace {

constexpr int NivelInicial = 4; // of 16; the level that goes with the timer's period at first

} // namespace

void frmVisualizar::Auto_Rolagem(bool inicia)
{
    if (ui->ProgressBarRolagem->value() == 0)
        ui->ProgressBarRolagem->setValue(NivelInicial);
    if (!inicia)
        TimerRolagem->stop();
    else if (!TimerRolagem->isActive())
        TimerRolagem->start();
    ui->ProgressBarRolagem->setVisible(inicia);
    ui->cmdAutoRolagem->setVisible(!inicia);
    ui->cmdAutoRolagem2->move(ui->cmdAutoRolagem->pos());
    ui->cmdAutoRolagem2->setVisible(inicia);
}

double frmVisualizar::Sobe_Rolagem(double)
{
    return 0;
}

double frmVisualizar::Desce_Rolagem(double)
{
    return 0;
}

void frmVisualizar::TimerRolagem_Timer() {}

void frmVisualizar::tmrContador_Timer() {}

void frmVisualizar::Conta_Musica(double) {}
