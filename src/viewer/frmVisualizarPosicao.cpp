// How the form lies over the screen. Lengths are twips; the form's design gives what is not
// computed here: the places of the buttons inside their panel and the sizes of panels and images.

#include "viewer/frmVisualizar.h"

#include "controls/Twips.h"
#include "ui_frmVisualizar.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int FaixaLivre = 480; // below the form, for whatever lies at the screen's lower edge
constexpr int AlturaFaixa = 1240;
constexpr int AlturaBotoes = 375;
constexpr int EsquerdaBotoes = 960;
constexpr int MargemBotoes = 60;
constexpr int TopoBotoes = 90;
constexpr int TopoTomOriginal = 60;
constexpr int LarguraLista = 6030;
constexpr int LarguraMinimaLista = 1800;
constexpr int MargemCaixa = 120;
constexpr int EspessuraLinha = Twips::PerPixel;
constexpr int MargemLinha = 270;
constexpr int TopoLine1 = 1200;
constexpr int TopoLine2 = TopoLine1 - 660;
constexpr int BaseCabecalho = 1005; // what the letters of the header row stand on
constexpr int BordaForm = 20;       // from the form's edge to its border
constexpr QColor CinzaEscuro(0x40, 0x40, 0x40);

int Largura(const QWidget* controle)
{
    return Twips::FromPixels(controle->width());
}

int Altura(const QWidget* controle)
{
    return Twips::FromPixels(controle->height());
}

/// Both edges are rounded, not place and size, so that neighbours meet without a gap.
void Coloca(QWidget* controle, int esquerda, int topo, int largura, int altura)
{
    const QPoint inicio(Twips::ToPixels(esquerda), Twips::ToPixels(topo));
    const QPoint fim(Twips::ToPixels(esquerda + largura), Twips::ToPixels(topo + altura));
    controle->setGeometry(QRect(inicio, QSize(fim.x() - inicio.x(), fim.y() - inicio.y())));
}

void Coloca(QWidget* controle, int esquerda, int topo)
{
    controle->move(Twips::ToPixels(esquerda), Twips::ToPixels(topo));
}

} // namespace

void frmVisualizar::Confugura_Posicao()
{
    const QRect tela = QGuiApplication::primaryScreen()->geometry();
    setGeometry(tela.left(), tela.top(), tela.width(), tela.height() - Twips::ToPixels(FaixaLivre));
    Arruma_Controles();
}

void frmVisualizar::Arruma_Controles()
{
    Tamanho_Arrumado = size();
    Posiciona_Faixa();
    Posiciona_Moldura();
    Posiciona_Linhas();
}

/// The desktop may give the form another size than it asks for: a panel, tiles, a screen that goes.
/// Where the sheet stands is not changed by that, only how far it can go: at an end that comes
/// nearer, it stands at the end.
void frmVisualizar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (Tamanho_Arrumado.isEmpty() || Tamanho_Arrumado == size())
        return;
    Arruma_Controles();
    Arruma_Cabecalho();
    Guarda_Limite_Rolagem(Caixa(Versao));
    double& posicao = Posicao.at(static_cast<std::size_t>(Versao));
    posicao = std::min(posicao, Limite_Rolagem());
}

void frmVisualizar::Posiciona_Faixa()
{
    const int direita = Largura(this) - EspessuraLinha - 30 - 10;
    const int topo = EspessuraLinha + 20;
    Coloca(ui->cmdFechar, direita - Largura(ui->cmdFechar), topo);
    ui->cmdMinimizar->move(ui->cmdFechar->x() - ui->cmdMinimizar->width(), ui->cmdFechar->y());

    const int fim_botoes = Twips::FromPixels(ui->cmdMinimizar->x()) - MargemBotoes;
    Coloca(ui->pctBotoes, EsquerdaBotoes, TopoBotoes, fim_botoes - EsquerdaBotoes, AlturaBotoes);
    Posiciona_Lista();
    for (QWidget* botao : ui->pctBotoes->findChildren<QWidget*>())
        if (botao->objectName().startsWith(u"cmd"))
            botao->move(botao->x(), 0);
    for (QWidget* botao :
         {static_cast<QWidget*>(ui->cmdTomOriginal), static_cast<QWidget*>(ui->cmdTomOriginal2)})
        botao->move(botao->x(), Twips::ToPixels(TopoTomOriginal));

    // The captions differ in size: they stand on one line.
    for (RotuloCabecalho* rotulo : {ui->lblTitulo, ui->lblTom, ui->lblReferencia, ui->lblTemas}) {
        const int base = Twips::ToPixels(BaseCabecalho);
        rotulo->move(Twips::ToPixels(MargemCaixa), base - rotulo->fontMetrics().ascent());
    }
    Coloca(ui->lblCont, direita - Largura(ui->lblCont), TopoLine2);
    ui->lblCont->resize(ui->lblCont->width(), Twips::ToPixels(TopoLine1 - TopoLine2));
}

