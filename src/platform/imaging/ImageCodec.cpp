#include "platform/imaging/ImageCodec.h"

#include "platform/ExternalTool.h"
#include "platform/imaging/ImageReaders.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QImageWriter>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

// Qt's reader for each extension it takes, by the name of its format plugin.
const QHash<QString, QByteArray>& qtFormats() {
    static const QHash<QString, QByteArray> formats = {
        {u"JPG"_s, "jpeg"}, {u"BMP"_s, "bmp"}, {u"ICO"_s, "ico"}, {u"CUR"_s, "cur"},
        {u"PNG"_s, "png"},  {u"TGA"_s, "tga"}, {u"XPM"_s, "xpm"}, {u"PBM"_s, "pbm"},
    };
    return formats;
}

// ImageMagick's coder for each extension it takes. TIFF goes here rather than to Qt: libtiff's
// error handlers are global, and ImageMagick installs its own, which must then see every TIFF.
const QHash<QString, const char*>& magickCoders() {
    static const QHash<QString, const char*> coders = {
        {u"PCX"_s, "PCX"},   {u"DCX"_s, "DCX"},  {u"PCD"_s, "PCD"},  {u"PSD"_s, "PSD"},
        {u"RAS"_s, "SUN"},   {u"WPG"_s, "WPG"},  {u"JBG"_s, "JBIG"}, {u"MAC"_s, "MAC"},
        {u"WMF"_s, "WMF"},   {u"CUT"_s, "CUT"},  {u"PCT"_s, "PICT"}, {u"IFF"_s, "ILBM"},
        {u"TIFF"_s, "TIFF"}, {u"TIF"_s, "TIFF"}, {u"MPT"_s, "TIFF"},
    };
    return coders;
}

ImageReaders::Result readWithQt(const QString& path, const QByteArray& format) {
    ImageReaders::Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    QImageReader reader(path, format);
    reader.setAllocationLimit(static_cast<int>(ImageCodec::MaxBytes / (1024 * 1024)));
    if (!reader.canRead()) {
        result.error = AppError(ImageCodec::UnknownFormat);
        return result;
    }
    const QSize size = reader.size();
    if (size.isValid() && !ImageReaders::withinLimits(size.width(), size.height()))
        return result;
    QImage image;
    if (!reader.read(&image) || image.isNull())
        return result;
    result.bits = ImageReaders::bitsOf(image);
    result.image = std::move(image);
    result.error = AppError();
    return result;
}

QByteArray readBytes(const QString& path, AppError& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = AppError(file.exists() ? AppError::PathFileAccess : AppError::FileNotFound);
        return {};
    }
    if (file.size() > ImageCodec::MaxBytes) {
        error = AppError(ImageCodec::ReadFailed);
        return {};
    }
    return file.readAll();
}

} // namespace

namespace ImageReaders {

bool withinLimits(qint64 width, qint64 height) {
    return width > 0 && height > 0 && width * height <= ImageCodec::MaxPixels &&
           width * height * 4 <= ImageCodec::MaxBytes;
}

int bitsOf(const QImage& image) {
    switch (image.format()) {
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
        return 1;
    case QImage::Format_Indexed8:
        return image.colorCount() <= 2 ? 1 : image.colorCount() <= 16 ? 4 : 8;
    case QImage::Format_Grayscale8:
    case QImage::Format_Alpha8:
        return 8;
    case QImage::Format_Grayscale16:
        return 16;
    case QImage::Format_RGBX64:
        return 48;
    case QImage::Format_RGBA64:
    case QImage::Format_RGBA64_Premultiplied:
        return image.hasAlphaChannel() ? 64 : 48;
    default:
        return image.hasAlphaChannel() ? 32 : 24;
    }
}

// GEM IMG through netpbm's gemtopnm, which writes the picture as PNM on its output.
Result readGemImg(const QString& path) {
    Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    const ExternalTool::Result converted =
        ExternalTool::run(u"gemtopnm"_s, {path}, ImageCodec::MaxBytes, 30000);
    if (!converted.started) {
        result.error = AppError(ImageCodec::UnknownFormat);
        return result;
    }
    QImage image;
    if (!converted.succeeded || !image.loadFromData(converted.output) || image.isNull())
        return result;
    const QByteArray& pnm = converted.output;
    result.bits = pnm.startsWith("P4") || pnm.startsWith("P1") ? 1 : bitsOf(image);
    result.image = image;
    result.error = AppError();
    return result;
}

} // namespace ImageReaders

