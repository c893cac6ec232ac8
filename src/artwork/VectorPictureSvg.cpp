#include "artwork/VectorPicture.h"

#include <QPainter>
#include <QString>
#include <QSvgRenderer>

struct VectorPicture::Source
{
    QSvgRenderer svg;
};

VectorPicture::VectorPicture() = default;
VectorPicture::~VectorPicture() = default;
VectorPicture::VectorPicture(VectorPicture&&) noexcept = default;
VectorPicture& VectorPicture::operator=(VectorPicture&&) noexcept = default;

VectorPicture::VectorPicture(const QString& path)
    : m_source(std::make_unique<Source>())
{
    m_source->svg.load(path);
}

bool VectorPicture::IsValid() const
{
    return m_source != nullptr && m_source->svg.isValid();
}

QSize VectorPicture::DefaultSize() const
{
    return IsValid() ? m_source->svg.defaultSize() : QSize();
}

void VectorPicture::Render(QPainter& painter, const QRectF& place,
                           Qt::AspectRatioMode proportions) const
{
    if (!IsValid())
        return;
    m_source->svg.setAspectRatioMode(proportions);
    m_source->svg.render(&painter, place);
}
