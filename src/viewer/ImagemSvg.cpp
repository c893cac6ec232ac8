#include "viewer/ImagemSvg.h"

#include <QPainter>

ImagemSvg::ImagemSvg(QWidget* parent)
    : QWidget(parent)
{
}

void ImagemSvg::Mostra_Imagem(const QString& caminho)
{
    m_imagem = VectorPicture(caminho);
    update();
}

void ImagemSvg::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_imagem.Render(painter, QRectF(rect()), Qt::IgnoreAspectRatio);
}
