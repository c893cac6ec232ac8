// Saving, deleting and clearing. The statements of one action are one batch, which is durable
// before a tag or a flag changes and before the user is told.

#include "main/PainelLista.h"

#include "ui_PainelLista.h"

#include "controls/Dialogs.h"
#include "main/SQL_Lista.h"
#include "runtime/Date.h"
#include "runtime/Number.h"
#include "store/Connection.h"

#include <QPointer>

namespace {

void Executa(const QString& sql)
{
    Funcoes::SQL = sql;
    Funcoes::Conexao.Execute(Funcoes::SQL);
}

} // namespace

void PainelLista::cmdSalvar_Click()
{
    const QString tag = ui->txtNome->property("Tag").toString();
    const double identidade = Number::FromText(tag).value_or(0);
    const QString nome = ui->txtNome->text().replace(u'\'', u"''"_qs);
    const QString dia = ui->txtData->text();
    if (nome.isEmpty() || !Date::FromText(dia)) {
        Funcoes::Mostra_Mensagem(this,
                                 QStringLiteral("Preencha o nome e a data da lista corretamente."),
                                 Icone::Exclamacao);
        ui->txtNome->setFocus();
        return;
    }
    if (identidade == 0)
        Cadastra_Lista(nome, dia);
    else
        Altera_Lista(identidade, nome, dia);
}

void PainelLista::Cadastra_Lista(const QString& nome, const QString& dia)
{
    Executa(SQL_Lista::Inclui_Lista(nome, dia));
    double identidade = 0;
    Funcoes::Consulta = Funcoes::Conexao.Execute(SQL_Lista::Ultima_Lista());
    if (!Funcoes::Consulta.Eof())
        identidade = static_cast<double>(Funcoes::Consulta.Fields(u"ID").ToNumber());
    Funcoes::Consulta.Close();
    Grava_Musicas(identidade);
    Conclui(QStringLiteral("Lista Cadastrada com Sucesso!"));
}

void PainelLista::Altera_Lista(double identidade, const QString& nome, const QString& dia)
{
    const QString id = Number::ToText(identidade);
    Executa(SQL_Lista::Altera_Lista(id, nome, dia));
    Executa(SQL_Lista::Exclui_Musicas(id));
    Grava_Musicas(identidade);
    Conclui(QStringLiteral("Lista Alterada com Sucesso!"));
}

/// Stores the songs on screen. The first of them that is stored ends the unsaved changes, even when
/// a later one fails; without any song they stay. So they do where a failure took the songs before
/// it along: the store has then undone the whole batch.
void PainelLista::Grava_Musicas(double identidade)
{
    const ListBox& escolha = *ui->lstMusicasSelecionadas;
    if (escolha.ListCount() == 0 || identidade <= 0)
        return;
    const QString id = Number::ToText(identidade);
    const auto confirma = [this] {
        if (Funcoes::Conexao.CommitBatch())
            Marca_Modificada(false);
    };
    for (int i = 0; i < escolha.ListCount(); ++i) {
        try {
            Executa(SQL_Lista::Inclui_Musica(id, QString::number(escolha.ItemData(i)), i));
        } catch (const RuntimeError&) {
            if (i > 0)
                confirma();
            throw;
        }
    }
    confirma();
}

void PainelLista::Exclui_Lista(const QString& id)
{
    Executa(SQL_Lista::Exclui_Musicas(id));
    Executa(SQL_Lista::Exclui_Lista(id));
    Conclui(QStringLiteral("Lista Excluída com Sucesso!"));
}

/// @param mensagem  what went well; it is shown once it is durable
void PainelLista::Conclui(const QString& mensagem)
{
    const QPointer<PainelLista> vivo(this);
    const auto continua = [&vivo] { return vivo && Funcoes::Conexao.IsOpen(); };
    Funcoes::Mostra_Mensagem(this, mensagem, Icone::Informacao);
    if (!continua())
        return; // the form was closed while the box was open
    cmdLimpar_Click();
    if (continua())
        Preenche_Listas();
}

void PainelLista::cmdLimpar_Click()
{
    const QPointer<PainelLista> vivo(this);
    if (!Verifica_Modificacoes() || !vivo)
        return;
    Marca_Identidade(QStringLiteral("0"));
    ui->txtNome->clear();
    Funcoes::Escreve_Maskedit(*ui->txtData, Hoje());
    Esvazia_Selecionadas();
    Mostra_Contagem(0);
    Marca_Modificada(false);
}
