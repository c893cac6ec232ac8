// The grid of stored setlists, and what is done with one of them.

#include "main/PainelLista.h"

#include "ui_PainelLista.h"

#include "artwork/Artwork.h"
#include "controls/Resposta_Mensagem.h"
#include "main/Datas.h"
#include "main/SQL_Lista.h"
#include "main/frmMensagem2.h"
#include "store/Connection.h"
#include "viewer/frmVisualizar.h"

#include <QCoreApplication>
#include <QPointer>

/// Fills the grid of stored setlists.
/// @return false when the form was closed while events ran; the panel itself may be gone then
bool PainelLista::Preenche_Listas()
{
    const QPointer<PainelLista> vivo(this);
    QCoreApplication::processEvents();
    if (!vivo || !Funcoes::Conexao.IsOpen())
        return false;
    ui->lstLista->Limpa();
    Funcoes::Consulta = Funcoes::Conexao.Execute(SQL_Lista::Listas());
    Recordset listas = Funcoes::Consulta;
    const int quantas = listas.RecordCount();
    std::vector<LinhaLista> linhas;
    linhas.reserve(static_cast<std::size_t>(quantas));
    for (; !listas.Eof(); listas.MoveNext()) {
        const QString dia = listas.Fields(u"DATA").ToText();
        linhas.push_back({listas.Fields(u"ID").ToNumber(), listas.Fields(u"NOME").ToText(),
                          Funcoes::Inverte_Data(dia), Funcoes::Prepara_Data(dia)});
    }
    ui->lstLista->Preenche(std::move(linhas));
    if (quantas == 0)
        ui->lstLista->ShowWhenEmpty(Artwork::Path(QStringLiteral("toolbar/lista")));
    ui->lblResultado2->setText(QString::number(quantas) % u" Registro(s) Encontrado(s).");
    Funcoes::Consulta.Close();
    return true;
}

void PainelLista::Abre_Lista(double Id)
{
    auto* visualizador = new frmVisualizar; // deletes itself when it is closed
    visualizador->ID_Musica = 0;
    visualizador->ID_Lista = Id;
    visualizador->Show();
}

void PainelLista::lstLista_DblClick()
{
    // Read first: while the dialog is open the grid may be filled anew.
    const auto atual = ui->lstLista->Linha_Atual();
    if (!atual)
        return;
    Funcoes::Resposta_Mensagem = 0;
    Marca_Identidade(QStringLiteral("0"));
    const QPointer<PainelLista> vivo(this);
    frmMensagem2::Mostra(this);
    if (!vivo)
        return;
    const QString id = QString::number(*atual);
    switch (Funcoes::Resposta_Mensagem) {
    case frmMensagem2::Abrir:
        Abre_Lista(static_cast<double>(*atual));
        break;
    case frmMensagem2::Editar:
        Carrega_Lista(id);
        break;
    case frmMensagem2::Copiar:
        Copia_Lista(id);
        break;
    case frmMensagem2::Excluir:
        Exclui_Lista(id);
        break;
    default:
        break;
    }
}

void PainelLista::lstLista_KeyDown()
{
    if (const auto atual = ui->lstLista->Linha_Atual())
        Abre_Lista(static_cast<double>(*atual));
}

void PainelLista::lstLista_ColumnClick(int coluna)
{
    try {
        ui->lstLista->SortBy(coluna);
    } catch (const std::exception&) {
        // the grid stays as it is
    }
}
