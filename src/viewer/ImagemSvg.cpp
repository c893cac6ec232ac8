#include "viewer/ImagemSvg.h"

#include "controls/AccessibleControls.h"
#include "controls/Appearance.h"

#include <QAccessible>
#include <QPainter>

ImagemSvg::ImagemSvg(QWidget* parent)
    : QWidget(parent)
{
    QAccessible::installFactory(MakeAccessible<ImagemSvg, AccessibleDecoration>);
    m_svg.setAspectRatioMode(Qt::IgnoreAspectRatio);
}

void ImagemSvg::Mostra_Imagem(const QString& caminho)
{
    m_svg.load(Appearance::Drawing(caminho));
    update();
}

void ImagemSvg::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_svg.render(&painter, QRectF(rect()));
}
