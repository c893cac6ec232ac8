#include "main/FaixaAlfabeto.h"

#include "controls/AccessibleControls.h"
#include "controls/ClickableLabel.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStyle>

namespace {

// Dynamic properties that the style sheet looks at.
constexpr char Marcada[] = "marcada"; ///< the listed songs begin with it
constexpr char Atual[] = "atual";     ///< the arrow keys are here

/// @return the letter that the arrow keys are at, as the button that it is for the keyboard
QAccessibleInterface* Acessivel(const QString&, QObject* objeto)
{
    auto* faixa = qobject_cast<FaixaAlfabeto*>(objeto);
    return faixa ? new AccessiblePressable(faixa, [faixa] { faixa->Clica(); }) : nullptr;
}

} // namespace

FaixaAlfabeto::FaixaAlfabeto(QWidget* parent)
    : QWidget(parent)
{
    QAccessible::installFactory(Acessivel); // once, however often it is called
    setFocusPolicy(Qt::TabFocus);
    setStyleSheet(QStringLiteral(
        "ClickableLabel { color: palette(highlight); padding: 3px 0px; border-radius: 4px;"
        " border: 1px solid transparent; }"
        "ClickableLabel:hover { background: palette(midlight); }"
        "ClickableLabel[marcada=\"true\"] { background: palette(highlight);"
        " color: palette(highlighted-text); }"
        "ClickableLabel[atual=\"true\"] { border: 2px solid palette(highlight); padding: 2px 0px; }"
        "ClickableLabel[atual=\"true\"][marcada=\"true\"] {"
        " border-color: palette(highlighted-text); }"));
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(2);
    for (int i = 0; i <= Tudo; ++i) {
        const QString texto =
            i == Tudo ? QStringLiteral("Tudo") : QString(QChar(static_cast<char16_t>(u'A' + i)));
        auto* letra = new ClickableLabel(texto, this);
        letra->setObjectName(u"lblAlfa_" % QString::number(i));
        letra->setAlignment(Qt::AlignCenter);
        connect(letra, &ClickableLabel::clicked, this, [this, i] { emit Click(i); });
        fila->addWidget(letra, i == Tudo ? 2 : 1);
        m_letras[static_cast<std::size_t>(i)] = letra;
    }
    Vai_Para(0);
}

void FaixaAlfabeto::Marca(int indice)
{
    for (int i = 0; i < Tudo; ++i)
        Realca(i, Marcada, i == indice);
}

void FaixaAlfabeto::Clica()
{
    emit Click(m_atual);
}

void FaixaAlfabeto::Realca(int indice, const char* propriedade, bool realca)
{
    ClickableLabel* letra = m_letras[static_cast<std::size_t>(indice)];
    if (letra->property(propriedade).toBool() == realca)
        return;
    letra->setProperty(propriedade, realca);
    letra->style()->unpolish(letra);
    letra->style()->polish(letra);
}

void FaixaAlfabeto::Vai_Para(int indice)
{
    Realca(m_atual, Atual, false);
    m_atual = qBound(0, indice, Tudo);
    Realca(m_atual, Atual, hasFocus());
    setAccessibleName(m_letras[static_cast<std::size_t>(m_atual)]->text());
}

void FaixaAlfabeto::keyPressEvent(QKeyEvent* evento)
{
    switch (evento->key()) {
    case Qt::Key_Left:
        Vai_Para(m_atual - 1);
        break;
    case Qt::Key_Right:
        Vai_Para(m_atual + 1);
        break;
    case Qt::Key_Home:
        Vai_Para(0);
        break;
    case Qt::Key_End:
        Vai_Para(Tudo);
        break;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Clica();
        break;
    default:
        QWidget::keyPressEvent(evento);
    }
}

void FaixaAlfabeto::focusInEvent(QFocusEvent* evento)
{
    QWidget::focusInEvent(evento);
    Vai_Para(m_atual);
}

void FaixaAlfabeto::focusOutEvent(QFocusEvent* evento)
{
    QWidget::focusOutEvent(evento);
    Vai_Para(m_atual);
}
