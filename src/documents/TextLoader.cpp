#include "documents/TextLoader.h"

#include "platform/ExternalTool.h"

#include <QFile>
#include <QStringDecoder>

namespace TextLoader {

namespace {

Text plain(const QString& path) {
    Text text;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return text;
    const QByteArray bytes = file.read(MaxBytes);
    if (file.error() != QFileDevice::NoError)
        return text;
    // UTF-8 when the bytes are UTF-8, otherwise the single-byte text of older programs.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded = utf8.decode(bytes);
    if (utf8.hasError())
        decoded = QString::fromLatin1(bytes);
    text.ok = true;
    text.content = decoded;
    return text;
}

} // namespace

Text load(const QString& path, const QString& extension) {
    if (extension != QLatin1String("RTF"))
        return plain(path);
    if (!QFile::exists(path))
        return {};
    const ExternalTool::Result html = ExternalTool::run(
        QStringLiteral("unrtf"), {QStringLiteral("--html"), path}, MaxBytes, 30000);
    if (!html.succeeded)
        return plain(path);
    Text text;
    text.ok = true;
    text.rich = true;
    text.content = QString::fromUtf8(html.output);
    return text;
}

} // namespace TextLoader
