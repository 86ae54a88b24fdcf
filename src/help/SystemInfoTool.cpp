#include "help/SystemInfoTool.h"

#include <QProcess>
#include <QStandardPaths>

namespace SystemInfoTool {

QStringList candidates() {
    return {QStringLiteral("hardinfo"),
            QStringLiteral("hardinfo2"),
            QStringLiteral("gnome-system-monitor"),
            QStringLiteral("kinfocenter"),
            QStringLiteral("xfce4-taskmanager"),
            QStringLiteral("mate-system-monitor"),
            QStringLiteral("lxtask")};
}

QString find(const QStringList& programs) {
    for (const QString& program : programs) {
        const QString path = QStandardPaths::findExecutable(program);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

bool start(const QString& program) {
    return !program.isEmpty() && QProcess::startDetached(program, QStringList());
}

} // namespace SystemInfoTool
