#pragma once

#include "artwork/VectorPicture.h"

#include <QAbstractButton>
#include <QPixmap>

/// An image that reacts to clicks: no frame, no focus unless asked for, sharp at every scale.
/// Give it an accessible name or a tool tip; the tool tip serves as the name when there is none.
class ImageButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QString image READ image WRITE setImage)
    Q_PROPERTY(bool inert READ inert WRITE setInert)
    Q_PROPERTY(bool keyboardReachable READ keyboardReachable WRITE setKeyboardReachable)

public:
    explicit ImageButton(QWidget* parent = nullptr);

    QString image() const { return m_image; }
    /// @param path  the picture's file, from Artwork::Path; the image keeps its proportions
    void setImage(const QString& path);

    bool inert() const { return m_inert; }
    /// An inert image takes the place of a button that means nothing at the moment: it takes the
    /// clicks that go there and does nothing with them. It is drawn as it is: the artwork has
    /// pictures of their own for the twins.
    void setInert(bool inert);

    bool keyboardReachable() const;
    /// Lets Tab reach the button; Space and Enter press it then. Off at first.
    void setKeyboardReachable(bool reachable);

    /// The image's own size in pixels.
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& position) const override;

private:
    void Restyle();
    QPixmap Draw(bool available);

    QString m_image;
    VectorPicture m_picture;
    QPixmap m_drawn; ///< the image at the present size, scale and state
    bool m_drawnAvailable = true;
    bool m_inert = false;
};
