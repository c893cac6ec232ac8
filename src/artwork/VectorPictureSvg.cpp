#include "artwork/VectorPicture.h"

#include <QFile>
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

VectorPicture::VectorPicture(const QString& path, const PictureColours& colours)
    : m_source(std::make_unique<Source>())
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QByteArray text = file.readAll();
    for (const auto& [old, shown] : colours)
        text.replace(old.name().toLatin1(), shown.name().toLatin1());
    m_source->svg.load(text);
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
