#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <sys/mman.h>
#include <turbojpeg.h>

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

// Whether the file carries Adobe's APP14 marker, which Adobe's programs (and the libraries that
// follow them) write with the ink values of four-colour pictures inverted.
bool hasAdobeMarker(const QByteArray& bytes) {
    qsizetype at = 2; // behind the start of image
    while (at + 4 <= bytes.size() && uchar(bytes[at]) == 0xFF) {
        const uchar marker = uchar(bytes[at + 1]);
        if (marker == 0xDA) // the start of scan: no more markers before the picture
            break;
        const qsizetype length = (qsizetype(uchar(bytes[at + 2])) << 8) | uchar(bytes[at + 3]);
        if (marker == 0xEE && length >= 12 && bytes.mid(at + 4, 5) == "Adobe")
            return true;
        at += 2 + length;
    }
    return false;
}

// Turns the four-colour pixels decoded into the picture's memory into red, green and blue in
// place: each ink takes its share of the light, and black darkens all three.
void cmykToRgb(QImage& image, bool inverted) {
    for (int y = 0; y < image.height(); ++y) {
        auto* pixel = reinterpret_cast<uchar*>(image.scanLine(y));
        auto* out = reinterpret_cast<QRgb*>(pixel);
        for (int x = 0; x < image.width(); ++x, pixel += 4) {
            // Light left by each ink and by black, 255 for none of it.
            const int c = inverted ? pixel[0] : 255 - pixel[0];
            const int m = inverted ? pixel[1] : 255 - pixel[1];
            const int ye = inverted ? pixel[2] : 255 - pixel[2];
            const int k = inverted ? pixel[3] : 255 - pixel[3];
            out[x] = qRgb((c * k + 127) / 255, (m * k + 127) / 255, (ye * k + 127) / 255);
        }
    }
}

} // namespace

namespace ImageReaders {

// JPEG through libjpeg-turbo's TurboJPEG interface, decoded straight into the picture's memory.
Result readJpeg(const QByteArray& bytes) {
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
    const bool gray = colorspace == TJCS_GRAY;
    // Four-colour pictures (CMYK and YCCK) decode to their inks, four bytes a pixel like the
    // picture's own, and turn into light in place.
    const bool inks = colorspace == TJCS_CMYK || colorspace == TJCS_YCCK;
    QImage image =
        largeImage(width, height, gray ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
    if (image.isNull()) {
        tjDestroy(handle);
        return result;
    }
    const int pixelFormat = gray ? TJPF_GRAY : inks ? TJPF_CMYK : TJPF_BGRX;
    const int status = tjDecompress2(handle, data, size, image.bits(), width,
                                     static_cast<int>(image.bytesPerLine()), height, pixelFormat,
                                     TJFLAG_NOREALLOC);
    // A warning (a slightly damaged stream) still gives a picture; an error gives none.
    const bool failed = status != 0 && tjGetErrorCode(handle) == TJERR_FATAL;
    tjDestroy(handle);
    if (failed)
        return result;
    if (inks)
        cmykToRgb(image, hasAdobeMarker(bytes));
    result.bits = gray ? 8 : 24;
    result.image = std::move(image);
    result.error = AppError();
    return result;
}

} // namespace ImageReaders
