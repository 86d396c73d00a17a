// Makes one report without a screen: for timers and scripts.
#include "db/data_source.h"
#include "db/query.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "reports/catalogue.h"
#include "reports/engine.h"
#include "reports/filter_choices.h"
#include "reports/report_delivery.h"
#include "reports/report_status.h"
#include "reports/saved_report_commands.h"
#include "reports/selection.h"
#include "reports/wording.h"
#include "startup/language.h"
#include "startup/start_up.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <clocale>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

using enum ReportStatus;
constexpr int kDone = static_cast<int>(Done);

void Warn(const QString &text)
{
    QTextStream(stderr) << "tollbrook-report: " << text << Qt::endl;
}

int List()
{
    QTextStream out(stdout);
    for (int row = 0; row < kListedCount; ++row) {
        const ReportEntry &entry = EntryOf(row);
        out << u"%1  %2  %3\n"_s.arg(row, 2)
                   .arg(QString::fromUtf8(entry.title).trimmed(), -26)
                   .arg(entry.layoutFile);
    }
    return kDone;
}

struct Arguments
{
    QCommandLineOption help {u"help"_s, u"Shows this help."_s};
    QCommandLineOption version {u"version"_s, u"Shows the version."_s};
    QCommandLineOption list {u"list"_s, u"Lists the reports with their numbers."_s};
    QCommandLineOption report {
        u"report"_s, u"The report, by number, title or layout file."_s, u"NAME|NUMBER"_s};
    QCommandLineOption period {
        u"period"_s,
        PeriodWords().join(u", "_s)
            + u", or FROM..TO as 2026-11-01..2026-11-21; all unless given."_s,
        u"PERIOD"_s,
        u"all"_s};
    QCommandLineOption users {u"users"_s,
                              u"Only these users, as a,b; needs a period, save for statements."_s,
                              u"NAMES"_s};
    QCommandLineOption groups {u"groups"_s,
                               u"Only these groups, as a,b; needs a period, save for statements."_s,
                               u"NAMES"_s};
    QCommandLineOption output {
        u"output"_s, u"The file to write: %1."_s.arg(EndingsInWords()), u"FILE"_s};
    QCommandLineOption split {
        u"split"_s,
        u"Writes a file for each statement; its name has the user's in it, as FILE-anna-17.pdf."_s};
    QCommandLineOption csvBom {
        u"csv-bom"_s, u"Begins a .csv with a byte order mark, for spreadsheets that need it."_s};
    QCommandLineOption dsn {
        u"dsn"_s,
        u"The ODBC data source; unless given, the setting ReportsDsn names it, else it is bill."_s,
        u"NAME"_s};
    QCommandLineOption config {
        u"config"_s, u"The folder of settings, which tells where the layouts are."_s, u"DIR"_s};
    QCommandLineOption saved {
        u"saved"_s,
        u"Makes the saved report of this name; with --output to another file, and without mail."_s,
        u"NAME"_s};
    QCommandLineOption listSaved {u"list-saved"_s, u"Lists the saved reports."_s};
    QCommandLineOption schedule {
        u"schedule"_s,
        u"Brings the timer of the saved report in line with its schedule; removes it when there is "
        "no such report any more. The work of root."_s,
        u"NAME"_s};
    QCommandLineOption units {
        u"units"_s,
        u"With --schedule: writes the timer into this folder and tells nobody of it."_s,
        u"DIR"_s};
    QCommandLineOption noteRun {
        u"note-run"_s,
        u"Notes for the console how the run of a saved report that has just ended went: what its timer's "
        "unit does behind each."_s,
        u"NAME"_s};
    QCommandLineOption mail {
        u"mail"_s, u"Sends the file to this address, by the system's sendmail."_s, u"ADDRESS"_s};
    QCommandLineOption groupReads {
        u"group-reads"_s, u"A new file may be read by its group, not by its owner alone."_s};
    QCommandLineOption failIfEmpty {u"fail-if-empty"_s,
                                    u"Exit status 1 when there is nothing to report; a former file "
                                    "stays."_s};
};

// The names that a report is to be narrowed to.
struct WantedNames
{
    QStringList users;
    QStringList groups;
    bool isMissing = false; // a list is given and names nobody

    [[nodiscard]] bool IsEmpty() const { return users.isEmpty() && groups.isEmpty(); }
};

WantedNames NamesOf(const QCommandLineParser &parser, const Arguments &arguments)
{
    WantedNames names {NamesFrom(parser.values(arguments.users).join(u',')),
                       NamesFrom(parser.values(arguments.groups).join(u','))};
    names.isMissing = (parser.isSet(arguments.users) && names.users.isEmpty())
        || (parser.isSet(arguments.groups) && names.groups.isEmpty());
    return names;
}

