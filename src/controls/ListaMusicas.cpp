#include "controls/ListaMusicas.h"

#include "store/Preenche.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

ListaMusicas::ListaMusicas(QWidget* parent)
    : ReportList(parent)
    , m_modelo(new ModeloMusicas(
          [](qint64 id) { return Funcoes::Busca_Temas_Musica(static_cast<double>(id)); }, this))
{
    setModel(m_modelo);
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerItem);
    Arruma_Cabecalho();
    connect(m_modelo, &ModeloMusicas::FalhaNaLinha, this, &ListaMusicas::Relata_Falha);
    connect(m_modelo, &ModeloMusicas::LeituraLimpa, this, [this] { m_leituraTemas.Run([] {}); });
}

void ListaMusicas::Arruma_Cabecalho()
{
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setStretchLastSection(true);
    header()->setMinimumSectionSize(60);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int coluna, int /*antiga*/, int largura) { Guarda_Proporcao(coluna, largura); });
}

void ListaMusicas::SetView(int vista)
{
    m_vista = vista == ListView ? ListView : ReportView;
    const bool lista = m_vista == ListView;
    setHeaderHidden(lista);
    setColumnHidden(ModeloMusicas::Referencia, lista);
    setColumnHidden(ModeloMusicas::Temas, lista);
    Reparte_Colunas();
}

void ListaMusicas::Preenche(std::vector<LinhaMusica> linhas)
{
    Volta_Ao_Inicio();
    m_modelo->Preenche(std::move(linhas));
}

void ListaMusicas::Preenche_De(std::shared_ptr<const FonteMusicas> fonte)
{
    Volta_Ao_Inicio();
    m_modelo->Preenche_De(std::move(fonte));
}

void ListaMusicas::Volta_Ao_Inicio()
{
    ForgetSorting();
    // A list that is held keeps its bar while it is emptied, and with it the place in the old rows.
    verticalScrollBar()->setValue(0);
}

void ListaMusicas::Segura(bool segura)
{
    m_segura = segura;
    setUpdatesEnabled(!segura);
    if (segura)
        return;
    // Laid out now, it is painted once; laid out while it is painted, twice.
    executeDelayedItemsLayout();
    if (m_arrumar)
        updateGeometries();
}

void ListaMusicas::updateGeometries()
{
    m_arrumar = m_segura;
    if (!m_segura)
        QTreeView::updateGeometries();
}

int ListaMusicas::ListCount() const
{
    return m_modelo->rowCount();
}

qint64 ListaMusicas::Tag(int linha) const
{
    return m_modelo->index(linha, 0).data(Qt::UserRole).toLongLong();
}

std::optional<qint64> ListaMusicas::Item_Selecionado() const
{
    const QModelIndex atual = currentIndex();
    if (atual.isValid() && selectionModel()->isSelected(atual))
        return Tag(atual.row());
    int primeira = -1;
    for (const QItemSelectionRange& faixa : selectionModel()->selection()) {
        if (primeira < 0 || faixa.top() < primeira)
            primeira = faixa.top();
    }
    if (primeira < 0)
        return std::nullopt;
    return Tag(primeira);
}

QList<qint64> ListaMusicas::Itens_Selecionados() const
{
    QList<int> linhas;
    for (const QItemSelectionRange& faixa : selectionModel()->selection()) {
        for (int linha = faixa.top(); linha <= faixa.bottom(); ++linha)
            linhas.append(linha);
    }
    std::sort(linhas.begin(), linhas.end());
    linhas.erase(std::unique(linhas.begin(), linhas.end()), linhas.end());
    QList<qint64> itens;
    itens.reserve(linhas.size());
    for (const int linha : linhas)
        itens.append(Tag(linha));
    return itens;
}

void ListaMusicas::Ordena_Por(int coluna)
{
    const QScopedValueRollback<bool> ordenando(m_ordenando, true);
    SortBy(coluna);
}

void ListaMusicas::keyboardSearch(const QString& inicio)
{
    // The tree view looks in the column of its current index.
    const QModelIndex atual = currentIndex();
    if (atual.column() > ModeloMusicas::Titulo)
        selectionModel()->setCurrentIndex(atual.siblingAtColumn(ModeloMusicas::Titulo),
                                          QItemSelectionModel::NoUpdate);
    ReportList::keyboardSearch(inicio);
}

void ListaMusicas::keyPressEvent(QKeyEvent* evento)
{
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Delete:
        evento->accept();
        if (!evento->isAutoRepeat())
            emit KeyDown(evento->key());
        return;
    case Qt::Key_Home:
        // Tab makes the first row of a list without a current one current, but selects nothing;
        // the key would find itself there already and do nothing either.
        if (evento->modifiers() == Qt::NoModifier && !selectionModel()->hasSelection() &&
            currentIndex().isValid() && currentIndex().row() == 0)
            MakeCurrent(currentIndex());
        [[fallthrough]];
    default:
        ReportList::keyPressEvent(evento);
    }
}

void ListaMusicas::mousePressEvent(QMouseEvent* evento)
{
    if (evento->button() != Qt::RightButton) {
        ReportList::mousePressEvent(evento);
        return;
    }
    // A row that is one of several selected ones becomes current and stays among them: songs that
    // are marked for export survive a look at one of them.
    const QModelIndex sobPonteiro = indexAt(evento->position().toPoint());
    if (!sobPonteiro.isValid())
        return;
    const bool jaSelecionada = selectionModel()->isSelected(sobPonteiro);
    selectionModel()->setCurrentIndex(sobPonteiro, jaSelecionada
                                                       ? QItemSelectionModel::NoUpdate
                                                       : QItemSelectionModel::ClearAndSelect |
                                                             QItemSelectionModel::Rows);
}

void ListaMusicas::mouseReleaseEvent(QMouseEvent* evento)
{
    if (evento->button() != Qt::RightButton) {
        ReportList::mouseReleaseEvent(evento);
        return;
    }
    // The button may have been pressed over one row and dragged to another.
    const QModelIndex sobPonteiro = indexAt(evento->position().toPoint());
    if (sobPonteiro.isValid() && sobPonteiro.row() == currentIndex().row())
        emit BotaoDireito();
}

void ListaMusicas::contextMenuEvent(QContextMenuEvent* evento)
{
    evento->accept();
    if (evento->reason() == QContextMenuEvent::Keyboard)
        emit BotaoDireito();
}

void ListaMusicas::resizeEvent(QResizeEvent* evento)
{
    ReportList::resizeEvent(evento);
    Reparte_Colunas();
}

void ListaMusicas::Reparte_Colunas()
{
    if (m_vista == ListView)
        return;
    const QScopedValueRollback<bool> repartindo(m_repartindo, true);
    const double largura = viewport()->width();
    for (std::size_t i = 0; i < m_proporcoes.size(); ++i)
        header()->resizeSection(static_cast<int>(i), static_cast<int>(largura * m_proporcoes[i]));
}

void ListaMusicas::Guarda_Proporcao(int coluna, int largura)
{
    const auto i = static_cast<std::size_t>(coluna);
    if (m_repartindo || m_vista == ListView || i >= m_proporcoes.size() || viewport()->width() <= 0)
        return;
    m_proporcoes[i] = static_cast<double>(largura) / viewport()->width();
}

void ListaMusicas::Relata_Falha(const std::exception_ptr& falha)
{
    // Sorting ignores its errors; painting must not open a box, so the report waits for its end.
    if (m_ordenando)
        return;
    QMetaObject::invokeMethod(
        this, [this, falha] { m_leituraTemas.Run([&] { std::rethrow_exception(falha); }); },
        Qt::QueuedConnection);
}
