#include "main/Painel.h"

#include <QMouseEvent>

#include <utility>

Painel::Painel(QWidget* parent)
    : QWidget(parent)
{
}

void Painel::Mostra(bool mostra)
{
    setVisible(mostra);
    setEnabled(mostra);
}

void Painel::mousePressEvent(QMouseEvent* evento)
{
    m_pressionado = evento->button() == Qt::LeftButton;
    evento->accept();
}

void Painel::mouseReleaseEvent(QMouseEvent* evento)
{
    const bool pressionado = std::exchange(m_pressionado, false);
    if (pressionado && evento->button() == Qt::LeftButton)
        emit Click();
}
