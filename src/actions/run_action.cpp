// How an action runs: in its transaction, again where it lost against another one, and to an outcome
// that is known.
#include "actions/action_run.h"
#include "db/query.h"
#include "db/session_limits.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
using Kind = Failure::Kind;

constexpr auto kFirstPause = std::chrono::milliseconds(5); // before a lost transaction runs again
constexpr auto kLongestPause = std::chrono::milliseconds(200);

const RowImage *Find(const std::vector<RowImage> &images, const QString &key)
{
    const auto found = std::find_if(
        images.begin(), images.end(), [&](const RowImage &image) { return image.key == key; });
    return found == images.end() ? nullptr : &*found;
}

bool IsSecret(const QString &column)
{
    return column == QLatin1StringView("pwd");
}

// What only repeats a group's name, for the database to compare.
bool IsKeyOfName(const QString &column)
{
    return column == QLatin1StringView("name_key");
}

// "column=value" of the columns in which the images differ; of all of them without another image.
QStringList Differing(const RowImage &image, const RowImage *other)
{
    const QStringList values = ValuesOf(image);
    const QStringList others = other == nullptr ? QStringList() : ValuesOf(*other);
    QStringList differing;
    for (qsizetype i = 0; i < image.columns.size(); ++i) {
        const bool differs = other == nullptr || others.value(i) != values[i];
        if (differs && !IsKeyOfName(image.columns[i])) {
            const QString shown = IsSecret(image.columns[i]) ? QStringLiteral("***") : values[i];
            differing << image.columns[i] + u'=' + shown;
        }
    }
    return differing;
}

} // namespace

// Runs one action; its steps are those of every action.
class ActionRunner
{
public:
    ActionRunner(const Action &whole, const Answers &given, const ServiceLink *link)
        : action(whole)
        , kind(KindOf(whole.id))
        , answers(given)
        , notices(link)
    { }

    Outcome Run() { return kind.oneTransaction ? RunUntilSettled() : RunEachStatement(); }

    // One transaction whatever the kind: it never comes to its commit.
    Outcome Try()
    {
        isTrial = true;
        return RunUntilSettled();
    }

private:
    Outcome RunUntilSettled()
    {
        const auto end = Clock::now() + Limits().conflict;
        auto pause = kFirstPause;
        Outcome outcome = RunOnce();
        while (IsConflict(outcome) && Clock::now() + pause < end) {
            std::this_thread::sleep_for(pause);
            pause = std::min(2 * pause, kLongestPause);
            outcome = RunOnce();
        }
        outcome.serviceTold = outcome.IsDone() && notices.AnyTold();
        if (outcome.state != Outcome::State::Unknown) {
            transaction::AcceptCancel();
            notices.Correct(outcome.IsDone());
        }
        return outcome;
    }

    static bool IsConflict(const Outcome &outcome)
    {
        return outcome.state == Outcome::State::NotDone
            && outcome.failures.constFirst().kind == Kind::Conflict;
    }

    Outcome RunOnce()
    {
        notices.BeginRun();
        ActionRun run(kind, answers, notices);
        if (const auto begun = transaction::Begin(); !begun) {
            return NotDone(begun.error());
        }
        action.body(run);
        ReadAfter(run);
        if (run.IsStopped() || !run.failures.isEmpty()) {
            transaction::Rollback();
            return Stopped(run);
        }
        if (isTrial) {
            transaction::Rollback();
            return Done(run);
        }
        const auto committed = transaction::Commit();
        if (committed) {
            return Done(run);
        }
        if (committed.error().kind == Kind::OutcomeUnknown) {
            return Settled(run, committed.error());
        }
        transaction::Rollback();
        return NotDone(committed.error());
    }

    // What a lost transaction wrote is read before it ends: afterwards nobody could tell.
    static void ReadAfter(ActionRun &run)
    {
        for (auto &each : run.kept) {
            if (run.IsStopped()) {
                return;
            }
            each.after = run.Take(ReadImages(each.rows, false));
        }
    }

    static Outcome NotDone(const Failure &failure)
    {
        Outcome outcome;
        outcome.state = Outcome::State::NotDone;
        outcome.failures << failure;
        return outcome;
    }

    static Outcome Stopped(const ActionRun &run)
    {
        Outcome outcome;
        outcome.failures = run.failures;
        if (!run.failures.isEmpty()) {
            outcome.state = Outcome::State::NotDone;
        } else if (!run.refusal.isEmpty()) {
            outcome.state = Outcome::State::Refused;
            outcome.refusal = run.refusal;
        } else if (!run.questions.isEmpty()) {
            outcome.state = Outcome::State::NeedsAnswers;
            outcome.questions = run.questions;
        }
        return outcome;
    }

