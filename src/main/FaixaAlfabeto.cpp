#include "main/FaixaAlfabeto.h"

#include "controls/ClickableLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStyle>

namespace {

constexpr char Marcada[] = "marcada";

} // namespace

FaixaAlfabeto::FaixaAlfabeto(QWidget* parent)
    : QWidget(parent)
{
    setStyleSheet(QStringLiteral(
        "ClickableLabel { color: palette(highlight); padding: 4px 0px; border-radius: 4px; }"
        "ClickableLabel:hover { background: #dbe8f8; }"
        "ClickableLabel[marcada=\"true\"] { background: palette(highlight); "
        "color: palette(highlighted-text); }"));
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(2);
    for (int i = 0; i <= Tudo; ++i) {
        const QString texto =
            i == Tudo ? QStringLiteral("Tudo") : QString(QChar(static_cast<char16_t>(u'A' + i)));
        auto* letra = new ClickableLabel(texto, this);
        letra->setObjectName(u"lblAlfa_" % QString::number(i));
        letra->setAlignment(Qt::AlignCenter);
        letra->setProperty(Marcada, false);
        connect(letra, &ClickableLabel::clicked, this, [this, i] { emit Click(i); });
        fila->addWidget(letra, i == Tudo ? 2 : 1);
        m_letras[static_cast<std::size_t>(i)] = letra;
    }
    Torna_Alcancavel(0);
}

void FaixaAlfabeto::Marca(int indice)
{
    for (int i = 0; i < Tudo; ++i) {
        ClickableLabel* letra = m_letras[static_cast<std::size_t>(i)];
        if (letra->property(Marcada).toBool() == (i == indice))
            continue;
        letra->setProperty(Marcada, i == indice);
        letra->style()->unpolish(letra);
        letra->style()->polish(letra);
    }
}

void FaixaAlfabeto::Torna_Alcancavel(int indice)
{
    m_letras[static_cast<std::size_t>(m_alcancavel)]->setKeyboardReachable(false);
    m_alcancavel = indice;
    m_letras[static_cast<std::size_t>(indice)]->setKeyboardReachable(true);
}

void FaixaAlfabeto::keyPressEvent(QKeyEvent* evento)
{
    int indice = m_alcancavel;
    switch (evento->key()) {
    case Qt::Key_Left:
        indice = qMax(0, indice - 1);
        break;
    case Qt::Key_Right:
        indice = qMin(Tudo, indice + 1);
        break;
    case Qt::Key_Home:
        indice = 0;
        break;
    case Qt::Key_End:
        indice = Tudo;
        break;
    default:
        QWidget::keyPressEvent(evento);
        return;
    }
    Torna_Alcancavel(indice);
    m_letras[static_cast<std::size_t>(indice)]->setFocus(Qt::TabFocusReason);
}
