// Adding, renaming and deleting themes in the panel's list. The search panel's list of themes is
// not filled anew: there the checked themes of a search under way would be lost.

#include "main/PainelCadastro.h"

#include "ui_PainelCadastro.h"

#include "controls/Dialogs.h"
#include "runtime/Text.h"
#include "store/Apostrofos.h"
#include "store/Connection.h"

#include <QGuiApplication>
#include <QScreen>

using namespace Funcoes;

namespace {

/// Where an input box has its upper-left corner.
QPoint Meio_Da_Tela()
{
    const QRect tela = QGuiApplication::primaryScreen()->geometry();
    return tela.topLeft() + QPoint(tela.width() / 2, tela.height() / 2);
}

} // namespace

QString PainelCadastro::Pede_Tema(const QString& pedido, const QString& titulo,
                                  const QString& inicial)
{
    return Text::Trim(Caixa_Entrada(this, pedido, titulo, inicial, Meio_Da_Tela()));
}

bool PainelCadastro::Verifica_Tema_Duplicado(const QString& descricao)
{
    SQL = u"SELECT ID FROM TEMA WHERE DESCRICAO = '"_qs + Dobra_Apostrofos(descricao) + u"'"_qs;
    Consulta = Conexao.Execute(SQL);
    return !Consulta.Eof();
}

bool PainelCadastro::Recusa_Tema_Duplicado(const QString& descricao)
{
    if (!Verifica_Tema_Duplicado(descricao))
        return false;
    Mostra_Mensagem(this, u"Já existe um Tema com essa descrição."_qs, Icone::Exclamacao);
    return true;
}

void PainelCadastro::cmdCadTema_Click()
{
    const QString nome =
        Pede_Tema(u"Digite o nome do Tema"_qs, u"Melodario - Cadastro de Tema"_qs, QString());
    if (Recusa_Tema_Duplicado(nome) || nome.isEmpty())
        return;
    SQL =
        u"INSERT INTO TEMA (DESCRICAO, ORDEM) VALUES ('"_qs + Dobra_Apostrofos(nome) + u"', 2)"_qs;
    Conexao.Execute(SQL);
    Conexao.CommitBatch(); // the list shows what is stored for good
    Preenche_Temas(QString());
    const QString mensagem =
        u"Tema '"_qs + nome + u"' Cadastrado com Sucesso!\r\n"_qs +
        u"Para alterar um tema, selecione na lista e clique com o botão direito do mouse sobre "_qs +
        u"ele.\r\nPara excluir um tema, selecione na lista e pressione Delete."_qs;
    Mostra_Mensagem(this, mensagem, Icone::Informacao);
}

void PainelCadastro::lstCadTema_MouseUp(Qt::MouseButton botao)
{
    ListBox& temas = *ui->lstCadTema;
    if (botao != Qt::RightButton || temas.ListIndex() < 0)
        return;
    const QString nome =
        Pede_Tema(u"Digite o novo nome do Tema"_qs, u"Melodario - Alteração de Tema"_qs,
                  temas.Text(temas.ListIndex()));
    if (temas.ListIndex() < 0 || nome == temas.Text(temas.ListIndex()) || nome.isEmpty())
        return;
    if (Recusa_Tema_Duplicado(nome))
        return;
    SQL = u"UPDATE TEMA SET DESCRICAO = '"_qs + Dobra_Apostrofos(nome) + u"' WHERE ID = 0"_qs +
          QString::number(temas.ItemData(temas.ListIndex()));
    Conexao.Execute(SQL);
    Conexao.CommitBatch();
    Preenche_Temas(QString());
    Mostra_Mensagem(this,
                    u"Tema Alterado com Sucesso!\r\n"
                    "Para excluir um tema, selecione na lista e pressione Delete."_qs,
                    Icone::Informacao);
}

void PainelCadastro::lstCadTema_KeyDown(int tecla)
{
    ListBox& temas = *ui->lstCadTema;
    if (tecla != Qt::Key_Delete || temas.ListIndex() < 0)
        return;
    const QString id = QString::number(temas.ItemData(temas.ListIndex()));
    SQL = u"SELECT * FROM TEMA_MUSICA WHERE ID_TEMA = 0"_qs + id;
    Consulta = Conexao.Execute(SQL);
    if (!Consulta.Eof()) {
        const QString mensagem = u"Não é possível excluir porque existe(m) "_qs +
                                 QString::number(Consulta.RecordCount()) +
                                 u" música(s) cadastradas neste tema."_qs;
        Mostra_Mensagem(this, mensagem, Icone::Exclamacao);
        return;
    }
    if (!Pergunta(this, u"Deseja realmente excluir este Tema?"_qs))
        return;
    SQL = u"DELETE FROM TEMA WHERE ID = 0"_qs + id;
    Conexao.Execute(SQL);
    Conexao.CommitBatch(); // only what is gone for good may leave the list
    if (temas.ListIndex() >= 0)
        temas.RemoveItem(temas.ListIndex());
}
