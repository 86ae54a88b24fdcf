#include "media/ThumbnailMaker.h"

#include "media/ThumbnailCache.h"
#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace ThumbnailMaker {

namespace {

// The size of the cache's thumbnails for a box: its normal ones up to 128 pixels, else large.
int cacheSizeFor(QSize box) {
    return std::max(box.width(), box.height()) <= 128 ? 128 : 256;
}

// The picture within a box in its proportions; a smaller one is left at its size.
QImage fitted(const QImage& image, QSize box) {
    if (image.width() <= box.width() && image.height() <= box.height())
        return image;
    return image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QImage decoded(const QString& path, int side, AppError& error) {
    const QString ext = QFileInfo(path).suffix().toUpper();
    if (ext == u"JPG"_s || ext == u"JPEG"_s) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            error = AppError(ImageCodec::ReadFailed);
            return {};
        }
        ImageReaders::Result jpeg = ImageReaders::readJpeg(file.readAll(), QSize(side, side));
        error = jpeg.error;
        return jpeg.image;
    }
    ImageCodec::Picture picture = ImageCodec::decode(path);
    error = picture.error;
    return picture.image;
}

// A palette of evenly spread levels of red, green and blue with at most 2^bits colours; four
// greys for 2 bits.
QList<QRgb> paletteFor(int bits) {
    static const int levels[][3] = {{2, 2, 1}, {1, 1, 1}, {2, 2, 2}, {4, 2, 2},
                                    {4, 4, 2}, {4, 4, 4}, {8, 4, 4}, {8, 8, 4}};
    QList<QRgb> palette;
    if (bits == 2) {
        for (int g : {0, 85, 170, 255})
            palette.append(qRgb(g, g, g));
        return palette;
    }
    const int* n = levels[bits - 1];
    for (int r = 0; r < n[0]; ++r)
        for (int g = 0; g < n[1]; ++g)
            for (int b = 0; b < n[2]; ++b)
                palette.append(qRgb(n[0] > 1 ? 255 * r / (n[0] - 1) : 128,
                                    n[1] > 1 ? 255 * g / (n[1] - 1) : 128,
                                    n[2] > 1 ? 255 * b / (n[2] - 1) : 128));
    return palette;
}

} // namespace

QImage withDepth(const QImage& image, int bits) {
    const Qt::ImageConversionFlags dither = Qt::DiffuseDither | Qt::PreferDither;
    switch (bits) {
    case 32:
        return image.convertToFormat(QImage::Format_ARGB32);
    case 24:
        return image.convertToFormat(QImage::Format_RGB888);
    case 16:
        return image.convertToFormat(QImage::Format_RGB16, dither);
    case 1:
        return image.convertToFormat(QImage::Format_Mono, dither);
    default:
        return image.convertToFormat(QImage::Format_Indexed8, paletteFor(bits), dither);
    }
}

Made make(const QString& path, QSize box, int depthBits) {
    Made made;
    const int side = cacheSizeFor(box);
    QImage thumbnail = ThumbnailCache::read(path, side);
    made.fromCache = !thumbnail.isNull();
    if (thumbnail.isNull()) {
        const QFileInfo file(path);
        if (!file.isFile() || file.size() > SizeLimit || ThumbnailCache::hasFailed(path)) {
            made.error = AppError(ImageCodec::ReadFailed);
            return made;
        }
        const QImage picture = decoded(path, side, made.error);
        if (picture.isNull()) {
            if (!made.error)
                made.error = AppError(ImageCodec::ReadFailed);
            ThumbnailCache::markFailed(path);
            return made;
        }
        thumbnail = fitted(picture, QSize(side, side));
        // A cache that cannot be written costs only the next run's time.
        ThumbnailCache::write(path, side, thumbnail);
    }
    made.image = withDepth(fitted(thumbnail, box), depthBits);
    made.error = AppError();
    return made;
}

} // namespace ThumbnailMaker
