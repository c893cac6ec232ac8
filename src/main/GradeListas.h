#pragma once

#include "controls/ReportList.h"
#include "main/ModeloListas.h"

#include <optional>

/// The grid of stored setlists, one row selected at most. Each fill shows the order of its query
/// until SortBy sorts it. The menu key on the current row raises DblClick, too: nobody needs a
/// mouse for what only a double click offers.
class GradeListas : public ReportList
{
    Q_OBJECT

public:
    explicit GradeListas(QWidget* parent = nullptr);

    void Limpa() { Preenche({}); }

    /// Replaces all rows; none is current afterwards.
    void Preenche(std::vector<LinhaLista> linhas);

    int ListCount() const { return m_modelo->rowCount(); }

    /// @return LISTA.ID of the current row; nothing without one
    std::optional<qint64> Linha_Atual() const;

signals:
    /// Enter, once however long it is held. @param tecla  a Qt::Key
    void KeyDown(int tecla);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    void Reparte_Colunas();
    void Guarda_Proporcao(int coluna, int largura);

    ModeloListas* m_modelo;
    /// Share of the width that the names take; as long as nobody has changed it, what a date needs
    /// is kept free instead.
    std::optional<double> m_proporcao;
    bool m_repartindo = false;
};
