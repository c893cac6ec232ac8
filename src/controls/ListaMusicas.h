#pragma once

#include "controls/Handler.h"
#include "controls/ModeloMusicas.h"
#include "controls/ReportList.h"

#include <array>
#include <optional>

/// A list of songs: report view with the columns "Título", "Referência" and "Temas", or a plain
/// list of the titles. Several rows can be selected; a row's tag is the song's ID as text
/// (Qt::UserRole of column 0). Each fill shows the order of its query until Ordena_Por sorts it.
class ListaMusicas : public ReportList
{
    Q_OBJECT
    /// ListView or ReportView.
    Q_PROPERTY(int View READ View WRITE SetView)

public:
    enum Vista { ListView = 2, ReportView = 3 };

    explicit ListaMusicas(QWidget* parent = nullptr);

    int View() const noexcept { return m_vista; }
    void SetView(int vista);

    /// Announces a fill; fills announced earlier are overtaken by it.
    /// @return the number to ask Vale with
    quint64 Anuncia_Preenchimento() noexcept { return ++m_vez; }

    /// @return true while no later fill was announced.
    bool Vale(quint64 vez) const noexcept { return vez == m_vez; }

    void Limpa() { Preenche({}); }

    /// Replaces all rows; nothing is selected afterwards, and the first row is the topmost.
    void Preenche(std::vector<LinhaMusica> linhas);
    void Preenche_De(std::shared_ptr<const FonteMusicas> fonte);

    /// Keeps the last picture while the list is emptied and filled again, until it is let go: it
    /// would flash, take its bar away and put it back, and lay all columns out anew for both.
    void Segura(bool segura);
    bool Segurada() const noexcept { return m_segura; }

    int ListCount() const;

    /// @param linha  position from 0 in the order shown
    /// @return the song's ID
    qint64 Tag(int linha) const;

    /// @return the ID of the selected row: the current one, or else the first of those selected;
    ///         nothing when no row is selected
    std::optional<qint64> Item_Selecionado() const;

    /// @return the IDs of all selected rows in the order shown.
    QList<qint64> Itens_Selecionados() const;

    /// As SortBy; a row whose themes cannot be read is not reported meanwhile.
    void Ordena_Por(int coluna);

    /// Looks for the titles that begin so, whatever column was clicked: themes would have to be
    /// read for every row.
    void keyboardSearch(const QString& inicio) override;

signals:
    /// Enter or Delete, once however long it is held. @param tecla  a Qt::Key
    void KeyDown(int tecla);
    /// The right button was pressed and released on one row, which is current and selected then;
    /// beside the rows it tells nothing. Or the menu key was pressed: rows stay as they were, and
    /// none needs to be selected.
    void BotaoDireito();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void updateGeometries() override;

private:
    void Arruma_Cabecalho();
    void Volta_Ao_Inicio();
    void Reparte_Colunas();
    void Guarda_Proporcao(int coluna, int largura);
    void Relata_Falha(const std::exception_ptr& falha);

    ModeloMusicas* m_modelo;
    Unattended m_leituraTemas;
    Vista m_vista = ReportView;
    quint64 m_vez = 0;
    /// Shares of the width that "Título" and "Referência" take; "Temas" takes the rest.
    std::array<double, 2> m_proporcoes{0.42, 0.29};
    bool m_segura = false;
    bool m_arrumar = false; ///< the bar waits for the list to be let go
    bool m_repartindo = false;
    bool m_ordenando = false;
};
