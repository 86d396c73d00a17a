// The commands of tollbrook-db: what the command line says becomes work, and its end an exit status.
#pragma once

#include <QString>

class QCommandLineParser;

namespace commands {

// Exit statuses.
constexpr int kDone = 0;
constexpr int kInconsistent = 1;
constexpr int kWrongUse = 2;
constexpr int kFailed = 3;
constexpr int kNewer = 4;

// On standard error, behind the program's name.
void PrintError(const QString &text);

// Runs the command that the first word names; the exit status.
[[nodiscard]] int Run(const QCommandLineParser &parser);

} // namespace commands
