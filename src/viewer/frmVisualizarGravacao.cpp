// Leaving edit mode: the save choice, saving, closing and minimising.

#include "viewer/frmVisualizar.h"

#include "chords/Notas.h"
#include "controls/Handler.h"
#include "controls/Resposta_Mensagem.h"
#include "runtime/Number.h"
#include "store/Apostrofos.h"
#include "store/Connection.h"
#include "ui_frmVisualizar.h"
#include "viewer/Minimiza_Janela.h"
#include "viewer/frmMensagem.h"

#include <QCloseEvent>
#include <QPointer>

using namespace Funcoes;

bool frmVisualizar::Salvar()
{
    const QPointer<frmVisualizar> aberto(this);
    Resposta_Mensagem = 0;
    frmMensagem::Mostra(this);
    const int resposta = Resposta_Mensagem;
    if (!aberto || resposta == frmMensagem::Cancelar)
        return false;
    switch (resposta) {
    case frmMensagem::NaoSalvar:
        Atualiza_Musica(Versao);
        break;
    case frmMensagem::SalvarIgualar:
        Iguala_Versoes();
        [[fallthrough]];
    case frmMensagem::Salvar:
    case 0: // closed without a button
        Grava_Musica();
        break;
    default:
        break;
    }
    return true;
}

void frmVisualizar::Iguala_Versoes()
{
    Caixa(Versao == 1 ? 2 : 1).SetText(Caixa(Versao).Text());
}

/// What is shown is what is stored: the key and the chords as displayed, the other version as it
/// stands in its box, the title as its caption is, with its apostrophes.
void frmVisualizar::Grava_Musica()
{
    SQL = u"UPDATE MUSICA SET TITULO = '"_qs + ui->lblTitulo->text().remove(u'*') +
          u"', TOM = '"_qs + Notas.at(static_cast<std::size_t>(Tom_Atual)) + u"',  MUSICA = '"_qs +
          Dobra_Apostrofos(Caixa(1).Text()) + u"',  MUSICA2 = '"_qs +
          Dobra_Apostrofos(Caixa(2).Text()) + u"'  WHERE ID = 0"_qs + Number::ToText(ID_Musica);
    Conexao.Execute(SQL);
    // Only what is stored for good may leave the boxes.
    Conexao.CommitBatch();
    Carrega_Musica();
    Deslocamento = 0;
    Atualiza_Musica(Versao);
}

void frmVisualizar::cmdFechar_Click()
{
    if (Editando) {
        if (!Salvar())
            return;
        Editando = false; // it has been asked
    }
    close();
}

void frmVisualizar::cmdMinimizar_Click()
{
    if (Editando) {
        if (!Salvar())
            return;
        Editando = false;
        Muda_Status_Edicao(false);
    }
    Minimiza_Janela(*this);
}

/// Closed from the task bar it may be minimised or covered, and the question with it.
void frmVisualizar::Traz_A_Frente()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void frmVisualizar::closeEvent(QCloseEvent* event)
{
    const QPointer<frmVisualizar> aberto(this);
    bool fecha = !Editando;
    if (Editando) {
        Traz_A_Frente();
        RunHandler([&] { fecha = Salvar(); });
    }
    if (!aberto)
        return;
    if (fecha)
        Editando = false;
    event->setAccepted(fecha);
}
