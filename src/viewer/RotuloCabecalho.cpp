#include "viewer/RotuloCabecalho.h"

#include "controls/LongTexts.h"

#include <QPainter>
#include <QTextDocument>

namespace {

constexpr int Folga = 3; // pixels: slanted letters lean out of their own width

/// @return a tool tip that shows texto as it is, also where it looks like markup
QString Dica_Simples(const QString& texto)
{
    if (!Qt::mightBeRichText(texto))
        return texto;
    return u"<span>"_qs + texto.toHtmlEscaped() + u"</span>"_qs;
}

} // namespace

RotuloCabecalho::RotuloCabecalho(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void RotuloCabecalho::Mostra_Texto(const QString& texto)
{
    setText(texto);
    Limita_Largura(Largura_Inteira());
}

QString RotuloCabecalho::Parte_Visivel() const
{
    return LongTexts::Beginning(text());
}

int RotuloCabecalho::Largura_Inteira() const
{
    const QString texto = Parte_Visivel();
    if (m_medido != texto || m_fonte != font()) {
        m_medido = texto;
        m_fonte = font();
        m_largura = texto.isEmpty() ? 0 : fontMetrics().horizontalAdvance(texto) + Folga;
    }
    return m_largura;
}

void RotuloCabecalho::Limita_Largura(int largura)
{
    resize(largura, sizeHint().height());
    setToolTip(largura < Largura_Inteira() ? Dica_Simples(Parte_Visivel()) : QString());
}

QSize RotuloCabecalho::sizeHint() const
{
    return {Largura_Inteira(), fontMetrics().height()};
}

void RotuloCabecalho::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QString drawn =
        width() < Largura_Inteira()
            ? fontMetrics().elidedText(Parte_Visivel(), Qt::ElideRight, width() - Folga)
            : Parte_Visivel();
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, drawn);
}
