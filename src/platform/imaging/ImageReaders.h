#pragma once

#include "platform/AppError.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

// The readers and writers behind ImageCodec, one for each library. Each fills `image` and `bits`
// and returns no error, or returns ImageCodec's failure number.
namespace ImageReaders {

struct Result {
    QImage image;
    int bits = 0;
    // Distinct colours at the file's own sample depth, when its samples are deeper than the
    // 8 bits the image holds (0 otherwise: count them in the image).
    qint64 deepColors = 0;
    AppError error;
};

// libjpeg-turbo for JPEG. With `atLeast` given, the picture is decoded scaled down at the DCT
// level by the largest of the library's factors that still covers that size.
Result readJpeg(const QByteArray& bytes, QSize atLeast = QSize());
// ImageMagick, with the coder named (e.g. "PCX", "SUN", "PICT"); the first frame only.
Result readWithMagick(const QByteArray& bytes, const char* coder);
// The same from the file, for formats that ImageMagick hands to another program.
Result readWithMagickFile(const QString& path, const char* coder);
// Ghostscript's library rendering an EPS file at 72 dots an inch.
Result readEps(const QString& path);
// libemf2svg's converter turning an EMF file into SVG, painted by Qt's SVG renderer.
Result readEmf(const QString& path);
// netpbm's gemtopnm reading a GEM IMG file.
Result readGemImg(const QString& path);
// Microsoft Paint (MSP) versions 1 and 2.
Result readMsp(const QByteArray& bytes);

// Writers for the formats that Qt does not write.
AppError writeWithMagick(const QImage& image, const QString& path, const char* coder);
AppError writeMsp(const QImage& image, const QString& path);

// Whether a width and height are within the limits of ImageCodec.
bool withinLimits(qint64 width, qint64 height);

// The bits per pixel of a decoded image as the program reports them.
int bitsOf(const QImage& image);

} // namespace ImageReaders
