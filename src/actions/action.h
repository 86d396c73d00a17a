// An action is what a command of the console does to the database: a plain value that says what is
// wanted. It is run as often as it must be, until its questions are answered and its rows are its own,
// and its outcome says what became of it. Windows, programs and tests run the same actions.
#pragma once

#include "db/failure.h"
#include "db/session_thread.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class ActionRun;
class ServiceLink;

// Every action that there is; the table in action.cpp tells what each one is.
enum class ActionId {
    ApplyUser, // what a user's sheet staged
    ApplyGroup, // what a group's sheet staged
    ApplyGroupTimes, // a group's times of the week
    WriteAccount, // credits given and closed
    SetModeAndLimits, // of several users
    AddUser,
    MoveUsers, // into another group
    DeleteUsers,
    StopMonitoring,
    MonitorUsers,
    BlockUsers,
    UnblockUsers,
    UndoBlocks, // takes one of the two back
    AddGroup,
    RenameGroup,
    DeleteGroupOfList,
    DeleteGroupOfDialog,
    ExcludeAddress, // the user of an address that is excluded is removed
    SaveProtocols, // of the options windows
    SaveSetupProtocols, // of the setup wizard: one protocol and its ports
    SaveLogins,
    ImportUsers, // of a file, all at once
    Purge,
};

struct ActionKind
{
    ActionId id;
    const char *name; // for programs
    // True: all of it or nothing. False: a statement that fails does not stop those that follow.
    bool oneTransaction;
    bool isEnforced; // the accounting service enforces what it changes
    const char *notDone; // a sentence on what was not done
    const char *unknown; // a sentence on what may have been done
};

[[nodiscard]] const ActionKind &KindOf(ActionId id);
[[nodiscard]] const QList<ActionKind> &AllActions();

struct Action
{
    ActionId id;
    // Reads what it needs, asks, and writes. It may run several times: it changes nothing of its own.
    std::function<void(ActionRun &)> body;
};

// What a person must decide before anything is written.
struct Question
{
    QString key; // the same only for the same question about the same rows
    QString text;
    bool destroys = false; // a Yes removes what is not to be had back
    QString goes = {}; // then names that, see NamesLine

    bool operator==(const Question &) const = default;
};

// By the question's key; true for Yes.
using Answers = QHash<QString, bool>;

// A row that became another one. Secrets read "***".
struct Change
{
    QString table;
    QString key;
    QStringList before; // "column=value" of the columns that differ; empty for a new row
    QStringList after; // the same columns; empty for a row that is gone

    bool operator==(const Change &) const = default;
};

struct Outcome
{
    enum class State {
        Done,
        Partly, // statement by statement: some were written and some were not
        Refused, // for the reason in `refusal`; nothing was changed
        NeedsAnswers, // nothing was changed
        NotDone, // nothing was changed
        Unknown, // whether it was done is not known
    };

    State state = State::Done;
    QList<Question> questions;
    QString refusal;
    QList<Failure> failures; // the first one first
    QList<Change> changes; // of the rows that the action locked or watched
    bool serviceTold = false; // a notice went out to the service

    [[nodiscard]] bool IsDone() const { return state == State::Done; }
};

// Runs the action on the session of this thread. `link` is null while not connected to the service.
[[nodiscard]] Outcome
RunAction(const Action &action, const Answers &answers, const ServiceLink *link);

// Runs the action up to its end and takes all of it back, for whoever only wants to see what it would
// change: an outcome that is done says what it would be. The service hears nothing. As long as it runs it
// holds the locks of the action itself.
[[nodiscard]] Outcome TryAction(const Action &action, const Answers &answers);

// What a person is told of an outcome that is neither done nor needs answers: what was not done, why,
// and what stands now.
[[nodiscard]] QString InWords(ActionId id, const Outcome &outcome);

template <>
struct GivenUp<Outcome>
{
    // Once it may keep something, work that was given up may come to its end all the same.
    [[nodiscard]] static Outcome As(const Failure &failure, bool mayBeKept)
    {
        Outcome outcome;
        outcome.state = mayBeKept ? Outcome::State::Unknown : Outcome::State::NotDone;
        outcome.failures << failure;
        return outcome;
    }
};
