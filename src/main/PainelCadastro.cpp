// What the panel is made of and which control's event calls which of its handlers; the version
// tabs, a new song and the viewer.

#include "main/PainelCadastro.h"

#include "ui_PainelCadastro.h"

#include "chords/Cifra.h"
#include "controls/Dialogs.h"
#include "controls/Handler.h"
#include "main/ServicosPrincipal.h"
#include "main/Sugestoes.h"
#include "runtime/Number.h"
#include "viewer/frmVisualizar.h"

#include <QKeyEvent>

using namespace Funcoes;

namespace {

// The given colours of the version tabs, made for a dark ground.
constexpr QColor VersaoMostrada(255, 255, 128);
constexpr QColor OutraVersao(192, 192, 192);

void Pinta(ClickableLabel& aba, const QColor& cor)
{
    aba.setProperty("escolhida", cor == VersaoMostrada); // what the colour says, said to who hears
    // Under the pointer a label would take the accent's colour, which is too dark for that ground.
    // The palette comes last: a new style sheet brings back an older one.
    aba.setStyleSheet(
        u"ClickableLabel:hover { color: %1; text-decoration: underline; }"_qs.arg(cor.name()));
    QPalette paleta = aba.palette();
    paleta.setColor(QPalette::WindowText, cor);
    aba.setPalette(paleta);
}

} // namespace

PainelCadastro::PainelCadastro(QWidget* parent)
    : Painel(parent)
    , ui(std::make_unique<Ui::PainelCadastro>())
{
    ui->setupUi(this);
    lblMostraMusica = {ui->lblMostraMusica_0, ui->lblMostraMusica_1};
    txtCadLetra = {ui->txtCadLetra_0, ui->txtCadLetra_1};
    ui->lblCadDica->setForegroundRole(QPalette::PlaceholderText);
    // The sheet is paper and its tabs lie on a dark ground, under every look.
    QPalette abas = ui->lblCadMusica->palette();
    abas.setColor(QPalette::WindowText, Qt::white);
    ui->lblCadMusica->setPalette(abas);
    ui->lstCadTema->setMode(ListBox::CheckBoxes);
    // The size of every sheet that comes: what is typed into a new song has it, too.
    for (RichTextBox* caixa : txtCadLetra)
        caixa->SetTextRTF(Monta_Cifra(QString(), 0, AjusteFonte, true));
    Guarda_Identidade(u"0"_qs);
    lblMostraMusica_Click(0);
}

PainelCadastro::~PainelCadastro() = default;

void PainelCadastro::Liga_Eventos(ServicosPrincipal& principal)
{
    using Form = PainelCadastro;
    m_principal = &principal;
    new Sugestoes(*this, {ui->txtCadTitulo, ui->txtCadReferencia, txtCadLetra},
                  [&principal](double id) { principal.Abre_Musica(id); });
    for (int i = 0; i < 2; ++i)
        ConnectHandler(lblMostraMusica[static_cast<std::size_t>(i)], &ClickableLabel::clicked, this,
                       [this, i] { lblMostraMusica_Click(i); });
    constexpr auto clicado = &QPushButton::clicked;
    ConnectHandler(ui->cmdCadSalvar, clicado, this, &Form::cmdCadSalvar_Click);
    ConnectHandler(ui->cmdCadIgualarSalvar, clicado, this, &Form::cmdCadIgualarSalvar_Click);
    ConnectHandler(ui->cmdCadLimpar, clicado, this, &Form::cmdCadLimpar_Click);
    ConnectHandler(ui->cmdVisualizar, clicado, this, &Form::cmdVisualizar_Click);
    ConnectHandler(ui->cmdExcluir, clicado, this, &Form::cmdExcluir_Click);
    ConnectHandler(ui->cmdCadTema, clicado, this, &Form::cmdCadTema_Click);
    ConnectHandler(ui->lstCadTema, &ListBox::MouseUp, this, &Form::lstCadTema_MouseUp);
    ConnectHandler(ui->lstCadTema, &ListBox::KeyDown, this,
                   [this](const QKeyEvent* evento) { lstCadTema_KeyDown(evento->key()); });
}

QString PainelCadastro::Identidade() const
{
    return ui->txtCadTitulo->property("Tag").toString();
}

void PainelCadastro::Guarda_Identidade(const QString& id)
{
    ui->txtCadTitulo->setProperty("Tag", id);
}

void PainelCadastro::Habilita_Musica_Guardada(bool guardada)
{
    ui->cmdVisualizar->setEnabled(guardada);
    ui->cmdExcluir->setEnabled(guardada);
}

void PainelCadastro::lblMostraMusica_Click(int indice)
{
    for (std::size_t i = 0; i < txtCadLetra.size(); ++i) {
        txtCadLetra[i]->hide();
        Pinta(*lblMostraMusica[i], OutraVersao);
    }
    const auto mostrada = static_cast<std::size_t>(indice);
    txtCadLetra[mostrada]->show();
    Pinta(*lblMostraMusica[mostrada], VersaoMostrada);
    ui->lblCadMusica->setBuddy(txtCadLetra[mostrada]);
}

void PainelCadastro::cmdCadLimpar_Click()
{
    if (Pergunta(this, u"Deseja limpar os campos para cadastrar uma nova música?"_qs))
        Inicializa_Cadastro(0);
}

void PainelCadastro::cmdVisualizar_Click()
{
    const auto id = Number::FromText(Identidade());
    if (Identidade() == u"0" || !id)
        return;
    auto* visualizador = new frmVisualizar; // deletes itself when it is closed
    visualizador->ID_Musica = *id;
    visualizador->Show();
}

void PainelCadastro::Foca_Titulo()
{
    ui->txtCadTitulo->setFocus();
}
