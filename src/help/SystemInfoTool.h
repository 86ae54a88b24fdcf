#pragma once

#include <QString>
#include <QStringList>

// The system information tool that About1 starts: the first program of a configured list that
// is found on the PATH.
namespace SystemInfoTool {

// The programs looked for, in order.
QStringList candidates();

// The full path of the first of the programs found on the PATH; empty when none is.
QString find(const QStringList& programs = candidates());

// Starts the program on its own, with no arguments and never through a shell; false when it
// could not be started.
bool start(const QString& program);

} // namespace SystemInfoTool
