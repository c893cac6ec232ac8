#include "controls/FocusRing.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr qreal Radius = 4.0; // pixels
constexpr int Width = 2;
constexpr int Beside = 4; // from the control's edge to the ring's outer one

} // namespace

FocusRing::FocusRing(QWidget& control)
    : QWidget(control.parentWidget())
    , m_control(control)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    lower();
    hide();
    control.installEventFilter(this);
}

void FocusRing::Draw(QPainter& painter, const QRect& place, const QColor& colour, int width)
{
    const qreal inset = width / 2.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(inset, inset, -inset, -inset), Radius, Radius);
    painter.restore();
}

bool FocusRing::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        Follow();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(object, event);
}

void FocusRing::Follow()
{
    setGeometry(m_control.geometry().adjusted(-Beside, -Beside, Beside, Beside));
    setVisible(m_control.hasFocus() && !m_control.isHidden());
}

void FocusRing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // The ground's own: under a style sheet it is not handed down.
    const QPalette ground = parentWidget()->palette();
    Draw(painter, rect(), ground.color(QPalette::Highlight), Width);
}