struct Filters
{
    QString userClause;
    QString groupClause;
    FilterScope users;
    FilterScope groups;

    [[nodiscard]] QString InWords() const
    {
        return userClause.isEmpty() && groupClause.isEmpty() ? QString()
                                                             : FilterInWords(users, groups);
    }
};

// What a report is made on and what becomes of it, as the command line or a saved report says it. From the
// command line users and groups come as names, from a saved report as numbers in `report`.
struct Task
{
    SavedReport report;
    ReportPeriod period;
    WantedNames names;

    [[nodiscard]] bool IsNarrowed() const
    {
        return !names.IsEmpty() || report.users.effect != FilterEffect::None
            || report.groups.effect != FilterEffect::None;
    }
};

// Looks the users and groups up in the database. A status other than Done ends the program.
int ReadFilters(const Task &task, const StartedProgram &program, Filters &filters)
{
    if (!task.IsNarrowed()) {
        return kDone;
    }
    ConnectDatabase(program.dataSource.toUtf8().constData());
    const auto version = OpenedSchemaVersion();
    if (!version && version.error().kind == Failure::Kind::NewerSchema) {
        return Fail(Database, version.error().text);
    }
    if (!version) {
        return Fail(Database,
                    u"the data source \"%1\" cannot be opened. %2"_s
                        .arg(program.dataSource, MissingSourceAdvice(program.dataSource))
                        .trimmed());
    }
    QStringList unknown;
    const auto users =
        LookUp(task.names.users, task.report.users, AllUsers, filters.users, unknown);
    const auto groups =
        LookUp(task.names.groups, task.report.groups, OfferedGroups, filters.groups, unknown);
    DisconnectDatabase();
    if (!users || !groups) {
        return Fail(Database, users ? groups.error().text : users.error().text);
    }
    if (!unknown.isEmpty()) {
        return Fail(BadArguments, u"nobody is named \"%1\""_s.arg(unknown.join(u"\", \""_s)));
    }
    // A report on nobody would pass for one that has nothing to report. Where only some are gone, the heading
    // names the others.
    if (IsOnNobody(filters.users) || IsOnNobody(filters.groups)) {
        return Fail(BadArguments,
                    u"none of the users or groups that the report is on exists any more"_s);
    }
    filters.userClause = KeptUsersClause(*users);
    filters.groupClause = KeptGroupsClause(*groups);
    return kDone;
}

ReportStatus StatusOf(ReportProblem::Kind kind)
{
    switch (kind) {
    case ReportProblem::Kind::Database:
        return Database;
    case ReportProblem::Kind::Layout:
        return LayoutFile;
    case ReportProblem::Kind::Output:
        return Output;
    default:
        return BadArguments;
    }
}

int Make(const ReportRequest &request, const SavedReport &target, const OutputOptions &options)
{
    RunControl control;
    ReportProblem problem;
    const ReportTablePtr table = MakeReport(request, control, problem);
    const bool isMissed =
        table && table->IsEmpty() && target.failIfEmpty; // the former file stays then
    const auto written =
        table && !isMissed ? WriteAsSaved(table, target, options, control, problem) : std::nullopt;
    if (!written && !isMissed) {
        return Fail(StatusOf(problem.kind), problem.text);
    }
    const QString source = ParseConnectionText(request.connectionText).dsn;
    if (AgeOf(table->schemaVersion) == SchemaAge::Older) {
        Warn(OlderSchemaText(table->schemaVersion, source));
    }
    if (isMissed) {
        return Fail(Empty, u"there is nothing to report in the data source \"%1\""_s.arg(source));
    }
    QTextStream(stdout) << u"%1: made from the data source \"%2\"\n"_s.arg(*written, source);
    if (target.mail.isEmpty()) {
        return kDone;
    }
    QString unsent;
    if (!MailReport(*table, target, unsent)) {
        return Fail(Mail, unsent);
    }
    QTextStream(stdout) << u"%1: sent to %2\n"_s.arg(target.output, target.mail);
    return kDone;
}

// Those of the options that are given, with their dashes.
QStringList GivenOf(const QCommandLineParser &parser, const QList<QCommandLineOption> &options)
{
    QStringList given;
    for (const QCommandLineOption &option : options) {
        if (parser.isSet(option)) {
            given += u"--"_s + option.names().constFirst();
        }
    }
    return given;
}

