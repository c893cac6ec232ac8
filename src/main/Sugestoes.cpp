#include "main/Sugestoes.h"

#include "controls/Handler.h"
#include "controls/ListBox.h"
#include "controls/RichTextBox.h"
#include "controls/TextBox.h"
#include "controls/Twips.h"
#include "main/SegundoToque.h"
#include "main/TecladoVirtual.h"
#include "store/Apostrofos.h"
#include "store/Connection.h"
#include "store/Preenche.h"

#include <QEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

using namespace Funcoes;

namespace {

constexpr int AEsquerda = 10; // twips that a list begins before its box
constexpr int MaisLinhas = 9; // shown without scrolling

ListBox* Cria_Lista(QWidget& sobre, const QString& nome, const QString& rotulo)
{
    auto* lista = new ListBox(&sobre);
    lista->setObjectName(nome);
    lista->setAccessibleName(rotulo);
    lista->setFocusPolicy(Qt::ClickFocus); // Tab goes on in the panel
    lista->hide();
    return lista;
}

/// Puts a list directly below its box, as high as its items need and the form has room for.
void Posiciona(ListBox& lista, const QWidget& caixa)
{
    const QWidget& formulario = *lista.parentWidget();
    const QPoint embaixo = caixa.mapTo(&formulario, QPoint(0, caixa.height()));
    const int esquerda = Twips::ToPixels(Twips::FromPixels(embaixo.x()) - AEsquerda);
    const int direita = embaixo.x() + caixa.width() + (embaixo.x() - esquerda);
    lista.ensurePolished();
    const int moldura = 2 * lista.frameWidth();
    const int linhas = std::clamp(lista.ListCount(), 1, MaisLinhas);
    const int altura = linhas * std::max(1, lista.sizeHintForRow(0)) + moldura;
    lista.setGeometry(esquerda, embaixo.y(), direita - esquerda,
                      std::min(altura, formulario.height() - embaixo.y()));
}

void Mostra(ListBox& lista, const QWidget& caixa)
{
    Posiciona(lista, caixa);
    // Nothing comes between while the list is shown: at a further letter it lies where it has to.
    if (!lista.isHidden())
        return;
    lista.show();
    lista.raise();
    // The keyboard floats over everything: its keys are to be reached while the list grows.
    if (auto* teclado = lista.parentWidget()->findChild<TecladoVirtual*>())
        lista.stackUnder(teclado);
}

} // namespace

Sugestoes::Sugestoes(QWidget& painel, const Caixas& caixas, std::function<void(double)> abre_musica)
    : QObject(&painel)
    , m_caixas(caixas)
    , m_abre_musica(std::move(abre_musica))
    , lstMusicasSemelhantes(Cria_Lista(*painel.parentWidget(), u"lstMusicasSemelhantes"_qs,
                                       u"Músicas semelhantes"_qs))
    , lstReferenciasSemelhantes(Cria_Lista(*painel.parentWidget(), u"lstReferenciasSemelhantes"_qs,
                                           u"Referências semelhantes"_qs))
{
    Liga_Titulo();
    Liga_Referencia();
    for (const RichTextBox* caixa : m_caixas.txtCadLetra)
        ConnectHandler(caixa, &RichTextBox::GotFocus, this, &Sugestoes::txtCadLetra_GotFocus);
    // Where the focus goes on from a list that is hidden while it has it: not back to its own box,
    // which would show the list again.
    QWidget::setTabOrder(m_caixas.txtCadTitulo, lstMusicasSemelhantes);
    QWidget::setTabOrder(m_caixas.txtCadReferencia, lstReferenciasSemelhantes);
    painel.installEventFilter(this);
    m_caixas.txtCadTitulo->installEventFilter(this);
    m_caixas.txtCadReferencia->installEventFilter(this);
}

void Sugestoes::Liga_Titulo()
{
    const TextBox* caixa = m_caixas.txtCadTitulo;
    ConnectUnattended(caixa, &TextBox::Change, this, &Sugestoes::txtCadTitulo_Change);
    ConnectHandler(caixa, &TextBox::GotFocus, this, &Sugestoes::txtCadTitulo_GotFocus);
    ConnectHandler(caixa, &TextBox::LostFocus, this, &Sugestoes::txtCadTitulo_LostFocus);
    ConnectHandler(lstMusicasSemelhantes, &ListBox::DblClick, this,
                   &Sugestoes::lstMusicasSemelhantes_DblClick);
    ConnectHandler(new SegundoToque(*lstMusicasSemelhantes), &SegundoToque::DblClick, this,
                   m_abre_musica);
}

void Sugestoes::Liga_Referencia()
{
    const TextBox* caixa = m_caixas.txtCadReferencia;
    const ListBox* lista = lstReferenciasSemelhantes;
    ConnectUnattended(caixa, &TextBox::Change, this, &Sugestoes::txtCadReferencia_Change);
    ConnectHandler(caixa, &TextBox::GotFocus, this, &Sugestoes::txtCadReferencia_GotFocus);
    ConnectHandler(caixa, &TextBox::KeyDown, this, &Sugestoes::txtCadReferencia_KeyDown);
    ConnectHandler(lista, &ListBox::DblClick, this, &Sugestoes::lstReferenciasSemelhantes_DblClick);
    ConnectHandler(lista, &ListBox::KeyDown, this,
                   [this](QKeyEvent* evento) { lstReferenciasSemelhantes_KeyDown(*evento); });
    ConnectHandler(lista, &ListBox::LostFocus, this,
                   &Sugestoes::lstReferenciasSemelhantes_LostFocus);
}

