#include "viewer/TeclasEdicao.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace {

bool Serve_A_Botao(int tecla)
{
    switch (tecla) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace

TeclasEdicao::TeclasEdicao(QObject* parent)
    : QObject(parent)
{
}

void TeclasEdicao::Vigia(QWidget* controle)
{
    controle->installEventFilter(this);
}

void TeclasEdicao::Comeca()
{
    m_editando = true;
    m_primeira = true;
}

void TeclasEdicao::Termina()
{
    m_editando = false;
}

bool TeclasEdicao::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_editando || event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto* tecla = static_cast<QKeyEvent*>(event);
    if (!tecla->isAutoRepeat())
        m_primeira = false;
    if (m_primeira)
        return true;
    return qobject_cast<QAbstractButton*>(watched) && !Serve_A_Botao(tecla->key());
}
