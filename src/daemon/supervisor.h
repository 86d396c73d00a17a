// What the service manager is told, and the lines of the journal.
#pragma once

#include <QString>

#include <chrono>

namespace supervisor {

// The service does its work now.
void Ready();

// `status` is one line on what it is doing.
void Status(const QString &status);
void Reloading();
void Stopping();

// Still alive.
void Alive();

// How often the manager wants to hear that; zero: it does not.
[[nodiscard]] std::chrono::microseconds AliveInterval();

} // namespace supervisor

// One line for an administrator to standard error, where the journal takes it with its weight; never waits
// for that (line_writer.h).
namespace journal {

void Info(const QString &line);
void Warning(const QString &line);
void Error(const QString &line);

// From now on what is logged otherwise goes the same way.
void TakeMessages();

} // namespace journal