bool Sugestoes::eventFilter(QObject* objeto, QEvent* evento)
{
    switch (evento->type()) {
    case QEvent::Hide:
        // Floating over the panels, the lists would stay behind when theirs goes.
        if (objeto == parent()) {
            Oculta_Musicas_Semelhantes();
            Oculta_Referencias_Semelhantes();
        }
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (objeto == m_caixas.txtCadTitulo && lstMusicasSemelhantes->isVisible())
            Posiciona(*lstMusicasSemelhantes, *m_caixas.txtCadTitulo);
        if (objeto == m_caixas.txtCadReferencia && lstReferenciasSemelhantes->isVisible())
            Posiciona(*lstReferenciasSemelhantes, *m_caixas.txtCadReferencia);
        break;
    default:
        break;
    }
    return false;
}

void Sugestoes::txtCadTitulo_Change()
{
    const QString titulo = m_caixas.txtCadTitulo->text();
    if (!titulo.isEmpty()) {
        SQL = u"SELECT ID, TITULO & ' - ' & REFERENCIA FROM MUSICA WHERE TITULO LIKE '"_qs +
              Dobra_Apostrofos(titulo) + u"%' ORDER BY TITULO & ' - ' & REFERENCIA"_qs;
        Preenche_ListBox(*lstMusicasSemelhantes, SQL, QString(), true);
    }
    // A song that is loaded while the focus is elsewhere fills the list and shows none.
    if (titulo.isEmpty() || m_caixas.txtCadTitulo->hasFocus())
        Mostra_Musicas_Semelhantes();
}

void Sugestoes::txtCadTitulo_GotFocus()
{
    Mostra_Musicas_Semelhantes();
}

void Sugestoes::txtCadTitulo_LostFocus()
{
    Oculta_Musicas_Semelhantes();
}

void Sugestoes::lstMusicasSemelhantes_DblClick()
{
    const int atual = lstMusicasSemelhantes->ListIndex();
    if (atual >= 0)
        m_abre_musica(static_cast<double>(lstMusicasSemelhantes->ItemData(atual)));
}

void Sugestoes::Mostra_Musicas_Semelhantes()
{
    if (m_caixas.txtCadTitulo->text().isEmpty())
        Oculta_Musicas_Semelhantes();
    else
        Mostra(*lstMusicasSemelhantes, *m_caixas.txtCadTitulo);
}

void Sugestoes::Oculta_Musicas_Semelhantes()
{
    lstMusicasSemelhantes->hide();
}

void Sugestoes::txtCadReferencia_Change()
{
    const QString referencia = m_caixas.txtCadReferencia->text();
    if (!referencia.isEmpty()) {
        SQL = u"SELECT DISTINCT 1, REFERENCIA FROM MUSICA WHERE REFERENCIA LIKE '"_qs +
              Dobra_Apostrofos(referencia) + u"%' ORDER BY REFERENCIA"_qs;
        Preenche_ListBox(*lstReferenciasSemelhantes, SQL, QString(), true);
    }
    if (referencia.isEmpty() || m_caixas.txtCadReferencia->hasFocus())
        Mostra_Referencias_Semelhantes();
}

void Sugestoes::txtCadReferencia_GotFocus()
{
    Mostra_Referencias_Semelhantes();
}

void Sugestoes::txtCadReferencia_KeyDown(int tecla)
{
    ListBox& lista = *lstReferenciasSemelhantes;
    if (tecla != Qt::Key_Down || !lista.isVisible())
        return;
    lista.setFocus();
    // Only a list that has a current item begins at its top; another one waits for the next arrow.
    if (lista.ListIndex() >= 0) {
        lista.SetListIndex(0);
        lista.SetSelected(0, true);
    }
    lista.show();
}

void Sugestoes::lstReferenciasSemelhantes_DblClick()
{
    ListBox& lista = *lstReferenciasSemelhantes;
    if (lista.ListIndex() < 0)
        return;
    // Setting the text fills the list anew.
    m_caixas.txtCadReferencia->setText(QString(lista.Text(lista.ListIndex())));
    const auto& versoes = m_caixas.txtCadLetra;
    versoes[versoes[0]->isHidden() ? 1 : 0]->setFocus();
    Oculta_Referencias_Semelhantes();
}

void Sugestoes::lstReferenciasSemelhantes_KeyDown(QKeyEvent& evento)
{
    if (evento.key() != Qt::Key_Return && evento.key() != Qt::Key_Enter)
        return;
    evento.accept();
    lstReferenciasSemelhantes_DblClick();
}

void Sugestoes::lstReferenciasSemelhantes_LostFocus()
{
    Oculta_Referencias_Semelhantes();
}

void Sugestoes::Mostra_Referencias_Semelhantes()
{
    if (m_caixas.txtCadReferencia->text().isEmpty())
        Oculta_Referencias_Semelhantes();
    else
        Mostra(*lstReferenciasSemelhantes, *m_caixas.txtCadReferencia);
}

void Sugestoes::Oculta_Referencias_Semelhantes()
{
    lstReferenciasSemelhantes->hide();
}

void Sugestoes::txtCadLetra_GotFocus()
{
    Oculta_Musicas_Semelhantes();
    Oculta_Referencias_Semelhantes();
}
