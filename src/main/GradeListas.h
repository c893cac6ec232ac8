#pragma once

#include "main/ModeloListas.h"

#include <QTreeView>

#include <optional>

/// The grid of stored setlists, one row selected at most. Rows come in the order of the query until
/// Ordena_Por sorts them; the next fill shows its query's order again.
class GradeListas : public QTreeView
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

    /// Turns the direction round (it is ascending at first, so the first call sorts descending) and
    /// sorts by the texts of a column. @param coluna  position from 0
    void Ordena_Por(int coluna);

signals:
    /// The left button, twice, on a row, which is current then; or the menu key while a row is
    /// current: nobody needs a mouse for what only a double click offers.
    void DblClick();
    /// Enter, once however long it is held. @param tecla  a Qt::Key
    void KeyDown(int tecla);
    /// A column header was clicked. @param coluna  position from 0
    void ColumnClick(int coluna);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void focusInEvent(QFocusEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool viewportEvent(QEvent* evento) override;
    void drawRow(QPainter* pintor, const QStyleOptionViewItem& opcao,
                 const QModelIndex& indice) const override;

private:
    void Torna_Atual(const QModelIndex& indice);
    void Reparte_Colunas();
    void Guarda_Proporcao(int coluna, int largura);

    ModeloListas* m_modelo;
    Qt::SortOrder m_direcao = Qt::AscendingOrder;
    /// Share of the width that the names take; as long as nobody has changed it, what a date needs
    /// is kept free instead.
    std::optional<double> m_proporcao;
    bool m_repartindo = false;
};
