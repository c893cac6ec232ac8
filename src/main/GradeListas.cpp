#include "main/GradeListas.h"

#include "controls/LongTexts.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QToolTip>

#include <utility>

namespace {

/// The width that a date takes with its header, in average characters.
constexpr int LarguraData = 24;

class Linhas final : public LongTexts::Delegate
{
public:
    using LongTexts::Delegate::Delegate;

    /// As high as the rows of the song list, whatever stands in them.
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

} // namespace

GradeListas::GradeListas(QWidget* parent)
    : QTreeView(parent)
    , m_modelo(new ModeloListas(this))
{
    setModel(m_modelo);
    setItemDelegate(new Linhas(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &GradeListas::ColumnClick);
    connect(header(), &QHeaderView::sectionResized, this,
            [this](int coluna, int /*antiga*/, int largura) { Guarda_Proporcao(coluna, largura); });
}

void GradeListas::Preenche(std::vector<LinhaLista> linhas)
{
    header()->setSortIndicatorShown(false);
    m_modelo->Preenche(std::move(linhas));
}

std::optional<qint64> GradeListas::Linha_Atual() const
{
    if (!currentIndex().isValid())
        return std::nullopt;
    return m_modelo->Id(currentIndex().row());
}

void GradeListas::Ordena_Por(int coluna)
{
    m_direcao = m_direcao == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_modelo->sort(coluna, m_direcao);
    header()->setSortIndicator(coluna, m_direcao);
    header()->setSortIndicatorShown(true);
}

void GradeListas::Torna_Atual(const QModelIndex& indice)
{
    selectionModel()->setCurrentIndex(indice, QItemSelectionModel::ClearAndSelect |
                                                  QItemSelectionModel::Rows);
}

void GradeListas::keyPressEvent(QKeyEvent* evento)
{
    if (evento->key() != Qt::Key_Return && evento->key() != Qt::Key_Enter) {
        QTreeView::keyPressEvent(evento);
        return;
    }
    evento->accept();
    if (!evento->isAutoRepeat())
        emit KeyDown(Qt::Key_Return);
}

void GradeListas::mouseDoubleClickEvent(QMouseEvent* evento)
{
    const QModelIndex sob_ponteiro = indexAt(evento->position().toPoint());
    if (evento->button() != Qt::LeftButton || !sob_ponteiro.isValid())
        return;
    // The first press may have met the row next to it.
    if (sob_ponteiro.row() != currentIndex().row())
        Torna_Atual(sob_ponteiro);
    emit DblClick();
}

void GradeListas::contextMenuEvent(QContextMenuEvent* evento)
{
    evento->accept();
    if (evento->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        emit DblClick();
}

void GradeListas::focusInEvent(QFocusEvent* evento)
{
    QTreeView::focusInEvent(evento);
    // Tab makes the first row current; what Enter would open has to be seen. A click chooses by
    // itself where it lands.
    const bool por_clique = evento->reason() == Qt::MouseFocusReason;
    if (!por_clique && currentIndex().isValid() && !selectionModel()->isSelected(currentIndex()))
        Torna_Atual(currentIndex());
}

void GradeListas::resizeEvent(QResizeEvent* evento)
{
    QTreeView::resizeEvent(evento);
    Reparte_Colunas();
}

void GradeListas::Reparte_Colunas()
{
    const QScopedValueRollback<bool> repartindo(m_repartindo, true);
    const int largura = viewport()->width();
    const int dia = fontMetrics().averageCharWidth() * LarguraData;
    const int nome = m_proporcao ? static_cast<int>(largura * *m_proporcao) : largura - dia;
    header()->resizeSection(ModeloListas::Nome, qMax(0, nome));
}

void GradeListas::Guarda_Proporcao(int coluna, int largura)
{
    if (!m_repartindo && coluna == ModeloListas::Nome && viewport()->width() > 0)
        m_proporcao = static_cast<double>(largura) / viewport()->width();
}

bool GradeListas::viewportEvent(QEvent* evento)
{
    if (evento->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(evento);
    const auto* ajuda = static_cast<QHelpEvent*>(evento);
    const QModelIndex indice = indexAt(ajuda->pos());
    const QString texto = LongTexts::Beginning(indice.data(Qt::ToolTipRole).toString());
    if (texto.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(ajuda->globalPos(),
                           Qt::mightBeRichText(texto) ? Qt::convertFromPlainText(texto) : texto,
                           viewport(), visualRect(indice));
    return true;
}

void GradeListas::drawRow(QPainter* pintor, const QStyleOptionViewItem& opcao,
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
