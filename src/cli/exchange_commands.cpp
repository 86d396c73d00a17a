// The commands "import" and "export".
#include "cli/command.h"
#include "cli/work.h"
#include "exchange/import_action.h"
#include "exchange/user_export.h"
#include "reports/output_format.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

// In JSON, which scripts rely on; people are told in the words of the windows.
QString StateWord(ImportState state)
{
    switch (state) {
    case ImportState::New:
        return u"new"_s;
    case ImportState::Changed:
        return u"changed"_s;
    case ImportState::Unchanged:
        return u"unchanged"_s;
    case ImportState::Refused:
        return u"refused"_s;
    }
    Q_UNREACHABLE();
}

QJsonObject JsonOfRow(const ImportRow &row)
{
    QJsonObject object {
        {u"line"_s, row.line}, {u"user"_s, row.name}, {u"state"_s, StateWord(row.state)}};
    if (row.state == ImportState::Refused) {
        object.insert(u"reason"_s, row.reason);
        return object;
    }
    QJsonArray changes;
    for (const auto &[column, before, after] : ChangesOf(row)) {
        changes.append(QJsonObject {
            {u"column"_s, HeadingOf(column)}, {u"before"_s, before}, {u"after"_s, after}});
    }
    object.insert(u"changes"_s, changes);
    return object;
}

// `service` is what became of the notice to the service; empty where there was none.
QJsonObject JsonOfJob(const ImportJob &job, bool isImported, bool isTrial, const QString &service)
{
    QJsonArray rows;
    for (const ImportRow &row : job.plan.rows) {
        rows.append(JsonOfRow(row));
    }
    QJsonObject object {
        {u"imported"_s, isImported},
        {u"dryRun"_s, isTrial},
        {u"service"_s, service.isEmpty() ? QJsonValue() : QJsonValue(service)},
        {u"encoding"_s, NameOf(job.table.encoding)},
        {u"unknownColumns"_s, QJsonArray::fromStringList(job.table.unknownHeadings)},
        {u"newGroups"_s, QJsonArray::fromStringList(job.plan.newGroups)},
        {u"rows"_s, rows}};
    for (const ImportState state :
         {ImportState::New, ImportState::Changed, ImportState::Unchanged, ImportState::Refused}) {
        object.insert(StateWord(state), job.plan.Count(state));
    }
    return object;
}

Table RowsOf(const ImportPlan &plan)
{
    Table table {{{"line", "Line", true},
                  {"user", "User"},
                  {"state", "State"},
                  {"what", "What is changed, or why it is refused"}},
                 {}};
    for (const ImportRow &row : plan.rows) {
        if (row.state != ImportState::Unchanged) {
            table.rows << Cells {
                static_cast<quint32>(row.line), row.name, StateWord(row.state), WordsFor(row)};
        }
    }
    return table;
}

QString SummaryOf(const ImportPlan &plan)
{
    return u"New: %1, changed: %2, unchanged: %3, refused: %4."_s.arg(plan.Count(ImportState::New))
        .arg(plan.Count(ImportState::Changed))
        .arg(plan.Count(ImportState::Unchanged))
        .arg(plan.Count(ImportState::Refused));
}

// What people are shown before they are asked.
void ShowPlan(Work &work, const ImportJob &job)
{
    if (!job.table.unknownHeadings.isEmpty()) {
        work.PrintLine(u"Columns that are not known and left out: %1."_s.arg(
            job.table.unknownHeadings.join(u", "_s)));
    }
    work.Print(RowsOf(job.plan));
    work.PrintLine(u"Read as %1. "_s.arg(NameOf(job.table.encoding)) + SummaryOf(job.plan));
}

Or<std::shared_ptr<const ImportJob>> ReadJob(Work &work, const QString &fileName)
{
    auto table = ReadImportFile(fileName);
    if (!table) {
        return StopWith(ExitStatus::Failed, table.error());
    }
    const auto context = ReadImportContext(work.Settings());
    if (!context) {
        return StopWith(ExitStatus::Failed, context.error());
    }
    return work.Read(ReadStoredUsers).map([&](const StoredUsers &stored) {
        auto job = std::make_shared<ImportJob>();
        job->table = *std::move(table);
        job->context = *context;
        job->plan = PlanImport(job->table, stored, *context);
        return std::shared_ptr<const ImportJob>(std::move(job));
    });
}

// What the service heard of it (Performed::service).
Or<QString> WriteJob(Work &work, const std::shared_ptr<const ImportJob> &job)
{
    const Question question {
        u"import"_s,
        u"Import these users? New: %1, changed: %2."_s.arg(job->plan.Count(ImportState::New))
            .arg(job->plan.Count(ImportState::Changed))};
    return work.Confirm(question).and_then([&]() -> Or<QString> {
        return work.Perform(ImportAction(job), Work::Patience::Endless)
            .map([](const Performed &performed) { return performed.service; });
    });
}

