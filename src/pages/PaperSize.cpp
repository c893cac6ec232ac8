#include "pages/PaperSize.h"

namespace Pages {

namespace {

constexpr double Millimetre = 72 / 25.4;

PaperSize MakeA4()
{
    PaperSize size;
    size.width = 210 * Millimetre;
    size.height = 297 * Millimetre;
    size.left = 19 * Millimetre; // room for the holes of a binder
    size.right = 14 * Millimetre;
    size.top = 15 * Millimetre;
    size.bottom = 17 * Millimetre;
    size.songHead = 62;
    size.runningHead = 28;
    size.bookTitle = 30;
    size.songTitle = 21;
    size.smallestTitle = 16;
    size.text = 11;
    size.small = 9;
    size.entry = 17.5;
    size.bookHead = 96;
    return size;
}

PaperSize MakePhone()
{
    PaperSize size;
    size.width = 75 * Millimetre;
    size.height = 162 * Millimetre;
    size.left = 4 * Millimetre;
    size.right = 4 * Millimetre;
    size.top = 5 * Millimetre;
    size.bottom = 8 * Millimetre;
    size.songHead = 50;
    size.runningHead = 22;
    size.bookTitle = 20;
    size.songTitle = 15;
    size.smallestTitle = 12;
    size.text = 10;
    size.small = 7.5;
    size.entry = 17;
    size.bookHead = 82;
    return size;
}

} // namespace

const PaperSize& SizeOf(Paper paper)
{
    static const PaperSize a4 = MakeA4();
    static const PaperSize phone = MakePhone();
    return paper == Paper::A4 ? a4 : phone;
}

Room RoomOf(Paper paper, double charWidth)
{
    const PaperSize& size = SizeOf(paper);
    Room room;
    room.width = size.Inner();
    room.firstHeight = size.Foot() - size.top - size.songHead;
    room.nextHeight = size.Foot() - size.top - size.runningHead;
    room.charWidth = charWidth;
    if (paper == Paper::A4) {
        room.gap = 22;
        room.largest = 13.5;
        room.smallest = 9;
        room.smallestOfMany = 10.5;
        room.mostColumns = 2;
    } else {
        room.largest = 11;
        room.smallest = 8.5;
        room.smallestOfMany = 9;
    }
    return room;
}

} // namespace Pages
