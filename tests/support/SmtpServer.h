#pragma once

#include "support/TempFolder.h"

#include <QDir>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>

// A real SMTP server on the loopback for one test (tests/support/smtp_server.py over
// python3-aiosmtpd), and what it received, unpacked.
class SmtpServer {
public:
    struct Received {
        QString from, to, subject, body;
        QStringList headers;
        QMap<QString, QByteArray> attachments; // by file name, decoded
    };

    // Options as the script takes them: "--login", "user:password", "--drop-after-data", ...
    explicit SmtpServer(const QStringList& options = {}) {
        m_server.start(python(),
                       QStringList{script(), QStringLiteral("serve"), maildir()} + options);
        m_server.waitForStarted();
        // The script says "ready PORT" once it listens.
        QByteArray said;
        while (!said.contains('\n') && m_server.waitForReadyRead(20000))
            said += m_server.readAllStandardOutput();
        if (said.startsWith("ready "))
            m_port = said.mid(6).trimmed().toInt();
    }
    ~SmtpServer() {
        m_server.closeWriteChannel();
        if (!m_server.waitForFinished(5000))
            m_server.kill();
        m_server.waitForFinished(1000);
    }

    int port() const { return m_port; }

    QList<Received> received() const {
        const QString out = m_dir.file(QStringLiteral("unpacked"));
        QDir(out).removeRecursively();
        QProcess::execute(python(), {script(), QStringLiteral("unpack"), maildir(), out});
        QList<Received> all;
        for (int n = 1; QFile::exists(QStringLiteral("%1/%2.txt").arg(out).arg(n)); ++n) {
            Received r;
            for (const QString& line :
                 QString::fromUtf8(bytesOf(QStringLiteral("%1/%2.txt").arg(out).arg(n)))
                     .split(u'\n')) {
                const QString value = line.section(QStringLiteral(": "), 1);
                if (line.startsWith(QStringLiteral("From: ")))
                    r.from = value;
                else if (line.startsWith(QStringLiteral("To: ")))
                    r.to = value;
                else if (line.startsWith(QStringLiteral("Subject: ")))
                    r.subject = value;
                else if (line.startsWith(QStringLiteral("Headers: ")))
                    r.headers = value.split(u',');
                else if (line.startsWith(QStringLiteral("Body: ")))
                    r.body = value;
            }
            const QString prefix = QStringLiteral("%1-").arg(n);
            for (const QString& name : QDir(out).entryList({prefix + u'*'}, QDir::Files))
                r.attachments.insert(name.mid(prefix.size()), bytesOf(QDir(out).filePath(name)));
            all.append(r);
        }
        return all;
    }

private:
    static QString python() { return QStringLiteral("/usr/bin/python3"); }
    static QString script() { return QStringLiteral(QUORVANE_TEST_SUPPORT "/smtp_server.py"); }
    QString maildir() const { return m_dir.file(QStringLiteral("maildir")); }

    TempFolder m_dir;
    QProcess m_server;
    int m_port = 0;
};
