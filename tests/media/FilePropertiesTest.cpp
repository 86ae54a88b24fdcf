#include "media/FileProperties.h"
#include "support/TempFolder.h"

#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FileProperties, FormatAndFieldNamesAsWritten) {
    EXPECT_EQ(FileProperties::GetFormatName(86), u"Tagged Image File LZW Compressed Forma"_s);
    EXPECT_EQ(FileProperties::GetFormatName(17), u"Tagged Image File LZW Compressed Format"_s);
    EXPECT_EQ(FileProperties::GetFormatName(42), u"Unknown format"_s);
    EXPECT_EQ(FileProperties::GetFieldTypeName(12), u"Memo Field"_s);
    EXPECT_EQ(FileProperties::GetFieldTypeName(13), QString());
}

TEST(FileProperties, PicturesReportWhatImageMagickSeesInThem) {
    TempFolder folder;
    const struct {
        const char* name;
        const char* make; // ImageMagick's recipe
        const char* format;
        const char* depth; // bits of each sample
        int bits;          // of each pixel
    } cases[] = {
        {"g.png", "plasma:", "Portable Network Graphics", "8", 24},
        {"b.bmp", "pattern:checkerboard", "Bitmap Format", "8", 24},
        {"j.jpg", "gradient:white-black", "JPEG File Interchange Format", "8", 8},
        {"deep.tif", "gradient:red-blue", "Tagged Image File Format", "16", 48},
        {"deep.png", "gradient:black-white", "Portable Network Graphics", "16", 16},
    };
    for (const auto& c : cases) {
        const QString path = folder.file(QString::fromLatin1(c.name));
        // Taller than 256 rows, so that a gradient of 16-bit samples has more colours than 8 bits.
        QProcess::execute(u"convert"_s, {u"-size"_s, u"20x600"_s, QString::fromLatin1(c.make),
                                         u"-depth"_s, QString::fromLatin1(c.depth), path});
        QProcess identify;
        identify.start(u"identify"_s, {u"-format"_s, u"%w %h %k"_s, path});
        identify.waitForFinished();
        const QStringList seen = QString::fromLatin1(identify.readAllStandardOutput()).split(u' ');
        const FileProperties::Picture p = FileProperties::pictureOf(path);
        ASSERT_TRUE(p.read) << c.name;
        EXPECT_EQ(QString::number(p.width), seen.value(0)) << c.name;
        EXPECT_EQ(QString::number(p.height), seen.value(1)) << c.name;
        EXPECT_EQ(QString::number(p.colors), seen.value(2)) << c.name;
        EXPECT_EQ(FileProperties::GetFormatName(p.format), QString::fromLatin1(c.format)) << c.name;
        EXPECT_EQ(p.bits, c.bits) << c.name;
    }
    // A PCX of one bit a pixel in one plane, as netpbm writes it (ImageMagick writes 24 bits).
    const QString pbm = folder.file(u"mono.pbm"_s);
    QProcess::execute(u"convert"_s, {u"-size"_s, u"60x40"_s, u"pattern:gray50"_s, pbm});
    QProcess pcx;
    pcx.setStandardOutputFile(folder.file(u"mono.pcx"_s));
    pcx.start(u"ppmtopcx"_s, {pbm});
    pcx.waitForFinished();
    const FileProperties::Picture mono = FileProperties::pictureOf(folder.file(u"mono.pcx"_s));
    EXPECT_EQ(mono.bits, 1);
    EXPECT_EQ(mono.colors, 2);
    EXPECT_EQ(FileProperties::GetFormatName(mono.format), u"ZSoft PCX"_s);
}

TEST(FileProperties, TheSharedSamplesHaveTheSizeAndColoursImageMagickFindsInThem) {
    const QString root = QStringLiteral(QUORVANE_SHARED_FIXTURES);
    // The vector picture is left out of the colour count (another renderer), and so is the
    // cursor: its fully transparent pixels count as one colour here, while ImageMagick counts
    // the colours stored under them.
    const struct {
        const char* file;
        const char* format;
        int bits;
        bool colours;
    } cases[] = {
        {"dcx/input.dcx", "ZSoft PCX", 24, true},
        {"iff/testcard_indexed4_amiga.iff", "Interchange File Format", 4, true},
        {"ico/python.ico", "Windows Icon Format", 32, true},
        {"mac/header.mac", "MacPaint File Format", 1, true},
        {"pbm/input_p4.pbm", "Portable Network Graphics", 1, true},
        {"pcd/hopper.pcd", "Kodak PhotoCD Format", 24, true},
        {"pcx/input.pcx", "ZSoft PCX", 24, true},
        {"psd/input.psd", "Photoshop 3.0 Format", 24, true},
        {"ras/hopper.ras", "Sun Raster Format", 24, true},
        {"tga/input.tga", "Truevision TGA Format", 24, true},
        {"tif/g4-multi.tiff", "Tagged Image File Format", 1, true},
        {"xpm/input.xpm", "XBitMap Monochrome Bitmap", 8, true},
        {"cur/deerstalker.cur", "Windows Cursor Format", 32, false},
        {"wmf/clock.wmf", "Meta File Format", 32, false},
    };
    for (const auto& c : cases) {
        const QString path = root + u'/' + QString::fromLatin1(c.file);
        if (!QFileInfo::exists(path))
            continue;
        QProcess identify;
        identify.start(u"identify"_s, {u"-format"_s, u"%w %h %k"_s, path + u"[0]"_s});
        identify.waitForFinished(60000);
        const QStringList seen = QString::fromLatin1(identify.readAllStandardOutput()).split(u' ');
        const FileProperties::Picture p = FileProperties::pictureOf(path);
        ASSERT_TRUE(p.read) << c.file;
        EXPECT_EQ(FileProperties::GetFormatName(p.format), QString::fromLatin1(c.format)) << c.file;
        EXPECT_EQ(p.bits, c.bits) << c.file;
        EXPECT_EQ(QString::number(p.width), seen.value(0)) << c.file;
        EXPECT_EQ(QString::number(p.height), seen.value(1)) << c.file;
        if (c.colours) {
            EXPECT_EQ(QString::number(p.colors), seen.value(2).trimmed()) << c.file;
        }
    }
}
