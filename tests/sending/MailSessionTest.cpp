#include "sending/MailSession.h"
#include "support/SmtpServer.h"
#include "support/TempFolder.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

MailSettings smtpOn(int port, const QString& user) {
    MailSettings s;
    s.road = MailSettings::Road::Smtp;
    s.host = u"127.0.0.1"_s;
    s.port = port;
    s.security = MailSettings::Security::None;
    s.user = user;
    s.timeoutSeconds = 5;
    return s;
}

QByteArray randomBytes(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator generator(7);
    for (char& b : bytes)
        b = char(generator.bounded(256));
    return bytes;
}

} // namespace

TEST(MailSession, MessagesArriveWithTheirFilesWholeAndNoLineBreakMakesAHeader) {
    SmtpServer server({u"--login"_s, u"me:secret"_s});
    ASSERT_GT(server.port(), 0);
    TempFolder folder;
    const QByteArray photo = randomBytes(300'000);
    folder.write(u"photo 1.jpg"_s, photo);
    folder.write(u"notes.txt"_s, "plain\r\nlines\r\n");

    MailSession session(smtpOn(server.port(), u"me"_s), u"secret"_s);
    ASSERT_EQ(session.open(), QString());
    for (const QString& to : {u"ann@example.org"_s, u"bo@example.org"_s}) {
        MailMessage m{u"me@example.org"_s,
                      to,
                      u"Send File from me@example.org\r\nBcc: eve@example.org"_s,
                      u"Here it is"_s,
                      {folder.file(u"photo 1.jpg"_s), folder.file(u"notes.txt"_s)}};
        EXPECT_EQ(session.send(m), QString());
    }
    const QList<SmtpServer::Received> got = server.received();
    ASSERT_EQ(got.size(), 2);
    EXPECT_EQ(got[1].to, u"bo@example.org"_s);
    for (const SmtpServer::Received& r : got) {
        EXPECT_EQ(r.from, u"me@example.org"_s);
        EXPECT_TRUE(r.subject.startsWith(u"Send File from me@example.org"_s));
        EXPECT_FALSE(r.headers.contains(u"Bcc"_s));
        EXPECT_EQ(r.body, u"Here it is"_s);
        EXPECT_EQ(r.attachments.value(u"photo 1.jpg"_s), photo);
        EXPECT_EQ(r.attachments.value(u"notes.txt"_s), QByteArray("plain\r\nlines\r\n"));
    }
}

TEST(MailSession, RefusalsDropsAndBadInputAreToldWithoutHanging) {
    const struct {
        QStringList options;
        QString to;
        bool opens;
    } cases[] = {
        {{u"--login"_s, u"me:secret"_s, u"--refuse-login"_s}, u"ann@example.org"_s, false},
        {{u"--drop-after-data"_s}, u"ann@example.org"_s, true},
        {{u"--reject"_s, u"gone@example.org"_s}, u"gone@example.org"_s, true},
        {{}, u"not an address"_s, true},
        {{}, u"ann@example.org\r\nBcc: eve@example.org"_s, true},
    };
    for (const auto& c : cases) {
        SmtpServer server(c.options);
        MailSession session(
            smtpOn(server.port(), c.options.contains(u"--login"_s) ? u"me"_s : QString()),
            u"secret"_s);
        const QString opened = session.open();
        EXPECT_EQ(opened.isEmpty(), c.opens) << c.options.join(u' ').toStdString();
        if (c.opens) {
            EXPECT_FALSE(session.send({u"me@example.org"_s, c.to, u"s"_s, u"b"_s, {}}).isEmpty())
                << c.to.toStdString();
        }
        EXPECT_TRUE(server.received().isEmpty());
    }
    // A file that went away before the send.
    SmtpServer server;
    MailSession session(smtpOn(server.port(), QString()), QString());
    ASSERT_EQ(session.open(), QString());
    EXPECT_FALSE(
        session
            .send(
                {u"me@example.org"_s, u"ann@example.org"_s, u"s"_s, u"b"_s, {u"/nowhere/x.jpg"_s}})
            .isEmpty());
}

TEST(MailSession, TheSendmailRoadHandsTheMessageToTheMailProgram) {
    SmtpServer server;
    TempFolder folder;
    // msmtp stands in for the computer's mail system, sending to the test's server.
    folder.write(u"msmtprc"_s, u"account default\nhost 127.0.0.1\nport %1\nfrom me@example.org\n"
                               "auth off\ntls off\n"_s.arg(server.port())
                                   .toUtf8());
    QFile::setPermissions(folder.file(u"msmtprc"_s), QFile::ReadOwner | QFile::WriteOwner);
    folder.write(u"sendmail"_s,
                 u"#!/bin/sh\nexec /usr/bin/msmtp -C '%1' \"$@\"\n"_s.arg(folder.file(u"msmtprc"_s))
                     .toUtf8());
    QFile::setPermissions(folder.file(u"sendmail"_s), QFile::ReadOwner | QFile::ExeOwner);
    folder.write(u"a.txt"_s, "attached");

    MailSettings settings;
    settings.sendmailPath = folder.file(u"sendmail"_s);
    MailSession session(settings, QString());
    ASSERT_EQ(session.open(), QString());
    EXPECT_EQ(session.send({u"me@example.org"_s,
                            u"ann@example.org"_s,
                            u"Hello"_s,
                            u"Note"_s,
                            {folder.file(u"a.txt"_s)}}),
              QString());
    const QList<SmtpServer::Received> got = server.received();
    ASSERT_EQ(got.size(), 1);
    EXPECT_EQ(got[0].subject, u"Hello"_s);
    EXPECT_EQ(got[0].attachments.value(u"a.txt"_s), QByteArray("attached"));

    settings.sendmailPath = folder.file(u"missing"_s);
    EXPECT_FALSE(MailSession(settings, QString()).open().isEmpty());
}
