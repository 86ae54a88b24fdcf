#include "platform/PathUtil.h"

using namespace Qt::StringLiterals;

namespace PathUtil {

QString folderOf(const QString& path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    if (slash < 0)
        return path;
    if (slash == 0)
        return u"/"_s;
    return path.left(slash);
}

QString nameOf(const QString& path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash < 0 ? path : path.mid(slash + 1);
}

QString join(const QString& folder, const QString& name) {
    if (folder.isEmpty())
        return name;
    if (folder.endsWith(u'/'))
        return folder + name;
    return folder + u'/' + name;
}

bool isRoot(const QString& path) {
    return path == u"/"_s;
}

} // namespace PathUtil
