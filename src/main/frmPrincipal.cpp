#include "main/frmPrincipal.h"

#include "ui_frmPrincipal.h"

#include "artwork/Artwork.h"
#include "controls/Appearance.h"
#include "controls/Dialogs.h"
#include "controls/Handler.h"
#include "controls/TextBox.h"
#include "controls/Twips.h"
#include "exchange/frmExportar.h"
#include "main/Conecta_Banco.h"
#include "main/TeclasAcesso.h"
#include "main/Texto_Sobre.h"
#include "runtime/Number.h"
#include "runtime/Text.h"
#include "runtime/Version.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

namespace {

// Twips.
constexpr int Largura = 15360;
constexpr int Altura = 11100;
constexpr int BarraDeTarefas = 420;
constexpr int Afastamento = 8;

constexpr int EsperaMs = 200;

struct Botao
{
    const char16_t* chave;
    const char16_t* texto;
    const char16_t* dica;
    void (frmPrincipal::*comando)();
};

constexpr std::array<Botao, 7> Botoes{{
    {u"pesquisa", u"Pesquisa", u"Pesquisar Música", &frmPrincipal::mnuPesquisa_Click},
    {u"cadastro", u"Cadastro", u"Cadastrar Música", &frmPrincipal::mnuCadastro_Click},
    {u"lista", u"Lista", u"Gerenciar Listas", &frmPrincipal::mnuLista_Click},
    {u"exportar", u"Exportar", u"Exporta as músicas listadas", &frmPrincipal::mnuExportar_Click},
    {u"importar", u"Importar", u"Importar Músicas de Arquivo", &frmPrincipal::mnuImportar_Click},
    {u"sobre", u"Sobre", u"Sobre o Melodario", &frmPrincipal::mnuSobre_Click},
    {u"sair", u"Sair", u"Sair do Melodario", &frmPrincipal::mnuSair_Click},
}};

} // namespace

frmPrincipal::frmPrincipal(QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::frmPrincipal>())
    , Timer1(new QTimer(this))
{
    ui->setupUi(this);
    setContextMenuPolicy(Qt::NoContextMenu); // no menu that takes the toolbar away
    ui->menuBar->setNativeMenuBar(false);
    pctFrame = {ui->pctFrame_0, ui->pctFrame_1, ui->pctFrame_2};
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(EsperaMs);
    Timer1->setSingleShot(true);
    Monta_Toolbar();
    Liga_Eventos();
    new TeclasAcesso(*this, *ui->menuBar);
}

frmPrincipal::~frmPrincipal() = default;

void frmPrincipal::Monta_Toolbar()
{
    for (const Botao& botao : Botoes) {
        const QString chave = QString::fromUtf16(botao.chave);
        auto* acao = new QAction(Appearance::Icon(Artwork::Path(u"toolbar/" % chave)),
                                 QString::fromUtf16(botao.texto), ui->Toolbar);
        acao->setData(chave);
        acao->setToolTip(QString::fromUtf16(botao.dica));
        ui->Toolbar->addAction(acao);
    }
}

void frmPrincipal::Liga_Eventos()
{
    ConnectHandler(ui->mnuPesquisa, &QAction::triggered, this, &frmPrincipal::mnuPesquisa_Click);
    ConnectHandler(ui->mnuCadastro, &QAction::triggered, this, &frmPrincipal::mnuCadastro_Click);
    ConnectHandler(ui->mnuLista, &QAction::triggered, this, &frmPrincipal::mnuLista_Click);
    ConnectHandler(ui->mnuExportar, &QAction::triggered, this, &frmPrincipal::mnuExportar_Click);
    ConnectHandler(ui->mnuImportar, &QAction::triggered, this, &frmPrincipal::mnuImportar_Click);
    ConnectHandler(ui->mnuSobre, &QAction::triggered, this, &frmPrincipal::mnuSobre_Click);
    ConnectHandler(ui->mnuSair, &QAction::triggered, this, &frmPrincipal::mnuSair_Click);
    ConnectHandler(ui->Toolbar, &QToolBar::actionTriggered, this,
                   &frmPrincipal::Toolbar_ButtonClick);
    for (const Painel* painel : pctFrame)
        ConnectHandler(painel, &Painel::Click, this, &frmPrincipal::pctFrame_Click);
    ConnectUnattended(Timer1, &QTimer::timeout, this, &frmPrincipal::Timer1_Timer);
    ui->pctFrame_0->Liga_Eventos(*this);
    ui->pctFrame_2->Liga_Eventos(*this);
}

void frmPrincipal::Form_Load(const QString& linha_comando)
{
    Posiciona();
    for (Painel* painel : pctFrame)
        painel->Mostra(false);
    pctFrame[QuadroPesquisa]->Mostra(true);
    ui->pctTeclado->Oculta_Teclado();
    setWindowTitle(u"Melodario v." % Version::ToText());
    Conecta_Banco();
    m_conectado = true;
    Preenche_Temas();
    Timer1->start();
    if (!linha_comando.isEmpty())
        Importa_Musicas(linha_comando);
}

