#include "shell/Help.h"

#include "help/HelpWindow.h"
#include "platform/AppError.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WindowRegistry.h"
#include "shell/Globals.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

const QString kContents = u"index"_s;

QString helpFolder() {
    return PathUtil::join(globals().gAppPath, u"Help"_s);
}

bool hasPage(const QString& name) {
    static const QRegularExpression windowName(u"^[A-Za-z][A-Za-z0-9_]*$"_s);
    return windowName.match(name).hasMatch() && name != kContents &&
           QFileInfo(PathUtil::join(helpFolder(), name + u".html"_s)).isFile();
}

// The help window with the topics of the program folder; null, after a box, when there is no
// help to show.
HelpWindow* helpWindow(QWidget* parent) {
    const QString folder = helpFolder();
    if (!QFileInfo(PathUtil::join(folder, kContents + u".html"_s)).isFile()) {
        Messages::instance().inform(AppError(AppError::FileNotFound).description(), parent);
        return nullptr;
    }
    auto* window = WindowRegistry::get<HelpWindow>();
    if (!window->loadTopics(folder)) {
        Messages::instance().inform(AppError(AppError::FileNotFound).description(), parent);
        window->close();
        return nullptr;
    }
    return window;
}

// Sees every key before the controls do and turns F1 into the topic of its window.
class F1Filter final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_F1 ||
            (key->modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::NoModifier)
            return false;
        if (!key->isAutoRepeat())
            Help::showTopic(static_cast<QWidget*>(watched));
        return true;
    }
};

} // namespace

namespace Help {

void showContents(QWidget* parent) {
    if (HelpWindow* window = helpWindow(parent))
        window->showTopic(kContents);
}

void showSearch(QWidget* parent) {
    if (HelpWindow* window = helpWindow(parent))
        window->showSearch();
}

QString topicFor(const QWidget* from) {
    for (const QWidget* w = from; w; w = w->parentWidget()) {
        if (hasPage(w->objectName()))
            return w->objectName();
    }
    return kContents;
}

void showTopic(QWidget* from) {
    const QString topic = topicFor(from);
    if (HelpWindow* window = helpWindow(from))
        window->showTopic(topic);
}

void installF1() {
    static QPointer<QObject> filter;
    if (filter || !qApp)
        return;
    filter = new F1Filter(qApp);
    qApp->installEventFilter(filter);
}

} // namespace Help
