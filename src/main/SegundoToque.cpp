#include "main/SegundoToque.h"

#include "controls/ListBox.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWindow>

SegundoToque::SegundoToque(ListBox& lista)
    : QObject(&lista)
    , m_lista(lista)
{
    lista.viewport()->installEventFilter(this);
}

bool SegundoToque::eventFilter(QObject* objeto, QEvent* evento)
{
    switch (evento->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        break;
    default:
        return false;
    }
    const auto& toque = static_cast<const QMouseEvent&>(*evento);
    if (objeto == m_janela)
        return Segundo(toque);
    if (toque.button() == Qt::LeftButton) {
        if (toque.type() == QEvent::MouseButtonPress)
            Primeiro(toque);
        else if (toque.type() == QEvent::MouseButtonDblClick)
            Termina(); // the list is still there to raise it
    }
    return false;
}

/// The focus has moved by now, so the list that goes with it is hidden already.
void SegundoToque::Primeiro(const QMouseEvent& toque)
{
    Termina();
    const QModelIndex item = m_lista.indexAt(toque.position().toPoint());
    if (!item.isValid() || m_lista.isVisible())
        return;
    const QRect linha = m_lista.visualRect(item);
    m_lugar = linha.translated(m_lista.viewport()->mapToGlobal(QPoint(0, 0)));
    m_dado = static_cast<double>(m_lista.ItemData(item.row()));
    m_instante = toque.timestamp();
    m_janela = m_lista.window()->windowHandle();
    if (!m_janela)
        return;
    m_janela->installEventFilter(this);
    m_espera = Espera::SegundaVez;
}

/// @return true for a press, double click or release that goes no further
bool SegundoToque::Segundo(const QMouseEvent& toque)
{
    const bool solta = toque.type() == QEvent::MouseButtonRelease;
    if (m_espera == Espera::Soltar) {
        if (toque.type() == QEvent::MouseButtonPress) {
            Termina();
            return false;
        }
        if (solta)
            Termina();
        return true;
    }
    if (solta)
        return false; // of the first press
    const int prazo = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    const bool mesmo = toque.button() == Qt::LeftButton &&
                       m_lugar.contains(toque.globalPosition().toPoint()) &&
                       toque.timestamp() - m_instante <= static_cast<quint64>(prazo);
    if (!mesmo) {
        Termina();
        return false;
    }
    m_espera = Espera::Soltar;
    emit DblClick(m_dado);
    return true;
}

void SegundoToque::Termina()
{
    if (m_janela)
        m_janela->removeEventFilter(this);
    m_janela = nullptr;
    m_espera = Espera::Nada;
}
