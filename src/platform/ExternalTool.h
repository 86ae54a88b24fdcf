#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Runs a program of the system with an argument list (never through a shell), collecting what
// it writes on its output up to a limit, and ending it when it runs too long.
namespace ExternalTool {

struct Result {
    bool started = false;
    bool succeeded = false; // ran to its end with exit code 0, within the limits
    QByteArray output;
};

Result run(const QString& program, const QStringList& arguments, qint64 maxOutput, int timeoutMs);

} // namespace ExternalTool
