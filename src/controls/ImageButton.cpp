#include "controls/ImageButton.h"

#include "controls/AccessibleControls.h"
#include "controls/Appearance.h"
#include "controls/FocusRing.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int UnavailableAlpha = 90; // of 255
constexpr qreal PressedOpacity = 0.65;
constexpr int HoverAlpha = 28;     // of 255, the accent behind an image under the pointer
constexpr qreal HoverRadius = 5.0; // pixels
constexpr int FocusWidth = 2;      // pixels

/// @return a picture for an inert image; nullptr for a button, which Qt knows
QAccessibleInterface* Accessible(const QString&, QObject* object)
{
    auto* image = qobject_cast<ImageButton*>(object);
    return image && image->inert() ? new AccessibleDecoration(image) : nullptr;
}

} // namespace

ImageButton::ImageButton(QWidget* parent)
    : QAbstractButton(parent)
{
    QAccessible::installFactory(Accessible); // once, however often it is called
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    Restyle();
}

void ImageButton::setImage(const QString& path)
{
    if (m_image == path)
        return;
    m_image = path;
    m_picture = Appearance::Drawing(path);
    m_drawn = QPixmap();
    updateGeometry();
    update();
}

void ImageButton::setInert(bool inert)
{
    m_inert = inert;
    Restyle();
    update();
}

bool ImageButton::keyboardReachable() const
{
    return focusPolicy() != Qt::NoFocus;
}

void ImageButton::setKeyboardReachable(bool reachable)
{
    setFocusPolicy(reachable ? Qt::TabFocus : Qt::NoFocus);
}

QSize ImageButton::sizeHint() const
{
    return m_picture.IsValid() ? m_picture.DefaultSize() : QSize(16, 16);
}

void ImageButton::Restyle()
{
    if (m_inert || !isEnabled())
        unsetCursor();
    else
        setCursor(Qt::PointingHandCursor);
}

bool ImageButton::event(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange)
        Restyle();
    else if (event->type() == QEvent::ToolTipChange && accessibleName().isEmpty())
        setAccessibleName(toolTip());
    return QAbstractButton::event(event);
}

bool ImageButton::hitButton(const QPoint& position) const
{
    return !m_inert && QAbstractButton::hitButton(position);
}

void ImageButton::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (m_inert)
        event->ignore();
    else if (enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

QPixmap ImageButton::Draw(bool available)
{
    const qreal scale = devicePixelRatioF();
    QPixmap whole((QSizeF(size()) * scale).toSize());
    whole.setDevicePixelRatio(scale);
    whole.fill(Qt::transparent);
    QPainter painter(&whole);
    m_picture.Render(painter, QRectF(rect()));
    if (available)
        return whole;

    // Faded as a whole: parts that overlap must not shine through each other.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(rect(), QColor(0, 0, 0, UnavailableAlpha));
    return whole;
}

void ImageButton::paintEvent(QPaintEvent*)
{
    const bool available = isEnabled();
    const QSize needed = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (m_drawn.size() != needed || m_drawnAvailable != available) {
        m_drawn = Draw(available);
        m_drawnAvailable = available;
    }

    QPainter painter(this);
    if (available && !m_inert && underMouse()) {
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlpha(HoverAlpha);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tint);
        painter.drawRoundedRect(rect(), HoverRadius, HoverRadius);
    }
    painter.setOpacity(available && isDown() ? PressedOpacity : 1.0);
    painter.drawPixmap(0, 0, m_drawn);
    painter.setOpacity(1.0);
    if (hasFocus())
        FocusRing::Draw(painter, rect(), palette().color(QPalette::Highlight), FocusWidth);
}
