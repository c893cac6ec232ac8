#include "controls/ListaMusicas.h"

#include "controls/LongTexts.h"
#include "store/Preenche.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace {

/// Every row is as high as a line of text with some air; a height asked of the rows' texts would
/// read the themes of rows that nobody sees.
class Linhas final : public LongTexts::Delegate
{
public:
    using LongTexts::Delegate::Delegate;

    QSize sizeHint(const QStyleOptionViewItem& opcao, const QModelIndex& /*indice*/) const override
    {
        constexpr int Ar = 11;
        return {opcao.fontMetrics.averageCharWidth() * 20, opcao.fontMetrics.height() + Ar};
    }

protected:
    void initStyleOption(QStyleOptionViewItem* opcao, const QModelIndex& indice) const override
    {
        LongTexts::Delegate::initStyleOption(opcao, indice);
        opcao->state &= ~QStyle::State_HasFocus; // it is the row that has it, see drawRow
    }
};

/// @return text such that a tool tip shows it as it is, also where it looks like markup.
QString Dica_Literal(const QString& texto)
{
    if (!Qt::mightBeRichText(texto))
        return texto;
    return u"<p style='white-space:pre-wrap'>" % texto.toHtmlEscaped() % u"</p>";
}

} // namespace

ListaMusicas::ListaMusicas(QWidget* parent)
    : QTreeView(parent)
    , m_modelo(new ModeloMusicas(
          [](qint64 id) { return Funcoes::Busca_Temas_Musica(static_cast<double>(id)); }, this))
{
    setModel(m_modelo);
    setItemDelegate(new Linhas(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerItem);
    setTextElideMode(Qt::ElideRight);
    Arruma_Cabecalho();
    connect(m_modelo, &ModeloMusicas::FalhaNaLinha, this, &ListaMusicas::Relata_Falha);
    connect(m_modelo, &ModeloMusicas::LeituraLimpa, this, [this] { m_leituraTemas.Run([] {}); });
}

void ListaMusicas::Arruma_Cabecalho()
{
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setStretchLastSection(true);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
    header()->setMinimumSectionSize(60);
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &ListaMusicas::ColumnClick);
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
    header()->setSortIndicatorShown(false);
    m_modelo->Preenche(std::move(linhas));
}

void ListaMusicas::Preenche_De(std::shared_ptr<const FonteMusicas> fonte)
{
    header()->setSortIndicatorShown(false);
    m_modelo->Preenche_De(std::move(fonte));
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
    m_direcao = m_direcao == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    const QScopedValueRollback<bool> ordenando(m_ordenando, true);
    m_modelo->sort(coluna, m_direcao);
    header()->setSortIndicator(coluna, m_direcao);
    header()->setSortIndicatorShown(true);
}

void ListaMusicas::keyboardSearch(const QString& inicio)
{
    // The tree view looks in the column of its current index.
    const QModelIndex atual = currentIndex();
    if (atual.column() > ModeloMusicas::Titulo)
        selectionModel()->setCurrentIndex(atual.siblingAtColumn(ModeloMusicas::Titulo),
                                          QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(inicio);
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
    default:
        QTreeView::keyPressEvent(evento);
    }
}

void ListaMusicas::mousePressEvent(QMouseEvent* evento)
{
    if (evento->button() != Qt::RightButton) {
        QTreeView::mousePressEvent(evento);
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
        QTreeView::mouseReleaseEvent(evento);
        return;
    }
    // The button may have been pressed over one row and dragged to another.
    const QModelIndex sobPonteiro = indexAt(evento->position().toPoint());
    if (sobPonteiro.isValid() && sobPonteiro.row() == currentIndex().row())
        emit BotaoDireito();
}

void ListaMusicas::mouseDoubleClickEvent(QMouseEvent* evento)
{
    const QModelIndex sobPonteiro = indexAt(evento->position().toPoint());
    if (evento->button() != Qt::LeftButton || !sobPonteiro.isValid())
        return;
    // The first press may have met the row next to it.
    if (sobPonteiro.row() != currentIndex().row())
        selectionModel()->setCurrentIndex(sobPonteiro, QItemSelectionModel::ClearAndSelect |
                                                           QItemSelectionModel::Rows);
    emit DblClick();
}

void ListaMusicas::contextMenuEvent(QContextMenuEvent* evento)
{
    evento->accept();
    if (evento->reason() == QContextMenuEvent::Keyboard)
        emit BotaoDireito();
}

void ListaMusicas::resizeEvent(QResizeEvent* evento)
{
    QTreeView::resizeEvent(evento);
    Reparte_Colunas();
}

bool ListaMusicas::viewportEvent(QEvent* evento)
{
    if (evento->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(evento);
    const auto* ajuda = static_cast<QHelpEvent*>(evento);
    const QModelIndex indice = indexAt(ajuda->pos());
    const QString texto = LongTexts::Beginning(indice.data(Qt::ToolTipRole).toString());
    if (texto.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(ajuda->globalPos(), Dica_Literal(texto), viewport(), visualRect(indice));
    return true;
}

void ListaMusicas::drawRow(QPainter* pintor, const QStyleOptionViewItem& opcao,
                           const QModelIndex& indice) const
{
    QTreeView::drawRow(pintor, opcao, indice);
    if (!hasFocus() || indice.row() != currentIndex().row())
        return;
    pintor->save();
    pintor->setPen(palette().color(QPalette::Highlight));
    pintor->setBrush(Qt::NoBrush);
    pintor->drawRect(opcao.rect.adjusted(0, 0, -1, -1));
    pintor->restore();
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