ImageCodec::Reader ImageCodec::readerFor(const QString& extension) {
    if (qtFormats().contains(extension))
        return Reader::Qt;
    if (magickCoders().contains(extension))
        return Reader::ImageMagick;
    if (extension == u"EPS"_s)
        return Reader::Ghostscript;
    if (extension == u"EMF"_s)
        return Reader::Emf;
    if (extension == u"IMG"_s)
        return Reader::Netpbm;
    if (extension == u"MSP"_s)
        return Reader::Msp;
    return Reader::None;
}

namespace {

// The bit planes an ILBM picture stores, from its BMHD chunk; 0 when the file has none, or
// when it holds hold-and-modify pixels, whose planes do not count its colours.
int ilbmPlanes(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray head = file.read(4096);
    if (!head.startsWith("FORM") || head.mid(8, 4) != "ILBM")
        return 0;
    int planes = 0;
    for (qsizetype at = 12; at + 8 <= head.size();) {
        const QByteArray id = head.mid(at, 4);
        const quint32 size = qFromBigEndian<quint32>(head.constData() + at + 4);
        if (id == "BMHD" && at + 17 <= head.size())
            planes = static_cast<quint8>(head.at(at + 16));
        else if (id == "CAMG" && at + 12 <= head.size() &&
                 (qFromBigEndian<quint32>(head.constData() + at + 8) & 0x800) != 0)
            return 0;
        else if (id == "BODY")
            break;
        at += 8 + qsizetype(size) + (size & 1);
    }
    return planes;
}

// The picture read as a file of the extension says.
ImageReaders::Result decodeAs(const QString& path, const QString& extension) {
    ImageReaders::Result result;
    // Readers that take the file's bytes; a file that cannot be read gives its own error.
    auto fromBytes = [&path](auto&& reader) {
        AppError readError;
        const QByteArray bytes = readBytes(path, readError);
        return readError ? ImageReaders::Result{{}, 0, 0, readError} : reader(bytes);
    };
    switch (ImageCodec::readerFor(extension)) {
    case ImageCodec::Reader::Qt:
        if (extension == u"JPG"_s) {
            // TurboJPEG refuses some streams that libjpeg reads (unusual sampling factors of
            // the colour components, for one); ImageMagick reads those.
            result = fromBytes([](const QByteArray& bytes) {
                ImageReaders::Result jpeg = ImageReaders::readJpeg(bytes);
                if (!jpeg.error || !bytes.startsWith("\xFF\xD8"))
                    return jpeg;
                ImageReaders::Result magick = ImageReaders::readWithMagick(bytes, "JPEG");
                return magick.error ? jpeg : magick;
            });
            break;
        }
        result = readWithQt(path, qtFormats().value(extension));
        // Qt's readers leave out some variants of their formats (TGA other than the plain
        // kinds, for one); ImageMagick reads those.
        if (result.error) {
            const QByteArray coder = qtFormats().value(extension).toUpper();
            ImageReaders::Result magick = fromBytes([&coder](const QByteArray& bytes) {
                return ImageReaders::readWithMagick(bytes, coder.constData());
            });
            if (magick.error.number() != AppError::FileNotFound &&
                magick.error.number() != AppError::PathFileAccess)
                result = std::move(magick);
        }
        break;
    case ImageCodec::Reader::ImageMagick: {
        // IFF is read by ImageMagick through netpbm's ilbmtoppm, which needs the file itself.
        if (extension == u"IFF"_s) {
            result = ImageReaders::readWithMagickFile(path, "ILBM");
            // The converter hands out RGB; the file's own depth is its count of bit planes.
            if (const int planes = ilbmPlanes(path); planes > 0 && !result.error)
                result.bits = planes;
            break;
        }
        const char* coder = magickCoders().value(extension);
        result = fromBytes([coder](const QByteArray& bytes) {
            return ImageReaders::readWithMagick(bytes, coder);
        });
        break;
    }
    case ImageCodec::Reader::Ghostscript:
        result = ImageReaders::readEps(path);
        break;
    case ImageCodec::Reader::Emf:
        result = ImageReaders::readEmf(path);
        break;
    case ImageCodec::Reader::Netpbm:
        result = ImageReaders::readGemImg(path);
        break;
    case ImageCodec::Reader::Msp:
        result = fromBytes(ImageReaders::readMsp);
        break;
    case ImageCodec::Reader::None:
        result.error = AppError(ImageCodec::UnknownFormat);
        break;
    }
    return result;
}

// The extension that the first bytes of a file stand for, for the common formats.
QString extensionByContent(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(16);
    if (head.startsWith("\xFF\xD8\xFF"))
        return u"JPG"_s;
    if (head.startsWith("\x89PNG"))
        return u"PNG"_s;
    if (head.startsWith("BM"))
        return u"BMP"_s;
    if (head.startsWith("II*") || head.startsWith("MM\0*"))
        return u"TIF"_s;
    if (head.startsWith("8BPS"))
        return u"PSD"_s;
    if (head.startsWith("\x59\xA6\x6A\x95"))
        return u"RAS"_s;
    if (head.startsWith("%!PS"))
        return u"EPS"_s;
    if (head.startsWith("DanM") || head.startsWith("LinS"))
        return u"MSP"_s;
    return {};
}

} // namespace

