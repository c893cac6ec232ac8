#include "main/Painel.h"

#include <QFrame>
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

bool Painel::Fundo(const QPoint& lugar) const
{
    if (!rect().contains(lugar))
        return false;
    const QWidget* controle = childAt(lugar);
    return !controle || controle->metaObject() == &QFrame::staticMetaObject;
}

void Painel::mousePressEvent(QMouseEvent* evento)
{
    m_pressionado = evento->button() == Qt::LeftButton && Fundo(evento->position().toPoint());
    evento->accept();
}

void Painel::mouseReleaseEvent(QMouseEvent* evento)
{
    const bool pressionado = std::exchange(m_pressionado, false);
    if (pressionado && evento->button() == Qt::LeftButton && Fundo(evento->position().toPoint()))
        emit Click();
}
