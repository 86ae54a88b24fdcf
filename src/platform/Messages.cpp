#include "platform/Messages.h"

#include "platform/QtMessages.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
bool hasExtension(const QString& path) {
    return QFileInfo(path).fileName().contains(u'.');
}

QString withExtension(const QString& path, const QString& extension) {
    return path + u'.' + extension;
}

std::unique_ptr<Messages>& current() {
    static std::unique_ptr<Messages> service;
    return service;
}
} // namespace

Messages::~Messages() = default;

QString Messages::caption() {
    return u"Quorvane 2.5"_s;
}

Messages& Messages::instance() {
    if (!current())
        current() = std::make_unique<QtMessages>();
    return *current();
}

std::unique_ptr<Messages> Messages::install(std::unique_ptr<Messages> service) {
    std::unique_ptr<Messages> previous = std::move(current());
    current() = std::move(service);
    return previous;
}

QString Messages::openFileName(FileRequest& request, QWidget* parent) {
    const QString name = runOpenDialog(request, parent);
    if (name.isEmpty() || request.defaultExtension.isEmpty() || hasExtension(name) ||
        QFileInfo::exists(name))
        return name;
    // The file names of the disk keep their case; the extension may be written either way.
    const QString& extension = request.defaultExtension;
    for (const QString& candidate : {extension, extension.toLower(), extension.toUpper()}) {
        const QString completed = withExtension(name, candidate);
        if (QFileInfo::exists(completed))
            return completed;
    }
    return name;
}

QString Messages::saveFileName(FileRequest& request, QWidget* parent) {
    const QString name = runSaveDialog(request, parent);
    if (name.isEmpty() || request.defaultExtension.isEmpty() || hasExtension(name))
        return name;
    return withExtension(name, request.defaultExtension);
}