void frmPrincipal::Posiciona()
{
    resize(Twips::ToPixels(Largura), Twips::ToPixels(Altura));
    const QRect tela = QGuiApplication::primaryScreen()->geometry();
    const int topo = (Twips::FromPixels(tela.height()) - BarraDeTarefas) / 2 - Altura / 2;
    const int esquerda = Twips::FromPixels(tela.width()) / 2 - Largura / 2;
    move(tela.topLeft() + QPoint(Twips::ToPixels(esquerda), Twips::ToPixels(topo)));
    const int margem = Twips::ToPixels(Afastamento);
    ui->grdPaineis->setContentsMargins(margem, margem, margem, margem);
}

void frmPrincipal::Mostra_Painel(Indice indice)
{
    for (int i = 0; i < Quadros; ++i)
        pctFrame[static_cast<std::size_t>(i)]->Mostra(i == indice);
}

void frmPrincipal::mnuPesquisa_Click()
{
    if (!Verifica_Modificacoes())
        return;
    Mostra_Painel(QuadroPesquisa);
    ui->pctFrame_0->Foca_Titulo();
}

void frmPrincipal::mnuCadastro_Click()
{
    if (!Verifica_Modificacoes())
        return;
    Inicializa_Cadastro(0);
    Mostra_Painel(QuadroCadastro);
    ui->pctFrame_2->Foca_Titulo();
}

void frmPrincipal::mnuLista_Click()
{
    if (!Inicializa_Lista())
        return; // closed meanwhile, perhaps deleted
    Mostra_Painel(QuadroLista);
    ui->pctFrame_1->Foca_Nome();
}

void frmPrincipal::mnuSobre_Click()
{
    Funcoes::Mostra_Mensagem(this, Texto_Sobre(), Icone::Nenhum);
}

void frmPrincipal::mnuSair_Click()
{
    if (Verifica_Modificacoes())
        close();
}

void frmPrincipal::Toolbar_ButtonClick(const QAction* botao)
{
    const QString chave = botao->data().toString();
    for (const Botao& conhecido : Botoes) {
        if (chave == QStringView(conhecido.chave)) {
            (this->*conhecido.comando)();
            return;
        }
    }
}

void frmPrincipal::pctFrame_Click()
{
    Oculta_Teclado();
}

void frmPrincipal::Timer1_Timer()
{
    Timer1->stop();
    ui->pctFrame_0->Pesquisa();
}

void frmPrincipal::Reinicia_Timer1()
{
    Timer1->stop();
    Timer1->start();
}

void frmPrincipal::Pesquisa()
{
    ui->pctFrame_0->Pesquisa();
}

void frmPrincipal::Abre_Musica(double id)
{
    ui->pctFrame_0->Abre_Musica(id);
}

void frmPrincipal::Executa_Comando(const QString& comando)
{
    const QStringList partes = Text::Split(comando, u'@');
    if (partes.size() < 2)
        return;
    if (partes[0] == u"abrir") {
        const auto id = Number::FromText(partes[1]);
        if (id &&
            Funcoes::Pergunta(this, QStringLiteral("Foi enviada uma nova música. Deseja abrí-la?")))
            Abre_Musica(*id);
    } else if (partes[0] == u"msg") {
        Funcoes::Mostra_Mensagem(this, partes[1], Icone::Informacao);
    }
}

bool frmPrincipal::Verifica_Modificacoes()
{
    return ui->pctFrame_1->Verifica_Modificacoes();
}

bool frmPrincipal::Inicializa_Lista()
{
    return ui->pctFrame_1->Inicializa_Lista();
}

void frmPrincipal::Inicializa_Cadastro(double id)
{
    ui->pctFrame_2->Inicializa_Cadastro(id);
}

void frmPrincipal::cmdExcluir_Click()
{
    ui->pctFrame_2->cmdExcluir_Click();
}

void frmPrincipal::Mostra_Teclado(TextBox& caixa)
{
    ui->pctTeclado->Mostra_Teclado(caixa);
}

void frmPrincipal::Oculta_Teclado()
{
    ui->pctTeclado->Oculta_Teclado();
}

void frmPrincipal::Conecta_Banco()
{
    Funcoes::Conecta_Banco();
}

void frmPrincipal::closeEvent(QCloseEvent* evento)
{
    RunHandler([this] { Form_Unload(); });
    evento->accept();
}

void frmPrincipal::Form_Unload()
{
    Timer1->stop();
    ui->pctFrame_0->Abandona_Pesquisas();
    delete m_exportar;
    if (std::exchange(m_conectado, false))
        Funcoes::Desconecta_Banco();
}
