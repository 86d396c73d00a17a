// Makes one report without a screen: for timers and scripts.
#include "db/data_source.h"
#include "db/query.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "reports/catalogue.h"
#include "reports/engine.h"
#include "reports/filter_choices.h"
#include "reports/output.h"
#include "reports/selection.h"
#include "reports/statement_files.h"
#include "reports/wording.h"
#include "startup/language.h"
#include "startup/start_up.h"

#include <QCommandLineParser>
#include <QFileInfo>
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
    for (int row = 0; row < kListedCount; ++row) {
        const ReportEntry &entry = EntryOf(row);
        out << u"%1  %2  %3\n"_s.arg(row, 2)
                   .arg(QString::fromUtf8(entry.title).trimmed(), -26)
                   .arg(entry.layoutFile);
    }
    return Done;
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
        u"dsn"_s, u"The ODBC data source; bill unless given."_s, u"NAME"_s, u"bill"_s};
    QCommandLineOption config {
        u"config"_s, u"The folder of settings, which tells where the layouts are."_s, u"DIR"_s};
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

// The ids of those that bear the names, which are noted in `scope`; the others in `unknown`.
template <typename IdType>
Result<QList<IdType>> LookUp(const QStringList &names,
                             Result<std::vector<Named<IdType>>> (*offers)(),
                             FilterScope &scope,
                             QStringList &unknown)
{
    QList<IdType> ids;
    if (names.isEmpty()) {
        return ids;
    }
    const auto offered = offers();
    if (!offered) {
        return tl::unexpected(offered.error());
    }
    QStringList notFound;
    for (const auto &[id, name] : BearersOf(names, *offered, notFound)) {
        ids += id;
        scope.names += name;
    }
    scope.effect = FilterEffect::Only;
    unknown += notFound;
    return ids;
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
        return Fail(Database,
                    u"the data source \"%1\" cannot be opened. %2"_s
                        .arg(program.dataSource, MissingSourceAdvice(program.dataSource))
                        .trimmed());
    }
    QStringList unknown;
    const auto users = LookUp(names.users, AllUsers, filters.users, unknown);
    const auto groups = LookUp(names.groups, OfferedGroups, filters.groups, unknown);
    DisconnectDatabase();
    if (!users || !groups) {
        return Fail(Database, users ? groups.error().text : users.error().text);
    }
    if (!unknown.isEmpty()) {
        return Fail(BadArguments, u"nobody is named \"%1\""_s.arg(unknown.join(u"\", \""_s)));
    }
    filters.userClause = OnlyUsersClause(*users);
    filters.groupClause = OnlyGroupsClause(*groups);
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

struct Target
{
    QString file;
    OutputOptions options;
    bool failIfEmpty = false;
    bool split = false; // a file for each statement
};

// What was written in words; nothing, and `problem` filled, when not all of it was.
std::optional<QString> Write(const ReportTablePtr &table,
                             const Target &target,
                             RunControl &control,
                             ReportProblem &problem)
{
    if (!target.split) {
        return WriteReport(table, target.file, control, problem, target.options)
            ? std::optional(target.file)
            : std::nullopt;
    }
    qsizetype written = 0;
    if (WriteStatementFiles(table, target.file, control, problem, written, target.options)) {
        return u"%1 statements in the folder %2"_s.arg(QString::number(written),
                                                       QFileInfo(target.file).path());
    }
    problem.text += u" (%1 of %2 statements are written)"_s.arg(written).arg(table->groups.size());
    return std::nullopt;
}

int Make(const ReportRequest &request, const Target &target)
{
    RunControl control;
    ReportProblem problem;
    const ReportTablePtr table = MakeReport(request, control, problem);
    const bool isMissed =
        table && table->IsEmpty() && target.failIfEmpty; // the former file stays then
    const auto written = table && !isMissed ? Write(table, target, control, problem) : std::nullopt;
    if (!written && !isMissed) {
        return Fail(static_cast<Status>(StatusOf(problem.kind)), problem.text);
    }
    const QString source = ParseConnectionText(request.connectionText).dsn;
    if (AgeOf(table->schemaVersion) == SchemaAge::Older) {
        Warn(OlderSchemaText(table->schemaVersion, source));
    }
    if (isMissed) {
        return Fail(Empty, u"there is nothing to report in the data source \"%1\""_s.arg(source));
    }
    QTextStream(stdout) << u"%1: made from the data source \"%2\"\n"_s.arg(*written, source);
    return Done;
}

int Run(const QCommandLineParser &parser, const Arguments &arguments)
{
    const int row = FindReport(parser.value(arguments.report));
    if (row < 0) {
        return Fail(BadArguments,
                    u"no such report: \"%1\"; see --list"_s.arg(parser.value(arguments.report)));
    }
    const auto period = PeriodNamed(parser.value(arguments.period), Today());
    if (!period) {
        return Fail(BadArguments, u"no such period: \"%1\""_s.arg(parser.value(arguments.period)));
    }
    const QString output = parser.value(arguments.output);
    if (!FormatOf(output)) {
        return Fail(BadArguments, u"--output must name a %1 file"_s.arg(EndingsInWords()));
    }
    const WantedNames names = NamesOf(parser, arguments);
    if (names.isMissing) {
        return Fail(BadArguments, u"--users and --groups must name somebody"_s);
    }
    const bool ofStatements = row == kStatementRow;
    if (parser.isSet(arguments.split) && !ofStatements) {
        return Fail(BadArguments, u"--split is for statements; see --list"_s);
    }
    if (!names.IsEmpty() && period->choice == PeriodChoice::All && !ofStatements) {
        return Fail(BadArguments, u"users and groups apply only with a period; see --period"_s);
    }
    const StartedProgram program({.configFolder = parser.value(arguments.config),
                                  .dataSource = parser.value(arguments.dsn),
                                  .opensDatabase = !names.IsEmpty()});
    Filters filters;
    if (const int status = ReadFilters(names, program, filters); status != Done) {
        return status;
    }
    ReportRequest request;
    static_cast<ReportSubject &>(request) = SubjectOf(program.settings, *period, filters.InWords());
    if (const QString problem = LogoProblem(request.setup); !problem.isEmpty()) {
        Warn(problem);
    }
    if (ofStatements) {
        request.statement = {filters.userClause, filters.groupClause};
    } else {
        request.layoutPath =
            LayoutPath(program.settings.ReadText(values::kPath).value_or(QString()), row);
        request.query = QueryText(row, *period, filters.userClause, filters.groupClause);
    }
    request.connectionText = ReportConnectionText(program.dataSource);
    return Make(request,
                {.file = output,
                 .options = {.csvBom = parser.isSet(arguments.csvBom)},
                 .failIfEmpty = parser.isSet(arguments.failIfEmpty),
                 .split = parser.isSet(arguments.split)});
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
                       arguments.version,
                       arguments.list,
                       arguments.report,
                       arguments.period,
                       arguments.users,
                       arguments.groups,
                       arguments.output,
                       arguments.split,
                       arguments.csvBom,
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
    if (parser.isSet(arguments.version)) {
        QTextStream(stdout) << "tollbrook-report " TB_VERSION "\n";
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