// The options that say what a saved report says already.
QStringList SelectionGiven(const QCommandLineParser &parser, const Arguments &arguments)
{
    return GivenOf(parser,
                   {arguments.report,
                    arguments.period,
                    arguments.users,
                    arguments.groups,
                    arguments.split,
                    arguments.csvBom,
                    arguments.mail,
                    arguments.failIfEmpty});
}

// The options of which each is a work of its own.
QStringList WorkGiven(const QCommandLineParser &parser, const Arguments &arguments)
{
    return GivenOf(parser,
                   {arguments.saved, arguments.listSaved, arguments.schedule, arguments.noteRun});
}

// What is wrong with the arguments, whatever work they ask for; empty for nothing. A name that is mistyped
// must not lead to a report on another database.
QString ProblemOfArguments(const QCommandLineParser &parser, const Arguments &arguments)
{
    if (!parser.positionalArguments().isEmpty()) {
        return u"what is \"%1\"?"_s.arg(parser.positionalArguments().constFirst());
    }
    for (const QString &folder : parser.values(arguments.config)) {
        if (!QFileInfo(folder).isDir()) {
            return u"there is no folder \"%1\""_s.arg(folder);
        }
    }
    if (parser.isSet(arguments.dsn) && !IsDataSourceName(parser.value(arguments.dsn))) {
        return u"\"%1\" cannot be the name of a data source"_s.arg(parser.value(arguments.dsn));
    }
    if (parser.isSet(arguments.units) && !parser.isSet(arguments.schedule)) {
        return u"--units goes with --schedule"_s;
    }
    const QStringList wanted = WorkGiven(parser, arguments);
    return wanted.size() > 1 ? u"%1 cannot stand together"_s.arg(wanted.join(u" and "_s))
                             : QString();
}

// What a saved report says. A status other than Done ends the program.
int ReadSaved(const QCommandLineParser &parser,
              const Arguments &arguments,
              const ConfigStore &settings,
              Task &task)
{
    const QString name = parser.value(arguments.saved);
    if (const QStringList given = SelectionGiven(parser, arguments); !given.isEmpty()) {
        return Fail(BadArguments,
                    u"a saved report says already what %1 would"_s.arg(given.join(u", "_s)));
    }
    const SavedReports saved(settings);
    if (!NameProblem(name).isEmpty() || !saved.Has(name)) {
        return Fail(BadArguments, u"no such saved report: \"%1\"; see --list-saved"_s.arg(name));
    }
    const auto report = saved.Read(name);
    if (!report) {
        return Fail(BadArguments, TextOf(report.error()));
    }
    task.report = *report;
    if (parser.isSet(arguments.output)) { // a trial, which is nobody's mail
        task.report.output = parser.value(arguments.output);
        task.report.mail.clear();
        if (!FormatOf(task.report.output)) {
            return Fail(BadArguments, u"--output must name a %1 file"_s.arg(EndingsInWords()));
        }
    }
    task.period = PeriodNamed(report->period, Today()).value_or(ReportPeriod());
    return kDone;
}

// What the command line says. A status other than Done ends the program.
int ReadArguments(const QCommandLineParser &parser, const Arguments &arguments, Task &task)
{
    task.report = {.row = FindReport(parser.value(arguments.report)),
                   .period = parser.value(arguments.period),
                   .users = {},
                   .groups = {},
                   .output = parser.value(arguments.output),
                   .split = parser.isSet(arguments.split),
                   .csvBom = parser.isSet(arguments.csvBom),
                   .failIfEmpty = parser.isSet(arguments.failIfEmpty),
                   .mail = parser.value(arguments.mail),
                   .schedule = {}};
    if (task.report.row < 0) {
        return Fail(BadArguments,
                    u"no such report: \"%1\"; see --list"_s.arg(parser.value(arguments.report)));
    }
    const auto period = PeriodNamed(task.report.period, Today());
    if (!period) {
        return Fail(BadArguments, u"no such period: \"%1\"; see --help"_s.arg(task.report.period));
    }
    task.period = *period;
    task.names = NamesOf(parser, arguments);
    if (!FormatOf(task.report.output)) {
        return Fail(BadArguments, u"--output must name a %1 file"_s.arg(EndingsInWords()));
    }
    if (task.names.isMissing) {
        return Fail(BadArguments, u"--users and --groups must name somebody"_s);
    }
    if (parser.isSet(arguments.mail) && task.report.mail.isEmpty()) {
        return Fail(BadArguments, u"--mail needs an address"_s);
    }
    if (task.report.csvBom && FormatOf(task.report.output) != OutputFormat::Csv) {
        return Fail(BadArguments, u"--csv-bom is for .csv files"_s);
    }
    const bool ofStatements = task.report.row == kStatementRow;
    if (task.report.split && !ofStatements) {
        return Fail(BadArguments, u"--split is for statements; see --list"_s);
    }
    if (!task.names.IsEmpty() && period->choice == PeriodChoice::All && !ofStatements) {
        return Fail(BadArguments, u"users and groups apply only with a period; see --period"_s);
    }
    SavedReport checked = task.report; // the rest of the rules is the same for saved ones
    checked.output = QFileInfo(checked.output).absoluteFilePath();
    const QString problem = ProblemOf(checked);
    return problem.isEmpty() ? kDone : Fail(BadArguments, problem);
}

