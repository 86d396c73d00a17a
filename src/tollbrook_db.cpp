// tollbrook-db: makes, upgrades, fills, checks, backs up and copies the shared database of a data source.
#include "config/config_folder.h"
#include "db/check.h"
#include "db/data_source.h"
#include "db/demo_data.h"
#include "db/schema.h"
#include "db/schema_upgrade.h"
#include "upkeep/backup.h"
#include "upkeep/restore.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <algorithm>
#include <clocale>
#include <csignal>

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
  backup FILE
           writes the database and the settings into one file, while the programs run
  restore FILE
           fills an empty database, of any engine, from a backup; nobody else may be
           connected
  copy     fills an empty database, --to, with what another one, --from, holds

The data source NAME stands in odbc.ini; its own Password is used. SQLite makes
the database file by itself; PostgreSQL (in UTF-8) and MariaDB need an empty
database and a user "system" that may make tables there.

Exit status: 0 done, 1 check found something wrong, 2 wrong use, 3 the database
could not be opened, a statement failed or a backup is damaged, 4 upgrade or
check found the tables of a newer version than this program, or not whole.)"_s;

void Print(const QString &text)
{
    QTextStream(stdout) << text << '\n';
}

void PrintError(const QString &text)
{
    QTextStream(stderr) << "tollbrook-db: " << text << '\n';
}

// What stands in the command line.
struct Call
{
    const QCommandLineParser &parser;
    QString dsn;
    QString file;

    [[nodiscard]] bool Has(const QString &option) const { return parser.isSet(option); }
    [[nodiscard]] QString Value(const QString &option) const { return parser.value(option); }
};

int Create(const Call &call)
{
    const QString &dsn = call.dsn;
    if (const auto problem = CreateSchema(dsn)) {
        PrintError(*problem);
        return kFailed;
    }
    Print(u"The database of \"%1\" is ready. Its section of odbc.ini should read:\n\n%2"_s.arg(
        dsn, RecommendedSection(dsn)));
    return kDone;
}

