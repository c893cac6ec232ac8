#include "main/PainelCadastro.h"

#include "ui_PainelCadastro.h"

PainelCadastro::PainelCadastro(QWidget* parent)
    : Painel(parent)
    , ui(std::make_unique<Ui::PainelCadastro>())
{
    ui->setupUi(this);
    ui->lblEmBreve->setForegroundRole(QPalette::PlaceholderText);
}

PainelCadastro::~PainelCadastro() = default;

void PainelCadastro::Inicializa_Cadastro(double /*id*/) {}

void PainelCadastro::cmdExcluir_Click() {}

void PainelCadastro::Foca_Titulo()
{
    ui->txtCadTitulo->setFocus();
}