// Refused rows show in the status: alone that nothing was done, beside others that only part of it was.
Or<void> StatusOf(const ImportPlan &plan, bool isImported)
{
    if (plan.Count(ImportState::Refused) == 0) {
        return {};
    }
    return StopWith(isImported ? ExitStatus::Uncertain : ExitStatus::Refused,
                    u"Refused rows were left out: %1."_s.arg(plan.Count(ImportState::Refused)));
}

Or<void> ImportUsers(Work &work, const Given &given)
{
    if (given.Word(0).isEmpty()) {
        return StopWith(ExitStatus::WrongUse, u"Name the file to import."_s);
    }
    const auto job = ReadJob(work, given.Word(0));
    if (!job) {
        return tl::unexpected(job.error());
    }
    const ImportPlan &plan = (*job)->plan;
    if (!work.IsJson()) {
        ShowPlan(work, **job);
    }
    const bool isImported = plan.ChangesAnything() && !work.IsTrial();
    const Or<QString> service = isImported ? WriteJob(work, *job) : Or<QString>();
    if (!service) {
        return tl::unexpected(service.error());
    }
    if (work.IsJson()) {
        work.Speech().Print(JsonText(JsonOfJob(**job, isImported, work.IsTrial(), *service)));
    } else {
        work.PrintLine(isImported ? u"The users were imported."_s : u"Nothing was changed."_s);
    }
    return StatusOf(plan, isImported);
}

void TellExported(Work &work, const QString &fileName, qint64 count)
{
    if (work.IsJson()) {
        work.Speech().Print(JsonText(QJsonObject {
            {u"users"_s, count}, {u"file"_s, fileName}, {u"dryRun"_s, work.IsTrial()}}));
    } else if (work.IsTrial()) {
        work.PrintLine(
            u"%1 users would be saved as %2. Nothing was written (--dry-run)."_s.arg(count).arg(
                fileName));
    } else {
        work.PrintLine(u"%1 users were saved as %2."_s.arg(count).arg(fileName));
    }
}

Or<void> ExportToFile(Work &work, const QString &fileName, double rate)
{
    const bool isTrial = work.IsTrial();
    return work.Read([fileName, rate, isTrial] { return ExportUsers(fileName, rate, isTrial); })
        .map([&](qint64 count) { TellExported(work, fileName, count); });
}

// What was given cannot be meant.
std::optional<QString> WhyNotExported(const Work &work, const Given &given)
{
    const QString fileName = given.Word(0);
    const QString format = given.Value(u"format"_s).value_or(QString());
    if (!format.isEmpty() && format != u"csv" && format != u"xlsx") {
        return u"There is no format \"%1\"; it is csv or xlsx."_s.arg(format);
    }
    if (given.Words().isEmpty()) {
        if (format == u"xlsx") {
            return u"Name a file for the format %1."_s.arg(format);
        }
        return work.IsJson() ? std::optional(u"With --json name a file for the users."_s)
                             : std::nullopt;
    }
    if (!format.isEmpty()) {
        return fileName.endsWith(u'.' + format, Qt::CaseInsensitive)
            ? std::nullopt
            : std::optional(u"The file's name is to end in .%1."_s.arg(format));
    }
    const auto named = FormatOf(fileName);
    return named == OutputFormat::Csv || named == OutputFormat::Xlsx
        ? std::nullopt
        : std::optional(u"The file's name is to end in .csv or .xlsx."_s);
}

Or<void> ExportAll(Work &work, const Given &given)
{
    if (const auto reason = WhyNotExported(work, given)) {
        return StopWith(ExitStatus::WrongUse, *reason);
    }
    const auto currency = work.CurrencyNow();
    if (!currency) {
        return tl::unexpected(currency.error());
    }
    if (!given.Words().isEmpty()) {
        return ExportToFile(work, given.Word(0), currency->rate);
    }
    return work.Read([rate = currency->rate] { return ExportedUsers(rate); })
        .map([&](const QByteArray &text) { work.Speech().Print(QString::fromUtf8(text)); });
}

} // namespace

Commands ExchangeCommands()
{
    return {{"import",
             "FILE",
             "Adds and changes users from a CSV file, after it showed what becomes of each row.",
             1,
             1,
             {},
             ImportUsers},
            {"export",
             "[FILE]",
             "Saves all users as a CSV or XLSX file that an import reads; prints CSV without a "
             "file.",
             0,
             1,
             {{"format", "csv|xlsx", "What the file is; its ending says so unless given."}},
             ExportAll}};
}
