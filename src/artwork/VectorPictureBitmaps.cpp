#include "artwork/VectorPicture.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
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

/// How far two colours lie apart, as the sum over red, green and blue of 0 to 255.
int Distance(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
           std::abs(qBlue(one) - qBlue(other));
}

/// Exchanges colours, at edges as well: what shows through is kept, and rounding is forgiven.
QImage Recoloured(QImage image, const PictureColours& colours)
{
    constexpr int Rounding = 24;
    image = std::move(image).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (QRgb& pixel : std::span(line, static_cast<std::size_t>(image.width()))) {
            const auto found = std::ranges::find_if(colours, [&](const auto& pair) {
                return Distance(pixel, pair.first.rgb()) <= Rounding;
            });
            if (found != colours.end())
                pixel = (found->second.rgb() & RGB_MASK) | (pixel & ~RGB_MASK);
        }
    }
    return std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

VectorPicture::VectorPicture() = default;
VectorPicture::~VectorPicture() = default;
VectorPicture::VectorPicture(VectorPicture&&) noexcept = default;
VectorPicture& VectorPicture::operator=(VectorPicture&&) noexcept = default;

VectorPicture::VectorPicture(const QString& path, const PictureColours& colours)
    : m_source(std::make_unique<Source>())
{
    constexpr int LargestScale = 4;
    if (QImage own; own.load(path))
        m_source->images.push_back(std::move(own));
    for (int scale = 2; scale <= LargestScale; ++scale) {
        if (QImage larger; QFile::exists(PathAt(path, scale)) && larger.load(PathAt(path, scale)))
            m_source->images.push_back(std::move(larger));
    }
    if (!colours.isEmpty()) {
        for (QImage& image : m_source->images)
            image = Recoloured(std::move(image), colours);
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
