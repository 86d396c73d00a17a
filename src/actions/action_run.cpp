#include "actions/action_run.h"

#include "db/query.h"

ActionRun::ActionRun(const ActionKind &actionKind,
                     const Answers &givenAnswers,
                     Notices &serviceNotices)
    : kind(actionKind)
    , answers(givenAnswers)
    , notices(serviceNotices)
{ }

bool ActionRun::IsStopped() const
{
    return !refusal.isEmpty() || !questions.isEmpty()
        || (kind.oneTransaction && !failures.isEmpty()) || IsGivenUp();
}

// What fails after the first failure of a transaction fails because of it.
void ActionRun::Note(Failure failure)
{
    if (!kind.oneTransaction || failures.isEmpty()) {
        failures.append(std::move(failure));
    }
}

ActionRun::Entry ActionRun::KeptOf(const RowSet &rows)
{
    const auto place = keptPlaces.constFind(rows);
    if (place != keptPlaces.constEnd()) {
        return {kept[*place], false};
    }
    keptPlaces.insert(rows, kept.size());
    kept.push_back({rows, false, {}, {}});
    return {kept.back(), true};
}

// Of rows that are kept twice the image counts that was read before anything was written.
void ActionRun::Keep(const RowSet &rows, bool lock)
{
    if (IsStopped()) {
        return;
    }
    const auto [entry, isNew] = KeptOf(rows);
    if (!isNew && (entry.locked || !lock)) {
        return;
    }
    entry.locked = lock;
    auto images = Take(ReadImages(rows, lock));
    if (isNew || written == 0) {
        entry.before = std::move(images);
    }
}

void ActionRun::LockEach(const char *query, const StagedRows &rows)
{
    if (!IsStopped() && !rows.IsEmpty()) {
        (void)Take(ReadAll(
            transaction::Locking(query).c_str(),
            [](const Row &row) { return row.Integer(1); },
            rows));
    }
}

bool ActionRun::Wrote(Result<qint64> result, const std::function<Result<bool>()> &isDone)
{
    changedRows = result.value_or(0);
    if (!result && isDone && result.error().kind == Failure::Kind::OutcomeUnknown) {
        const auto done = isDone();
        if (done && !*done) {
            result.error().kind = Failure::Kind::ConnectionLost;
        } else if (done) {
            result = qint64 {0};
        }
    }
    if (!result) {
        Note(std::move(result.error()));
        return false;
    }
    ++written;
    return true;
}

bool ActionRun::WroteUnique(Result<qint64> result, const QString &reason)
{
    if (!result && result.error().kind == Failure::Kind::NotUnique) {
        Refuse(reason);
        return false;
    }
    return Wrote(std::move(result), {});
}

bool ActionRun::Ask(const Question &question)
{
    const auto answer = answers.constFind(question.key);
    if (answer != answers.constEnd()) {
        return *answer;
    }
    if (!questions.contains(question)) {
        questions.append(question);
    }
    return false;
}

void ActionRun::Refuse(const QString &reason)
{
    if (!IsStopped()) {
        refusal = reason;
    }
}

bool ActionRun::TellBlocked(UserId userId)
{
    return !IsStopped() && notices.Block(userId);
}

bool ActionRun::TellUnblocked(UserId userId)
{
    return !IsStopped() && notices.Unblock(userId);
}