    // The rows of many users are not held twice.
    static Outcome Done(ActionRun &run)
    {
        Outcome outcome;
        for (auto &each : run.kept) {
            AddChanges(outcome.changes, each);
            each.before = {};
            each.after = {};
        }
        return outcome;
    }

    static void AddChanges(QList<Change> &changes, const ActionRun::Kept &each)
    {
        const QString table = QString::fromLatin1(each.rows.table).toLower();
        for (const RowImage &before : each.before) {
            const RowImage *after = Find(each.after, before.key);
            if (after == nullptr) {
                changes.append({table, before.key, Differing(before, nullptr), {}});
            } else if (*after != before) {
                changes.append(
                    {table, before.key, Differing(before, after), Differing(*after, &before)});
            }
        }
        for (const RowImage &after : each.after) {
            if (Find(each.before, after.key) == nullptr) {
                changes.append({table, after.key, {}, Differing(after, nullptr)});
            }
        }
    }

    // The connection was lost on the way of the COMMIT: the rows tell whether it was kept. Their lock
    // waits for what the lost connection may still be doing; without a row to lock, nothing waits, and
    // what does not stand there yet may still come.
    static Outcome Settled(ActionRun &run, Failure failure)
    {
        const auto rows = ReadAgain(run);
        const bool isBefore = rows && AreRows(*rows, run, &ActionRun::Kept::before);
        const bool isAfter = rows && AreRows(*rows, run, &ActionRun::Kept::after);
        if (run.written == 0 || (isAfter && !isBefore)) {
            return Done(run);
        }
        const bool isUndone = isBefore && !isAfter && HoldsRows(run);
        failure.kind = isUndone ? Kind::ConnectionLost : Kind::OutcomeUnknown;
        Outcome outcome = NotDone(failure);
        if (!isUndone) {
            outcome.state = Outcome::State::Unknown;
        }
        return outcome;
    }

    using Images = std::vector<RowImage>;

    static bool
    AreRows(const std::vector<Images> &rows, const ActionRun &run, Images ActionRun::Kept::*images)
    {
        return std::equal(
            rows.begin(),
            rows.end(),
            run.kept.begin(),
            run.kept.end(),
            [&](const Images &read, const ActionRun::Kept &each) { return read == each.*images; });
    }

    static bool HoldsRows(const ActionRun &run)
    {
        return std::any_of(run.kept.begin(), run.kept.end(), [](const ActionRun::Kept &each) {
            return each.locked && !each.before.empty();
        });
    }

    static Result<std::vector<Images>> ReadAgain(const ActionRun &run)
    {
        if (const auto begun = transaction::Begin(); !begun) {
            return tl::unexpected(begun.error());
        }
        std::vector<Images> all;
        for (const auto &each : run.kept) {
            auto images = ReadImages(each.rows, true);
            if (!images) {
                transaction::Rollback();
                return tl::unexpected(images.error());
            }
            all.push_back(*std::move(images));
        }
        transaction::Rollback();
        return all;
    }

    Outcome RunEachStatement()
    {
        notices.BeginRun();
        ActionRun run(kind, answers, notices);
        action.body(run);
        Outcome outcome = Stopped(run);
        if (run.written > 0 && outcome.state != Outcome::State::Done) {
            outcome.state = Outcome::State::Partly;
        } else if (IsUnknown(run.failures)) {
            outcome.state = Outcome::State::Unknown;
        }
        AddPresentChanges(outcome.changes, run);
        outcome.serviceTold = notices.AnyTold();
        return outcome;
    }

    // Rows that cannot be read again tell of no change.
    static void AddPresentChanges(QList<Change> &changes, ActionRun &run)
    {
        for (auto &each : run.kept) {
            if (auto images = ReadImages(each.rows, false)) {
                each.after = *std::move(images);
                AddChanges(changes, each);
            }
        }
    }

    static bool IsUnknown(const QList<Failure> &failures)
    {
        return std::any_of(failures.begin(), failures.end(), [](const Failure &failure) {
            return failure.kind == Kind::OutcomeUnknown;
        });
    }

    const Action &action;
    const ActionKind &kind;
    const Answers &answers;
    Notices notices;
    bool isTrial = false;
};

Outcome RunAction(const Action &action, const Answers &answers, const ServiceLink *link)
{
    return ActionRunner(action, answers, link).Run();
}

Outcome TryAction(const Action &action, const Answers &answers)
{
    return ActionRunner(action, answers, nullptr).Try();
}
