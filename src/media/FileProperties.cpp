#include "media/FileProperties.h"

#include "platform/imaging/ImageCodec.h"
#include "shell/FileTypes.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <unordered_set>

using namespace Qt::StringLiterals;

namespace FileProperties {

namespace {

struct Row {
    std::initializer_list<int> codes;
    const char* name;
};

// One chain of tests: the first row that holds the code names it.
const Row kFormats[] = {
    {{1}, "ZSoft PCX"},
    {{2}, "Graphics Interchange Format"},
    {{3, 85, 87, 88, 93, 95}, "Tagged Image File Format"},
    {{4}, "Truevision TGA Format"},
    {{5, 65}, "Lead Compressed"},
    {{6, 9}, "Bitmap Format"},
    {{10}, "JPEG File Interchange Format"},
    {{11}, "JPEG Tagged Interchange Format"},
    {{12}, "BIN Format"},
    {{13}, "File Handle"},
    {{14, 74}, "OS2 Bitmap Format"},
    {{15}, "Meta File Format"},
    {{16}, "Encapsulated PostScript Format"},
    {{17}, "Tagged Image File LZW Compressed Format"},
    {{20, 30}, "Lead Compressed Format"},
    {{21, 23}, "Lead JPEG File Interchange Format"},
    {{22, 24}, "Lead JPEG Tagged Interchange Format"},
    {{25, 27, 28, 29}, "CCITT compressed TIFF"},
    {{26}, "Lead 1 Bit Format"},
    {{50, 129, 130, 131}, "CALS Raster Format"},
    {{51}, "MacPaint File Format"},
    {{52}, "Miscellaneous 1 Bit Format"},
    {{53}, "Microsoft Paint Format"},
    {{54}, "WordPerfect File Format"},
    {{55}, "Sun Raster Format"},
    {{56}, "Macintosh Pict Format"},
    {{57}, "Kodak PhotoCD Format"},
    {{58}, "Multipage PCX"},
    {{60}, "Wave Sound Files"},
    {{61}, "FLI Video"},
    {{62}, "CGM Format"},
    {{63}, "Encapsulated PostScript TIFF Format"},
    {{64}, "Encapsulated PostScript WMF Format"},
    {{66, 67}, "Fax Group 3"},
    {{68}, "Fax Group 4"},
    {{69}, "Win Fax Group 3"},
    {{70}, "Win Fax Group 4"},
    {{71, 72, 73, 117}, "IBM IOCA Format"},
    {{75}, "Portable Network Graphics"},
    {{76}, "Photoshop 3.0 Format"},
    {{77, 78, 79, 118}, "Raw ICA Group 3"},
    {{80, 81, 83}, "Kodak FlashPix Format"},
    {{82}, "Kodak FlashPix JPEG Format"},
    {{84}, "Bitmap with RLE Compression"},
    {{86, 94}, "Tagged Image File LZW Compressed Forma"},
    {{91}, "Windows Icon Format"},
    {{92}, "Windows Cursor Format"},
    {{96}, "Exif Format"},
    {{97}, "Exif YCC Format"},
    {{98, 101}, "Exif JPG Format"},
    {{99}, "Microsoft Fax Format"},
    {{100}, "Fastest Format"},
    {{102, 103}, "Portable Bitmap Utilities Format"},
    {{104}, "PGM Ascii Format"},
    {{105}, "PGM Binary"},
    {{106}, "PPM Ascii Format"},
    {{107}, "PPM Binary Format"},
    {{108}, "Dr. Halo Format"},
    {{109, 110}, "XBitMap Monochrome Bitmap"},
    {{111, 112}, "Interchange File Format"},
    {{113}, "XWD File Format"},
    {{114}, "CLP Format"},
    {{115}, "JBIG Format"},
    {{116}, "EMF MetaFile Format"},
    {{119}, "ANI File Format"},
    {{120}, "ANI with RLE Compression"},
    {{121}, "Laser Data Format"},
    {{122}, "Intergraph File RLE Compressed Format"},
    {{123}, "Intergraph Vector Format"},
    {{124}, "DWG Format"},
};

const char* const kFieldTypes[] = {
    "",           "Boolean", "Byte",    "Integer", "Long Integer", "Currency",
    "Single",     "Double",  "Date",    "Binary",  "Text",         "Long Binary",
    "Memo Field", "",        "",        "GUID",    "Long Integer", "Variable Binary",
    "Character",  "Numeric", "Decimal", "Float",   "Time",         "Date / Time",
};

// The format code of a picture: by what its first bytes say where the extension leaves a
// choice, else the code its extension is written with.
qint16 formatOf(const QString& path) {
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(16) : QByteArray();
    if (head.startsWith("GIF8"))
        return 2;
    if (head.startsWith("\x89PNG"))
        return 75;
    if (head.startsWith("BM"))
        return 6;
    if (head.startsWith("\xFF\xD8"))
        return head.mid(6, 4) == "Exif" ? 96 : 10;
    return FileTypes::GetFileFormatCode(FileTypes::GetFileExt(path));
}

} // namespace

namespace {

// The number of different pixels of the image in a format of Pixel-sized pixels.
template <class Pixel> qint64 distinctPixels(const QImage& image, QImage::Format format) {
    std::unordered_set<Pixel> seen;
    const QImage converted = image.convertToFormat(format);
    for (int y = 0; y < converted.height(); ++y) {
        const auto* line = reinterpret_cast<const Pixel*>(converted.constScanLine(y));
        seen.insert(line, line + converted.width());
    }
    return qint64(seen.size());
}

} // namespace

QString GetFormatName(qint16 code) {
    for (const Row& row : kFormats) {
        for (int c : row.codes) {
            if (c == code)
                return QString::fromLatin1(row.name);
        }
    }
    return u"Unknown format"_s;
}

QString GetFieldTypeName(int code) {
    if (code < 0 || code >= int(std::size(kFieldTypes)))
        return {};
    return QString::fromLatin1(kFieldTypes[code]);
}

QString grouped(qint64 number) {
    return QLocale::system().toString(number);
}

Picture pictureOf(const QString& path) {
    Picture p;
    const ImageCodec::Picture decoded = ImageCodec::decode(path);
    p.diskSize = QFileInfo(path).size();
    p.format = formatOf(path);
    if (decoded.image.isNull())
        return p;
    const QImage& image = decoded.image;
    p.read = true;
    p.bits = decoded.bitsPerPixel > 0 ? decoded.bitsPerPixel : image.depth();
    p.width = image.width();
    p.height = image.height();
    p.memorySize = qint64((qint64(p.width) * p.bits + 31) / 32 * 4) * p.height;
    p.xResolution = qRound(image.dotsPerMeterX() * 0.0254);
    p.yResolution = qRound(image.dotsPerMeterY() * 0.0254);
    // Samples of 16 bits are counted as they are, not as the 8 bits shown.
    if (decoded.deepColors > 0)
        p.colors = decoded.deepColors;
    else if (image.depth() == 64 || image.format() == QImage::Format_Grayscale16)
        p.colors = distinctPixels<quint64>(image, QImage::Format_RGBA64);
    else
        p.colors = distinctPixels<QRgb>(image, QImage::Format_ARGB32);
    return p;
}

} // namespace FileProperties
