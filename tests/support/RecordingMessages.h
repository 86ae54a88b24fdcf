#pragma once

#include "platform/Messages.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <deque>
#include <functional>

// A messages service for tests: records every box and question in the order shown, and
// answers questions and dialogs from a queue. An empty queue answers No, Cancel or nothing.
class RecordingMessages final : public Messages {
public:
    struct Shown {
        QString kind; // "inform", "askYesNo", "askYesNoStop", "askText", "open", "save", "color",
                      // "font", "printer"
        QString title;
        QString text;
        QString proposed;
    };

    // Answers: a bool for askYesNo and the printer setup, a QString for askText and the file
    // dialogs (a null QVariant for Cancel), a QColor or QFont for their dialogs.
    void answer(const QVariant& reply) { m_answers.push_back(reply); }

    // Runs once while the next box is up, as the user and the desktop act while a real box
    // waits for its answer.
    void whileNextBoxShows(std::function<void()> action) { m_whileShown = std::move(action); }

    const QList<Shown>& shown() const { return m_shown; }
    QStringList texts() const;
    void clear() { m_shown.clear(); }

    void inform(const QString& text, QWidget* parent) override;
    void informTitled(const QString& title, const QString& text, QWidget* parent) override;
    bool askYesNo(const QString& text, QWidget* parent) override;
    bool askYesNoStop(const QString& text, QWidget* parent) override;
    std::optional<QString> askText(const QString& title, const QString& label,
                                   const QString& proposed, QWidget* parent) override;
    QString runOpenDialog(FileRequest& request, QWidget* parent) override;
    QString runSaveDialog(FileRequest& request, QWidget* parent) override;
    std::optional<QColor> chooseColor(const QString& title, const QColor& initial,
                                      QWidget* parent) override;
    std::optional<QFont> chooseFont(const QFont& initial, QWidget* parent) override;
    bool setUpPrinter(QWidget* parent) override;

private:
    QVariant next();
    void showing();

    QList<Shown> m_shown;
    std::deque<QVariant> m_answers;
    std::function<void()> m_whileShown;
};

// Installs a RecordingMessages for the life of the scope and puts the previous service back.
class ScopedRecordingMessages {
public:
    ScopedRecordingMessages();
    ~ScopedRecordingMessages();
    RecordingMessages* operator->() { return m_recorder; }
    RecordingMessages& operator*() { return *m_recorder; }

private:
    RecordingMessages* m_recorder;
    std::unique_ptr<Messages> m_previous;
};
