#include "main/TeclasAcesso.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>
#include <QShortcutEvent>

#include <algorithm>

TeclasAcesso::TeclasAcesso(QMainWindow& formulario, QMenuBar& menu)
    : QObject(&formulario)
    , m_formulario(formulario)
    , m_menu(menu)
{
    qApp->installEventFilter(this);
    auto* f10 = new QShortcut(QKeySequence(Qt::Key_F10), &formulario);
    connect(f10, &QShortcut::activated, this, &TeclasAcesso::Entra_Ou_Sai_Do_Menu);
    connect(&menu, &QMenuBar::triggered, this, &TeclasAcesso::Devolve_Foco);
}

bool TeclasAcesso::eventFilter(QObject* objeto, QEvent* evento)
{
    if (evento->type() == QEvent::Shortcut) {
        const auto* atalho = static_cast<QShortcutEvent*>(evento);
        return atalho->isAmbiguous() && m_formulario.isActiveWindow() &&
               Entrega_Ao_Painel(atalho->key());
    }
    if (objeto == &m_menu && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape && m_focoAntes) {
        Devolve_Foco();
        return true;
    }
    return false;
}

bool TeclasAcesso::Entrega_Ao_Painel(const QKeySequence& tecla)
{
    const QList<QAbstractButton*> botoes = m_formulario.findChildren<QAbstractButton*>();
    for (QAbstractButton* botao : botoes) {
        if (botao->isVisible() && botao->isEnabled() && botao->shortcut() == tecla) {
            botao->setFocus(Qt::ShortcutFocusReason);
            botao->click();
            return true;
        }
    }
    const QList<QLabel*> rotulos = m_formulario.findChildren<QLabel*>();
    const auto rotulo = std::find_if(rotulos.cbegin(), rotulos.cend(), [&](const QLabel* um) {
        return um->isVisible() && um->buddy() && um->buddy()->isEnabled() &&
               QKeySequence::mnemonic(um->text()) == tecla;
    });
    if (rotulo == rotulos.cend())
        return false;
    (*rotulo)->buddy()->setFocus(Qt::ShortcutFocusReason);
    return true;
}

void TeclasAcesso::Entra_Ou_Sai_Do_Menu()
{
    if (m_menu.hasFocus()) {
        Devolve_Foco();
        return;
    }
    m_focoAntes = QApplication::focusWidget();
    m_menu.setFocus(Qt::MenuBarFocusReason);
    m_menu.setActiveAction(m_menu.actions().value(0));
}

void TeclasAcesso::Devolve_Foco()
{
    if (m_menu.hasFocus() && m_focoAntes)
        m_focoAntes->setFocus(Qt::MenuBarFocusReason);
    m_focoAntes.clear();
}
