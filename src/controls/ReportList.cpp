#include "controls/ReportList.h"

#include "controls/Appearance.h"
#include "controls/LongTexts.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

/// Every row is as high as a line of text with some air; a height asked of the rows' texts would
/// read what belongs to rows that nobody sees.
class ReportRows final : public LongTexts::Delegate
{
public:
    using LongTexts::Delegate::Delegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override
    {
        constexpr int Air = 11;
        return {option.fontMetrics.averageCharWidth() * 20, option.fontMetrics.height() + Air};
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        LongTexts::Delegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus; // it is the row that has it, see drawRow
    }
};

} // namespace

ReportList::ReportList(QWidget* parent)
    : QTreeView(parent)
{
    setItemDelegate(new ReportRows(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &ReportList::ColumnClick);
    // Of two fast clicks the header tells the second as a double click only.
    connect(header(), &QHeaderView::sectionDoubleClicked, this, [this](int column) {
        if (column >= 0)
            emit ColumnClick(column);
    });
    header()->viewport()->installEventFilter(this);
}

void ReportList::SortBy(int column)
{
    m_direction = m_direction == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    model()->sort(column, m_direction);
    header()->setSortIndicator(column, m_direction);
    header()->setSortIndicatorShown(true);
}

void ReportList::ShowWhenEmpty(const QString& drawing)
{
    if (drawing == m_drawing) // asked for after every fill
        return;
    m_drawing = drawing;
    m_whenEmpty = Appearance::Icon(drawing);
    m_drawn = QPixmap();
    viewport()->update();
}

void ReportList::ForgetSorting()
{
    header()->setSortIndicatorShown(false);
}

void ReportList::MakeCurrent(const QModelIndex& index)
{
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
}

bool ReportList::eventFilter(QObject* object, QEvent* event)
{
    // The header takes clicks of the left button, but double clicks of any.
    if (object == header()->viewport() && event->type() == QEvent::MouseButtonDblClick &&
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return true;
    return QTreeView::eventFilter(object, event);
}

void ReportList::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex below = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !below.isValid())
        return;
    // The first press may have met the row next to it.
    if (below.row() != currentIndex().row())
        MakeCurrent(below);
    // With Ctrl it has taken the mark of a marked row away.
    if (!selectionModel()->isSelected(below))
        selectionModel()->select(below, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    emit DblClick();
}

bool ReportList::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString text = LongTexts::Beginning(index.data(Qt::ToolTipRole).toString());
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), LongTexts::Literal(text), viewport(),
                           visualRect(index));
    return true;
}

void ReportList::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_whenEmpty.isNull() || model()->rowCount() > 0)
        return;
    constexpr int Side = 96; // pixels at 100 %
    constexpr qreal Faint = 0.14;
    QRect place(0, 0, Side, Side);
    place.moveCenter(viewport()->rect().center());
    if (!viewport()->rect().contains(place))
        return;
    if (m_drawn.isNull() || m_drawn.devicePixelRatio() != devicePixelRatioF())
        m_drawn = m_whenEmpty.pixmap(place.size(), devicePixelRatioF());
    QPainter painter(viewport());
    painter.setOpacity(Faint);
    painter.drawPixmap(place, m_drawn);
}

void ReportList::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const
{
    QTreeView::drawRow(painter, option, index);
    if (!hasFocus() || index.row() != currentIndex().row())
        return;
    painter->save();
    painter->setPen(palette().color(QPalette::Highlight));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}
