#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <sys/mman.h>
#include <turbojpeg.h>

#include <algorithm>

#include <cstring>
#include <utility>

namespace {

void releaseMapping(void* info) {
    const auto* mapping = static_cast<const std::pair<void*, size_t>*>(info);
    munmap(mapping->first, mapping->second);
    delete mapping;
}

// A picture whose memory comes straight from the system in huge pages where it can, so that a
// large decode does not spend its time on page faults.
QImage largeImage(int width, int height, QImage::Format format) {
    const qsizetype bytesPerLine =
        ((qsizetype(width) * (format == QImage::Format_RGB32 ? 4 : 1)) + 3) & ~qsizetype(3);
    const size_t size = static_cast<size_t>(bytesPerLine) * static_cast<size_t>(height);
    if (size < 8 * 1024 * 1024)
        return QImage(width, height, format);
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        return QImage(width, height, format);
    madvise(memory, size, MADV_HUGEPAGE);
    auto* mapping = new std::pair<void*, size_t>(memory, size);
    QImage image(static_cast<uchar*>(memory), width, height, bytesPerLine, format, releaseMapping,
                 mapping);
    // The picture owns its memory from here on: a copy detaches, the last one frees it.
    return image;
}

// Whether the stream carries Adobe's APP14 marker, which says that its CMYK or YCCK inks are
// stored inverted (0 for full ink), as Adobe's programs write them. Only the segments before
// the first scan are looked at.
bool hasAdobeMarker(const unsigned char* data, size_t size) {
    size_t at = 2;
    while (at + 4 <= size) {
        if (data[at] != 0xFF)
            return false;
        const unsigned char marker = data[at + 1];
        if (marker == 0xFF) { // fill byte
            ++at;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9) // start of scan, end of image
            return false;
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7)) { // no length
            at += 2;
            continue;
        }
        const size_t length = size_t(data[at + 2]) << 8 | data[at + 3];
        if (length < 2)
            return false;
        if (marker == 0xEE && length >= 2 + 12 && at + 2 + length <= size &&
            std::memcmp(data + at + 4, "Adobe", 5) == 0)
            return true;
        at += 2 + length;
    }
    return false;
}

// Exact x / 255, rounded, for x up to 255 * 255.
inline unsigned divide255(unsigned x) {
    x += 128;
    return (x + (x >> 8)) >> 8;
}

// Turns rows of CMYK pixels into BGRX in place, each 4 bytes wide. Inverted inks (Adobe's) hold
// 255 - ink, so that a colour channel is the product of the two stored values.
void cmykToBgrx(uchar* bits, qsizetype bytesPerLine, int width, int height, bool inverted) {
    for (int y = 0; y < height; ++y) {
        uchar* p = bits + y * bytesPerLine;
        for (int x = 0; x < width; ++x, p += 4) {
            unsigned c = p[0];
            unsigned m = p[1];
            unsigned yellow = p[2];
            unsigned k = p[3];
            if (!inverted) {
                c = 255 - c;
                m = 255 - m;
                yellow = 255 - yellow;
                k = 255 - k;
            }
            p[0] = static_cast<uchar>(divide255(yellow * k));
            p[1] = static_cast<uchar>(divide255(m * k));
            p[2] = static_cast<uchar>(divide255(c * k));
            p[3] = 255;
        }
    }
}

} // namespace

namespace ImageReaders {

// JPEG through libjpeg-turbo's TurboJPEG interface, decoded straight into the picture's memory.
// CMYK and YCCK streams come out as CMYK in the same four bytes a pixel and are turned into RGB
// where they lie.
Result readJpeg(const QByteArray& bytes, QSize atLeast) {
    Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    tjhandle handle = tjInitDecompress();
    if (!handle)
        return result;
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.constData());
    const auto size = static_cast<unsigned long>(bytes.size());
    int width = 0;
    int height = 0;
    int subsampling = 0;
    int colorspace = 0;
    if (tjDecompressHeader3(handle, data, size, &width, &height, &subsampling, &colorspace) != 0) {
        result.error = AppError(ImageCodec::UnknownFormat);
        tjDestroy(handle);
        return result;
    }
    if (!withinLimits(width, height)) {
        tjDestroy(handle);
        return result;
    }
    if (atLeast.isValid()) {
        // The smallest scaled size that still covers the size asked for, in the picture's
        // proportions.
        const QSize need = QSize(width, height)
                               .scaled(atLeast, Qt::KeepAspectRatio)
                               .boundedTo(QSize(width, height));
        int count = 0;
        const tjscalingfactor* factors = tjGetScalingFactors(&count);
        int bestWidth = width;
        int bestHeight = height;
        for (int i = 0; i < count; ++i) {
            const int w = TJSCALED(width, factors[i]);
            const int h = TJSCALED(height, factors[i]);
            if (w >= need.width() && h >= need.height() &&
                qint64(w) * h < qint64(bestWidth) * bestHeight) {
                bestWidth = w;
                bestHeight = h;
            }
        }
        width = bestWidth;
        height = bestHeight;
    }
    const bool gray = colorspace == TJCS_GRAY;
    const bool cmyk = colorspace == TJCS_CMYK || colorspace == TJCS_YCCK;
    QImage image =
        largeImage(width, height, gray ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
    if (image.isNull()) {
        tjDestroy(handle);
        return result;
    }
    const int pixelFormat = gray ? TJPF_GRAY : cmyk ? TJPF_CMYK : TJPF_BGRX;
    const int status = tjDecompress2(handle, data, size, image.bits(), width,
                                     static_cast<int>(image.bytesPerLine()), height, pixelFormat,
                                     TJFLAG_NOREALLOC);
    // A warning (a slightly damaged stream) still gives a picture; an error gives none.
    const bool failed = status != 0 && tjGetErrorCode(handle) == TJERR_FATAL;
    tjDestroy(handle);
    if (failed)
        return result;
    if (cmyk)
        cmykToBgrx(image.bits(), image.bytesPerLine(), width, height, hasAdobeMarker(data, size));
    result.bits = gray ? 8 : cmyk ? 32 : 24;
    result.image = std::move(image);
    result.error = AppError();
    return result;
}

} // namespace ImageReaders
