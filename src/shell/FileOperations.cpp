#include "shell/FileOperations.h"

#include "platform/PathUtil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

namespace FileOperations {

namespace {

// Renames within a file system, or copies and deletes across file systems.
AppError moveOne(const QString& source, const QString& target) {
    if (QFileInfo::exists(target))
        return AppError(AppError::PathFileAccess);
    errno = 0;
    if (std::rename(QFile::encodeName(source).constData(), QFile::encodeName(target).constData()) ==
        0)
        return {};
    if (errno != EXDEV)
        return AppError::fromErrno(errno);
    if (!QFile::copy(source, target))
        return AppError(AppError::PathFileAccess);
    if (!QFile::remove(source)) {
        QFile::remove(target);
        return AppError(AppError::PathFileAccess);
    }
    return {};
}

} // namespace

bool isFamilyExtension(const QString& extension) {
    static const QStringList extensions = {QStringLiteral("DB"), QStringLiteral("DBF"),
                                           QStringLiteral("MDB"), QStringLiteral("XLS"),
                                           QStringLiteral("WK4")};
    return extensions.contains(extension);
}

QStringList family(const QString& path) {
    const QString folder = PathUtil::folderOf(path);
    const QString name = PathUtil::nameOf(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 0)
        return {path};
    const QString stem = name.left(dot + 1);
    QStringList members;
    const QStringList entries = QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString& entry : entries) {
        if (entry.startsWith(stem, Qt::CaseInsensitive))
            members.append(PathUtil::join(folder, entry));
    }
    return members;
}

AppError copyFile(const QString& source, const QString& target, bool failIfExists) {
    if (!QFileInfo::exists(source))
        return AppError(AppError::FileNotFound);
    if (QFileInfo::exists(target)) {
        if (failIfExists)
            return AppError(AppError::PathFileAccess);
        if (!QFile::remove(target))
            return AppError(AppError::PathFileAccess);
    }
    if (!QFileInfo(QFileInfo(target).absolutePath()).isDir())
        return AppError(AppError::PathNotFound);
    return QFile::copy(source, target) ? AppError() : AppError(AppError::PathFileAccess);
}

AppError moveAll(const QStringList& sources, const QStringList& targets) {
    if (sources.size() != targets.size())
        return AppError(AppError::PathFileAccess);
    for (const QString& target : targets) {
        if (QFileInfo::exists(target))
            return AppError(AppError::PathFileAccess);
    }
    for (qsizetype i = 0; i < sources.size(); ++i) {
        const AppError error = moveOne(sources[i], targets[i]);
        if (!error)
            continue;
        // Put back what was moved.
        for (qsizetype j = i - 1; j >= 0; --j)
            moveOne(targets[j], sources[j]);
        return error;
    }
    return {};
}

QStringList familyTargets(const QStringList& members, const QString& target) {
    const qsizetype dot = target.lastIndexOf(u'.');
    const QString stem = dot >= 0 ? target.left(dot + 1) : target + u'.';
    QStringList targets;
    for (const QString& member : members) {
        const QString name = PathUtil::nameOf(member);
        const qsizetype memberDot = name.lastIndexOf(u'.');
        targets.append(stem + (memberDot >= 0 ? name.mid(memberDot + 1) : QString()));
    }
    return targets;
}

AppError moveToTrash(const QString& path) {
    if (!QFileInfo::exists(path))
        return AppError(AppError::FileNotFound);
    QString inTrash;
    if (QFile::moveToTrash(path, &inTrash))
        return {};
    return AppError(AppError::PathFileAccess);
}

} // namespace FileOperations
