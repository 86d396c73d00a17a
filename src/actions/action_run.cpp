#include "actions/action_run.h"

#include "db/query.h"

#include <algorithm>

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

// Of rows that are kept twice the image counts that was read before anything was written.
void ActionRun::Keep(const RowSet &rows, bool lock)
{
    const auto present =
        std::find_if(kept.begin(), kept.end(), [&](const Kept &each) { return each.rows == rows; });
    if (IsStopped() || (present != kept.end() && (present->locked || !lock))) {
        return;
    }
    auto images = Take(ReadImages(rows, lock));
    if (present == kept.end()) {
        kept.push_back({rows, lock, std::move(images), {}});
        return;
    }
    present->locked = true;
    if (written == 0) {
        present->before = std::move(images);
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
