#pragma once

#include <QAbstractTableModel>

#include <functional>
#include <vector>

/// One song of a list, as the query gave it.
struct LinhaMusica
{
    qint64 id = 0; ///< MUSICA.ID
    QString titulo;
    QString referencia;
    QString tom;      ///< TOM and VARIACAO joined
    QString contador; ///< empty where the store has none
};

/// The rows behind a song list. A fill is one reset, whatever the number of songs. The texts of a
/// row are put together when they are asked for; its themes cost a query, so they are read when the
/// row is first shown or sorted by, and kept.
class ModeloMusicas : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Coluna { Titulo, Referencia, Temas, Colunas };

    /// Gives the theme text of a song (MUSICA.ID). May throw; the model tells of it by
    /// FalhaNosTemas and shows no themes.
    using LeitorTemas = std::function<QString(qint64 id)>;

    explicit ModeloMusicas(LeitorTemas leitor, QObject* parent = nullptr);

    /// Replaces all rows.
    void Preenche(std::vector<LinhaMusica> linhas);

    /// Sorts by the displayed texts of a column, in Brazilian Portuguese, letter case ignored; rows
    /// with equal texts keep the order they have.
    void sort(int coluna, Qt::SortOrder ordem = Qt::AscendingOrder) override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int secao, Qt::Orientation orientacao,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// The first row of a fill whose themes could not be read; told once per fill, from inside
    /// whatever asked for the text.
    void FalhaNosTemas(int numero, const QString& oQueFalhou, const QString& descricao) const;

private:
    struct Linha
    {
        LinhaMusica musica;
        mutable QString temas;
        mutable bool temasLidos = false;
    };

    QString Texto(const Linha& linha, int coluna) const;
    QString Dica(const Linha& linha, int coluna) const;
    const QString& Le_Temas(const Linha& linha) const;

    LeitorTemas m_leitor;
    std::vector<Linha> m_linhas;
    mutable bool m_falhaContada = false;
};
