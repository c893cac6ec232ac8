#pragma once

#include <QIcon>
#include <QPixmap>
#include <QTreeView>

/// Rows in columns below a clickable header, all of one height: what the list of songs and the grid
/// of setlists have in common. Rows come in the order of their model until SortBy sorts them.
class ReportList : public QTreeView
{
    Q_OBJECT

public:
    explicit ReportList(QWidget* parent = nullptr);

    /// Turns the direction round (it is ascending at first, so the first call sorts descending) and
    /// sorts by the texts of a column. @param column  position from 0
    void SortBy(int column);

    /// From now on a list without rows shows a drawing faintly in its middle. Asked for after the
    /// first fill: before it nobody knows yet that there is nothing.
    /// @param drawing  a picture's file, usually from Artwork::Path
    void ShowWhenEmpty(const QString& drawing);

signals:
    /// The left button, twice, on a row, which is current and selected then.
    void DblClick();
    /// A column header was clicked, also fast after another click. @param column  position from 0
    void ColumnClick(int column);

protected:
    /// Rows come in the order of their model again.
    void ForgetSorting();

    bool eventFilter(QObject* object, QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// Shows what a row's tip says, letter by letter, also where it looks like markup.
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// The current row as a whole is framed while the list has the focus.
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

    /// Makes a row current and selects it alone.
    void MakeCurrent(const QModelIndex& index);

private:
    Qt::SortOrder m_direction = Qt::AscendingOrder;
    QString m_drawing; ///< the file of m_whenEmpty
    QIcon m_whenEmpty;
    QPixmap m_drawn; ///< of m_whenEmpty: a search paints it with every letter
};