int Upgrade(const Call &call)
{
    const QString &dsn = call.dsn;
    const UpgradeMode mode = call.Has(u"dry-run"_s) ? UpgradeMode::DryRun : UpgradeMode::Run;
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

int Check(const Call &call)
{
    const QString &dsn = call.dsn;
    const CheckResult result = CheckDatabase(dsn);
    for (const QString &finding : result.findings) {
        Print(finding);
    }
    for (const QString &note : result.notes) {
        Print(u"note: "_s + note);
    }
    if (result.failure) {
        PrintError(*result.failure);
        return result.isRefused ? kNewer : kFailed;
    }
    if (result.findings.isEmpty()) {
        Print(u"Everything in the database of \"%1\" is consistent."_s.arg(dsn));
    }
    return result.findings.isEmpty() ? kDone : kInconsistent;
}

int Report(const Told<void> &done, const QString &success)
{
    if (!done) {
        PrintError(done.error());
        return kFailed;
    }
    Print(success);
    return kDone;
}

int Backup(const Call &call)
{
    BackupWish wish {
        call.dsn, call.file, ConfigFolder(call.Value(u"config"_s)), call.Has(u"force"_s)};
    if (call.Has(u"no-settings"_s)) {
        wish.configFolder.reset();
    }
    return Report(MakeBackup(wish, Print), u"The backup is in %1."_s.arg(call.file));
}

FillMode ModeOf(const Call &call)
{
    return call.Has(u"dry-run"_s) ? FillMode::DryRun : FillMode::Run;
}

QString FilledText(FillMode mode, const QString &dsn)
{
    return mode == FillMode::DryRun
        ? u"This was a dry run."_s
        : u"The database of \"%1\" holds the same rows as its source."_s.arg(dsn);
}

int RestoreFrom(const Call &call)
{
    RestoreWish wish {call.file, call.dsn, std::nullopt, ModeOf(call)};
    if (call.Has(u"config"_s)) {
        wish.configFolder = call.Value(u"config"_s);
    }
    return Report(Restore(wish, Print), FilledText(wish.mode, wish.dsn));
}

int Copy(const Call &call)
{
    const CopyWish wish {call.Value(u"from"_s), call.Value(u"to"_s), ModeOf(call)};
    if (wish.from.isEmpty() || wish.to.isEmpty()) {
        PrintError(u"Name both data sources, as in: tollbrook-db copy --from bill --to server"_s);
        return kWrongUse;
    }
    return Report(CopyDatabase(wish, Print), FilledText(wish.mode, wish.to));
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

int DemoOf(const Call &call)
{
    const auto users = Number(call.parser, u"users"_s, 10'000'000);
    const auto groups = Number(call.parser, u"groups"_s, 10'000);
    const auto days = Number(call.parser, u"days"_s, 10'000);
    return users && groups && days ? Demo(call.dsn, {*users, *groups, *days}) : kWrongUse;
}

struct Command
{
    const char *name;
    int (*run)(const Call &call);
    QStringList options; // that it takes
    bool takesFile = false;
};

const Command *CommandOf(const QString &name)
{
    static const QStringList kDsn {u"dsn"_s};
    static const Command kCommands[] = {
        {"create", Create, kDsn},
        {"upgrade", Upgrade, kDsn + QStringList {u"dry-run"_s}},
        {"demo", DemoOf, kDsn + QStringList {u"users"_s, u"groups"_s, u"days"_s}},
        {"check", Check, kDsn},
        {"backup", Backup, kDsn + QStringList {u"force"_s, u"config"_s, u"no-settings"_s}, true},
        {"restore", RestoreFrom, kDsn + QStringList {u"dry-run"_s, u"config"_s}, true},
        {"copy", Copy, {u"from"_s, u"to"_s, u"dry-run"_s}}};
    const auto *const found =
        std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command &command) {
            return name == QLatin1StringView(command.name);
        });
    return found == std::end(kCommands) ? nullptr : found;
}

// What is missing or too much; empty when the command can be run.
QString WrongUse(const Command &command, const Call &call)
{
    const QString name = QString::fromLatin1(command.name);
    if (command.options.contains(u"dsn"_s) && call.dsn.isEmpty()) {
        return u"Name one command and the data source, as in: tollbrook-db create --dsn bill"_s;
    }
    for (const QString &option : call.parser.optionNames()) {
        if (!command.options.contains(option)) {
            return u"\"%1\" does not take --%2; see --help."_s.arg(name, option);
        }
    }
    if (call.parser.positionalArguments().size() != (command.takesFile ? 2 : 1)) {
        return command.takesFile
            ? u"Name one file, as in: tollbrook-db %1 FILE --dsn bill"_s.arg(name)
            : u"\"%1\" takes options only; see --help."_s.arg(name);
    }
    return {};
}

int RunCommand(const QCommandLineParser &parser)
{
    const QStringList words = parser.positionalArguments();
    if (words.isEmpty()) {
        PrintError(
            u"Name one command and the data source, as in: tollbrook-db create --dsn bill"_s);
        return kWrongUse;
    }
    const Command *const command = CommandOf(words.first());
    if (command == nullptr) {
        PrintError(u"There is no command \"%1\"; see --help."_s.arg(words.first()));
        return kWrongUse;
    }
    const Call call {parser, parser.value(u"dsn"_s), words.value(1)};
    if (const QString wrong = WrongUse(*command, call); !wrong.isEmpty()) {
        PrintError(wrong);
        return kWrongUse;
    }
    return command->run(call);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows too large is a failure to be told
    QCoreApplication::setApplicationName(u"tollbrook-db"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(TB_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(u"command"_s,
                                 u"create, upgrade, demo, check, backup, restore or copy"_s);
    parser.addOptions({{u"dsn"_s, u"The ODBC data source."_s, u"NAME"_s},
                       {u"from"_s, u"copy: the data source to read."_s, u"NAME"_s},
                       {u"to"_s, u"copy: the data source to fill."_s, u"NAME"_s},
                       {u"dry-run"_s, u"upgrade, restore, copy: only tell what would be done."_s},
                       {u"force"_s, u"backup: replace a file that is there already."_s},
                       {u"config"_s,
                        u"backup: the folder with the settings ($TOLLBROOK_CONFIG, else "
                        "/etc/tollbrook); restore: the folder to put them in."_s,
                        u"FOLDER"_s},
                       {u"no-settings"_s, u"backup: leave the settings out."_s},
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
