#pragma once

#include <algorithm>
#include <cmath>

// Screen distances are kept in twips: 15 twips to a logical pixel, 1440 to an inch.
namespace Twips {

inline constexpr double PerPixel = 15.0;

inline int toPixels(double twips) {
    return static_cast<int>(std::lround(twips / PerPixel));
}

inline double fromPixels(int pixels) {
    return pixels * PerPixel;
}

// The twips of a distance now measured in pixels. When the pixels are still those that
// the remembered twips value gave, the remembered value stands, so that a value read,
// applied and read back does not drift by rounding.
inline double measure(int pixels, double remembered) {
    return toPixels(remembered) == pixels ? remembered : fromPixels(pixels);
}

// Places a widget by a rectangle in twips; a negative width or height becomes 0.
template <class Widget>
void place(Widget* widget, double left, double top, double width, double height) {
    widget->setGeometry(toPixels(left), toPixels(top), std::max(0, toPixels(width)),
                        std::max(0, toPixels(height)));
}

} // namespace Twips
