// The command line as a whole: finds the command, runs it, and tells how it ended.
#pragma once

#include "cli/stop.h"
#include "cli/terminal.h"

#include <QStringList>

// `arguments` begin with the program's name. Needs an application object, and no window.
[[nodiscard]] ExitStatus
RunCommandLine(const QStringList &arguments, const QString &version, Terminal &terminal);
