// Sends one file to a number of addresses through an SMTP server, one message each, as the send
// window does: bench_sending PORT FILE COUNT. Prints "RESULT ms=... peak_kb=...".
// bench/compare_sending.sh runs it beside curl uploading the same messages.

#include "BenchMeasure.h"
#include "sending/MailSession.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 4) {
        std::fprintf(stderr, "usage: bench_sending PORT FILE COUNT\n");
        return 2;
    }
    MailSettings settings;
    settings.road = MailSettings::Road::Smtp;
    settings.host = u"127.0.0.1"_s;
    settings.port = args[1].toInt();
    settings.security = MailSettings::Security::None;
    QElapsedTimer timer;
    timer.start();
    MailSession session(settings, QString());
    if (const QString refused = session.open(); !refused.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(refused));
        return 1;
    }
    for (int i = 0; i < args[3].toInt(); ++i) {
        const QString failed = session.send({u"me@example.org"_s,
                                             u"r%1@example.org"_s.arg(i),
                                             u"Send File from me@example.org"_s,
                                             u"Note"_s,
                                             {args[2]}});
        if (!failed.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(failed));
            return 1;
        }
    }
    std::printf("RESULT ms=%.1f peak_kb=%ld\n", msSince(timer), peakKilobytes());
    return 0;
}
