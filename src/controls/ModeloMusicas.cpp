#include "controls/ModeloMusicas.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

class FonteEmMemoria final : public FonteMusicas
{
public:
    explicit FonteEmMemoria(std::vector<LinhaMusica> linhas)
        : m_linhas(std::move(linhas))
    {
    }

    int Quantas() const override { return static_cast<int>(m_linhas.size()); }
    qint64 Id(int posicao) const override { return At(posicao).id; }
    LinhaMusica Le(int posicao) const override { return At(posicao); }

private:
    const LinhaMusica& At(int posicao) const { return m_linhas[static_cast<std::size_t>(posicao)]; }

    std::vector<LinhaMusica> m_linhas;
};

} // namespace

ModeloMusicas::ModeloMusicas(LeitorTemas leitor, QObject* parent)
    : QAbstractTableModel(parent)
    , m_leitor(std::move(leitor))
    , m_fonte(std::make_shared<FonteEmMemoria>(std::vector<LinhaMusica>()))
{
}

void ModeloMusicas::Preenche(std::vector<LinhaMusica> linhas)
{
    Preenche_De(std::make_shared<FonteEmMemoria>(std::move(linhas)));
}

void ModeloMusicas::Preenche_De(std::shared_ptr<const FonteMusicas> fonte)
{
    if (!m_temas.empty() && !m_falhaContada)
        emit LeituraLimpa();
    beginResetModel();
    m_fonte = std::move(fonte);
    m_quantas = m_fonte->Quantas();
    m_ordem.clear();
    m_temas.clear();
    m_falhaContada = false;
    endResetModel();
}

void ModeloMusicas::sort(int coluna, Qt::SortOrder ordem)
{
    if (coluna < 0 || coluna >= Colunas)
        return;

    // Sort keys are made once per row: comparing texts by the collator some n log n times costs
    // ten times as much.
    QCollator collator(QLocale(QLocale::Portuguese, QLocale::Brazil));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const auto quantas = static_cast<std::size_t>(rowCount());
    std::vector<QCollatorSortKey> chaves;
    std::vector<int> posicoes;
    chaves.reserve(quantas);
    posicoes.reserve(quantas);
    for (int linha = 0; linha < rowCount(); ++linha) {
        posicoes.push_back(Posicao(linha));
        chaves.push_back(collator.sortKey(Tenta([&] { return Texto(posicoes.back(), coluna); })));
    }
    std::vector<std::size_t> antigas(quantas);
    std::iota(antigas.begin(), antigas.end(), std::size_t{0});
    std::stable_sort(antigas.begin(), antigas.end(), [&](std::size_t a, std::size_t b) {
        const int comparacao = chaves[a].compare(chaves[b]);
        return ordem == Qt::AscendingOrder ? comparacao < 0 : comparacao > 0;
    });

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<int> novaLinha(quantas);
    m_ordem.resize(quantas);
    for (std::size_t nova = 0; nova < quantas; ++nova) {
        m_ordem[nova] = posicoes[antigas[nova]];
        novaLinha[antigas[nova]] = static_cast<int>(nova);
    }
    const QModelIndexList de = persistentIndexList();
    QModelIndexList para;
    para.reserve(de.size());
    for (const QModelIndex& indice : de)
        para.append(index(novaLinha[static_cast<std::size_t>(indice.row())], indice.column()));
    changePersistentIndexList(de, para);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

QModelIndex ModeloMusicas::index(int linha, int coluna, const QModelIndex& parent) const
{
    if (linha < 0 || linha >= m_quantas || coluna < 0 || coluna >= Colunas || parent.isValid())
        return QModelIndex();
    return createIndex(linha, coluna);
}

int ModeloMusicas::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_quantas;
}

int ModeloMusicas::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Colunas;
}

QVariant ModeloMusicas::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    return Tenta([&] { return Dado(index.row(), index.column(), role); });
}

QVariant ModeloMusicas::Dado(int linha, int coluna, int papel) const
{
    const int posicao = Posicao(linha);
    switch (papel) {
    case Qt::DisplayRole:
        return Texto(posicao, coluna);
    case Qt::ToolTipRole:
        return Dica(posicao, coluna);
    case Qt::UserRole:
        return coluna == Titulo ? QVariant(Tag(posicao)) : QVariant();
    default:
        return QVariant();
    }
}

QVariant ModeloMusicas::headerData(int secao, Qt::Orientation orientacao, int role) const
{
    if (orientacao != Qt::Horizontal || secao < 0 || secao >= Colunas)
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (secao) {
    case Titulo:
        return QStringLiteral("Título");
    case Referencia:
        return QStringLiteral("Referência");
    default:
        return QStringLiteral("Temas");
    }
}

Qt::ItemFlags ModeloMusicas::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

int ModeloMusicas::Posicao(int linha) const
{
    return m_ordem.empty() ? linha : m_ordem[static_cast<std::size_t>(linha)];
}

QString ModeloMusicas::Texto(int posicao, int coluna) const
{
    if (coluna == Temas)
        return Le_Temas(posicao);
    const LinhaMusica musica = m_fonte->Le(posicao);
    if (coluna == Referencia)
        return musica.referencia;
    return musica.titulo % u" (" % musica.tom % u')';
}

QString ModeloMusicas::Dica(int posicao, int coluna) const
{
    if (coluna != Titulo)
        return Texto(posicao, coluna);
    const LinhaMusica musica = m_fonte->Le(posicao);
    return musica.titulo % u" [" % musica.contador % u"] (" % musica.tom % u')';
}

QString ModeloMusicas::Tag(int posicao) const
{
    return QString::number(m_fonte->Id(posicao));
}

QString ModeloMusicas::Le_Temas(int posicao) const
{
    const auto lidos = m_temas.find(posicao);
    if (lidos != m_temas.end())
        return lidos->second;
    // Where the reading fails, the text stays empty and is not asked for again until the next fill.
    QString temas = Tenta([&] { return m_leitor(m_fonte->Id(posicao)); });
    m_temas.emplace(posicao, temas);
    return temas;
}

/// A list paints whenever Qt likes, so nothing may be thrown from a reading; a failed one is empty.
template <typename Leitura>
auto ModeloMusicas::Tenta(Leitura leitura) const -> decltype(leitura())
{
    try {
        return leitura();
    } catch (const std::exception&) {
        if (!std::exchange(m_falhaContada, true))
            emit FalhaNaLinha(std::current_exception());
    }
    return {};
}
