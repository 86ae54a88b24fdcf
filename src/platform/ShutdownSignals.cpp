#include "platform/ShutdownSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int g_signalPipe[2] = {-1, -1};
constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

void onSignal(int signalNumber) {
    const unsigned char byte = static_cast<unsigned char>(signalNumber);
    [[maybe_unused]] const ssize_t written = ::write(g_signalPipe[0], &byte, 1);
}

} // namespace

ShutdownSignals::ShutdownSignals(QObject* parent) : QObject(parent) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_signalPipe) != 0)
        return;
    m_notifier = new QSocketNotifier(g_signalPipe[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &ShutdownSignals::readSignal);

    struct sigaction action {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int signalNumber : kSignals)
        ::sigaction(signalNumber, &action, nullptr);
}

ShutdownSignals::~ShutdownSignals() {
    for (int signalNumber : kSignals)
        ::signal(signalNumber, SIG_DFL);
    delete m_notifier;
    for (int& fd : g_signalPipe) {
        if (fd >= 0)
            ::close(fd);
        fd = -1;
    }
}

void ShutdownSignals::readSignal() {
    unsigned char byte = 0;
    if (::read(g_signalPipe[1], &byte, 1) == 1)
        Q_EMIT shutdownRequested(byte);
}
