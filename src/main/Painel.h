#pragma once

#include <QWidget>

/// One of the panels that the main form shows in turn.
class Painel : public QWidget
{
    Q_OBJECT

public:
    explicit Painel(QWidget* parent = nullptr);

    /// A panel counts as shown when it is visible and enabled; the two change together.
    void Mostra(bool mostra);

signals:
    /// The left button was pressed and released on the panel's background. Labels let their presses
    /// through to the panel, but are no background; a frame that only groups controls is.
    void Click();

protected:
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

private:
    /// @param lugar  in the panel's pixels
    bool Fundo(const QPoint& lugar) const;

    bool m_pressionado = false;
};
