// Makes one report without a screen: for timers and scripts.
#include "db/query.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "reports/catalogue.h"
#include "reports/engine.h"
#include "reports/filter_choices.h"
#include "reports/output.h"
#include "reports/selection.h"
#include "reports/wording.h"
#include "startup/language.h"
#include "startup/start_up.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QTextStream>

#include <clocale>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

enum Status { Done = 0, Empty = 1, BadArguments = 2, Database = 3, LayoutFile = 4, Output = 5 };

int Fail(Status status, const QString &text)
{
    QTextStream(stderr) << "tollbrook-report: " << text << Qt::endl;
    return status;
}

void Warn(const QString &text)
{
    QTextStream(stderr) << "tollbrook-report: " << text << Qt::endl;
}

int List()
{
    QTextStream out(stdout);
    for (int row = 0; row < kReportCount; ++row) {
        const ReportEntry &entry = ReportCatalogue().at(static_cast<size_t>(row));
        out << u"%1  %2  %3\n"_s.arg(row, 2)
                   .arg(QString::fromUtf8(entry.title).trimmed(), -26)
                   .arg(entry.layoutFile);
    }
    return Done;
}

struct Arguments
{
    QCommandLineOption help {u"help"_s, u"Shows this help."_s};
    QCommandLineOption list {u"list"_s, u"Lists the reports with their numbers."_s};
    QCommandLineOption report {
        u"report"_s, u"The report, by number, title or layout file."_s, u"NAME|NUMBER"_s};
    QCommandLineOption period {u"period"_s,
                               u"all (unless given), today, week, month, or FROM..TO as "
                               "2026-11-01..2026-11-21."_s,
                               u"PERIOD"_s,
                               u"all"_s};
    QCommandLineOption users {
        u"users"_s, u"Only these users, as a,b; counts with a period only."_s, u"NAMES"_s};
    QCommandLineOption groups {
        u"groups"_s, u"Only these groups, as a,b; counts with a period only."_s, u"NAMES"_s};
    QCommandLineOption output {
        u"output"_s, u"The file to write: .pdf, .csv, .html or .xlsx."_s, u"FILE"_s};
    QCommandLineOption dsn {
        u"dsn"_s, u"The ODBC data source; bill unless given."_s, u"NAME"_s, u"bill"_s};
    QCommandLineOption config {
        u"config"_s, u"The folder of settings, which tells where the layouts are."_s, u"DIR"_s};
    QCommandLineOption failIfEmpty {u"fail-if-empty"_s,
                                    u"Exit status 1 when there is nothing to report."_s};
};

std::optional<ReportPeriod> PeriodFrom(const QString &text)
{
    const QStringList words {u"all"_s, u"today"_s, u"week"_s, u"month"_s};
    if (const auto place = words.indexOf(text); place >= 0) {
        return PeriodUpTo(Today(), static_cast<PeriodChoice>(place));
    }
    const QStringList ends = text.split(u".."_s);
    const QDate from = QDate::fromString(ends.first(), Qt::ISODate);
    const QDate to = QDate::fromString(ends.last(), Qt::ISODate);
    if (ends.size() != 2 || !from.isValid() || !to.isValid() || from > to) {
        return std::nullopt;
    }
    return ReportPeriod {PeriodChoice::Custom, DayOf(from), DayOf(to)};
}

struct WantedNames
{
    QStringList users;
    QStringList groups;

    [[nodiscard]] bool IsEmpty() const { return users.isEmpty() && groups.isEmpty(); }
};

WantedNames NamesOf(const QCommandLineParser &parser, const Arguments &arguments)
{
    return {NamesFrom(parser.values(arguments.users).join(u',')),
            NamesFrom(parser.values(arguments.groups).join(u','))};
}

struct Filters
{
    QString userClause;
    QString groupClause;
    QString words;
};

// The clauses of the names that there are; puts the others into `unknown`.
std::optional<Failure>
LookUp(const QStringList &users, const QStringList &groups, Filters &filters, QStringList &unknown)
{
    QStringList notFound;
    if (!users.isEmpty()) {
        const auto offered = OfferedUsers();
        if (!offered) {
            return offered.error();
        }
        filters.userClause = UserFilterClause(FilterOf(*offered, users, notFound));
        unknown += notFound;
    }
    if (!groups.isEmpty()) {
        const auto offered = OfferedGroups();
        if (!offered) {
            return offered.error();
        }
        filters.groupClause = GroupFilterClause(FilterOf(*offered, groups, notFound));
        unknown += notFound;
    }
    return std::nullopt;
}

