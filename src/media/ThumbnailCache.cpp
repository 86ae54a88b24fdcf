#include "media/ThumbnailCache.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ThumbnailCache {

namespace {

// The modification time of a file in whole seconds, as the cache records it.
QString mtimeOf(const QString& path) {
    const QFileInfo info(path);
    return info.exists() ? QString::number(info.lastModified().toSecsSinceEpoch()) : QString();
}

QString fileNameFor(const QString& path) {
    return QString::fromLatin1(
               QCryptographicHash::hash(uriOf(path).toUtf8(), QCryptographicHash::Md5).toHex()) +
           u".png"_s;
}

QString failPath(const QString& path) {
    return root() + u"/fail/quorvane/"_s + fileNameFor(path);
}

// Whether a cache file was made from the picture as it is now.
QImage matching(const QString& cached, const QString& path) {
    const QImage image(cached, "png");
    if (image.text(u"Thumb::URI"_s) != uriOf(path) ||
        image.text(u"Thumb::MTime"_s) != mtimeOf(path))
        return {};
    return image;
}

bool save(const QString& target, QImage image, const QString& path) {
    if (!QDir().mkpath(QFileInfo(target).absolutePath()))
        return false;
    QFile::setPermissions(QFileInfo(target).absolutePath(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    image.setText(u"Thumb::URI"_s, uriOf(path));
    image.setText(u"Thumb::MTime"_s, mtimeOf(path));
    image.setText(u"Thumb::Size"_s, QString::number(QFileInfo(path).size()));
    image.setText(u"Software"_s, u"Quorvane"_s);
    QSaveFile out(target);
    if (!out.open(QIODevice::WriteOnly) || !image.save(&out, "png"))
        return false;
    out.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    return out.commit();
}

} // namespace

QString root() {
    const QString cache = qEnvironmentVariable("XDG_CACHE_HOME");
    return (cache.isEmpty() ? QDir::homePath() + u"/.cache"_s : cache) + u"/thumbnails"_s;
}

QString uriOf(const QString& path) {
    return QString::fromLatin1(
        QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()).toEncoded(QUrl::FullyEncoded));
}

QString pathFor(const QString& path, int size) {
    return root() + (size <= 128 ? u"/normal/"_s : u"/large/"_s) + fileNameFor(path);
}

QImage read(const QString& path, int size) {
    const QString cached = pathFor(path, size);
    return QFile::exists(cached) ? matching(cached, path) : QImage();
}

bool write(const QString& path, int size, const QImage& thumbnail) {
    return save(pathFor(path, size), thumbnail, path);
}

bool hasFailed(const QString& path) {
    const QString marked = failPath(path);
    return QFile::exists(marked) && !matching(marked, path).isNull();
}

void markFailed(const QString& path) {
    QImage mark(1, 1, QImage::Format_ARGB32);
    mark.fill(Qt::transparent);
    save(failPath(path), mark, path);
}

} // namespace ThumbnailCache
