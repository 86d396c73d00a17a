// "purge": old records are removed for good.
#include "admin/purge_words.h"
#include "base/day.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/work.h"
#include "service/service_guard.h"

#include <QJsonArray>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

using Keep = PurgeChoice::Keep;

struct KeepWord
{
    QLatin1StringView word;
    Keep keep;
};

constexpr KeepWord kKeepWords[] = {{"nothing"_L1, Keep::Nothing},
                                   {"today"_L1, Keep::Today},
                                   {"week"_L1, Keep::LastWeek},
                                   {"month"_L1, Keep::LastMonth}};

// A step, and what became of it.
struct PurgedStep
{
    PurgeStep step;
    qint64 removed = 0;
    QString trouble; // "failed" or "not known"; empty where it was done
};

Or<PurgeChoice> CustomPeriod(const QString &since, const QString &until)
{
    const auto first = DateFrom(since);
    const auto last = first ? DateFrom(until) : first;
    if (!last) {
        return tl::unexpected(last.error());
    }
    if (*first > *last) {
        return WrongUse(u"The period that is kept ends before it begins."_s);
    }
    return PurgeChoice {Keep::Custom, false, *first, *last};
}

Or<PurgeChoice> ChoiceOf(const Given &given)
{
    const auto word = given.Value(u"keep"_s);
    const auto since = given.Value(u"since"_s);
    const auto until = given.Value(u"until"_s);
    const bool isCustom = since && until;
    if (isCustom == word.has_value() || since.has_value() != until.has_value()) {
        return WrongUse(u"Name what is kept with --keep, or its days with --since and --until."_s);
    }
    const bool withUsers = given.Has(u"users"_s);
    if (withUsers && word != u"nothing"_s) {
        return WrongUse(u"Users are removed with --keep nothing only."_s);
    }
    if (isCustom) {
        return CustomPeriod(*since, *until);
    }
    for (const KeepWord &each : kKeepWords) {
        if (*word == each.word) {
            return PurgeChoice {each.keep, withUsers, {}, {}};
        }
    }
    return WrongUse(u"\"%1\" is none of: nothing, today, week, month."_s.arg(*word));
}

// The service writes the same rows; a trial only counts them.
Or<void> MayPurge(Work &work)
{
    if (work.IsTrial() || PurgeMayOpen(work.Program().control, work.Speech())) {
        return {};
    }
    return tl::unexpected(Stop {ExitStatus::Refused, {}});
}

// How many rows of each table would go, for the question.
QString CountsInWords(const std::vector<PurgeStep> &steps)
{
    QStringList counts;
    for (const PurgeCount &count : RowsByTable(steps)) {
        counts << u"%1: %2"_s.arg(count.table, QLocale().toString(count.rows));
    }
    return u"Rows to remove: "_s + counts.join(u", "_s);
}

Or<void> ConfirmPurge(Work &work, const PurgeChoice &choice, const std::vector<PurgeStep> &steps)
{
    const QDate today = Today();
    if (const auto late = QuestionOnLateDay(choice, today)) {
        if (auto confirmed = work.Confirm({.key = u"late"_s, .text = *late, .destroys = true});
            !confirmed) {
            return confirmed;
        }
    }
    return work.Confirm(
        {.key = u"purge"_s,
         .text = u"This will erase the particular information from your database. Continue?"_s,
         .destroys = true,
         .goes = PurgeInWords(choice, today) + u'\n' + CountsInWords(steps)});
}

// A step that fails does not stop those that follow, which remove other rows.
std::vector<PurgedStep> RunSteps(Work &work, const std::vector<PurgeStep> &steps)
{
    std::vector<PurgedStep> purged;
    for (const PurgeStep &step : steps) {
        const auto removed = std::make_shared<qint64>(0);
        const auto done = work.Perform(PurgeAction(step, removed), Work::Patience::Endless);
        PurgedStep &each = purged.emplace_back(PurgedStep {step, done ? *removed : 0, {}});
        if (!done) {
            each.trouble = done.error().status == ExitStatus::Failed ? u"failed"_s : u"not known"_s;
            work.Speech().Tell(u"%1: %2"_s.arg(QLatin1StringView(step.table), done.error().text));
        }
    }
    return purged;
}

void PrintPurge(Work &work, const std::vector<PurgedStep> &purged)
{
    const QList<Column> columns {{"table", "Table"},
                                 {"rows", "Rows to remove", true},
                                 {"removed", "Rows removed", true},
                                 {"trouble", "Trouble"}};
    Table table {columns, {}};
    for (const PurgedStep &each : purged) {
        const qint64 rows = each.step.rows.value_or(0);
        const bool isKnown = !work.IsTrial() && each.trouble.isEmpty();
        table.rows << Cells {QString::fromLatin1(each.step.table),
                             {rows, QString::number(rows)},
                             isKnown ? Cell(each.removed, QString::number(each.removed)) : Cell(),
                             each.trouble.isEmpty() ? Cell() : Cell(each.trouble)};
    }
    if (!work.IsJson()) {
        work.Print(table);
    }
    work.Print(Performed(), u"The purge is at its end."_s, {{u"tables"_s, JsonOf(table)}});
}

Or<void> EndOf(const std::vector<PurgedStep> &purged)
{
    const auto isDone = [](const PurgedStep &each) { return each.trouble.isEmpty(); };
    if (std::ranges::all_of(purged, isDone)) {
        return {};
    }
    const auto isFailed = [](const PurgedStep &each) { return each.trouble == u"failed"_s; };
    return StopWith(std::ranges::all_of(purged, isFailed) ? ExitStatus::Failed
                                                          : ExitStatus::Uncertain,
                    u"The purge is not complete."_s);
}

Or<void> Purge(Work &work, const Given &given)
{
    const auto choice = ChoiceOf(given);
    const auto may =
        choice.and_then([&](const PurgeChoice &) { return work.MayChange(); }).and_then([&] {
            return MayPurge(work);
        });
    if (!may) {
        return may;
    }
    const auto steps =
        work.Read([wanted = PurgeSteps(*choice, Today())] { return CountPurge(wanted); },
                  Work::Patience::Endless);
    const auto confirmed = steps
                               .and_then([&](const std::vector<PurgeStep> &counted) {
                                   return ConfirmPurge(work, *choice, counted);
                               })
                               .and_then([&] { return MayPurge(work); });
    if (!confirmed) {
        return confirmed;
    }
    std::vector<PurgedStep> purged;
    if (work.IsTrial()) {
        for (const PurgeStep &step : *steps) {
            purged.push_back({step, 0, {}});
        }
    } else {
        purged = RunSteps(work, *steps);
    }
    PrintPurge(work, purged);
    return EndOf(purged);
}

} // namespace

Commands PurgeCommands()
{
    return {{"purge",
             "",
             "Removes old records for good, after a question, while the service is stopped.",
             0,
             0,
             {{"keep", "PERIOD", "What stays: nothing, today, week or month."},
              {"since", "DAY", "The first day that stays, in place of --keep."},
              {"until", "DAY", "The last day that stays."},
              {"users", nullptr, "Removes all users as well, with --keep nothing."}},
             Purge}};
}
