#pragma once

/// Forms are measured in twips, 15 to a logical pixel.
namespace Twips {

constexpr int PerPixel = 15;

/// @return the logical pixels of a length in twips, cut toward zero.
constexpr int ToPixels(int twips)
{
    return twips / PerPixel;
}

/// @return the twips of a length in logical pixels.
constexpr int FromPixels(int pixels)
{
    return pixels * PerPixel;
}

} // namespace Twips
