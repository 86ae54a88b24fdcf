#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include "support/TempFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString sharedFixtures() {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES);
}

QString generatedPictures() {
    return QStringLiteral(QUORVANE_GENERATED_PICTURES);
}

QStringList generatedFiles() {
    QStringList files;
    for (const QString& name : QDir(generatedPictures()).entryList({u"*.*"_s}, QDir::Files))
        files.append(QDir(generatedPictures()).filePath(name));
    return files;
}

// Shared sample files, copied where their extension is not the program's own spelling.
QStringList sharedPictureFiles(const TempFolder& copies) {
    struct Sample {
        const char* file;
        const char* as;
    };
    const Sample samples[] = {
        {"cur/deerstalker.cur", nullptr}, {"dcx/input.dcx", nullptr},
        {"emf/drawing.emf", nullptr},     {"emf/EA-test-file-001.emf", nullptr},
        {"eps/input.eps", nullptr},       {"gem_img/tiger.img", nullptr},
        {"ico/python.ico", nullptr},      {"iff/testcard_indexed4_amiga.iff", nullptr},
        {"jbg/input.jbig", "input.JBG"},  {"mac/header.mac", nullptr},
        {"mac/noheader.mac", nullptr},    {"msp/hopper.msp", nullptr},
        {"pbm/input_p4.pbm", nullptr},    {"pcd/hopper.pcd", nullptr},
        {"pcx/input.pcx", nullptr},       {"psd/input.psd", nullptr},
        {"ras/hopper.ras", nullptr},      {"tga/input.tga", nullptr},
        {"tif/g4-multi.tiff", nullptr},   {"wmf/clock.wmf", nullptr},
        {"wpg/input.wpg", nullptr},       {"xpm/input.xpm", nullptr},
    };
    QStringList files;
    for (const Sample& s : samples) {
        const QString source = sharedFixtures() + u'/' + QString::fromLatin1(s.file);
        if (!s.as) {
            files.append(source);
            continue;
        }
        const QString copy = copies.file(QString::fromLatin1(s.as));
        QFile::copy(source, copy);
        files.append(copy);
    }
    return files;
}

bool near(QRgb pixel, QRgb expected) {
    return std::abs(qRed(pixel) - qRed(expected)) < 60 &&
           std::abs(qGreen(pixel) - qGreen(expected)) < 60 &&
           std::abs(qBlue(pixel) - qBlue(expected)) < 60;
}

void put16(QByteArray& bytes, int index, quint16 value) {
    qToLittleEndian<quint16>(value, bytes.data() + 2 * index);
}

// An MSP header of the given version and size with a correct checksum.
QByteArray mspHeader(bool version2, int width, int height) {
    QByteArray header(32, '\0');
    put16(header, 0, version2 ? 0x694C : 0x6144);
    put16(header, 1, version2 ? 0x536E : 0x4D6E);
    put16(header, 2, static_cast<quint16>(width));
    put16(header, 3, static_cast<quint16>(height));
    quint16 sum = 0;
    for (int i = 0; i < 12; ++i)
        sum ^= qFromLittleEndian<quint16>(header.constData() + 2 * i);
    put16(header, 12, sum);
    return header;
}

} // namespace

TEST(ImageCodec, EveryGeneratedPictureDecodesAtItsSizeWithItsColours) {
    const QStringList files = generatedFiles();
    ASSERT_GE(files.size(), 30) << "the test pictures were not made in "
                                << generatedPictures().toStdString();
    for (const QString& path : files) {
        const QString name = QFileInfo(path).fileName();
        const ImageCodec::Picture picture = ImageCodec::decode(path);
        ASSERT_FALSE(picture.error) << name.toStdString() << ": " << picture.error.number();
        const QSize expected = name.startsWith(u"ico"_s)   ? QSize(32, 32)
                               : name.startsWith(u"pcd"_s) ? QSize(192, 128)
                                                           : QSize(64, 48);
        EXPECT_EQ(picture.image.size(), expected) << name.toStdString();
        EXPECT_EQ(picture.diskSize, QFileInfo(path).size());
        if (expected != QSize(64, 48))
            continue;
        const QImage rgb = picture.image.convertToFormat(QImage::Format_RGB32);
        const bool mono = picture.bitsPerPixel == 1 || name.contains(u"-1."_s);
        const bool gray = name.contains(u"gray"_s);
        // The black diagonal, the white field, and in colour the red disc and the blue bar.
        EXPECT_TRUE(near(rgb.pixel(32, 24), qRgb(0, 0, 0))) << name.toStdString();
        EXPECT_TRUE(near(rgb.pixel(2, 40), qRgb(255, 255, 255))) << name.toStdString();
        if (!mono && !gray) {
            EXPECT_TRUE(near(rgb.pixel(20, 30), qRgb(255, 0, 0))) << name.toStdString();
            EXPECT_TRUE(near(rgb.pixel(50, 10), qRgb(0, 0, 255))) << name.toStdString();
        }
    }
}

