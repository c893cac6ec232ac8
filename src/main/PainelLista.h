#pragma once

#include "controls/Handler.h"
#include "main/Painel.h"
#include "runtime/RuntimeError.h"

#include <QDate>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QKeyEvent;

namespace Ui {
class PainelLista;
}

/// The setlist panel: builds a dated, ordered list of songs, stores it, and opens, edits, copies or
/// deletes those that are stored.
///
/// Its state lies in its controls. The property Tag of txtNome is LISTA.ID of the setlist on
/// screen, "0" for one that is not stored yet. The property Tag of lstMusicasSelecionadas is "1"
/// while that list has unsaved changes. Neither a name, a date nor an order made with the arrow
/// buttons alone counts as a change.
class PainelLista : public Painel
{
    Q_OBJECT

public:
    explicit PainelLista(QWidget* parent = nullptr);
    ~PainelLista() override;

    /// Prepares the panel: the stored setlists, a new setlist unless the user keeps an unsaved one,
    /// the themes and the songs on offer. Reads LISTA, TEMA, MUSICA and TEMA_MUSICA; writes
    /// Funcoes::SQL. Called again while it runs (the user clicks twice) it does nothing: the call
    /// that runs prepares the panel.
    /// @return false when the form was closed meanwhile, so that there is nothing to show; the
    /// panel
    ///         itself may be gone then
    /// @throws RuntimeError of the store
    bool Inicializa_Lista();

    /// Asks before unsaved changes are given up. Does not forget them: whoever goes on clears the
    /// setlist, or is asked again.
    /// @return true when there are none or the user gives them up
    bool Verifica_Modificacoes();

    /// Gives the focus to txtNome.
    void Foca_Nome();

    /// @param hoje  tells today's date instead of the computer's clock
    void Usa_Calendario(std::function<QDate()> hoje) { m_hoje = std::move(hoje); }

private:
    void Liga_Eventos();
    void Liga_Listas();

    // What is on offer, and a stored setlist brought on screen.
    void Preenche_Temas();
    void Preenche_Musicas_Disponiveis();
    void Oferece_Musicas();
    void Oferece_Ao_Entrar();
    void Carrega_Lista(const QString& id);
    void Copia_Lista(const QString& id);
    void Carrega_Musicas(const QString& id);
    void txtFiltro_Change();
    void txtFiltro_KeyDown(int tecla);
    void optTipo_Click();
    void cmbTema_Click();

    // The songs of the setlist on screen.
    void Adiciona_Lista();
    void Remove_Lista();
    void Sobe_Musica();
    void Desce_Musica();
    void Troca_Musicas(int uma, int outra);
    void Esvazia_Selecionadas();
    void lstMusicasLista_DblClick();
    void lstMusicasLista_KeyDown(QKeyEvent* evento);
    void lstMusicasSelecionadas_Click();
    void lstMusicasSelecionadas_GotFocus();
    void lstMusicasSelecionadas_KeyDown(QKeyEvent* evento);
    void cmdAdicionar_Click();
    void cmdRemover_Click();
    void cmdUp_Click();
    void cmdDown_Click();

    // Saving and clearing.
    void cmdSalvar_Click();
    void cmdLimpar_Click();
    void Cadastra_Lista(const QString& nome, const QString& dia);
    void Altera_Lista(double identidade, const QString& nome, const QString& dia);
    void Grava_Musicas(double identidade);
    void Exclui_Lista(const QString& id);
    void Conclui(const QString& mensagem);

    // The grid of stored setlists.
    bool Preenche_Listas();
    void Abre_Lista(double Id);
    void lstLista_DblClick();
    void lstLista_KeyDown();
    void lstLista_ColumnClick(int coluna);

    QString Hoje() const;
    void Mostra_Contagem(int musicas);
    void Marca_Identidade(const QString& id);
    void Marca_Modificada(bool modificada);
    bool Modificada() const;

    std::unique_ptr<Ui::PainelLista> ui;
    std::function<QDate()> m_hoje = &QDate::currentDate;
    /// Position of the current song of the setlist, as far as the list has told it; -1 for none.
    std::int16_t Indice_Selecionada = -1;
    Unattended m_oferta;
    std::optional<RuntimeError> m_falhaFiltro; ///< shown already, while its apostrophe stands
    bool m_preparando = false;                 ///< Inicializa_Lista runs
    bool m_preenchendoTemas = false;
};
