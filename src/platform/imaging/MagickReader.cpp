#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <QFile>

#include <Magick++.h>

#include <algorithm>
#include <cstring>

#include <mutex>

namespace {

void initializeMagick() {
    static std::once_flag once;
    std::call_once(once, [] {
        Magick::InitializeMagick(nullptr);
        // Hold every decode to bounded memory; a picture over the limits fails.
        Magick::ResourceLimits::memory(ImageCodec::MaxBytes);
        Magick::ResourceLimits::map(ImageCodec::MaxBytes);
        Magick::ResourceLimits::disk(2 * ImageCodec::MaxBytes);
        Magick::ResourceLimits::width(65535);
        Magick::ResourceLimits::height(65535);
        Magick::ResourceLimits::thread(1);
    });
}

// The bits a pixel takes in the file: the bits of each sample times the samples of the pixel,
// or the size of a palette's index. Only TIFF and Photoshop files store samples of 16 bits;
// ImageMagick reports its own 16-bit depth for some others (Sun raster, metafiles).
int bitsOfMagick(const Magick::Image& image, const char* coder) {
    const bool deep = std::strcmp(coder, "TIFF") == 0 || std::strcmp(coder, "PSD") == 0;
    const int depth = std::clamp(static_cast<int>(image.depth()), 1, deep ? 16 : 8);
    if (image.classType() == MagickCore::PseudoClass && image.colorMapSize() > 0)
        return image.colorMapSize() <= 2 ? 1 : image.colorMapSize() <= 16 ? 4 : 8;
    switch (image.type()) {
    case Magick::BilevelType:
        return 1;
    case Magick::GrayscaleType:
        return depth;
    case Magick::GrayscaleMatteType:
        return 2 * depth;
    case Magick::PaletteType:
    case Magick::PaletteMatteType:
        return image.colorMapSize() <= 2 ? 1 : image.colorMapSize() <= 16 ? 4 : 8;
    case Magick::TrueColorMatteType:
    case Magick::ColorSeparationType:
        return 4 * depth;
    case Magick::ColorSeparationMatteType:
        return 5 * depth;
    default:
        return 3 * depth;
    }
}

} // namespace

namespace ImageReaders {

namespace {

// Reads the first frame from a blob, or from a file when there is no blob.
Result readMagick(const QByteArray* bytes, const QString& path, const char* coder) {
    initializeMagick();
    Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    if (bytes && bytes->isEmpty())
        return result;
    try {
        const Magick::Blob blob =
            bytes ? Magick::Blob(bytes->constData(), static_cast<size_t>(bytes->size()))
                  : Magick::Blob();
        const std::string source = std::string(coder) + ':' + QFile::encodeName(path).toStdString();
        Magick::Image probe;
        probe.quiet(true);
        probe.subRange(1);
        probe.magick(coder);
        if (bytes)
            probe.ping(blob);
        else
            probe.ping(source);
        if (!withinLimits(probe.columns(), probe.rows()))
            return result;

        Magick::Image image;
        image.quiet(true);
        image.subRange(1);
        image.magick(coder);
        if (bytes)
            image.read(blob);
        else
            image.read(source);
        const qint64 width = image.columns();
        const qint64 height = image.rows();
        if (width <= 0 || height <= 0 || !withinLimits(width, height))
            return result;
        const int bits = bitsOfMagick(image, coder);
        // The pixels are handed out as RGBA whatever the colour space, so inks (a CMYK JPEG,
        // TIFF or PSD) are turned into sRGB first.
        if (image.colorSpace() == Magick::CMYKColorspace ||
            image.colorSpace() == Magick::CMYColorspace)
            image.colorSpace(Magick::sRGBColorspace);
        QImage decoded(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGBA8888);
        if (decoded.isNull())
            return result;
        if (decoded.bytesPerLine() == width * 4) {
            image.write(0, 0, static_cast<size_t>(width), static_cast<size_t>(height), "RGBA",
                        Magick::CharPixel, decoded.bits());
        } else {
            QByteArray pixels(width * height * 4, Qt::Uninitialized);
            image.write(0, 0, static_cast<size_t>(width), static_cast<size_t>(height), "RGBA",
                        Magick::CharPixel, pixels.data());
            for (int y = 0; y < height; ++y)
                memcpy(decoded.scanLine(y), pixels.constData() + y * width * 4, width * 4);
        }
        result.bits = bits;
        if (image.depth() > 8 && bits > 8)
            result.deepColors = static_cast<qint64>(image.totalColors());
        result.image = decoded.hasAlphaChannel() && image.matte()
                           ? decoded
                           : decoded.convertToFormat(QImage::Format_RGB32);
        result.error = AppError();
    } catch (const Magick::ErrorMissingDelegate&) {
        result.error = AppError(ImageCodec::UnknownFormat);
    } catch (const Magick::ErrorCorruptImage&) {
        result.error = AppError(ImageCodec::ReadFailed);
    } catch (const Magick::Exception&) {
        result.error = AppError(ImageCodec::ReadFailed);
    }
    return result;
}

} // namespace

Result readWithMagick(const QByteArray& bytes, const char* coder) {
    return readMagick(&bytes, QString(), coder);
}

Result readWithMagickFile(const QString& path, const char* coder) {
    return readMagick(nullptr, path, coder);
}

AppError writeWithMagick(const QImage& image, const QString& path, const char* coder) {
    initializeMagick();
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    try {
        Magick::Image out(static_cast<size_t>(rgba.width()), static_cast<size_t>(rgba.height()),
                          "RGBA", Magick::CharPixel, rgba.constBits());
        if (!image.hasAlphaChannel())
            out.matte(false);
        out.magick(coder);
        Magick::Blob blob;
        out.write(&blob);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(static_cast<const char*>(blob.data()), static_cast<qint64>(blob.length())) !=
                static_cast<qint64>(blob.length()))
            return AppError(AppError::PathFileAccess);
    } catch (const Magick::Exception&) {
        return AppError(ImageCodec::UnknownFormat);
    }
    return {};
}

} // namespace ImageReaders