TEST(ImageCodec, JpegsOfInksOpenInTheColoursOfTheirPatches) {
    struct Case {
        const char* file;
        bool likeMagick; // ImageMagick takes every CMYK JPEG for inverted inks
    };
    const Case cases[] = {
        {"ycck.JPG", true},
        {"adobe-cmyk.JPG", true},
        {"plain-cmyk.JPG", false},
        {"ycck-subsampled.JPG", true},
    };
    struct Patch {
        int x, y;
        QRgb colour;
    };
    const Patch patches[] = {{16, 12, qRgb(255, 0, 0)},
                             {48, 12, qRgb(0, 255, 0)},
                             {16, 36, qRgb(0, 0, 255)},
                             {48, 36, qRgb(255, 255, 255)}};
    auto within = [](QRgb a, QRgb b, int tolerance) {
        return std::abs(qRed(a) - qRed(b)) <= tolerance &&
               std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
               std::abs(qBlue(a) - qBlue(b)) <= tolerance;
    };
    for (const Case& c : cases) {
        const QString path = generatedPictures() + u"/cmyk/"_s + QString::fromLatin1(c.file);
        const ImageCodec::Picture picture = ImageCodec::decode(path);
        ASSERT_FALSE(picture.error) << c.file << ": " << picture.error.number();
        ASSERT_EQ(picture.image.size(), QSize(64, 48)) << c.file;
        EXPECT_EQ(picture.bitsPerPixel, 32) << c.file;
        const QImage rgb = picture.image.convertToFormat(QImage::Format_RGB32);
        for (const Patch& patch : patches)
            EXPECT_TRUE(within(rgb.pixel(patch.x, patch.y), patch.colour, 8))
                << c.file << " at " << patch.x << "," << patch.y << ": " << std::hex
                << rgb.pixel(patch.x, patch.y);
        if (!c.likeMagick)
            continue;
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QImage magick = ImageReaders::readWithMagick(file.readAll(), "JPEG")
                                  .image.convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(magick.size(), rgb.size()) << c.file;
        int worst = 0;
        for (int y = 0; y < rgb.height(); ++y)
            for (int x = 0; x < rgb.width(); ++x) {
                const QRgb a = rgb.pixel(x, y);
                const QRgb b = magick.pixel(x, y);
                worst = std::max({worst, std::abs(qRed(a) - qRed(b)),
                                  std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
            }
        EXPECT_LE(worst, 3) << c.file << " against ImageMagick";
    }
}

TEST(ImageCodec, BitsPerPixelFollowTheStoredPicture) {
    struct Case {
        const char* file;
        int bits;
    };
    for (const Case& c : {Case{"bmp-1.BMP", 1},
                          {"bmp-4.BMP", 4},
                          {"bmp-8-rle.BMP", 8},
                          {"bmp-24.BMP", 24},
                          {"bmp-32.BMP", 32},
                          {"png-mono.PNG", 1},
                          {"jpeg-gray.JPG", 8},
                          {"tiff-g4.TIF", 1},
                          {"gem.IMG", 1},
                          {"jbig.JBG", 1}}) {
        const QString path = QDir(generatedPictures()).filePath(QString::fromLatin1(c.file));
        EXPECT_EQ(ImageCodec::decode(path).bitsPerPixel, c.bits) << c.file;
    }
}

TEST(ImageCodec, TheSharedSamplesOfEveryReadableFormatDecode) {
    if (!QFileInfo(sharedFixtures()).isDir())
        GTEST_SKIP() << "the shared fixtures folder is absent: " << sharedFixtures().toStdString();
    TempFolder copies;
    for (const QString& path : sharedPictureFiles(copies)) {
        const ImageCodec::Picture picture = ImageCodec::decode(path);
        EXPECT_FALSE(picture.error) << path.toStdString() << ": " << picture.error.number();
        EXPECT_GT(picture.image.width(), 0) << path.toStdString();
        EXPECT_GT(picture.bitsPerPixel, 0) << path.toStdString();
    }
}

TEST(ImageCodec, FormatsWithoutAReaderFailAsUnknown) {
    if (!QFileInfo(sharedFixtures()).isDir())
        GTEST_SKIP() << "the shared fixtures folder is absent: " << sharedFixtures().toStdString();
    TempFolder copies;
    QFile::copy(sharedFixtures() + u"/pict/input.pict"_s, copies.file(u"input.PCT"_s));
    const struct {
        QString path;
        int error;
    } cases[] = {
        {sharedFixtures() + u"/dxf/extendeddata.dxf"_s, 20002},
        {sharedFixtures() + u"/fpx/input_truecolor.fpx"_s, 20002},
        {copies.file(u"input.PCT"_s), 20009},
    };
    for (const auto& c : cases) {
        const ImageCodec::Picture picture = ImageCodec::decode(c.path);
        EXPECT_EQ(picture.error.number(), c.error) << c.path.toStdString();
        EXPECT_TRUE(picture.image.isNull());
    }
}

TEST(ImageCodec, OurMspReaderReadsBothVersions) {
    TempFolder dir;
    // Version 1: 16 x 2, rows stored plainly; a set bit is white.
    dir.write(u"v1.MSP"_s, mspHeader(false, 16, 2) + QByteArray::fromHex("F00F"
                                                                         "0000"));
    ImageCodec::Picture one = ImageCodec::decode(dir.file(u"v1.MSP"_s));
    ASSERT_FALSE(one.error);
    EXPECT_EQ(one.bitsPerPixel, 1);
    EXPECT_EQ(one.image.pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(one.image.pixel(4, 0), qRgb(0, 0, 0));
    EXPECT_EQ(one.image.pixel(15, 0), qRgb(255, 255, 255));
    EXPECT_EQ(one.image.pixel(3, 1), qRgb(0, 0, 0));

    // Version 2: a row-length table, then runs: a run of 2 x 0xFF, and two literal bytes.
    QByteArray v2 = mspHeader(true, 32, 2);
    QByteArray lengths(4, '\0');
    put16(lengths, 0, 3);
    put16(lengths, 1, 3);
    v2 += lengths + QByteArray::fromHex("0002FF"
                                        "020F00");
    dir.write(u"v2.MSP"_s, v2);
    ImageCodec::Picture two = ImageCodec::decode(dir.file(u"v2.MSP"_s));
    ASSERT_FALSE(two.error);
    EXPECT_EQ(two.image.size(), QSize(32, 2));
    EXPECT_EQ(two.image.pixel(10, 0), qRgb(255, 255, 255));
    EXPECT_EQ(two.image.pixel(20, 0), qRgb(255, 255, 255)); // padded white
    EXPECT_EQ(two.image.pixel(0, 1), qRgb(0, 0, 0));
    EXPECT_EQ(two.image.pixel(4, 1), qRgb(255, 255, 255));

    QByteArray badSum = mspHeader(false, 16, 2);
    badSum[24] = badSum[24] ^ 1;
    dir.write(u"bad.MSP"_s, badSum + QByteArray(4, '\0'));
    EXPECT_EQ(ImageCodec::decode(dir.file(u"bad.MSP"_s)).error.number(), 20009);
    dir.write(u"other.MSP"_s, QByteArray(64, 'x'));
    EXPECT_EQ(ImageCodec::decode(dir.file(u"other.MSP"_s)).error.number(), 20002);
}

TEST(ImageCodec, PicturesOverTheLimitsFailWithoutBeingDecoded) {
    TempFolder dir;
    // A BMP whose header claims 30,000 x 30,000 pixels of 24 bits.
    QByteArray bmp(54, '\0');
    bmp[0] = 'B';
    bmp[1] = 'M';
    qToLittleEndian<quint32>(54, bmp.data() + 10);
    qToLittleEndian<quint32>(40, bmp.data() + 14);
    qToLittleEndian<qint32>(30000, bmp.data() + 18);
    qToLittleEndian<qint32>(30000, bmp.data() + 22);
    qToLittleEndian<quint16>(1, bmp.data() + 26);
    qToLittleEndian<quint16>(24, bmp.data() + 28);
    dir.write(u"huge.BMP"_s, bmp + QByteArray(1024, '\0'));
    EXPECT_EQ(ImageCodec::decode(dir.file(u"huge.BMP"_s)).error.number(), 20009);

    dir.write(u"huge.MSP"_s, mspHeader(false, 30000, 30000));
    EXPECT_EQ(ImageCodec::decode(dir.file(u"huge.MSP"_s)).error.number(), 20009);

    // A PCX header of 30,000 x 30,000 for ImageMagick.
    QByteArray pcx(128, '\0');
    pcx[0] = 10;
    pcx[1] = 5;
    pcx[2] = 1;
    pcx[3] = 8;
    qToLittleEndian<quint16>(29999, pcx.data() + 8);
    qToLittleEndian<quint16>(29999, pcx.data() + 10);
    pcx[65] = 3;
    qToLittleEndian<quint16>(30000, pcx.data() + 66);
    dir.write(u"huge.PCX"_s, pcx);
    EXPECT_EQ(ImageCodec::decode(dir.file(u"huge.PCX"_s)).error.number(), 20009);
}

TEST(ImageCodec, DamagedFilesFailWithTheCodecsNumbers) {
    TempFolder dir;
    TempFolder copies;
    QStringList sources = generatedFiles();
    if (QFileInfo(sharedFixtures()).isDir())
        sources += sharedPictureFiles(copies);
    int damaged = 0;
    for (const QString& path : sources) {
        const QByteArray bytes = bytesOf(path);
        ASSERT_FALSE(bytes.isEmpty()) << path.toStdString();
        const QString suffix = QFileInfo(path).suffix();
        QList<QByteArray> variants = {QByteArray(), bytes.left(16), bytes.left(bytes.size() / 2),
                                      bytes.left(bytes.size() - 1)};
        // Bytes flipped through the header and the data.
        for (int round = 0; round < 2; ++round) {
            QByteArray flipped = bytes;
            for (int i = 0; i < 12; ++i) {
                const qsizetype at =
                    (i * 7919 + round * 104729) % std::max<qsizetype>(1, flipped.size());
                if (!flipped.isEmpty())
                    flipped[at] = static_cast<char>(flipped[at] ^ 0x5A);
            }
            variants.append(flipped);
        }
        for (const QByteArray& variant : variants) {
            const QString target = dir.file(u"damaged."_s + suffix);
            dir.write(u"damaged."_s + suffix, variant);
            const ImageCodec::Picture picture = ImageCodec::decode(target);
            const int number = picture.error.number();
            EXPECT_TRUE(number == 0 || number == 20002 || number == 20009)
                << path.toStdString() << " gave " << number;
            EXPECT_EQ(number == 0, !picture.image.isNull()) << path.toStdString();
            ++damaged;
        }
    }
    EXPECT_GT(damaged, 150);
}

TEST(ImageCodec, APictureUnderAnotherFormatsNameOpensByItsContent) {
    TempFolder dir;
    QFile::copy(QDir(generatedPictures()).filePath(u"png-24.PNG"_s), dir.file(u"really-png.TGA"_s));
    QFile::copy(QDir(generatedPictures()).filePath(u"tiff-lzw.TIF"_s),
                dir.file(u"really-tiff.JPG"_s));
    for (const QString& name : {u"really-png.TGA"_s, u"really-tiff.JPG"_s}) {
        const ImageCodec::Picture picture = ImageCodec::decode(dir.file(name));
        EXPECT_FALSE(picture.error) << name.toStdString() << ": " << picture.error.number();
        EXPECT_EQ(picture.image.size(), QSize(64, 48)) << name.toStdString();
    }
    dir.write(u"text.PNG"_s, "just some words, no picture");
    const int number = ImageCodec::decode(dir.file(u"text.PNG"_s)).error.number();
    EXPECT_TRUE(number == 20002 || number == 20009) << number;
}

TEST(ImageCodec, WritesByFormatCodeWhateverTheExtension) {
    TempFolder dir;
    const ImageCodec::Picture source =
        ImageCodec::decode(QDir(generatedPictures()).filePath(u"jpeg-baseline.JPG"_s));
    ASSERT_FALSE(source.error);
    ASSERT_FALSE(ImageCodec::encode(source.image, dir.file(u"copy.BMP"_s), 6));
    const ImageCodec::Picture bmp = ImageCodec::decode(dir.file(u"copy.BMP"_s));
    ASSERT_FALSE(bmp.error);
    EXPECT_EQ(bmp.image.size(), source.image.size());
    EXPECT_TRUE(dir.read(u"copy.BMP"_s).startsWith("BM"));

    // PBM and PNG share their code, so a "PBM" is written as PNG.
    ASSERT_FALSE(ImageCodec::encode(source.image, dir.file(u"copy.PBM"_s), 75));
    EXPECT_TRUE(dir.read(u"copy.PBM"_s).startsWith("\x89PNG"));
    EXPECT_FALSE(ImageCodec::canEncode(0));
    // Formats written by ImageMagick and by our own writer read back at the same size.
    for (const auto& [code, name] : {std::pair{3, u"copy.TIF"_s}, std::pair{1, u"copy.PCX"_s},
                                     std::pair{53, u"copy.MSP"_s}, std::pair{55, u"copy.RAS"_s}}) {
        ASSERT_FALSE(ImageCodec::encode(source.image, dir.file(name), code)) << code;
        const ImageCodec::Picture back = ImageCodec::decode(dir.file(name));
        EXPECT_FALSE(back.error) << code;
        EXPECT_EQ(back.image.size(), source.image.size()) << code;
    }
    EXPECT_EQ(ImageCodec::encode(source.image, dir.file(u"x.CMP"_s), 0).number(), 20002);
    EXPECT_TRUE(ImageCodec::encode(source.image, dir.file(u"no/such/folder/x.BMP"_s), 6));
}
