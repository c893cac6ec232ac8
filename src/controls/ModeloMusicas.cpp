#include "controls/ModeloMusicas.h"

#include "runtime/RuntimeError.h"

#include <QCollator>
#include <QLocale>

#include <algorithm>
#include <numeric>

ModeloMusicas::ModeloMusicas(LeitorTemas leitor, QObject* parent)
    : QAbstractTableModel(parent)
    , m_leitor(std::move(leitor))
{
}

void ModeloMusicas::Preenche(std::vector<LinhaMusica> linhas)
{
    beginResetModel();
    m_linhas.clear();
    m_linhas.reserve(linhas.size());
    for (LinhaMusica& musica : linhas)
        m_linhas.push_back({std::move(musica), QString(), false});
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
    std::vector<QCollatorSortKey> chaves;
    chaves.reserve(m_linhas.size());
    for (const Linha& linha : m_linhas)
        chaves.push_back(collator.sortKey(Texto(linha, coluna)));

    std::vector<std::size_t> antigas(m_linhas.size());
    std::iota(antigas.begin(), antigas.end(), std::size_t{0});
    std::stable_sort(antigas.begin(), antigas.end(), [&](std::size_t a, std::size_t b) {
        const int comparacao = chaves[a].compare(chaves[b]);
        return ordem == Qt::AscendingOrder ? comparacao < 0 : comparacao > 0;
    });

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<Linha> ordenadas;
    std::vector<int> novaPosicao(m_linhas.size());
    ordenadas.reserve(m_linhas.size());
    for (const std::size_t antiga : antigas) {
        novaPosicao[antiga] = static_cast<int>(ordenadas.size());
        ordenadas.push_back(std::move(m_linhas[antiga]));
    }
    m_linhas = std::move(ordenadas);

    const QModelIndexList de = persistentIndexList();
    QModelIndexList para;
    para.reserve(de.size());
    for (const QModelIndex& indice : de)
        para.append(index(novaPosicao[static_cast<std::size_t>(indice.row())], indice.column()));
    changePersistentIndexList(de, para);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int ModeloMusicas::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_linhas.size());
}

int ModeloMusicas::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Colunas;
}

QVariant ModeloMusicas::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const Linha& linha = m_linhas[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return Texto(linha, index.column());
    case Qt::ToolTipRole:
        return Dica(linha, index.column());
    case Qt::UserRole:
        return index.column() == Titulo ? QVariant(QString::number(linha.musica.id)) : QVariant();
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

QString ModeloMusicas::Texto(const Linha& linha, int coluna) const
{
    switch (coluna) {
    case Titulo:
        return linha.musica.titulo % u" (" % linha.musica.tom % u')';
    case Referencia:
        return linha.musica.referencia;
    default:
        return Le_Temas(linha);
    }
}

QString ModeloMusicas::Dica(const Linha& linha, int coluna) const
{
    if (coluna != Titulo)
        return Texto(linha, coluna);
    return linha.musica.titulo % u" [" % linha.musica.contador % u"] (" % linha.musica.tom % u')';
}

const QString& ModeloMusicas::Le_Temas(const Linha& linha) const
{
    if (linha.temasLidos)
        return linha.temas;

    // A list paints whenever Qt likes, so nothing may be thrown from here; the text stays empty and
    // is not asked for again until the next fill.
    linha.temasLidos = true;
    try {
        linha.temas = m_leitor(linha.musica.id);
    } catch (const RuntimeError& erro) {
        if (!m_falhaContada) {
            m_falhaContada = true;
            emit FalhaNosTemas(erro.Number(), erro.WhatFailed(), erro.Description());
        }
    }
    return linha.temas;
}