// Looks the names up in the database. A status other than Done ends the program.
int ReadFilters(const WantedNames &names, const StartedProgram &program, Filters &filters)
{
    if (names.IsEmpty()) {
        return Done;
    }
    const auto version = OpenedSchemaVersion();
    if (!version && version.error().kind == Failure::Kind::NewerSchema) {
        return Fail(Database, version.error().text);
    }
    if (!version) {
        return Fail(Database, u"the data source \"%1\" cannot be opened"_s.arg(program.dataSource));
    }
    QStringList unknown;
    const auto problem = LookUp(names.users, names.groups, filters, unknown);
    DisconnectDatabase();
    if (problem) {
        return Fail(Database, problem->text);
    }
    if (!unknown.isEmpty()) {
        return Fail(BadArguments, u"nobody is named \"%1\""_s.arg(unknown.join(u"\", \""_s)));
    }
    filters.words = FilterInWords(names.users, names.groups);
    return Done;
}

int StatusOf(ReportProblem::Kind kind)
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

int Make(const ReportRequest &request, const QString &output, bool failIfEmpty)
{
    RunControl control;
    ReportProblem problem;
    const ReportTablePtr table = MakeReport(request, control, problem);
    if (!table || !WriteReport(table, output, control, problem)) {
        return Fail(static_cast<Status>(StatusOf(problem.kind)), problem.text);
    }
    if (AgeOf(table->schemaVersion) == SchemaAge::Older) {
        Warn(
            OlderSchemaText(table->schemaVersion, ParseConnectionText(request.connectionText).dsn));
    }
    return failIfEmpty && table->IsEmpty() ? Fail(Empty, u"there is nothing to report"_s) : Done;
}

int Run(const QCommandLineParser &parser, const Arguments &arguments)
{
    const int row = FindReport(parser.value(arguments.report));
    if (row < 0) {
        return Fail(BadArguments,
                    u"no such report: \"%1\"; see --list"_s.arg(parser.value(arguments.report)));
    }
    const auto period = PeriodFrom(parser.value(arguments.period));
    if (!period) {
        return Fail(BadArguments, u"no such period: \"%1\""_s.arg(parser.value(arguments.period)));
    }
    const QString output = parser.value(arguments.output);
    if (!FormatOf(output)) {
        return Fail(BadArguments, u"--output must name a .pdf, .csv, .html or .xlsx file"_s);
    }
    const WantedNames names = NamesOf(parser, arguments);
    const StartedProgram program({.configFolder = parser.value(arguments.config),
                                  .dataSource = parser.value(arguments.dsn),
                                  .opensDatabase = !names.IsEmpty()});
    Filters filters;
    if (const int status = ReadFilters(names, program, filters); status != Done) {
        return status;
    }
    if (period->choice == PeriodChoice::All && !filters.words.isEmpty()) {
        Warn(u"users and groups apply only with a period; this report is of all of them"_s);
        filters = {};
    }
    ReportRequest request;
    static_cast<ReportSubject &>(request) = SubjectOf(program.settings, *period, filters.words);
    if (const QString problem = LogoProblem(request.setup); !problem.isEmpty()) {
        Warn(problem);
    }
    request.layoutPath =
        LayoutPath(program.settings.ReadText(values::kPath).value_or(QString()), row);
    request.query = QueryText(row, *period, filters.userClause, filters.groupClause);
    request.connectionText = ReportConnectionText(program.dataSource);
    return Make(request, output, parser.isSet(arguments.failIfEmpty));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // there need not be a screen, whatever is set
    const QGuiApplication application(argc, argv);
    SpeakTheSystemsLanguage();
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    QGuiApplication::setApplicationName(u"tollbrook-report"_s);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Makes one of the console's reports as a file.\n\n"
        "Exit status: 0 done, 1 nothing to report, 2 wrong arguments, 3 database, 4 layout, "
        "5 output."_s);
    const Arguments arguments;
    parser.addOptions({arguments.help,
                       arguments.list,
                       arguments.report,
                       arguments.period,
                       arguments.users,
                       arguments.groups,
                       arguments.output,
                       arguments.dsn,
                       arguments.config,
                       arguments.failIfEmpty});
    if (!parser.parse(QGuiApplication::arguments())) {
        return Fail(BadArguments, parser.errorText());
    }
    if (parser.isSet(arguments.help)) {
        QTextStream(stdout) << parser.helpText();
        return Done;
    }
    if (parser.isSet(arguments.list)) {
        return List();
    }
    if (!parser.positionalArguments().isEmpty()) {
        return Fail(BadArguments,
                    u"what is \"%1\"?"_s.arg(parser.positionalArguments().constFirst()));
    }
    return Run(parser, arguments);
}