int Run(const QCommandLineParser &parser, const Arguments &arguments)
{
    StartedProgram program(
        {.configFolder = parser.value(arguments.config), .opensDatabase = false});
    program.dataSource = parser.isSet(arguments.dsn) ? parser.value(arguments.dsn)
                                                     : ReportsDataSource(program.settings);
    Task task;
    const int read = parser.isSet(arguments.saved)
        ? ReadSaved(parser, arguments, program.settings, task)
        : ReadArguments(parser, arguments, task);
    Filters filters;
    const int status = read == kDone ? ReadFilters(task, program, filters) : read;
    if (status != kDone) {
        return status;
    }
    ReportRequest request;
    static_cast<ReportSubject &>(request) =
        SubjectOf(program.settings, task.period, filters.InWords());
    if (const QString problem = LogoProblem(request.setup); !problem.isEmpty()) {
        Warn(problem);
    }
    if (task.report.row == kStatementRow) {
        request.statement = {filters.userClause, filters.groupClause};
    } else {
        request.layoutPath = LayoutPath(
            program.settings.ReadText(values::kPath).value_or(QString()), task.report.row);
        request.query =
            QueryText(task.report.row, task.period, filters.userClause, filters.groupClause);
    }
    request.connectionText = ReportConnectionText(program.dataSource);
    return Make(request,
                task.report,
                {.csvBom = task.report.csvBom, .groupReads = parser.isSet(arguments.groupReads)});
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // there need not be a screen, whatever is set
    // Timers and cron mail what is written here: Qt's own words on a missing session are no news.
    QLoggingCategory::setFilterRules(u"default.warning=false"_s);
    const QGuiApplication application(argc, argv);
    SpeakTheSystemsLanguage();
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    QGuiApplication::setApplicationName(u"tollbrook-report"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Makes one of the console's reports as a file.\n\n"
        "Exit status: 0 done, 1 nothing to report, 2 wrong arguments, 3 database, 4 layout, "
        "5 output, 6 mail, 7 timer."_s);
    const Arguments arguments;
    parser.addOptions(
        {arguments.help,        arguments.version,  arguments.list,       arguments.report,
         arguments.period,      arguments.users,    arguments.groups,     arguments.output,
         arguments.split,       arguments.csvBom,   arguments.dsn,        arguments.config,
         arguments.failIfEmpty, arguments.mail,     arguments.groupReads, arguments.saved,
         arguments.listSaved,   arguments.schedule, arguments.units,      arguments.noteRun});
    if (!parser.parse(QGuiApplication::arguments())) {
        return Fail(BadArguments, parser.errorText());
    }
    if (parser.isSet(arguments.help)) {
        QTextStream(stdout) << parser.helpText();
        return kDone;
    }
    if (parser.isSet(arguments.version)) {
        QTextStream(stdout) << "tollbrook-report " TB_VERSION "\n";
        return kDone;
    }
    if (parser.isSet(arguments.list)) {
        return List();
    }
    if (const QString problem = ProblemOfArguments(parser, arguments); !problem.isEmpty()) {
        return Fail(BadArguments, problem);
    }
    const bool asksOfSaved = parser.isSet(arguments.listSaved) || parser.isSet(arguments.schedule)
        || parser.isSet(arguments.noteRun);
    if (!asksOfSaved) {
        return Run(parser, arguments);
    }
    const StartedProgram program(
        {.configFolder = parser.value(arguments.config), .opensDatabase = false});
    if (parser.isSet(arguments.listSaved)) {
        return ListSaved(program.settings);
    }
    return parser.isSet(arguments.noteRun)
        ? NoteRun(parser.value(arguments.noteRun), program.settings)
        : Schedule(parser.value(arguments.schedule),
                   program.settings,
                   parser.isSet(arguments.units) ? std::optional(parser.value(arguments.units))
                                                 : std::nullopt);
}
