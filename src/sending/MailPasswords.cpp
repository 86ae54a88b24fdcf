#include "sending/MailPasswords.h"

#include <QEventLoop>
#include <QHash>

#include <qt6keychain/keychain.h>

using namespace Qt::StringLiterals;

namespace MailPasswords {

namespace {

const QString kService = u"Quorvane"_s;

// Passwords the store would not take, for as long as the program runs.
QHash<QString, QString>& thisSession() {
    static QHash<QString, QString> passwords;
    return passwords;
}

// Runs a job of the store to its end.
void wait(QKeychain::Job& job) {
    QEventLoop loop;
    QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit);
    job.setAutoDelete(false);
    job.start();
    loop.exec();
}

} // namespace

QString keyFor(const QString& user, const QString& host) {
    return user + u'@' + host;
}

std::optional<QString> read(const QString& key) {
    if (const auto kept = thisSession().constFind(key); kept != thisSession().cend())
        return *kept;
    QKeychain::ReadPasswordJob job(kService);
    job.setKey(key);
    wait(job);
    if (job.error() != QKeychain::NoError)
        return std::nullopt;
    return job.textData();
}

void write(const QString& key, const QString& password) {
    QKeychain::WritePasswordJob job(kService);
    job.setKey(key);
    job.setTextData(password);
    wait(job);
    if (job.error() != QKeychain::NoError)
        thisSession().insert(key, password);
    else
        thisSession().remove(key);
}

} // namespace MailPasswords
