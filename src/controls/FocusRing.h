#pragma once

#include <QColor>
#include <QRect>
#include <QWidget>

class QPainter;

/// The ring of the control that has the focus: solid, unlike the style's own, which hardly shows on
/// light ground. As a widget it lies around a control that has room beside it and no ring of its
/// own, and is there while that control has the focus.
class FocusRing : public QWidget
{
    Q_OBJECT

public:
    /// @param control  has a parent, which the ring is drawn on
    explicit FocusRing(QWidget& control);

    /// Draws a ring just inside a place. @param width  in pixels
    static void Draw(QPainter& painter, const QRect& place, const QColor& colour, int width);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow();

    QWidget& m_control;
};
