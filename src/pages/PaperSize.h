#pragma once

#include "pages/SongLayout.h"

namespace Pages {

enum class Paper {
    A4,
    Phone, ///< a page as tall as a telephone's screen, to be read on it
};

/// How a page of some paper is divided. Lengths and sizes are points, counted from the page's left
/// upper corner.
struct PaperSize
{
    double width = 0;
    double height = 0;
    double left = 0;
    double right = 0; ///< margin
    double top = 0;
    double bottom = 0;      ///< margin, in which the number stands
    double songHead = 0;    ///< height of a song's title and what belongs to it
    double runningHead = 0; ///< the same on the pages that follow
    double bookTitle = 0;   ///< sizes of type
    double songTitle = 0;
    double smallestTitle = 0;
    double text = 0;
    double small = 0;
    double entry = 0;    ///< height of a line of the contents
    double bookHead = 0; ///< height of the book's title

    double Inner() const { return width - left - right; }
    double Foot() const { return height - bottom; }
};

const PaperSize& SizeOf(Paper paper);

/// @param charWidth  of the sheet's type, in parts of its size
Room RoomOf(Paper paper, double charWidth);

} // namespace Pages
