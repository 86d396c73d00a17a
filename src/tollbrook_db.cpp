// tollbrook-db: makes, upgrades, fills and checks the shared database of a data source.
#include "db/check.h"
#include "db/data_source.h"
#include "db/demo_data.h"
#include "db/schema.h"
#include "db/schema_upgrade.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <clocale>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDone = 0;
constexpr int kInconsistent = 1;
constexpr int kWrongUse = 2;
constexpr int kFailed = 3;
constexpr int kNewer = 4;

const auto kDescription = uR"(Makes and looks after the shared database of Tollbrook Network.

Commands:
  create   makes the tables, their indexes and first rows, and prints the section
           of odbc.ini with the options that matter
  upgrade  brings the tables of an older version up to date and keeps what they hold;
           with --dry-run it only tells the versions and the steps
  demo     fills a database without users with demonstration data
  check    reports rows that point nowhere or contradict each other; what the
           console leaves behind by design, such as records of a deleted user,
           is reported after "note:" and does not count as wrong

The data source NAME stands in odbc.ini; its own Password is used. SQLite makes
the database file by itself; PostgreSQL (in UTF-8) and MariaDB need an empty
database and a user "system" that may make tables there.

Exit status: 0 done, 1 check found something wrong, 2 wrong use, 3 the database
could not be opened or a statement failed, 4 upgrade or check found the tables
of a newer version than this program.)"_s;

void Print(const QString &text)
{
    QTextStream(stdout) << text << '\n';
}

void PrintError(const QString &text)
{
    QTextStream(stderr) << "tollbrook-db: " << text << '\n';
}

int Create(const QString &dsn)
{
    if (const auto problem = CreateSchema(dsn)) {
        PrintError(*problem);
        return kFailed;
    }
    Print(u"The database of \"%1\" is ready. Its section of odbc.ini should read:\n\n%2"_s.arg(
        dsn, RecommendedSection(dsn)));
    return kDone;
}

int Upgrade(const QString &dsn, UpgradeMode mode)
{
    const UpgradeOutcome outcome = UpgradeSchema(dsn, mode, Print);
    if (outcome.end != UpgradeOutcome::End::Done) {
        PrintError(outcome.problem);
        return outcome.end == UpgradeOutcome::End::Newer ? kNewer : kFailed;
    }
    if (mode == UpgradeMode::Run) {
        Print(u"The tables of \"%1\" are up to date."_s.arg(dsn));
    }
    return kDone;
}

int Demo(const QString &dsn, const DemoSize &size)
{
    const auto problem =
        FillWithDemoData(dsn, size, [](const QString &step) { Print(u"... "_s + step); });
    if (problem) {
        PrintError(*problem);
        return kFailed;
    }
    Print(u"The database of \"%1\" holds demonstration data."_s.arg(dsn));
    return kDone;
}

int Check(const QString &dsn)
{
    const CheckResult result = CheckDatabase(dsn);
    for (const QString &finding : result.findings) {
        Print(finding);
    }
    for (const QString &note : result.notes) {
        Print(u"note: "_s + note);
    }
    if (result.failure) {
        PrintError(*result.failure);
        return result.isNewer ? kNewer : kFailed;
    }
    if (result.findings.isEmpty()) {
        Print(u"Everything in the database of \"%1\" is consistent."_s.arg(dsn));
    }
    return result.findings.isEmpty() ? kDone : kInconsistent;
}

// The option's number, at least 1 and at most `most`; a wrong one is reported.
std::optional<int> Number(const QCommandLineParser &parser, const QString &option, int most)
{
    bool valid = false;
    const int number = parser.value(option).toInt(&valid);
    if (!valid || number < 1 || number > most) {
        PrintError(u"--%1 must be a number from 1 to %2."_s.arg(option).arg(most));
        return std::nullopt;
    }
    return number;
}

int RunCommand(const QCommandLineParser &parser)
{
    const QString dsn = parser.value(u"dsn"_s);
    const QStringList commands = parser.positionalArguments();
    if (commands.size() != 1 || dsn.isEmpty()) {
        PrintError(
            u"Name one command and the data source, as in: tollbrook-db create --dsn bill"_s);
        return kWrongUse;
    }
    if (commands.first() == u"create"_s) {
        return Create(dsn);
    }
    if (commands.first() == u"upgrade"_s) {
        return Upgrade(dsn, parser.isSet(u"dry-run"_s) ? UpgradeMode::DryRun : UpgradeMode::Run);
    }
    if (commands.first() == u"check"_s) {
        return Check(dsn);
    }
    if (commands.first() == u"demo"_s) {
        const auto users = Number(parser, u"users"_s, 10'000'000);
        const auto groups = Number(parser, u"groups"_s, 10'000);
        const auto days = Number(parser, u"days"_s, 10'000);
        return users && groups && days ? Demo(dsn, {*users, *groups, *days}) : kWrongUse;
    }
    PrintError(u"There is no command \"%1\"; see --help."_s.arg(commands.first()));
    return kWrongUse;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    QCoreApplication::setApplicationName(u"tollbrook-db"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(TB_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(u"command"_s, u"create, upgrade, demo or check"_s);
    parser.addOptions({{u"dsn"_s, u"The ODBC data source."_s, u"NAME"_s},
                       {u"dry-run"_s, u"upgrade: only tell what would be done."_s},
                       {u"users"_s, u"demo: how many users."_s, u"N"_s, u"250"_s},
                       {u"groups"_s, u"demo: how many groups."_s, u"N"_s, u"12"_s},
                       {u"days"_s, u"demo: days of usage up to today."_s, u"N"_s, u"90"_s}});
    if (!parser.parse(QCoreApplication::arguments())) {
        PrintError(parser.errorText());
        return kWrongUse;
    }
    if (parser.isSet(u"version"_s)) {
        parser.showVersion();
    }
    if (parser.isSet(u"help"_s)) {
        parser.showHelp(kDone);
    }
    return RunCommand(parser);
}
