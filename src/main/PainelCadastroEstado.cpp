// What the panel shows, kept aside while another song comes, and put back when that one fails.

#include "main/PainelCadastro.h"

#include "ui_PainelCadastro.h"

#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "controls/RichTextBox.h"

#include <QList>
#include <QSignalBlocker>

namespace {

struct Item
{
    QString texto;
    qint64 dado;
    bool marcado;
};

struct Lista
{
    QList<Item> itens;
    int atual;
};

template <typename Controle>
Lista Guarda(const Controle& controle)
{
    Lista lista{{}, controle.ListIndex()};
    for (int i = 0; i < controle.ListCount(); ++i)
        lista.itens.append({controle.Text(i), controle.ItemData(i), controle.Selected(i)});
    return lista;
}

void Enche(ListControl& controle, const Lista& lista)
{
    controle.BeginFill();
    controle.Clear();
    for (const Item& item : lista.itens) {
        controle.AddItem(item.texto);
        controle.SetItemData(controle.NewIndex(), item.dado);
    }
    controle.EndFill();
    controle.SetListIndex(lista.atual);
}

struct Estado
{
    QString identidade;
    bool guardada;
    QString titulo;
    QString referencia;
    std::array<QString, 2> letra;  ///< RTF
    std::array<Lista, 3> escolhas; ///< key, variation, category
    Lista temas;
};

} // namespace

/// @return what puts everything back that the panel shows now
std::function<void()> PainelCadastro::Guarda_Estado()
{
    const Estado estado{
        Identidade(),
        ui->cmdExcluir->isEnabled(),
        ui->txtCadTitulo->text(),
        ui->txtCadReferencia->text(),
        {txtCadLetra[0]->TextRTF(), txtCadLetra[1]->TextRTF()},
        {Guarda(*ui->cmbCadTom), Guarda(*ui->cmbCadVariacao), Guarda(*ui->cmbCadCategoria)},
        Guarda(*ui->lstCadTema)};
    return [this, estado] {
        // Nobody types: there is nothing to suggest, and the store would most likely refuse again.
        const QSignalBlocker titulo(ui->txtCadTitulo);
        const QSignalBlocker referencia(ui->txtCadReferencia);
        Guarda_Identidade(estado.identidade);
        Habilita_Musica_Guardada(estado.guardada);
        ui->txtCadTitulo->setText(estado.titulo);
        ui->txtCadReferencia->setText(estado.referencia);
        for (std::size_t i = 0; i < txtCadLetra.size(); ++i) {
            // A sheet that has not changed keeps what can be undone in it.
            if (txtCadLetra[i]->TextRTF() != estado.letra[i])
                txtCadLetra[i]->SetTextRTF(estado.letra[i]);
        }
        Enche(*ui->cmbCadTom, estado.escolhas[0]);
        Enche(*ui->cmbCadVariacao, estado.escolhas[1]);
        Enche(*ui->cmbCadCategoria, estado.escolhas[2]);
        Enche(*ui->lstCadTema, estado.temas);
        for (int i = 0; i < estado.temas.itens.size(); ++i)
            ui->lstCadTema->SetSelected(i, estado.temas.itens[i].marcado);
    };
}
