#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QSize>

#include <memory>
#include <utility>

class QPainter;
class QString;

/// Colours that a picture is made of, each with the one that stands in its place.
using PictureColours = QList<std::pair<QColor, QColor>>;

/// A picture from the resources that can be drawn at every size. Where Qt has its SVG module it is
/// drawn from the SVG file; elsewhere the build has put bitmaps in several sizes in that file's
/// place, and the next larger one is taken.
class VectorPicture
{
public:
    VectorPicture();
    /// @param path  the picture's file, usually from Artwork::Path
    /// @param colours  none of the new ones may be among the old ones
    explicit VectorPicture(const QString& path, const PictureColours& colours = {});
    ~VectorPicture();
    VectorPicture(VectorPicture&&) noexcept;
    VectorPicture& operator=(VectorPicture&&) noexcept;
    VectorPicture(const VectorPicture&) = delete;
    VectorPicture& operator=(const VectorPicture&) = delete;

    /// @return whether there is something to draw; a file that is no picture draws nothing
    bool IsValid() const;

    /// @return the picture's own size in pixels at 100 %; empty when there is none
    QSize DefaultSize() const;

    /// Draws the picture.
    /// @param place  the rectangle that it fills, in the painter's own units
    /// @param proportions  whether it keeps its proportions, in the middle of the place, or is
    ///        stretched
    void Render(QPainter& painter, const QRectF& place,
                Qt::AspectRatioMode proportions = Qt::KeepAspectRatio) const;

private:
    struct Source;
    std::unique_ptr<Source> m_source;
};
