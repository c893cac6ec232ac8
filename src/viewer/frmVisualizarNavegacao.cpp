// Moving through the song list: a setlist in its order, or all songs of the shown one's category.

#include "viewer/frmVisualizar.h"

#include "runtime/Number.h"
#include "store/Connection.h"
#include "store/Preenche.h"
#include "ui_frmVisualizar.h"

#include <QScopedValueRollback>

using namespace Funcoes;

namespace {

constexpr qint64 SemSelecao = -1;

/// @return the songs of a setlist: MUSICA.ID and position, title, key and reference in one text
QString SQL_Lista(double id_lista)
{
    return u"SELECT MUSICA.ID, (LISTA_MUSICA.ORDEM+1) & ' - ' & MUSICA.TITULO & ' (' & "
           "MUSICA.TOM & MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS "
           " FROM MUSICA "
           " INNER JOIN LISTA_MUSICA ON MUSICA.ID = LISTA_MUSICA.ID_MUSICA "
           " WHERE LISTA_MUSICA.ID_LISTA = 0"_qs +
           Number::ToText(id_lista) + u"  ORDER BY LISTA_MUSICA.ORDEM "_qs;
}

/// @return the songs of the category that a song belongs to, with their IDs instead of positions
QString SQL_Categoria(double id_musica)
{
    return u"SELECT MUSICA.ID, MUSICA.ID & ' - ' & MUSICA.TITULO & ' (' & "
           "MUSICA.TOM & MUSICA.VARIACAO & ') ' & MUSICA.REFERENCIA AS MUS "
           " FROM MUSICA "
           " WHERE MUSICA.CATEGORIA IN (SELECT CATEGORIA FROM MUSICA WHERE ID = 0"_qs +
           Number::ToText(id_musica) + u") ORDER BY MUSICA.TITULO "_qs;
}

} // namespace

void frmVisualizar::Carrega_Lista_Inicial()
{
    // The entry that comes out selected is loaded once, by the opening itself.
    const QScopedValueRollback abrindo(Abrindo, true);
    Carrega_Musicas_Lista(0);
}

void frmVisualizar::Carrega_Musicas_Lista(int indice)
{
    if (ID_Musica <= 0) {
        SQL = SQL_Lista(ID_Lista);
        Preenche_Combo(*ui->cmbLista, SQL, Value(SemSelecao), true, QString());
        ui->cmbLista->SetListIndex(indice);
        return;
    }
    SQL = SQL_Categoria(ID_Musica);
    Preenche_Combo(*ui->cmbLista, SQL, Value(static_cast<qint64>(ID_Musica)), true, QString());
    Mostra_Proximo_Anterior();
}

void frmVisualizar::Proxima_Musica()
{
    const int indice = ui->cmbLista->ListIndex();
    if (indice < ui->cmbLista->ListCount() - 1)
        Vai_Para_Musica(indice + 1);
}

void frmVisualizar::Musica_Anterior()
{
    const int indice = ui->cmbLista->ListIndex();
    if (indice >= 1)
        Vai_Para_Musica(indice - 1);
}

void frmVisualizar::Vai_Para_Musica(int indice)
{
    if (ID_Musica <= 0)
        Carrega_Musicas_Lista(indice);
    else
        ui->cmbLista->SetListIndex(indice);
}

void frmVisualizar::Mostra_Proximo_Anterior()
{
    const int indice = ui->cmbLista->ListIndex();
    ui->cmdProxima->setVisible(indice + 1 < ui->cmbLista->ListCount());
    ui->cmdAnterior->setVisible(indice >= 1);
}

void frmVisualizar::cmbLista_Click()
{
    if (Abrindo) {
        ID_Musica = static_cast<double>(ui->cmbLista->ItemData(ui->cmbLista->ListIndex()));
        Indice_Mostrado = ui->cmbLista->ListIndex();
        return;
    }
    Carrega_Escolhida();
    // Another song begins in the key it is stored in; version, font and chords stay as chosen.
    Tom_Base = Tom_Atual;
    Deslocamento = 0;
    Atualiza_Musica(Versao);
    // The box is not given the focus: outside edit mode it would pass it on at once.
    Caixa(Versao).setVisible(true);
    Mostra_Proximo_Anterior();
}

/// Loads the song chosen in the list. One that cannot be loaded leaves the shown song, in the list
/// as well: what is saved or counted next must be what is on the screen.
void frmVisualizar::Carrega_Escolhida()
{
    const double mostrada = ID_Musica;
    ID_Musica = static_cast<double>(ui->cmbLista->ItemData(ui->cmbLista->ListIndex()));
    try {
        Carrega_Musica();
    } catch (...) {
        const QScopedValueRollback sem_carga(Abrindo, true);
        ui->cmbLista->SetListIndex(Indice_Mostrado);
        ID_Musica = mostrada;
        throw;
    }
    Indice_Mostrado = ui->cmbLista->ListIndex();
}
