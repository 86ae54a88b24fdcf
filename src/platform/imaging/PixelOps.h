#pragma once

#include <QColor>
#include <QImage>

// The picture commands on an image in memory.
namespace PixelOps {

// Images kept as colour tables or packed bits become 32-bit before their pixels change.
void makeTrueColor(QImage& image);

// Top to bottom.
void flip(QImage& image);
// Left to right.
void reverse(QImage& image);
// Each colour to its opposite.
void invert(QImage& image);
// Spreads each colour channel over the whole range from 0 to 255.
void stretchIntensity(QImage& image);
// Brighter for a positive value, darker for a negative one; -1000 to 1000, 1000 adding the
// whole range.
void changeIntensity(QImage& image, int value);
// More contrast for a positive value, less for a negative one; -1000 to 1000, -1000 flattening
// every colour to the middle grey.
void changeContrast(QImage& image, int value);
// Turns the picture clockwise by an angle in hundredths of a degree. With `resize` the picture
// grows to hold all of the turned image; without it, it keeps its size and the corners are cut.
// Uncovered places take the fill colour.
void rotate(QImage& image, int hundredthsOfDegree, bool resize, const QColor& fill);
// A new size; `resample` averages the pixels, otherwise the nearest pixel is taken.
void resize(QImage& image, int width, int height, bool resample);

} // namespace PixelOps
