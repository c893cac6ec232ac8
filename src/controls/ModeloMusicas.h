#pragma once

#include <QAbstractTableModel>

#include <exception>
#include <functional>
#include <memory>
#include <unordered_map>
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

/// Where the songs of a list are read when they are shown. Positions count from 0 in the order of
/// the query; the songs must not change while a list holds them.
class FonteMusicas
{
public:
    virtual ~FonteMusicas() = default;

    virtual int Quantas() const = 0;

    /// @param posicao  from 0, below Quantas()
    /// @return MUSICA.ID. @throws RuntimeError when it cannot be read
    virtual qint64 Id(int posicao) const = 0;

    /// @param posicao  from 0, below Quantas()
    /// @throws RuntimeError when it cannot be read
    virtual LinhaMusica Le(int posicao) const = 0;
};

/// The rows behind a song list. A fill is one reset and costs nothing per song: the texts of a row
/// are put together whenever they are asked for. Its themes cost a query, so they are read when the
/// row is first shown or sorted by, and kept.
class ModeloMusicas : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Coluna { Titulo, Referencia, Temas, Colunas };

    /// Gives the theme text of a song (MUSICA.ID). May throw; the model tells of it by FalhaNaLinha
    /// and shows no themes.
    using LeitorTemas = std::function<QString(qint64 id)>;

    explicit ModeloMusicas(LeitorTemas leitor, QObject* parent = nullptr);

    /// Replaces all rows by songs that are in memory already.
    void Preenche(std::vector<LinhaMusica> linhas);

    /// Replaces all rows by those of a source, which is kept as long as it is shown.
    void Preenche_De(std::shared_ptr<const FonteMusicas> fonte);

    /// Sorts by the displayed texts of a column, in Brazilian Portuguese, letter case ignored; rows
    /// with equal texts keep the order they have.
    void sort(int coluna, Qt::SortOrder ordem = Qt::AscendingOrder) override;

    /// A view asks for the index of every row when it is filled.
    QModelIndex index(int linha, int coluna, const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override
    {
        return !parent.isValid() && m_quantas > 0;
    }
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int secao, Qt::Orientation orientacao,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// The first row of a fill that could not be read, or whose themes could not; told once per
    /// fill, from inside whatever asked for the text. @param falha  what was thrown
    void FalhaNaLinha(const std::exception_ptr& falha) const;

    /// The fill that ends now has read themes, and nothing of it failed.
    void LeituraLimpa() const;

private:
    int Posicao(int linha) const;
    QVariant Dado(int linha, int coluna, int papel) const;
    QString Texto(int posicao, int coluna) const;
    QString Dica(int posicao, int coluna) const;
    QString Tag(int posicao) const;
    QString Le_Temas(int posicao) const;

    template <typename Leitura>
    auto Tenta(Leitura leitura) const -> decltype(leitura());

    LeitorTemas m_leitor;
    std::shared_ptr<const FonteMusicas> m_fonte;
    int m_quantas = 0;
    std::vector<int> m_ordem;                         ///< positions by row; empty until sorted
    mutable std::unordered_map<int, QString> m_temas; ///< by position, as far as read
    mutable bool m_falhaContada = false;
};
