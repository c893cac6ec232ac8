#include "main/ModeloListas.h"

#include <QCollator>

#include <algorithm>
#include <numeric>
#include <utility>

void ModeloListas::Preenche(std::vector<LinhaLista> linhas)
{
    beginResetModel();
    m_linhas = std::move(linhas);
    endResetModel();
}

void ModeloListas::sort(int coluna, Qt::SortOrder ordem)
{
    if (coluna < 0 || coluna >= Colunas)
        return;
    QCollator collator(QLocale(QLocale::Portuguese, QLocale::Brazil));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    const auto texto = [this, coluna](std::size_t linha) -> const QString& {
        return coluna == Nome ? m_linhas[linha].nome : m_linhas[linha].data;
    };
    std::vector<std::size_t> antigas(m_linhas.size());
    std::iota(antigas.begin(), antigas.end(), std::size_t{0});
    std::stable_sort(antigas.begin(), antigas.end(), [&](std::size_t a, std::size_t b) {
        const int comparacao = collator.compare(texto(a), texto(b));
        return ordem == Qt::AscendingOrder ? comparacao < 0 : comparacao > 0;
    });

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<LinhaLista> ordenadas(m_linhas.size());
    std::vector<int> nova_linha(m_linhas.size());
    for (std::size_t nova = 0; nova < antigas.size(); ++nova) {
        ordenadas[nova] = std::move(m_linhas[antigas[nova]]);
        nova_linha[antigas[nova]] = static_cast<int>(nova);
    }
    m_linhas = std::move(ordenadas);
    const QModelIndexList de = persistentIndexList();
    QModelIndexList para;
    for (const QModelIndex& indice : de)
        para.append(index(nova_linha[static_cast<std::size_t>(indice.row())], indice.column()));
    changePersistentIndexList(de, para);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int ModeloListas::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_linhas.size());
}

int ModeloListas::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Colunas;
}

QVariant ModeloListas::data(const QModelIndex& indice, int role) const
{
    if (!indice.isValid())
        return {};
    const LinhaLista& linha = m_linhas.at(static_cast<std::size_t>(indice.row()));
    const bool nome = indice.column() == Nome;
    if (role == Qt::DisplayRole)
        return nome ? linha.nome : linha.data;
    if (role == Qt::ToolTipRole)
        return nome ? linha.nome : linha.dica_data;
    if (role == Qt::UserRole && nome)
        return QString::number(linha.id);
    return {};
}

QVariant ModeloListas::headerData(int secao, Qt::Orientation orientacao, int role) const
{
    if (orientacao != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(secao, orientacao, role);
    return secao == Nome ? QStringLiteral("Nome da Lista") : QStringLiteral("Data (aaaa-mm-dd)");
}
