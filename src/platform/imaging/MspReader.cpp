#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <QFile>
#include <QtEndian>

namespace {

constexpr int kHeaderSize = 32;

quint16 word(const QByteArray& bytes, int index) {
    return qFromLittleEndian<quint16>(bytes.constData() + 2 * index);
}

} // namespace

namespace ImageReaders {

// Microsoft Paint files: a header of sixteen 16-bit words, then one bit a pixel, a set bit
// white. Version 1 stores the rows plainly; version 2 keeps a table of row lengths and packs
// each row in runs.
Result readMsp(const QByteArray& bytes) {
    Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    if (bytes.size() < kHeaderSize)
        return result;
    const quint16 key1 = word(bytes, 0);
    const quint16 key2 = word(bytes, 1);
    const bool version1 = key1 == 0x6144 && key2 == 0x4D6E; // "DanM"
    const bool version2 = key1 == 0x694C && key2 == 0x536E; // "LinS"
    if (!version1 && !version2) {
        result.error = AppError(ImageCodec::UnknownFormat);
        return result;
    }
    quint16 checksum = 0;
    for (int i = 0; i < 16; ++i)
        checksum ^= word(bytes, i);
    const int width = word(bytes, 2);
    const int height = word(bytes, 3);
    if (checksum != 0 || width == 0 || height == 0 || !withinLimits(width, height))
        return result;

    QImage image(width, height, QImage::Format_Mono);
    if (image.isNull())
        return result;
    image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
    const int rowBytes = (width + 7) / 8;
    const auto* data = reinterpret_cast<const uchar*>(bytes.constData());
    const qsizetype size = bytes.size();

    if (version1) {
        if (size < kHeaderSize + qsizetype(rowBytes) * height)
            return result;
        for (int y = 0; y < height; ++y)
            memcpy(image.scanLine(y), data + kHeaderSize + qsizetype(y) * rowBytes, rowBytes);
    } else {
        qsizetype at = kHeaderSize + 2 * qsizetype(height);
        if (size < at)
            return result;
        for (int y = 0; y < height; ++y) {
            const qsizetype rowLength = qFromLittleEndian<quint16>(data + kHeaderSize + 2 * y);
            uchar* row = image.scanLine(y);
            if (rowLength == 0) {
                memset(row, 0xFF, rowBytes); // an empty row is white
                continue;
            }
            const qsizetype end = at + rowLength;
            if (end > size)
                return result;
            int x = 0;
            while (at < end && x < rowBytes) {
                const int runType = data[at++];
                if (runType == 0) {
                    if (at + 2 > end)
                        return result;
                    const int count = data[at];
                    const uchar value = data[at + 1];
                    at += 2;
                    const int n = std::min(count, rowBytes - x);
                    memset(row + x, value, n);
                    x += n;
                } else {
                    if (at + runType > end)
                        return result;
                    const int n = std::min(runType, rowBytes - x);
                    memcpy(row + x, data + at, n);
                    x += n;
                    at += runType;
                }
            }
            if (x < rowBytes)
                memset(row + x, 0xFF, rowBytes - x);
            at = end;
        }
    }
    result.image = image;
    result.bits = 1;
    result.error = AppError();
    return result;
}

AppError writeMsp(const QImage& image, const QString& path) {
    if (image.width() > 0xFFFF || image.height() > 0xFFFF)
        return AppError(ImageCodec::UnknownFormat);
    // One bit a pixel, a set bit white, light pixels white.
    const QImage mono = image.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
    QByteArray bytes(kHeaderSize, '\0');
    auto put = [&bytes](int index, quint16 value) {
        qToLittleEndian<quint16>(value, bytes.data() + 2 * index);
    };
    put(0, 0x6144);
    put(1, 0x4D6E);
    put(2, static_cast<quint16>(mono.width()));
    put(3, static_cast<quint16>(mono.height()));
    put(4, 1);
    put(5, 1);
    put(6, 1);
    put(7, 1);
    quint16 checksum = 0;
    for (int i = 0; i < 12; ++i)
        checksum ^= word(bytes, i);
    put(12, checksum);
    const int rowBytes = (mono.width() + 7) / 8;
    const bool whiteIsOne = qGray(mono.color(1)) > qGray(mono.color(0));
    for (int y = 0; y < mono.height(); ++y) {
        QByteArray row(reinterpret_cast<const char*>(mono.constScanLine(y)), rowBytes);
        if (!whiteIsOne) {
            for (char& c : row)
                c = static_cast<char>(~c);
        }
        bytes += row;
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return AppError(AppError::PathFileAccess);
    return {};
}

} // namespace ImageReaders
