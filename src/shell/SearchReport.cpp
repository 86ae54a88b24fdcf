#include "shell/SearchReport.h"

#include "platform/TextFile.h"

namespace SearchReport {

QString fileName() {
    return QStringLiteral("F@Prnt.INI");
}

AppError addFolder(const QString& reportFile, const QString& folder, const QStringList& fileNames) {
    QStringList lines;
    lines.reserve(fileNames.size() + 1);
    lines.append(QStringLiteral("##") + folder);
    lines.append(fileNames);
    return TextFile::append(reportFile, lines);
}

} // namespace SearchReport
