// How a window has an action done: its questions are asked, and what did not become of it is told.
#pragma once

#include "actions/action.h"
#include "startup/app_services.h"

class QWidget;

// False, which is told, for somebody who may only look. To be asked before anything is asked of a person
// that leads to a change.
[[nodiscard]] bool MayChange(const AppServices &services);

// Runs the action on the session's thread while `parent` waits, asks its questions while no
// transaction is open, and runs it again with the answers, as often as new questions come up. True
// when it was done; whatever else became of it is told in one message, and the window stays open.
// `what` says what is done, for a wait that takes long.
[[nodiscard]] bool Perform(const AppServices &services,
                           QWidget *parent,
                           const QString &what,
                           const Action &action,
                           SessionThread::Patience patience = SessionThread::Patience::Bounded);

// The same for a window that goes on from what became of it.
[[nodiscard]] Outcome
PerformTelling(const AppServices &services,
               QWidget *parent,
               const QString &what,
               const Action &action,
               SessionThread::Patience patience = SessionThread::Patience::Bounded);

// The same, but nothing is told: questions are asked.
[[nodiscard]] Outcome
PerformQuietly(const AppServices &services,
               QWidget *parent,
               const QString &what,
               const Action &action,
               SessionThread::Patience patience = SessionThread::Patience::Bounded);

// Tells what could not be read, in one message.
void TellUnread(const AppServices &services, const QString &what, const Failure &failure);
