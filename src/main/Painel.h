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
    /// The left button was clicked on the panel's background.
    void Click();

protected:
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

private:
    bool m_pressionado = false;
};
