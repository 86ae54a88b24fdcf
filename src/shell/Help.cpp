#include "shell/Help.h"

#include "platform/AppError.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "shell/Globals.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QString pageFile(const QString& page) {
    return PathUtil::join(PathUtil::join(globals().gAppPath, u"Help"_s), page);
}

void showPage(const QString& page, QWidget* parent) {
    const QString file = pageFile(page);
    if (!QFileInfo::exists(file) || !QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
        Messages::instance().inform(AppError(AppError::FileNotFound).description(), parent);
}

} // namespace

namespace Help {

void showContents(QWidget* parent) {
    showPage(u"index.html"_s, parent);
}

void showSearch(QWidget* parent) {
    const QString search = u"search.html"_s;
    showPage(QFileInfo::exists(pageFile(search)) ? search : u"index.html"_s, parent);
}

} // namespace Help
