// Twips to logical pixels, for everything that is placed on a form: 15 twips are one pixel on every screen.
#pragma once
#include <QRect>
#include <algorithm>
#include <cmath>

namespace zirvo::widgets {

inline constexpr double TwipsPerPixel = 15;

/// The pixel edge nearest to a place in twips, a half rounded up. What ends where another thing begins shares its edge.
inline int PixelEdge(double twips) {
    return static_cast<int>(std::floor(twips / TwipsPerPixel + 0.5));
}

/// The pixels of a rectangle in twips; never of negative size.
inline QRect PixelRect(double left, double top, double width, double height) {
    const int x = PixelEdge(left);
    const int y = PixelEdge(top);
    return {x, y, std::max(0, PixelEdge(left + width) - x), std::max(0, PixelEdge(top + height) - y)};
}

}  // namespace zirvo::widgets
