#include "platform/ExternalTool.h"

#include <QDeadlineTimer>
#include <QProcess>

namespace ExternalTool {

Result run(const QString& program, const QStringList& arguments, qint64 maxOutput, int timeoutMs) {
    Result result;
    QProcess process;
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted(5000))
        return result;
    result.started = true;
    const QDeadlineTimer deadline(timeoutMs);
    while (process.state() != QProcess::NotRunning) {
        process.waitForReadyRead(static_cast<int>(std::max<qint64>(1, deadline.remainingTime())));
        result.output += process.readAllStandardOutput();
        if (deadline.hasExpired() || result.output.size() > maxOutput) {
            process.kill();
            process.waitForFinished();
            return result;
        }
    }
    result.output += process.readAllStandardOutput();
    result.succeeded = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
                       result.output.size() <= maxOutput;
    return result;
}

} // namespace ExternalTool
