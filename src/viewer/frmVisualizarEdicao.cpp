// Edit mode: a song is corrected where it is shown. Outside it the sheet is to be looked at.

#include "viewer/frmVisualizar.h"

#include "controls/Dialogs.h"
#include "controls/FocusRing.h"
#include "controls/Handler.h"
#include "ui_frmVisualizar.h"
#include "viewer/TeclasEdicao.h"

#include <QPointer>

namespace {

constexpr QColor FundoEdicao(0xC0, 0xC0, 0xC0);
constexpr QColor FundoLeitura(0xFF, 0xFF, 0xFF);

/// Puts the caret where the sheet is being read, when it is out of sight: the first key typed would
/// scroll back to it.
void Traz_Cursor(RichTextBox& caixa)
{
    const QRect visivel = caixa.viewport()->rect();
    if (visivel.intersects(caixa.cursorRect()))
        return;
    QTextCursor cursor = caixa.cursorForPosition(visivel.topLeft());
    if (caixa.cursorRect(cursor).top() < visivel.top()) // a line cut by the edge would scroll
        cursor.movePosition(QTextCursor::NextBlock);
    caixa.setTextCursor(cursor);
}

} // namespace

void frmVisualizar::Liga_Edicao()
{
    using Form = frmVisualizar;
    constexpr auto click = &QAbstractButton::clicked;

    ConnectHandler(ui->cmdEditar, click, this, &Form::cmdEditar_Click);
    ConnectHandler(ui->cmdSalvar, click, this, &Form::cmdSalvar_Click);
    ConnectHandler(ui->cmdDescartar, click, this, &Form::cmdDescartar_Click);
    for (RichTextBox* caixa : {ui->RichTextBox_1, ui->RichTextBox_2}) {
        ConnectHandler(caixa, &RichTextBox::GotFocus, this, &Form::RichTextBox_GotFocus);
        Teclas_Edicao->Vigia(caixa);
        new FocusRing(*caixa); // owned by what the sheets lie on
    }

    QWidget* anterior = ui->RichTextBox_1;
    for (QWidget* controle : std::initializer_list<QWidget*>{
             ui->RichTextBox_2, ui->cmdSalvar, ui->cmdDescartar, ui->cmdMinimizar, ui->cmdFechar}) {
        setTabOrder(anterior, controle);
        anterior = controle;
    }
    for (ImageButton* botao : {ui->cmdSalvar, ui->cmdDescartar, ui->cmdMinimizar, ui->cmdFechar})
        Teclas_Edicao->Vigia(botao);
    Permite_Digitar(false);
}

void frmVisualizar::Muda_Status_Edicao(bool editar)
{
    Auto_Rolagem(false);
    ui->lblVersao->setEnabled(!editar);
    Mostra_Pares(editar);
    Mostra_Proximo_Anterior();
    ui->cmbLista->setEnabled(!editar);
    Permite_Digitar(editar);
    Leva_Foco(editar);
}

/// Of each pair one picture is to be seen, in the same place.
void frmVisualizar::Mostra_Pares(bool editar)
{
    for (QWidget* leitura : std::initializer_list<QWidget*>{
             ui->cmdSobe, ui->cmdTomOriginal, ui->cmdDesce, ui->cmdLetra, ui->cmdAumentaFonte,
             ui->cmdDiminuiFonte, ui->cmdAutoRolagem, ui->cmdDescartar2, ui->cmdEditar,
             ui->cmdAnterior, ui->cmdProxima})
        leitura->setVisible(!editar);
    for (QWidget* edicao : std::initializer_list<QWidget*>{
             ui->cmdSobe2, ui->cmdTomOriginal2, ui->cmdDesce2, ui->cmdLetra2, ui->cmdAumentaFonte2,
             ui->cmdDiminuiFonte2, ui->cmdDescartar, ui->cmdSalvar, ui->cmdAnterior2,
             ui->cmdProxima2})
        edicao->setVisible(editar);
    // The arrows come back with the position in the list: their twins lie on top of them, so that a
    // click there cannot take the text away.
    ui->cmdAnterior2->raise();
    ui->cmdProxima2->raise();
}

/// Outside edit mode: no caret, no typing, no selection, and Tab passes the boxes by.
void frmVisualizar::Permite_Digitar(bool editar)
{
    for (RichTextBox* caixa : {ui->RichTextBox_1, ui->RichTextBox_2}) {
        caixa->setTextInteractionFlags(editar ? Qt::TextEditorInteraction : Qt::NoTextInteraction);
        caixa->setFocusPolicy(editar ? Qt::StrongFocus : Qt::NoFocus);
        caixa->viewport()->setCursor(editar ? Qt::IBeamCursor : Qt::ArrowCursor);
        caixa->SetBackColor(editar ? FundoEdicao : FundoLeitura);
    }
    for (ImageButton* botao : {ui->cmdSalvar, ui->cmdDescartar, ui->cmdMinimizar, ui->cmdFechar})
        botao->setKeyboardReachable(editar);
    if (editar)
        Teclas_Edicao->Comeca();
    else
        Teclas_Edicao->Termina();
}

/// The keys go to the text, and back to the form, which alone takes them outside edit mode.
void frmVisualizar::Leva_Foco(bool editar)
{
    setFocusPolicy(editar ? Qt::NoFocus : Qt::StrongFocus);
    if (!editar) {
        setFocus();
        return;
    }
    Traz_Cursor(Caixa(Versao));
    Caixa(Versao).setFocus();
}

void frmVisualizar::RichTextBox_GotFocus()
{
    if (Editando)
        return;
    // However it came; where nothing else takes it, nobody has it.
    QWidget* caixa = focusWidget();
    if (!focusNextChild() && caixa)
        caixa->clearFocus();
}

void frmVisualizar::Comeca_Edicao()
{
    Editando = true;
    Muda_Status_Edicao(true);
}

void frmVisualizar::Descartar_Edicao()
{
    const QPointer<frmVisualizar> aberto(this);
    if (!Funcoes::Pergunta(this, u"Deseja descartar as alterações realizadas?"_qs) || !aberto)
        return;
    Editando = false;
    Muda_Status_Edicao(false);
    Atualiza_Musica(Versao);
}

void frmVisualizar::cmdEditar_Click()
{
    Comeca_Edicao();
}

void frmVisualizar::cmdSalvar_Click()
{
    if (!Editando) {
        Comeca_Edicao();
        return;
    }
    if (!Salvar())
        return;
    Editando = false;
    Muda_Status_Edicao(false);
}

void frmVisualizar::cmdDescartar_Click()
{
    Descartar_Edicao();
}
