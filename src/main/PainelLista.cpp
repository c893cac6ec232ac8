#include "main/PainelLista.h"

#include "ui_PainelLista.h"

PainelLista::PainelLista(QWidget* parent)
    : Painel(parent)
    , ui(std::make_unique<Ui::PainelLista>())
{
    ui->setupUi(this);
    ui->lblEmBreve->setForegroundRole(QPalette::PlaceholderText);
}

PainelLista::~PainelLista() = default;

void PainelLista::Inicializa_Lista() {}

bool PainelLista::Verifica_Modificacoes()
{
    return true;
}

void PainelLista::Foca_Nome()
{
    ui->txtNome->setFocus();
}
