#pragma once

#include "sending/MailSettings.h"

#include <QString>
#include <QStringList>

#include <memory>

// One message: a sender, one recipient, a subject, a note and files attached by path.
struct MailMessage {
    QString from;
    QString to;
    QString subject;
    QString body;
    QStringList attachments;
};

// The program's mail session: the way out of the settings, opened once (connected and logged
// in for an SMTP server) and used for every message until it is closed. Messages are composed
// with VMime; attachments are read from disk while they are sent, never whole into memory.
// Every wait on the server ends after the settings' timeout.
class MailSession {
public:
    MailSession(const MailSettings& settings, const QString& password);
    ~MailSession();
    MailSession(const MailSession&) = delete;
    MailSession& operator=(const MailSession&) = delete;

    // Opens the session; empty when it is open, else why it is not.
    QString open();
    bool isOpen() const;
    void close();

    // Sends one message through the open session; empty when the server took it, else why not.
    QString send(const MailMessage& message);

    // Whether a text is one mail address (name@domain, no blanks or line breaks).
    static bool isAddress(const QString& text);
    // The user's login at this computer's host name.
    static QString defaultFrom();

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};
