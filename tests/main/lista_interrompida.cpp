// Stores, changes or deletes a setlist through the real setlist panel and stands still at one of
// the boundaries on the way: lista_interrompida CATALOGUE insere|atualiza|exclui BOUNDARY

#include "AcaoInterrompida.h"

#include "controls/ListBox.h"
#include "controls/MaskEdit.h"
#include "main/GradeListas.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int Musicas = 60;

/// Double clicks the stored setlist and answers with a button of the dialog.
void Responde(const frmPrincipal& form, const QString& botao)
{
    auto* grade = form.findChild<GradeListas*>(u"lstLista"_qs);
    grade->setCurrentIndex(grade->model()->index(0, 0));
    QTimer::singleShot(0, grade, [botao] {
        QApplication::activeModalWidget()->findChild<QPushButton*>(botao)->click();
    });
    emit grade->DblClick();
}

void Muda_Musicas(const frmPrincipal& form)
{
    auto* escolha = form.findChild<ListBox*>(u"lstMusicasSelecionadas"_qs);
    while (escolha->ListCount() > Musicas / 2)
        escolha->RemoveItem(0);
    while (escolha->ListCount() < Musicas) {
        escolha->AddItem(u"Outra"_qs);
        escolha->SetItemData(escolha->NewIndex(), 2);
    }
}

std::function<void()> Prepara(frmPrincipal& form, const QString& acao)
{
    form.mnuLista_Click();
    if (acao == u"exclui")
        return [&form] { Responde(form, u"cmdExcluir"_qs); };
    if (acao == u"atualiza")
        Responde(form, u"cmdEditar"_qs);
    form.findChild<QLineEdit*>(u"txtNome"_qs)->setText(u"Depois"_qs);
    form.findChild<MaskEdit*>(u"txtData"_qs)->setText(u"31/12/2010"_qs);
    Muda_Musicas(form);
    return [&form] { form.findChild<QPushButton*>(u"cmdSalvar"_qs)->click(); };
}

} // namespace

int main(int argc, char* argv[])
{
    return Executa_E_Para(argc, argv, Prepara);
}
