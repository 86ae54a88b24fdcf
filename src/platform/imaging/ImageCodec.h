#pragma once

#include "platform/AppError.h"

#include <QImage>
#include <QString>

// Reads and writes pictures by their extension. Each format goes to the library that reads it:
// Qt's image readers (with the image format plugins), ImageMagick, Ghostscript for EPS,
// libemf2svg for EMF, netpbm for GEM IMG, and a reader of our own for MSP. Every decode is held
// to the size and memory limits below; a picture over them fails like a damaged one.
class ImageCodec {
public:
    // Error numbers of a failed decode or encode.
    enum Failure : int {
        UnknownFormat = 20002, // no reader for the format, or the file is not of it
        ReadFailed = 20009,    // the file is damaged, truncated or over the limits
    };

    // The largest picture that is decoded, in pixels and in bytes of its decoded form.
    static constexpr qint64 MaxPixels = 16384LL * 16384LL;
    static constexpr qint64 MaxBytes = 1024LL * 1024 * 1024;

    enum class Reader { Qt, ImageMagick, Ghostscript, Emf, Netpbm, Msp, None };

    struct Picture {
        QImage image;
        int bitsPerPixel = 0;  // of the picture as stored
        qint64 deepColors = 0; // colours of 16-bit samples, which the image holds in 8 bits
        qint64 diskSize = 0;
        AppError error;
    };

    // Which reader takes files of an extension (upper case, without the dot).
    static Reader readerFor(const QString& extension);
    // The first page of a picture.
    static Picture decode(const QString& path);
    // Writes a picture in the format of a format code (see GetFileFormatCode); the extension of
    // the path does not choose the format.
    static AppError encode(const QImage& image, const QString& path, int formatCode);
    // Whether a format code can be written.
    static bool canEncode(int formatCode);
};
