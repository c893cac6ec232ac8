// The panel's state, and which control's event calls which handler.

#include "main/PainelLista.h"

#include "ui_PainelLista.h"

#include "controls/Dialogs.h"
#include "main/Datas.h"
#include "runtime/Date.h"

#include <QKeyEvent>

namespace {

constexpr const char* Tag = "Tag";

} // namespace

PainelLista::PainelLista(QWidget* parent)
    : Painel(parent)
    , ui(std::make_unique<Ui::PainelLista>())
{
    ui->setupUi(this);
    ui->lblDica->setForegroundRole(QPalette::PlaceholderText);
    ui->lblMusicasEncontradas->setForegroundRole(QPalette::PlaceholderText);
    // The boxes begin, and the two lists end, on one line.
    ui->lblNome->setMinimumWidth(ui->lblMusicas->sizeHint().width());
    ui->lblMusicasEncontradas->setMinimumHeight(ui->cmdSalvar->sizeHint().height());
    Marca_Identidade(QStringLiteral("0"));
    Marca_Modificada(false);
    Liga_Eventos();
    Liga_Listas();
}

PainelLista::~PainelLista() = default;

void PainelLista::Liga_Eventos()
{
    using Form = PainelLista;
    // The theme and the type tell their own failures; the filter's is told once while it stands.
    connect(ui->txtFiltro, &TextBox::Change, this, &Form::txtFiltro_Change);
    ConnectHandler(ui->txtFiltro, &TextBox::KeyDown, this, &Form::txtFiltro_KeyDown);
    ConnectHandler(ui->optTipo_0, &QRadioButton::clicked, this, &Form::optTipo_Click);
    ConnectHandler(ui->optTipo_1, &QRadioButton::clicked, this, &Form::optTipo_Click);
    ConnectHandler(ui->cmbTema, &ComboBox::Click, this, &Form::cmbTema_Click);
    ConnectHandler(ui->cmdAdicionar, &ImageButton::clicked, this, &Form::cmdAdicionar_Click);
    ConnectHandler(ui->cmdRemover, &ImageButton::clicked, this, &Form::cmdRemover_Click);
    ConnectHandler(ui->cmdUp, &ImageButton::clicked, this, &Form::cmdUp_Click);
    ConnectHandler(ui->cmdDown, &ImageButton::clicked, this, &Form::cmdDown_Click);
    ConnectHandler(ui->cmdSalvar, &QPushButton::clicked, this, &Form::cmdSalvar_Click);
    ConnectHandler(ui->cmdLimpar, &QPushButton::clicked, this, &Form::cmdLimpar_Click);
}

void PainelLista::Liga_Listas()
{
    using Form = PainelLista;
    const ListBox* oferta = ui->lstMusicasLista;
    ConnectHandler(oferta, &ListBox::DblClick, this, &Form::lstMusicasLista_DblClick);
    ConnectHandler(oferta, &ListBox::KeyDown, this, &Form::lstMusicasLista_KeyDown);

    const ListBox* escolha = ui->lstMusicasSelecionadas;
    ConnectHandler(escolha, &ListBox::Click, this, &Form::lstMusicasSelecionadas_Click);
    ConnectHandler(escolha, &ListBox::GotFocus, this, &Form::lstMusicasSelecionadas_GotFocus);
    ConnectHandler(escolha, &ListBox::KeyDown, this, &Form::lstMusicasSelecionadas_KeyDown);

    const GradeListas* grade = ui->lstLista;
    ConnectHandler(grade, &GradeListas::DblClick, this, &Form::lstLista_DblClick);
    ConnectHandler(grade, &GradeListas::KeyDown, this, &Form::lstLista_KeyDown);
    ConnectHandler(grade, &GradeListas::ColumnClick, this, &Form::lstLista_ColumnClick);
}

bool PainelLista::Verifica_Modificacoes()
{
    if (!Modificada())
        return true;
    return Funcoes::Pergunta(this, QStringLiteral("Deseja descartar as modificações na lista?"));
}

void PainelLista::Foca_Nome()
{
    ui->txtNome->setFocus();
}

QString PainelLista::Hoje() const
{
    return Funcoes::Prepara_Data(Date::ToText(m_hoje()));
}

void PainelLista::Mostra_Contagem(int musicas)
{
    ui->lblLista->setText(QString::number(musicas) % u" Música(s) Selecionada(s)");
}

void PainelLista::Marca_Identidade(const QString& id)
{
    ui->txtNome->setProperty(Tag, id);
}

void PainelLista::Marca_Modificada(bool modificada)
{
    ui->lstMusicasSelecionadas->setProperty(Tag, modificada ? u"1"_qs : u"0"_qs);
}

bool PainelLista::Modificada() const
{
    return ui->lstMusicasSelecionadas->property(Tag).toString() == u"1";
}
