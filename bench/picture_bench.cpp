// Opening a 24-megapixel JPEG beside djpeg (libjpeg-turbo) decoding the same file, and the
// picture commands Flip, Invert and Brightness on it; then the same picture as a CMYK JPEG
// (written by ImageMagick's convert) beside djpeg turning it into RGB, and beside ImageMagick
// reading it.
//
// Run: build/bench/bench/bench_pictures
// Prints the median of several runs of each and the ratio of our open to djpeg's decode.

#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"
#include "platform/imaging/PictureView.h"
#include "platform/imaging/PixelOps.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

double medianMs(int runs, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("big.jpg"));

    // A 6000 x 4000 picture with gradients and shapes, saved at quality 90.
    QImage source(6000, 4000, QImage::Format_RGB32);
    QPainter painter(&source);
    QLinearGradient gradient(0, 0, 6000, 4000);
    gradient.setColorAt(0, Qt::darkBlue);
    gradient.setColorAt(0.5, Qt::yellow);
    gradient.setColorAt(1, Qt::darkRed);
    painter.fillRect(source.rect(), gradient);
    for (int i = 0; i < 400; ++i) {
        painter.setBrush(QColor::fromHsv((i * 37) % 360, 200, 200));
        painter.drawEllipse(QPoint((i * 7919) % 6000, (i * 104729) % 4000), 120, 80);
    }
    painter.end();
    source.save(path, "JPEG", 90);

    const int runs = 7;
    const double djpeg = medianMs(runs, [&] {
        QProcess::execute(QStringLiteral("djpeg"),
                          {QStringLiteral("-outfile"), QStringLiteral("/dev/null"), path});
    });
    PictureView view;
    const double open = medianMs(runs, [&] {
        const ImageCodec::Picture picture = ImageCodec::decode(path);
        view.setImage(picture.image);
    });
    QImage image = ImageCodec::decode(path).image;
    const double flip = medianMs(runs, [&] { PixelOps::flip(image); });
    const double invert = medianMs(runs, [&] { PixelOps::invert(image); });
    const double brightness = medianMs(runs, [&] { PixelOps::changeIntensity(image, 100); });

    std::printf("24-megapixel JPEG, median of %d runs\n", runs);
    std::printf("djpeg decode:         %8.1f ms\n", djpeg);
    std::printf("open (decode + show): %8.1f ms  ratio %.2f\n", open, open / djpeg);
    std::printf("flip:                 %8.1f ms\n", flip);
    std::printf("invert:               %8.1f ms\n", invert);
    std::printf("brightness:           %8.1f ms\n", brightness);

    const QString cmyk = dir.filePath(QStringLiteral("big-cmyk.jpg"));
    if (QProcess::execute(QStringLiteral("convert"),
                          {path, QStringLiteral("-colorspace"), QStringLiteral("CMYK"),
                           QStringLiteral("-quality"), QStringLiteral("90"), cmyk}) != 0) {
        std::printf("no CMYK picture: ImageMagick's convert failed\n");
        return 1;
    }
    const double djpegCmyk = medianMs(runs, [&] {
        QProcess::execute(QStringLiteral("djpeg"),
                          {QStringLiteral("-outfile"), QStringLiteral("/dev/null"), cmyk});
    });
    const double openCmyk = medianMs(runs, [&] {
        const ImageCodec::Picture picture = ImageCodec::decode(cmyk);
        view.setImage(picture.image);
    });
    QFile file(cmyk);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const double magickCmyk =
        medianMs(3, [&] { view.setImage(ImageReaders::readWithMagick(bytes, "JPEG").image); });
    std::printf("24-megapixel CMYK (YCCK) JPEG\n");
    std::printf("djpeg decode to RGB:  %8.1f ms\n", djpegCmyk);
    std::printf("open (decode + show): %8.1f ms  ratio %.2f\n", openCmyk, openCmyk / djpegCmyk);
    std::printf("ImageMagick read:     %8.1f ms  ratio %.2f\n", magickCmyk, magickCmyk / djpegCmyk);
    return 0;
}
