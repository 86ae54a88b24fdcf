#include "sending/SendFile1.h"
#include "sending/MailAddr1.h"
#include "sending/MailLogon.h"
#include "sending/MailSettings.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"
#include "support/SmtpServer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

using namespace Qt::StringLiterals;

// The send window and the address lists, sending to a real SMTP server on the loopback.
class SendFile1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    // The mail settings of the program folder: the test's server, no login.
    void useServer(const SmtpServer& server) {
        MailSettings s;
        s.road = MailSettings::Road::Smtp;
        s.host = u"127.0.0.1"_s;
        s.port = server.port();
        s.security = MailSettings::Security::None;
        s.timeoutSeconds = 5;
        s.save(h->folder().file(QString::fromLatin1(MailSettings::FileName)));
    }

    QPointer<SendFile1> openFor(const QString& name) {
        globals().gCurrentFile = h->folder().file(name);
        WindowRegistry::show(SendFile1::WindowName());
        return qobject_cast<SendFile1*>(WindowRegistry::find(SendFile1::WindowName()));
    }

    QStringList send(SendFile1* window, const QString& to) {
        h->messages().clear();
        window->CMBSENDTO->setPlainText(to);
        window->Text1->setPlainText(u"Here it is"_s);
        window->OKBtn->click();
        return h->messages().texts();
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
        globals().gFromAddress = u"me@example.org"_s;
    }
    void cleanup() { h.reset(); }

    void twoAddressesGetAMessageEachAndTheHistoryOutlivesTheWindow() {
        SmtpServer server;
        h->folder().write(u"photo.jpg"_s, QByteArray(70'000, 'j'));
        QPointer<SendFile1> window = openFor(u"photo.jpg"_s);
        // Without mail settings the first send signs on through the dialog, which keeps them.
        answerModal<MailLogon>([&server](MailLogon* logon) {
            logon->SmtpOpt->setChecked(true);
            logon->HostText->setText(u"127.0.0.1"_s);
            logon->PortBox->setValue(server.port());
            logon->SecurityBox->setCurrentIndex(int(MailSettings::Security::None));
            logon->OKBtn->click();
        });
        QCOMPARE(send(window, u"ann@example.org\nbo@example.org"_s),
                 QStringList{u"File successfully sent to E-Mail Program"_s});
        QCOMPARE(MailSettings::load(MailLogon::settingsPath())->port, server.port());
        const QList<SmtpServer::Received> got = server.received();
        QCOMPARE(got.size(), 2);
        for (const SmtpServer::Received& r : got) {
            QCOMPARE(r.subject, u"Send File from me@example.org"_s);
            QCOMPARE(r.body, u"Here it is"_s);
            QCOMPARE(r.attachments.value(u"photo.jpg"_s), QByteArray(70'000, 'j'));
        }
        QCOMPARE(window->List1->count(), 2);
        QVERIFY(window->List1->item(1)->text().startsWith(h->folder().file(u"photo.jpg"_s) +
                                                          u" - bo@example.org - "_s));
        window->close();
        QTRY_VERIFY(!window);
        QCOMPARE(bytesOf(h->folder().file(u"FileSend.LOG"_s)).count("\r\n"), 2);

        // Again, with a line of the history clicked: its folder's hyphen cuts a piece of the path,
        // one character off each end.
        window = openFor(u"photo.jpg"_s);
        QCOMPARE(window->List1->count(), 2);
        window->List1->addItem(u"/data/my-pics/a.jpg - x@example.org - 1/2/26 9:00"_s);
        window->List1->setCurrentRow(2);
        window->List1_Click();
        QCOMPARE(window->CMBSENDTO->toPlainText(), u"ics/a.jpg\n"_s);
        window->close();
    }

    void aDatabaseGoesWithItsFamilyAfterItsWindowClosesAndAFailedServerIsTold() {
        SmtpServer server;
        useServer(server);
        for (const char* name : {"SALES.DBF", "SALES.DBT"})
            QFile::copy(QStringLiteral(QUORVANE_GENERATED_TABLES "/") + QLatin1String(name),
                        h->folder().file(QLatin1String(name)));
        h->folder().write(u"SALES.NDX"_s, "index");
        ChildFrm1* child = h->openDocument(u"SALES.DBF"_s);
        QVERIFY(child);
        QPointer<SendFile1> window = openFor(u"SALES.DBF"_s);
        QCOMPARE(send(window, u"ann@example.org"_s),
                 QStringList{u"File successfully sent to E-Mail Program"_s});
        QTRY_COMPARE(h->frame() ? h->frame()->mChildCount : qint16(0), qint16(0));
        const QList<SmtpServer::Received> got = server.received();
        QCOMPARE(got.size(), 1);
        QCOMPARE(got[0].attachments.keys(),
                 (QStringList{u"SALES.DBF"_s, u"SALES.DBT"_s, u"SALES.NDX"_s}));
        window->close();
        QTRY_VERIFY(!window);

        SmtpServer dropping({u"--drop-after-data"_s});
        useServer(dropping);
        window = openFor(u"SALES.NDX"_s);
        QCOMPARE(send(window, u"ann@example.org"_s),
                 QStringList{u"File did not send successfully to E-Mail Program"_s});
        QCOMPARE(window->List1->count(), 1); // the line of the send before, none for this one
        window->close();
    }

    void aWrongAddressIsCorrectedFirstAndTheDesktopMailerGetsEveryFile() {
        // A stand-in for xdg-email that writes down its arguments, one a line.
        QDir(h->folder().path()).mkdir(u"bin"_s);
        h->folder().write(u"bin/xdg-email"_s,
                          u"#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done >> '%1'\n"_s
                              .arg(h->folder().file(u"calls"_s))
                              .toUtf8());
        QFile::setPermissions(h->folder().file(u"bin/xdg-email"_s),
                              QFile::ReadOwner | QFile::ExeOwner);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", h->folder().file(u"bin"_s).toUtf8() + ':' + path);
        h->folder().write(u"a.png"_s, "png");
        QPointer<SendFile1> window = openFor(u"a.png"_s);
        window->CHKCOMP->setChecked(true);
        h->messages().answer(u"bo@example.org"_s);
        const QStringList said = send(window, u"bo at example\nann@example.org"_s);
        qputenv("PATH", path);
        QCOMPARE(said.last(), u"File successfully sent to E-Mail Program"_s);
        QCOMPARE(h->messages().shown().first().kind, u"askText"_s);
        const QStringList file{u"--attach"_s, h->folder().file(u"a.png"_s)};
        const QStringList head{u"--subject"_s, u"Send File from me@example.org"_s, u"--body"_s,
                               u"Here it is"_s};
        QCOMPARE(QString::fromUtf8(bytesOf(h->folder().file(u"calls"_s)))
                     .split(u'\n', Qt::SkipEmptyParts),
                 head + file + QStringList{u"bo@example.org"_s} + head + file +
                     QStringList{u"ann@example.org"_s});
        window->close();
    }

    void anAddressListIsEditedSavedOnlyWhenAskedAndFeedsTheSendWindow() {
        QPointer<SendFile1> send = openFor(u"x.txt"_s);
        send->BookMode = u"N"_s;
        WindowRegistry::show(MailAddr1::WindowName());
        QPointer<MailAddr1> book =
            qobject_cast<MailAddr1*>(WindowRegistry::find(MailAddr1::WindowName()));
        QCOMPARE(book->List1->count(), 0);
        book->Text1[1]->setText(u"nobody@example.org"_s);
        book->AddBtn->click();
        QCOMPARE(book->List1->count(), 0);
        book->Text1[0]->setText(u"Anna-Lena"_s);
        book->Text1[1]->setText(u"anna@example.org"_s);
        book->AddBtn->click();
        book->List1->setCurrentRow(0);
        book->List1_Click();
        QCOMPARE(book->Text1[0]->text(), u"Ann"_s);
        QCOMPARE(book->Text1[1]->text(), u"ena - anna@example.org"_s);
        book->SelectBtn->click();
        QCOMPARE(send->CMBSENDTO->toPlainText(), u"ena - anna@example.org\n"_s);
        QCOMPARE(send->Text2->toPlainText(), u"Ann\n"_s);

        // Save asks for the file each time; No at the close question loses what changed since.
        for (int i = 0; i < 2; ++i) {
            h->messages().answer(h->folder().file(u"Friends.MLS"_s));
            book->SaveBtn->click();
        }
        QCOMPARE(h->messages().shown().size(), 2);
        QCOMPARE(bytesOf(h->folder().file(u"Friends.MLS"_s)),
                 QByteArray("Anna-Lena - anna@example.org\r\n"));
        book->Text1[0]->setText(u"Bo"_s);
        book->Text1[1]->setText(u"bo@example.org"_s);
        book->AddBtn->click();
        h->messages().answer(false);
        book->close();
        QTRY_VERIFY(!book);
        QCOMPARE(h->messages().shown().last().kind, u"askYesNoStop"_s);
        QCOMPARE(bytesOf(h->folder().file(u"Friends.MLS"_s)).count("\r\n"), 1);
        send->close();
    }
};

QTEST_MAIN(SendFile1Test)
#include "SendFile1Test.moc"
