// How a command of the command line ends: with what it is for, or before that with a reason.
#pragma once

#include "db/failure.h"

#include <QString>

#include <tl/expected.hpp>

// What the program ends with. Scripts rely on the numbers.
enum class ExitStatus {
    Done = 0,
    Refused =
        1, // nobody is named so, a rule forbids it, or it was not confirmed; nothing was changed
    WrongUse = 2, // the command line cannot be understood
    Failed = 3, // the database or the settings failed, and nothing was changed; or the output did
    Uncertain = 4, // only part of it was done, or whether it was done is not known
};

struct Stop
{
    ExitStatus status = ExitStatus::Failed;
    QString text; // a sentence for a person; empty where all is said already
};

// A value, or why the command goes no further.
template <typename Value>
using Or = tl::expected<Value, Stop>;

[[nodiscard]] inline tl::unexpected<Stop> StopWith(ExitStatus status, const QString &text)
{
    return tl::unexpected(Stop {status, text});
}

// What is wanted stands already: a command ends with it as with what it has done. `what` begins the
// sentence, as "User anna".
[[nodiscard]] inline tl::unexpected<Stop> IsSoAlready(const QString &what)
{
    return StopWith(ExitStatus::Done,
                    QStringLiteral("%1 is so already. Nothing was changed.").arg(what));
}

// What was read, or that it could not be.
template <typename Value>
[[nodiscard]] Or<Value> OrStop(Result<Value> read)
{
    if (!read) {
        return StopWith(ExitStatus::Failed, read.error().InWords());
    }
    return *std::move(read);
}
