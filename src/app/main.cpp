#include "platform/ShutdownSignals.h"
#include "shell/Quorvane1.h"

#include <QApplication>
#include <QSessionManager>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quorvane"));
    QApplication::setApplicationVersion(QStringLiteral("2.5"));
    // The frame window may be the last one open; the program ends with the main window alone.
    QApplication::setQuitOnLastWindowClosed(false);

    auto* window = new Quorvane1;
    window->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(window, &QObject::destroyed, &app, &QCoreApplication::quit);

    // A terminate or interrupt signal, and the end of the desktop session, close the main
    // window through its normal unload, which saves the settings.
    ShutdownSignals shutdownSignals;
    QObject::connect(&shutdownSignals, &ShutdownSignals::shutdownRequested, window,
                     &QWidget::close);
    QObject::connect(&app, &QGuiApplication::commitDataRequest, window,
                     [window](QSessionManager&) { window->close(); });

    window->show();
    return QApplication::exec();
}
