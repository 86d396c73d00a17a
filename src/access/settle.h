// Whose value is stored: a sheet was open for a while, and somebody else may have stored another value
// meanwhile.
#pragma once

#include "access/limits.h"
#include "access/owner.h"
#include "actions/action.h"

#include <functional>

// The rule for one owner: what was not touched in the sheet stays as it is now; what was touched there
// is stored, and asked before where it was changed by somebody else too, into something else. After a
// No it stays as it is now. Makes no difference between an unanswered question and a No: the run comes
// back with the answer.
class Settler
{
public:
    using Ask = std::function<bool(const Question &)>;

    Settler(const Owner &whose, Ask questions);

    // `shown` says a value in words.
    template <typename Value, typename Shown>
    [[nodiscard]] Value operator()(const QString &label,
                                   const Value &base,
                                   const Value &draft,
                                   const Value &now,
                                   const Shown &shown) const
    {
        if (draft == base) {
            return now;
        }
        const bool isFree = now == base || now == draft;
        return isFree || MayOverwrite(label, shown(now)) ? draft : now;
    }

    [[nodiscard]] QString operator()(const QString &label,
                                     const QString &base,
                                     const QString &draft,
                                     const QString &now) const;

    // Of two values, each of which is asked for where it is changed: never a question.
    [[nodiscard]] static bool Flag(bool base, bool draft, bool now);

    // The answer on a value that was changed meanwhile; `now` is in words, and `present` tells it from
    // every other value where the words do not.
    [[nodiscard]] bool
    MayOverwrite(const QString &label, const QString &now, const QString &present = {}) const;

private:
    Owner owner;
    Ask ask;
};

// The limits that a mode has, and the price; what the mode does not have stays as it is now.
[[nodiscard]] Limits SettleLimits(const Settler &settle,
                                  AccountingMode mode,
                                  const LimitsDraft &draft,
                                  const Limits &now);

[[nodiscard]] AccountingMode
SettleMode(const Settler &settle, AccountingMode base, AccountingMode draft, AccountingMode now);
