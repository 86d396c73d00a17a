// One run of an action: what its body reads, asks, writes and tells goes through here, and a failure
// of any of it sees to it that nothing untrue is written or told.
#pragma once

#include "actions/action.h"
#include "actions/notices.h"
#include "db/row_image.h"
#include "db/write.h"

#include <QHash>

#include <functional>
#include <utility>
#include <vector>

// In an action of one transaction the first failure, an unanswered question or a refusal stops the
// run: from then on nothing is written and no notice goes out, whatever the body still does, and the
// transaction is rolled back. In an action whose statements stand for themselves a failure is noted,
// and the body goes on.
class ActionRun
{
public:
    ActionRun(const ActionKind &kind, const Answers &answers, Notices &notices);
    ActionRun(const ActionRun &) = delete;
    ActionRun &operator=(const ActionRun &) = delete;
    ~ActionRun() = default;

    // The value; a failure is noted, and an empty value given in its place.
    template <typename Value>
    [[nodiscard]] Value Take(Result<Value> result)
    {
        if (!result) {
            Note(std::move(result.error()));
            return Value {};
        }
        return *std::move(result);
    }

    // Whether the run is to come to its end: bodies need not ask, but where they would work in vain.
    [[nodiscard]] bool IsStopped() const;

    // Runs a changing statement. True when it was done.
    template <typename... Values>
    bool Write(const char *sqlText, const Values &...values)
    {
        return !IsStopped() && Wrote(WriteRows(sqlText, values...), {});
    }

    // The same for a statement outside a transaction: when the connection is lost on the way, `isDone`
    // reads whether it was kept.
    template <typename... Values>
    bool WriteOrLook(const std::function<Result<bool>()> &isDone,
                     const char *sqlText,
                     const Values &...values)
    {
        return !IsStopped() && Wrote(WriteRows(sqlText, values...), isDone);
    }

    // The same for a value that only one row may have: where another row has it by now, the run is refused
    // for `reason`.
    template <typename... Values>
    bool WriteUnique(const QString &reason, const char *sqlText, const Values &...values)
    {
        return !IsStopped() && WroteUnique(WriteRows(sqlText, values...), reason);
    }

    // The rows that the last statement changed.
    [[nodiscard]] qint64 ChangedRows() const { return changedRows; }

    // Reads the rows so that nobody else changes them before the transaction ends; their difference
    // at its end is part of the outcome, and settles whether a commit that was not answered was kept.
    void Lock(const RowSet &rows) { Keep(rows, true); }

    // The same for rows that others may change meanwhile.
    void Watch(const RowSet &rows) { Keep(rows, false); }

    // The same for rows that this run has just added, and whose key it did not know before.
    void WatchAdded(const RowSet &rows) { (void)KeptOf(rows); }

    // Locks what `query` finds by the staged rows, a number in each row, and keeps nothing of it: for
    // thousands of rows, whose difference is no part of the outcome.
    void LockEach(const char *query, const StagedRows &rows);

    // The answer; an unanswered question stops the run, which further questions may follow.
    bool Ask(const Question &question);

    // Ends the run, unless it is stopped already: nothing is changed, for a reason that a person is told.
    void Refuse(const QString &reason);

    // Tells the service, when the run is not stopped. True when it was told.
    bool TellBlocked(UserId userId);
    bool TellUnblocked(UserId userId);

private:
    friend class ActionRunner;

    struct Kept
    {
        RowSet rows;
        bool locked;
        std::vector<RowImage> before;
        std::vector<RowImage> after;
    };

    // The one entry of the rows, made where there is none.
    struct Entry
    {
        Kept &kept;
        bool isNew;
    };
    [[nodiscard]] Entry KeptOf(const RowSet &rows);

    void Note(Failure failure);
    void Keep(const RowSet &rows, bool lock);
    bool Wrote(Result<qint64> result, const std::function<Result<bool>()> &isDone);
    bool WroteUnique(Result<qint64> result, const QString &reason);

    const ActionKind &kind;
    const Answers &answers;
    Notices &notices;
    std::vector<Kept> kept;
    QHash<RowSet, size_t> keptPlaces;
    QList<Question> questions;
    QString refusal;
    QList<Failure> failures;
    qint64 changedRows = 0;
    int written = 0; // statements
};
