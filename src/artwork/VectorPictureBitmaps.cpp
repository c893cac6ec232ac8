#include "artwork/VectorPicture.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

struct VectorPicture::Source
{
    std::vector<QImage> images; ///< at 1, 2, 3 and 4 times the picture's own size, as far as found
};

namespace {

/// The build puts larger ones beside "x.svg" under the names that Qt itself looks for.
QString PathAt(const QString& path, int scale)
{
    const qsizetype ending = path.lastIndexOf(u'.');
    return path.left(ending) % u'@' % QString::number(scale) % u'x' % path.mid(ending);
}

} // namespace

VectorPicture::VectorPicture() = default;
VectorPicture::~VectorPicture() = default;
VectorPicture::VectorPicture(VectorPicture&&) noexcept = default;
VectorPicture& VectorPicture::operator=(VectorPicture&&) noexcept = default;

VectorPicture::VectorPicture(const QString& path)
    : m_source(std::make_unique<Source>())
{
    constexpr int LargestScale = 4;
    if (QImage own; own.load(path))
        m_source->images.push_back(std::move(own));
    for (int scale = 2; scale <= LargestScale; ++scale) {
        if (QImage larger; QFile::exists(PathAt(path, scale)) && larger.load(PathAt(path, scale)))
            m_source->images.push_back(std::move(larger));
    }
}

bool VectorPicture::IsValid() const
{
    return m_source != nullptr && !m_source->images.empty();
}

QSize VectorPicture::DefaultSize() const
{
    return IsValid() ? m_source->images.front().size() : QSize();
}

void VectorPicture::Render(QPainter& painter, const QRectF& place,
                           Qt::AspectRatioMode proportions) const
{
    if (!IsValid() || place.isEmpty())
        return;
    QRectF filled(QPointF(), QSizeF(DefaultSize()).scaled(place.size(), proportions));
    filled.moveCenter(place.center());

    const QSizeF pixels = painter.deviceTransform().mapRect(filled).size();
    const QImage* chosen = &m_source->images.back();
    for (const QImage& image : m_source->images) {
        if (image.width() >= std::floor(pixels.width()) &&
            image.height() >= std::floor(pixels.height())) {
            chosen = &image;
            break;
        }
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(filled, *chosen);
    painter.restore();
}
