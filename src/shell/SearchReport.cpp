#include "shell/SearchReport.h"

#include "platform/PathUtil.h"
#include "platform/TextFile.h"
#include "shell/Globals.h"

namespace SearchReport {

QString fileName() {
    return QStringLiteral("F@Prnt.INI");
}

QString workFile() {
    const Globals& g = globals();
    return g.gPrintIniFile.isEmpty() ? PathUtil::join(g.gAppPath, fileName()) : g.gPrintIniFile;
}

AppError addFolder(const QString& reportFile, const QString& folder, const QStringList& fileNames) {
    QStringList lines;
    lines.reserve(fileNames.size() + 1);
    lines.append(QStringLiteral("##") + folder);
    lines.append(fileNames);
    return TextFile::append(reportFile, lines);
}

} // namespace SearchReport