ImageCodec::Picture ImageCodec::decode(const QString& path) {
    Picture picture;
    const QFileInfo info(path);
    picture.diskSize = info.size();
    if (!info.isFile()) {
        picture.error = AppError(info.exists() ? AppError::PathFileAccess : AppError::FileNotFound);
        return picture;
    }
    const QString extension = info.suffix().toUpper();
    ImageReaders::Result result = decodeAs(path, extension);
    if (result.error.number() == UnknownFormat || result.error.number() == ReadFailed) {
        // A picture saved under another format's extension still opens by what it holds.
        const QString actual = extensionByContent(path);
        if (!actual.isEmpty() && actual != extension) {
            ImageReaders::Result second = decodeAs(path, actual);
            if (!second.error)
                result = std::move(second);
        }
    }
    picture.image = std::move(result.image);
    picture.bitsPerPixel = result.bits;
    picture.deepColors = result.deepColors;
    picture.error = result.error;
    return picture;
}

namespace {

// How each format code is written: by a Qt writer, by ImageMagick's coder, or by our own.
struct Writer {
    const char* qtFormat;
    const char* magickCoder;
};

const QHash<int, Writer>& writers() {
    static const QHash<int, Writer> table = {
        {10, {"jpeg", nullptr}},  {6, {"bmp", nullptr}},    {91, {"ico", nullptr}},
        {109, {"xpm", nullptr}},  {75, {"png", nullptr}},   {3, {nullptr, "TIFF"}},
        {1, {nullptr, "PCX"}},    {57, {nullptr, "PCD"}},   {76, {nullptr, "PSD"}},
        {4, {nullptr, "TGA"}},    {55, {nullptr, "SUN"}},   {56, {nullptr, "PICT"}},
        {115, {nullptr, "JBIG"}}, {53, {nullptr, nullptr}},
    };
    return table;
}

} // namespace

bool ImageCodec::canEncode(int formatCode) {
    return writers().contains(formatCode);
}

AppError ImageCodec::encode(const QImage& image, const QString& path, int formatCode) {
    const auto it = writers().constFind(formatCode);
    if (it == writers().constEnd() || image.isNull())
        return AppError(UnknownFormat);
    if (!QFileInfo(QFileInfo(path).absolutePath()).isDir())
        return AppError(AppError::PathNotFound);
    if (it->magickCoder)
        return ImageReaders::writeWithMagick(image, path, it->magickCoder);
    if (!it->qtFormat)
        return ImageReaders::writeMsp(image, path);
    QImageWriter writer(path, it->qtFormat);
    if (formatCode == 10)
        writer.setQuality(90);
    if (!writer.write(image))
        return AppError(writer.error() == QImageWriter::UnsupportedFormatError
                            ? int(UnknownFormat)
                            : int(AppError::PathFileAccess));
    return {};
}
