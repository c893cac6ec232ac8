#pragma once

#include <QAbstractTableModel>

#include <vector>

/// One stored setlist as its grid shows it.
struct LinhaLista
{
    qint64 id = 0; ///< LISTA.ID
    QString nome;
    QString data;      ///< yyyy-mm-dd, so that it sorts by time; empty without a date
    QString dica_data; ///< dd/mm/yyyy
};

/// The rows of the grid of stored setlists. A row's tag is its setlist's ID as text (Qt::UserRole
/// of column 0).
class ModeloListas : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Coluna { Nome, Data, Colunas };

    using QAbstractTableModel::QAbstractTableModel;

    /// Replaces all rows.
    void Preenche(std::vector<LinhaLista> linhas);

    /// @param linha  from 0, below rowCount()
    qint64 Id(int linha) const { return m_linhas.at(static_cast<std::size_t>(linha)).id; }

    /// Sorts by the displayed texts of a column, in Brazilian Portuguese, letter case ignored; rows
    /// with equal texts keep the order they have.
    void sort(int coluna, Qt::SortOrder ordem = Qt::AscendingOrder) override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& indice, int role = Qt::DisplayRole) const override;
    QVariant headerData(int secao, Qt::Orientation orientacao,
                        int role = Qt::DisplayRole) const override;

private:
    std::vector<LinhaLista> m_linhas;
};
