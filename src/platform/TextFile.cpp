#include "platform/TextFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

namespace {

AppError openError(const QString& path, int err) {
    if (err == ENOENT) {
        return QFileInfo(QFileInfo(path).absolutePath()).isDir() ? AppError(AppError::FileNotFound)
                                                                 : AppError(AppError::PathNotFound);
    }
    return AppError::fromErrno(err);
}

QString decodeLine(QByteArray raw) {
    if (raw.endsWith('\n'))
        raw.chop(1);
    if (raw.endsWith('\r'))
        raw.chop(1);
    return QString::fromUtf8(raw);
}

} // namespace

TextFile::ReadResult TextFile::readLines(const QString& path, qsizetype maxLines) {
    ReadResult result;
    QFileInfo info(path);
    if (!info.exists()) {
        result.error = openError(path, ENOENT);
        return result;
    }
    if (info.isDir()) {
        result.error = AppError(AppError::PathFileAccess);
        return result;
    }
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        result.error = openError(path, errno);
        return result;
    }
    while (maxLines < 0 || result.lines.size() < maxLines) {
        QByteArray raw = file.readLine();
        if (raw.isEmpty()) {
            if (file.error() != QFileDevice::NoError)
                result.error = AppError(AppError::PathFileAccess);
            break;
        }
        result.lines.append(decodeLine(std::move(raw)));
    }
    return result;
}

QByteArray TextFile::encode(const QStringList& lines) {
    QByteArray bytes;
    for (const QString& line : lines) {
        bytes += line.toUtf8();
        bytes += "\r\n";
    }
    return bytes;
}

AppError TextFile::replace(const QString& path, const QStringList& lines) {
    if (!QFileInfo(QFileInfo(path).absolutePath()).isDir())
        return AppError(AppError::PathNotFound);
    if (QFileInfo(path).isDir())
        return AppError(AppError::PathFileAccess);
    QSaveFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly))
        return AppError::fromErrno(errno);
    const QByteArray bytes = encode(lines);
    errno = 0;
    // A write cut short (a full disk, a size limit) must not be committed: check what
    // reached the disk before the new file takes the old one's place.
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    if (!written || file.size() != bytes.size()) {
        const int err = errno;
        file.cancelWriting();
        return err != 0 ? AppError::fromErrno(err) : AppError(AppError::DiskFull);
    }
    errno = 0;
    if (!file.commit())
        return AppError::fromErrno(errno);
    return {};
}

AppError TextFile::append(const QString& path, const QStringList& lines) {
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return openError(path, errno);
    const QByteArray bytes = encode(lines);
    errno = 0;
    if (file.write(bytes) != bytes.size() || !file.flush())
        return AppError::fromErrno(errno);
    return {};
}