void frmVisualizar::Posiciona_Lista()
{
    // On a narrow screen the list gives way to the buttons as far as it can.
    const int fim_comandos = Twips::FromPixels(ui->cmdDescartar->geometry().right()) + MargemBotoes;
    const int resto = Largura(ui->pctBotoes) - fim_comandos;
    const int largura = std::clamp(resto, LarguraMinimaLista, LarguraLista);
    const int pixels = Twips::ToPixels(largura) - ui->pctLista->width();
    ui->cmbLista->resize(ui->cmbLista->width() + pixels, ui->cmbLista->height());
    for (QWidget* botao :
         {static_cast<QWidget*>(ui->cmdProxima), static_cast<QWidget*>(ui->cmdProxima2)})
        botao->move(botao->x() + pixels, 0);

    Coloca(ui->pctLista, Largura(ui->pctBotoes) - largura, 0, largura, AlturaBotoes);
}

void frmVisualizar::Posiciona_Moldura()
{
    const int largura = Largura(this);
    const int altura = Altura(this);
    const int esq = Largura(ui->imgFundoSupEsq);
    const int dir = Largura(ui->imgFundoSupDir);
    const int sup = Altura(ui->imgFundoSupEsq);
    const int inf = Altura(ui->imgFundoInfEsq);
    const int topo_inf = altura - inf;

    Coloca(ui->imgFundoSupEsq, 0, AlturaFaixa);
    Coloca(ui->imgFundoSupDir, largura - dir, AlturaFaixa);
    Coloca(ui->imgFundoInfEsq, 0, topo_inf);
    Coloca(ui->imgFundoInfDir, largura - dir, topo_inf);
    Coloca(ui->imgFundoSup, esq, AlturaFaixa, largura - esq - dir, sup);
    Coloca(ui->imgFundoInf, esq, topo_inf, largura - esq - dir, inf);
    const int lados = altura - AlturaFaixa - sup - inf;
    Coloca(ui->imgFundoEsq, 0, AlturaFaixa + sup, esq, lados);
    Coloca(ui->imgFundoDir, largura - dir, AlturaFaixa + sup, dir, lados);

    Coloca(ui->pctMusica, esq, AlturaFaixa + sup, largura - esq - dir, lados);
    ui->RichTextBox_1->setGeometry(Twips::ToPixels(MargemCaixa), Twips::ToPixels(MargemCaixa),
                                   Twips::ToPixels(Largura(ui->pctMusica) - 2 * MargemCaixa),
                                   Twips::ToPixels(Altura(ui->pctMusica) - 2 * MargemCaixa));
    ui->RichTextBox_2->setGeometry(ui->RichTextBox_1->geometry());
}

void frmVisualizar::Posiciona_Linhas()
{
    const int largura = Largura(this);
    const int altura = Altura(this);
    const int comprimento = largura - 2 * BordaForm;
    Coloca(ui->lnSup, BordaForm, BordaForm, comprimento, EspessuraLinha);
    Coloca(ui->lnEsq, BordaForm, BordaForm, EspessuraLinha, altura - 2 * BordaForm);
    Coloca(ui->lnInf, BordaForm, altura - BordaForm - EspessuraLinha, comprimento, EspessuraLinha);
    Coloca(ui->lnDir, largura - BordaForm - EspessuraLinha, BordaForm, EspessuraLinha,
           altura - 2 * BordaForm);
    Coloca(ui->Line1, MargemLinha, TopoLine1, largura - 2 * MargemLinha, EspessuraLinha);
    Coloca(ui->Line2, MargemLinha, TopoLine2, largura - 2 * MargemLinha, EspessuraLinha);
    for (QFrame* linha : {ui->lnSup, ui->lnEsq, ui->lnInf, ui->lnDir, ui->Line1, ui->Line2}) {
        linha->setPalette(QPalette(CinzaEscuro));
        linha->raise();
    }
}
