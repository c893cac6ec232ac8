// Enters, corrects or deletes a song through the real song entry panel and stands still at one of
// the boundaries on the way: cadastro_interrompido CATALOGUE insere|atualiza|exclui BOUNDARY

#include "AcaoInterrompida.h"

#include "controls/ListBox.h"
#include "controls/RichTextBox.h"
#include "controls/TextBox.h"

#include <QPushButton>

namespace {

std::function<void()> Aperta(const frmPrincipal& form, const QString& botao)
{
    return [alvo = form.findChild<QPushButton*>(botao)] { alvo->click(); };
}

std::function<void()> Prepara(frmPrincipal& form, const QString& acao)
{
    form.mnuCadastro_Click();
    if (acao != u"insere")
        form.Inicializa_Cadastro(1);
    if (acao == u"exclui")
        return Aperta(form, u"cmdExcluir"_qs);
    form.findChild<TextBox*>(u"txtCadTitulo"_qs)->setText(u"Depois"_qs);
    form.findChild<TextBox*>(u"txtCadReferencia"_qs)->setText(u"Ana"_qs);
    form.findChild<RichTextBox*>(u"txtCadLetra_0"_qs)->SetText(u"C\nDepois"_qs);
    auto* temas = form.findChild<ListBox*>(u"lstCadTema"_qs);
    for (int i = 0; i < temas->ListCount(); ++i)
        temas->SetSelected(i, !temas->Selected(i));
    return Aperta(form, u"cmdCadSalvar"_qs);
}

} // namespace

int main(int argc, char* argv[])
{
    return Executa_E_Para(argc, argv, Prepara);
}
