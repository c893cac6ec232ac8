// Storing and deleting the song that the panel holds.

#include "main/PainelCadastro.h"

#include "ui_PainelCadastro.h"

#include "controls/Dialogs.h"
#include "main/ServicosPrincipal.h"
#include "runtime/Number.h"
#include "store/Apostrofos.h"
#include "store/Connection.h"

using namespace Funcoes;

PainelCadastro::Valores PainelCadastro::Le_Valores() const
{
    Valores valores;
    valores.titulo = Dobra_Apostrofos(ui->txtCadTitulo->text());
    valores.referencia = Dobra_Apostrofos(ui->txtCadReferencia->text());
    for (std::size_t i = 0; i < txtCadLetra.size(); ++i)
        valores.letra[i] = Dobra_Apostrofos(txtCadLetra[i]->Text());
    valores.tom = ui->cmbCadTom->currentText();
    valores.variacao = ui->cmbCadVariacao->currentText();
    const ComboBox& categorias = *ui->cmbCadCategoria;
    valores.categoria =
        Number::ToInteger(static_cast<double>(categorias.ItemData(categorias.ListIndex())));
    return valores;
}

bool PainelCadastro::Tem_Tema() const
{
    for (int i = 0; i < ui->lstCadTema->ListCount(); ++i) {
        if (ui->lstCadTema->Selected(i))
            return true;
    }
    return false;
}

bool PainelCadastro::Recusa(const QString& texto, QWidget& campo)
{
    Mostra_Mensagem(this, texto, Icone::Exclamacao);
    campo.setFocus();
    return false;
}

bool PainelCadastro::Confere(const Valores& valores)
{
    if (valores.titulo.isEmpty())
        return Recusa(u"Preencha o Título da música."_qs, *ui->txtCadTitulo);
    if (valores.referencia.isEmpty())
        return Recusa(u"Preencha a Refrência da música."_qs, *ui->txtCadReferencia);
    if (valores.letra[0].isEmpty()) {
        lblMostraMusica_Click(0); // a hidden box takes no focus
        return Recusa(u"Preencha a Letra e Cifra da música."_qs, *txtCadLetra[0]);
    }
    if (!Tem_Tema())
        return Recusa(u"Selecione pelo menos um Tema para a música."_qs, *ui->lstCadTema);
    return true;
}

void PainelCadastro::cmdCadSalvar_Click()
{
    const double id = Number::FromText(Identidade()).value_or(0);
    Valores valores = Le_Valores();
    if (valores.letra[1].isEmpty())
        valores.letra[1] = valores.letra[0];
    if (!Confere(valores))
        return;
    Executa_E_Pesquisa([&] {
        if (id != 0)
            Atualiza(id, valores);
        else
            Insere(valores);
    });
}

/// Runs the statements of an action and searches anew, also after a failure. What ran before that
/// stays done, and is made durable before the search lets other handlers run; the failure is then
/// told by whoever called.
void PainelCadastro::Executa_E_Pesquisa(const std::function<void()>& comandos)
{
    std::exception_ptr falha;
    try {
        comandos();
    } catch (const std::exception&) {
        falha = std::current_exception();
    }
    if (!falha) {
        m_principal->Pesquisa();
        return;
    }
    try {
        Conexao.CommitBatch();
    } catch (const std::exception&) {
        falha = std::current_exception(); // it says that nothing of the action is left
    }
    try {
        m_principal->Pesquisa();
    } catch (const std::exception&) {
        // the first failure is the one to tell
    }
    std::rethrow_exception(falha);
}

void PainelCadastro::Atualiza(double id, const Valores& valores)
{
    const QString numero = Number::ToText(id);
    SQL = u"UPDATE MUSICA SET TITULO = '"_qs + valores.titulo + u"', REFERENCIA = '"_qs +
          valores.referencia + u"', MUSICA = '"_qs + valores.letra[0] + u"', MUSICA2 = '"_qs +
          valores.letra[1] + u"', TOM = '"_qs + valores.tom + u"', VARIACAO = '"_qs +
          valores.variacao + u"', CATEGORIA = "_qs + QString::number(valores.categoria) +
          u" WHERE ID = 0"_qs + numero;
    Conexao.Execute(SQL);
    SQL = u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 0"_qs + numero;
    Conexao.Execute(SQL);
    Insere_Temas(id);
    Mostra_Mensagem(this, u"Música Atualizada com Sucesso!"_qs, Icone::Informacao);
}

void PainelCadastro::Insere(const Valores& valores)
{
    SQL =
        u"INSERT INTO MUSICA (TITULO, REFERENCIA, MUSICA, MUSICA2, TOM, VARIACAO, CATEGORIA) "_qs +
        u" VALUES ('"_qs + valores.titulo + u"', '"_qs + valores.referencia + u"', '"_qs +
        valores.letra[0] + u"', '"_qs + valores.letra[1] + u"', '"_qs + valores.tom + u"', '"_qs +
        valores.variacao + u"', "_qs + QString::number(valores.categoria) + u")"_qs;
    Conexao.Execute(SQL);
    double id = 0;
    SQL = u"SELECT MAX(ID) AS ID FROM MUSICA"_qs;
    Consulta = Conexao.Execute(SQL);
    if (!Consulta.Eof())
        id = static_cast<double>(Consulta.Fields(u"ID").ToNumber());
    Consulta.Close();
    Insere_Temas(id);
    Mostra_Mensagem(this, u"Música Cadastrada com Sucesso!"_qs, Icone::Informacao);
    Guarda_Identidade(Number::ToText(id));
    Habilita_Musica_Guardada(true);
}

void PainelCadastro::Insere_Temas(double id)
{
    const ListBox& temas = *ui->lstCadTema;
    for (int i = 0; i < temas.ListCount(); i = Number::AddInteger(i, 1)) {
        if (!temas.Selected(i))
            continue;
        SQL = u"INSERT INTO TEMA_MUSICA (ID_MUSICA, ID_TEMA) "_qs + u" VALUES ("_qs +
              Number::ToText(id) + u", "_qs + QString::number(temas.ItemData(i)) + u")"_qs;
        Conexao.Execute(SQL);
    }
}

void PainelCadastro::cmdCadIgualarSalvar_Click()
{
    RichTextBox& versao1 = *txtCadLetra[0];
    RichTextBox& versao2 = *txtCadLetra[1];
    if (!versao1.Text().isEmpty() && !versao1.isHidden())
        versao2.SetTextRTF(versao1.TextRTF());
    else if (!versao2.Text().isEmpty() && !versao2.isHidden())
        versao1.SetTextRTF(versao2.TextRTF());
    cmdCadSalvar_Click();
}

void PainelCadastro::cmdExcluir_Click()
{
    const auto id = Number::FromText(Identidade());
    if (!id)
        return;
    Executa_E_Pesquisa([&] {
        if (Pergunta(this, u"Deseja realmente excluir esta música?"_qs))
            Exclui(*id);
    });
}

void PainelCadastro::Exclui(double id)
{
    const QString numero = Number::ToText(id);
    SQL = u"DELETE FROM TEMA_MUSICA WHERE ID_MUSICA = 0"_qs + numero;
    Conexao.Execute(SQL);
    SQL = u"DELETE FROM MUSICA WHERE ID = 0"_qs + numero;
    Conexao.Execute(SQL);
    // Only what is gone for good may leave the boxes.
    Conexao.CommitBatch();
    Inicializa_Cadastro(0);
}
