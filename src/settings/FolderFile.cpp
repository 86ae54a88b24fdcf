#include "settings/FolderFile.h"

#include "platform/TextFile.h"

using namespace Qt::StringLiterals;

namespace FolderFile {

QString fileName() {
    return u"FoldFile.INI"_s;
}

QStringList load(const QString& path) {
    return TextFile::readLines(path).lines;
}

AppError save(const QString& path, const QStringList& entries) {
    return TextFile::replace(path, entries.isEmpty() ? QStringList{QString()} : entries);
}

std::optional<Entry> parse(const QString& line) {
    const qsizetype open = line.lastIndexOf(u'(');
    const qsizetype close = line.lastIndexOf(u')');
    if (open < 1 || close <= open + 1)
        return std::nullopt;
    bool ok = false;
    const int filter = line.mid(open + 1, close - open - 1).trimmed().toInt(&ok);
    if (!ok)
        return std::nullopt;
    return Entry{line.left(open - 1), filter};
}

QString format(const QString& folder, int filter) {
    return folder + u" ("_s + QString::number(filter) + u')';
}

} // namespace FolderFile
