#include "viewer/ImagemSvg.h"

#include "controls/AccessibleControls.h"
#include "controls/Appearance.h"

#include <QAccessible>
#include <QPainter>

ImagemSvg::ImagemSvg(QWidget* parent)
    : QWidget(parent)
{
    QAccessible::installFactory(MakeAccessible<ImagemSvg, AccessibleDecoration>);
}

void ImagemSvg::Mostra_Imagem(const QString& caminho)
{
    m_imagem = Appearance::Drawing(caminho);
    update();
}

void ImagemSvg::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_imagem.Render(painter, QRectF(rect()), Qt::IgnoreAspectRatio);
}
