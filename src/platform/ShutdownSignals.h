#pragma once

#include <QObject>

class QSocketNotifier;

// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal on the event loop, so that the program
// can close its main window through the normal unload and save its settings.
class ShutdownSignals : public QObject {
    Q_OBJECT
public:
    explicit ShutdownSignals(QObject* parent = nullptr);
    ~ShutdownSignals() override;

Q_SIGNALS:
    void shutdownRequested(int signalNumber);

private:
    void readSignal();

    QSocketNotifier* m_notifier = nullptr;
};
