#include "platform/ExternalTool.h"
#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>

namespace ImageReaders {

// EMF through libemf2svg's converter, run as a program of its own (its library carries names
// that clash with the WMF reader's), and Qt's SVG renderer.
Result readEmf(const QString& path) {
    Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return result;
    // An EMF file starts with its header record and carries " EMF" at offset 40.
    const QByteArray head = file.read(88);
    if (head.size() < 88 || head.mid(40, 4) != QByteArrayLiteral(" EMF")) {
        result.error = AppError(ImageCodec::UnknownFormat);
        return result;
    }
    QTemporaryDir out;
    const QString svgPath = out.filePath(QStringLiteral("page.svg"));
    const ExternalTool::Result converted = ExternalTool::run(
        QStringLiteral("emf2svg-conv"),
        {QStringLiteral("-p"), QStringLiteral("-i"), path, QStringLiteral("-o"), svgPath}, 0,
        30000);
    if (!converted.started) {
        result.error = AppError(ImageCodec::UnknownFormat);
        return result;
    }
    if (!converted.succeeded || QFileInfo(svgPath).size() > ImageCodec::MaxBytes)
        return result;

    QSvgRenderer renderer(svgPath);
    const QSize size = renderer.defaultSize();
    if (!renderer.isValid() || size.isEmpty() || !withinLimits(size.width(), size.height()))
        return result;
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return result;
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    result.image = image;
    result.bits = 24;
    result.error = AppError();
    return result;
}

} // namespace ImageReaders
