// Scrolling: a position of each box that steps move, and a timer that takes one pixel after the
// other. The position is the program's own: scrolling with the mouse does not change it.

#include "viewer/frmVisualizar.h"

#include "controls/Handler.h"
#include "controls/RichTextBox.h"
#include "runtime/Number.h"
#include "ui_frmVisualizar.h"
#include "viewer/Rola_Texto.h"

#include <QTimer>

#include <cmath>

namespace {

constexpr int NivelInicial = 4; // of 16; the level that goes with the timer's period at first
constexpr int NivelMaximo = 16;
constexpr int NivelMinimo = 1;
constexpr double FatorVelocidade = 1.5;
constexpr double PeriodoMaximo = 500; // ms
constexpr double PassoTecla = 100;    // pixels
constexpr double PassoTique = 1;

double Tag(const QObject& controle)
{
    return Number::ToDouble(controle.property("Tag").toString());
}

void Grava_Tag(QObject& controle, double valor)
{
    controle.setProperty("Tag", Number::ToText(valor));
}

} // namespace

void frmVisualizar::Prepara_Rolagem()
{
    // A coarse timer may be late by more than an eye forgives in a text that glides.
    TimerRolagem->setTimerType(Qt::PreciseTimer);
    ConnectUnattended(TimerRolagem, &QTimer::timeout, this, &frmVisualizar::TimerRolagem_Timer);
    ConnectHandler(ui->cmdAutoRolagem, &QAbstractButton::clicked, this,
                   &frmVisualizar::cmdAutoRolagem_Click);
    ConnectHandler(ui->cmdAutoRolagem2, &QAbstractButton::clicked, this,
                   &frmVisualizar::cmdAutoRolagem2_Click);
}

void frmVisualizar::cmdAutoRolagem_Click()
{
    Auto_Rolagem(true);
}

void frmVisualizar::cmdAutoRolagem2_Click()
{
    Auto_Rolagem(false);
}

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

double frmVisualizar::Sobe_Rolagem(double quantidade)
{
    double& posicao = Posicao.at(static_cast<std::size_t>(Versao));
    posicao -= quantidade;
    if (posicao < 0)
        posicao = 0;
    return posicao;
}

double frmVisualizar::Desce_Rolagem(double quantidade)
{
    double& posicao = Posicao.at(static_cast<std::size_t>(Versao));
    posicao += quantidade;
    if (Limite_Rolagem() < posicao)
        posicao = Limite_Rolagem();
    return posicao;
}

double frmVisualizar::Limite_Rolagem() const
{
    return Tag(Caixa(Versao));
}

void frmVisualizar::Rola_Ate(double posicao)
{
    Funcoes::Rola_Texto(Caixa(Versao), Number::ToLong(posicao));
}

void frmVisualizar::Rola_Acima()
{
    Rola_Ate(Sobe_Rolagem(PassoTecla));
}

void frmVisualizar::Rola_Abaixo()
{
    Rola_Ate(Desce_Rolagem(PassoTecla));
}

void frmVisualizar::Rola_Inicio()
{
    Rola_Ate(Sobe_Rolagem(Limite_Rolagem()));
    Auto_Rolagem(false);
}

void frmVisualizar::Rola_Fim()
{
    Rola_Ate(Desce_Rolagem(Limite_Rolagem()));
}

void frmVisualizar::Alterna_Rolagem()
{
    Auto_Rolagem(!TimerRolagem->isActive());
}

void frmVisualizar::Acelera_Rolagem()
{
    Grava_Tag(*TimerRolagem, Tag(*TimerRolagem) / FatorVelocidade);
    if (std::floor(Tag(*TimerRolagem)) <= 0) {
        Grava_Tag(*TimerRolagem, 1);
        ui->ProgressBarRolagem->setValue(NivelMaximo);
    } else {
        ui->ProgressBarRolagem->setValue(ui->ProgressBarRolagem->value() + 1);
    }
}

void frmVisualizar::Freia_Rolagem()
{
    Grava_Tag(*TimerRolagem, Tag(*TimerRolagem) * FatorVelocidade);
    if (std::floor(Tag(*TimerRolagem)) > PeriodoMaximo) {
        Grava_Tag(*TimerRolagem, PeriodoMaximo);
        ui->ProgressBarRolagem->setValue(NivelMinimo);
    } else {
        ui->ProgressBarRolagem->setValue(ui->ProgressBarRolagem->value() - 1);
    }
}

void frmVisualizar::TimerRolagem_Timer()
{
    // Setting an interval begins the period anew, so an unchanged one is left alone.
    const int periodo = Number::ToLong(Tag(*TimerRolagem));
    if (TimerRolagem->interval() != periodo)
        TimerRolagem->setInterval(periodo);
    if (Limite_Rolagem() < Posicao.at(static_cast<std::size_t>(Versao)))
        Auto_Rolagem(false);
    // Also at the end, where the text stays until somebody stops it.
    Rola_Ate(Desce_Rolagem(PassoTique));
}
