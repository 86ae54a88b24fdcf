#include "organizer/OrganizerWidgets.h"

#include "organizer/OrganizerDb.h"
#include "platform/PathUtil.h"
#include "shell/Globals.h"

#include <QLocale>

namespace OrganizerWidgets {

QString percentText(double percent) {
    return QLocale::system().toString(percent, 'g', 7);
}

QString databasePath() {
    return PathUtil::join(globals().gAppPath, QString::fromLatin1(OrganizerDb::FileName));
}

QString workPath() {
    return PathUtil::join(globals().gAppPath, QString::fromLatin1(OrganizerDb::WorkFileName));
}

} // namespace OrganizerWidgets
