#pragma once

#include "main/Painel.h"

#include <memory>

class ListaMusicas;
class QLabel;
class ServicosPrincipal;
struct Pedido_Pesquisa;

namespace Ui {
class PainelPesquisa;
}

/// The search panel: finds songs by category, themes, parts of their texts or first letter, lists
/// them and opens them.
///
/// A search lets pending events run several times on its way, and any of them may start another
/// search. The newer one wins: the older one stops at its next step, so that the list and the count
/// line never mix two answers.
class PainelPesquisa : public Painel
{
    Q_OBJECT

public:
    explicit PainelPesquisa(QWidget* parent = nullptr);
    ~PainelPesquisa() override;

    /// Connects the panel's controls. @param principal  outlives the panel
    void Liga_Eventos(ServicosPrincipal& principal);

    /// Fills lstTema with all themes. None of several is chosen, a single one is; without any, the
    /// placeholder row of Preenche_ListBox stands there. Reads TEMA.
    /// @throws RuntimeError of the store
    void Preenche_Temas();

    /// Searches by what the controls say and fills lstMusicas. Writes Funcoes::SQL.
    /// @param inicial  first letter of the titles; then the boxes and themes do not count
    /// @throws RuntimeError of the store
    void Pesquisa(const QString& inicial = {});

    /// Runs a query and lists its songs. lblResultado of this panel tells their number, whichever
    /// list is filled.
    /// @param sql    selects ID, TITULO, REFERENCIA, TOM, VARIACAO and CONTADOR; by value, because
    ///               events that run in between write the shared statement buffer
    /// @param lista  cleared first
    /// @throws RuntimeError of the store
    void Preenche_Musicas(QString sql, ListaMusicas& lista);

    /// Opens a song in one more viewer and hides the on-screen keyboard. Errors are ignored.
    /// @param id  MUSICA.ID
    void Abre_Musica(double id);

    /// Opens the first song as the list is sorted now; nothing when the list is empty.
    void Abre_Primeira_Musica();

    /// @return MUSICA.ID of each song that is marked in lstMusicas, in the order shown.
    QList<qint64> Musicas_Marcadas() const;

    /// Gives the focus to txtTitulo.
    void Foca_Titulo();

    /// Stops searches that are still under way: there will be no store to ask.
    void Abandona_Pesquisas();

private:
    Pedido_Pesquisa Le_Pedido(const QString& inicial) const;
    void Liga_Caixas();

    void txtTitulo_Change();
    void txtTitulo_DblClick();
    void txtTitulo_KeyDown(int tecla);
    void txtReferencia_Change();
    void txtReferencia_DblClick();
    void txtReferencia_KeyDown(int tecla);
    void txtLetra_Change();
    void txtLetra_DblClick();
    void txtLetra_KeyDown(int tecla);
    void chkReligiosa_Click();
    void chkSecular_Click();
    void chkOrdenar_Click();
    void lstTema_Click();
    void lblAlfa_Click(int indice);
    void imgTeclado_Click(int indice);
    void lblResultado_Click();
    void lstMusicas_ColumnClick(int coluna);
    void lstMusicas_DblClick();
    void lstMusicas_KeyDown(int tecla);
    void lstMusicas_BotaoDireito();

    std::unique_ptr<Ui::PainelPesquisa> ui;
    ServicosPrincipal* m_principal = nullptr;
};
