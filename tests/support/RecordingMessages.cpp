#include "RecordingMessages.h"

#include <utility>

namespace {

// A queued answer, or none for a null one (Cancel).
template <class T> std::optional<T> optionalOf(const QVariant& reply) {
    if (reply.isNull())
        return std::nullopt;
    return reply.value<T>();
}

} // namespace

QStringList RecordingMessages::texts() const {
    QStringList result;
    for (const Shown& shown : m_shown)
        result.append(shown.text);
    return result;
}

QVariant RecordingMessages::next() {
    if (m_answers.empty())
        return {};
    QVariant reply = m_answers.front();
    m_answers.pop_front();
    return reply;
}

void RecordingMessages::showing() {
    if (m_whileShown)
        std::exchange(m_whileShown, {})();
}

void RecordingMessages::inform(const QString& text, QWidget*) {
    m_shown.append({QStringLiteral("inform"), caption(), text, {}});
    showing();
}

void RecordingMessages::informTitled(const QString& title, const QString& text, QWidget*) {
    m_shown.append({QStringLiteral("inform"), title, text, {}});
    showing();
}

bool RecordingMessages::askYesNo(const QString& text, QWidget*) {
    m_shown.append({QStringLiteral("askYesNo"), caption(), text, {}});
    return next().toBool();
}

bool RecordingMessages::askYesNoStop(const QString& text, QWidget*) {
    m_shown.append({QStringLiteral("askYesNoStop"), caption(), text, {}});
    return next().toBool();
}

std::optional<QString> RecordingMessages::askText(const QString& title, const QString& label,
                                                  const QString& proposed, QWidget*) {
    m_shown.append({QStringLiteral("askText"), title, label, proposed});
    return optionalOf<QString>(next());
}

QString RecordingMessages::runOpenDialog(FileRequest& request, QWidget*) {
    m_shown.append({QStringLiteral("open"), request.title, request.filterPairs, request.folder});
    return next().toString();
}

QString RecordingMessages::runSaveDialog(FileRequest& request, QWidget*) {
    m_shown.append({QStringLiteral("save"), request.title, request.filterPairs, request.folder});
    return next().toString();
}

std::optional<QColor> RecordingMessages::chooseColor(const QString& title, const QColor&,
                                                     QWidget*) {
    m_shown.append({QStringLiteral("color"), title, {}, {}});
    return optionalOf<QColor>(next());
}

std::optional<QFont> RecordingMessages::chooseFont(const QFont&, QWidget*) {
    m_shown.append({QStringLiteral("font"), {}, {}, {}});
    return optionalOf<QFont>(next());
}

ScopedRecordingMessages::ScopedRecordingMessages() {
    auto recorder = std::make_unique<RecordingMessages>();
    m_recorder = recorder.get();
    m_previous = Messages::install(std::move(recorder));
}

ScopedRecordingMessages::~ScopedRecordingMessages() {
    Messages::install(std::move(m_previous));
}

bool RecordingMessages::setUpPrinter(QWidget*) {
    m_shown.append({QStringLiteral("printer"), {}, {}, {}});
    return next().toBool();
}
