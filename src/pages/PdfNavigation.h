#pragma once

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QString>

namespace Pages {

/// A place that leads to a page when it is touched.
struct PdfLink
{
    int page = 0; ///< that it is on, from 1
    QRectF place; ///< in points from the page's left upper corner
    int target = 0;
};

/// A line of the list of contents that programs show beside the pages.
struct PdfBookmark
{
    QString title;
    int target = 0; ///< page, from 1
};

/// Adds to a document what QPdfWriter has no words for, in the way that the format has for later
/// changes: behind its end. Takes away the time of writing, so that the same book makes the same
/// bytes.
/// @param document  of QPdfWriter
/// @param height    of its pages, in points
/// @return the document with them; without them where it is written in another way than expected
QByteArray WithNavigation(const QByteArray& document, const QList<PdfBookmark>& bookmarks,
                          const QList<PdfLink>& links, double height);

} // namespace Pages
