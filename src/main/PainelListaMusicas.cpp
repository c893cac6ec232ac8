// The songs of the setlist on screen: taken over, taken out, moved.

#include "main/PainelLista.h"

#include "ui_PainelLista.h"

#include "runtime/Number.h"

#include <QKeyEvent>

void PainelLista::Adiciona_Lista()
{
    const ListBox& oferta = *ui->lstMusicasLista;
    ListBox& escolha = *ui->lstMusicasSelecionadas;
    if (const int atual = oferta.ListIndex(); atual >= 0) {
        escolha.AddItem(oferta.Text(atual));
        escolha.SetItemData(escolha.NewIndex(), oferta.ItemData(atual));
    }
    Mostra_Contagem(escolha.ListCount());
    Marca_Modificada(true);
}

void PainelLista::Remove_Lista()
{
    ListBox& escolha = *ui->lstMusicasSelecionadas;
    escolha.RemoveItem(escolha.ListIndex());
    if (Indice_Selecionada > escolha.ListCount() - 1)
        --Indice_Selecionada;
    escolha.SetListIndex(Indice_Selecionada);
    Mostra_Contagem(escolha.ListCount());
    Marca_Modificada(true);
}

void PainelLista::Sobe_Musica()
{
    if (Indice_Selecionada <= 0)
        return;
    Troca_Musicas(Indice_Selecionada, Indice_Selecionada - 1);
    --Indice_Selecionada;
    ui->lstMusicasSelecionadas->SetListIndex(Indice_Selecionada);
}

void PainelLista::Desce_Musica()
{
    if (Indice_Selecionada >= ui->lstMusicasSelecionadas->ListCount() - 1)
        return;
    Troca_Musicas(Indice_Selecionada, Indice_Selecionada + 1);
    ++Indice_Selecionada;
    ui->lstMusicasSelecionadas->SetListIndex(Indice_Selecionada);
}

/// @param uma, outra  positions from 0
void PainelLista::Troca_Musicas(int uma, int outra)
{
    ListBox& escolha = *ui->lstMusicasSelecionadas;
    const QString texto = escolha.Text(uma);
    const qint64 musica = escolha.ItemData(uma);
    escolha.SetText(uma, escolha.Text(outra));
    escolha.SetItemData(uma, escolha.ItemData(outra));
    escolha.SetText(outra, texto);
    escolha.SetItemData(outra, musica);
}

void PainelLista::Esvazia_Selecionadas()
{
    ui->lstMusicasSelecionadas->Clear();
    Indice_Selecionada = -1; // there is no current song, and clearing tells nobody
}

void PainelLista::lstMusicasLista_DblClick()
{
    Adiciona_Lista();
}

void PainelLista::lstMusicasLista_KeyDown(QKeyEvent* evento)
{
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter)
        return;
    evento->accept();
    if (!evento->isAutoRepeat())
        Adiciona_Lista();
}

void PainelLista::lstMusicasSelecionadas_Click()
{
    Indice_Selecionada = Number::ToInteger(ui->lstMusicasSelecionadas->ListIndex());
}

void PainelLista::lstMusicasSelecionadas_GotFocus()
{
    Indice_Selecionada = Number::ToInteger(ui->lstMusicasSelecionadas->ListIndex());
}

void PainelLista::lstMusicasSelecionadas_KeyDown(QKeyEvent* evento)
{
    constexpr auto teclas =
        Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const Qt::KeyboardModifiers junto = evento->modifiers() & teclas;
    const int tecla = evento->key();
    if (junto == Qt::NoModifier) {
        if (tecla != Qt::Key_Delete || ui->lstMusicasSelecionadas->ListIndex() < 0)
            return;
        evento->accept();
        Remove_Lista();
    } else if (junto == Qt::ShiftModifier && tecla != Qt::Key_Shift) {
        evento->accept();
        if (tecla == Qt::Key_Up)
            Sobe_Musica();
        else if (tecla == Qt::Key_Down)
            Desce_Musica();
        Marca_Modificada(true);
    }
}

void PainelLista::cmdAdicionar_Click()
{
    Adiciona_Lista();
}

void PainelLista::cmdRemover_Click()
{
    Remove_Lista();
}

void PainelLista::cmdUp_Click()
{
    Sobe_Musica();
}

void PainelLista::cmdDown_Click()
{
    Desce_Musica();
}
