#pragma once

#include "pages/SongBlocks.h"

#include <QList>

/// Where each row of a song stands on its pages. Lengths are points, sizes those of the type.
namespace Pages {

/// The room that a sheet has, and the sizes that it may be set in.
struct Room
{
    double width = 0;
    double firstHeight = 0; ///< below the song's title
    double nextHeight = 0;  ///< on the pages that follow
    double gap = 0;         ///< between two columns
    double charWidth = 0;   ///< of the sheet's type, in parts of its size
    double largest = 0;
    double smallest = 0;
    double smallestOfMany = 0; ///< of a song that needs several pages anyway
    int mostColumns = 1;
};

/// A unit in its place.
struct Placed
{
    Unit unit;
    int page = 0;   ///< from 0
    int column = 0; ///< from 0
    double top = 0; ///< below the room's upper edge
};

struct SongLayout
{
    double size = 0;
    int columns = 1;
    int pages = 1;
    int wrapped = 0; ///< units that had to be cut
    QList<Placed> placed;
};

/// Chooses size and columns: on one page if that can be, else on as few as possible; then as large
/// as possible, without cutting lines where a smaller size keeps them whole, in one column rather
/// than in two. Two columns of one page are as even as whole blocks allow.
SongLayout LayOut(const QList<Block>& blocks, const Room& room);

/// How far the rows of a unit reach below its top, in parts of the size.
constexpr double ChordsBaseline = 0.86;
constexpr double ChordsHeight = 1.12;
constexpr double LyricBaseline = 0.9;
constexpr double LyricHeight = 1.22;
constexpr double HeadingBaseline = 0.95;
constexpr double HeadingHeight = 1.45;
constexpr double BlockGap = 0.8;

/// @return the height of a unit in parts of the size
double HeightOf(const Unit& unit);

} // namespace Pages
