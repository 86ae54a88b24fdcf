#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/ImageReaders.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <ghostscript/iapi.h>
#include <ghostscript/ierrors.h>

namespace {

int GSDLLCALL quietOutput(void*, const char*, int length) {
    return length;
}

int GSDLLCALL noInput(void*, char*, int) {
    return 0;
}

// The size of the drawing in points, from the %%BoundingBox comment; empty when absent.
QSize boundingBox(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(64 * 1024);
    static const QRegularExpression box(
        QStringLiteral("%%BoundingBox:\\s*(-?\\d+)\\s+(-?\\d+)\\s+(-?\\d+)\\s+(-?\\d+)"));
    const QRegularExpressionMatch match = box.match(QString::fromLatin1(head));
    if (!match.hasMatch())
        return {};
    return QSize(match.captured(3).toInt() - match.captured(1).toInt(),
                 match.captured(4).toInt() - match.captured(2).toInt());
}

} // namespace

namespace ImageReaders {

Result readEps(const QString& path) {
    Result result;
    result.error = AppError(ImageCodec::ReadFailed);
    const QSize box = boundingBox(path);
    if (box.isEmpty()) {
        result.error = AppError(ImageCodec::UnknownFormat);
        return result;
    }
    if (!withinLimits(box.width(), box.height()))
        return result;

    QTemporaryDir out;
    if (!out.isValid())
        return result;
    const QByteArray output = QFile::encodeName(out.filePath(QStringLiteral("page.png")));
    const QByteArray input = QFile::encodeName(path);
    const QByteArray outputArg = "-sOutputFile=" + output;
    const char* args[] = {"quorvane",
                          "-dSAFER",
                          "-dBATCH",
                          "-dNOPAUSE",
                          "-dQUIET",
                          "-dEPSCrop",
                          "-sDEVICE=png16m",
                          "-r72",
                          "-dTextAlphaBits=4",
                          "-dGraphicsAlphaBits=4",
                          outputArg.constData(),
                          "-f",
                          input.constData()};
    void* instance = nullptr;
    if (gsapi_new_instance(&instance, nullptr) < 0)
        return result;
    gsapi_set_stdio(instance, noInput, quietOutput, quietOutput);
    gsapi_set_arg_encoding(instance, GS_ARG_ENCODING_UTF8);
    const int code =
        gsapi_init_with_args(instance, static_cast<int>(std::size(args)), const_cast<char**>(args));
    const int exitCode = gsapi_exit(instance);
    gsapi_delete_instance(instance);
    if ((code != 0 && code != gs_error_Quit) || exitCode != 0)
        return result;

    QImage page(QString::fromLocal8Bit(output));
    if (page.isNull())
        return result;
    result.image = page.convertToFormat(QImage::Format_RGB32);
    result.bits = 24;
    result.error = AppError();
    return result;
}

} // namespace ImageReaders
