#include "upkeep/commands.h"

#include "config/config_folder.h"
#include "db/check.h"
#include "db/data_source.h"
#include "db/demo_data.h"
#include "db/dialect.h"
#include "db/direct_connection.h"
#include "db/roles.h"
#include "db/schema.h"
#include "db/schema_upgrade.h"
#include "db/schema_version.h"
#include "upkeep/backup.h"
#include "upkeep/nobody_else.h"
#include "upkeep/repair.h"
#include "upkeep/restore.h"

#include <QCommandLineParser>
#include <QTextStream>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace commands {

namespace {

void Print(const QString &text)
{
    QTextStream(stdout) << text << '\n';
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
    DirectConnection database;
    if (database.Open(dsn) && &database.Engine() != &kSqlite) {
        Print(u"To give each program an account with few rights: tollbrook-db roles --dsn "_s
              + dsn);
    }
    return kDone;
}

int Upgrade(const Call &call)
{
    const QString &dsn = call.dsn;
    const UpgradeMode mode = call.Has(u"dry-run"_s) ? UpgradeMode::DryRun : UpgradeMode::Run;
    if (mode == UpgradeMode::Run && !call.Has(u"while-connected"_s)) {
        if (const auto alone = NobodyNeedsOlderTables(dsn); !alone) {
            PrintError(alone.error() + u"\nOr upgrade all the same, with --while-connected."_s);
            return kFailed;
        }
    }
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

int Report(const Told<void> &done, const QString &success)
{
    if (!done) {
        PrintError(done.error());
        return kFailed;
    }
    Print(success);
    return kDone;
}

int Look(const QString &dsn)
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
        return result.isRefused ? kNewer : kFailed;
    }
    if (result.findings.isEmpty()) {
        Print(u"Everything in the database of \"%1\" is consistent."_s.arg(dsn));
    }
    return result.findings.isEmpty() ? kDone : kInconsistent;
}

BackupWish WishOf(const Call &call, const QString &file)
{
    BackupWish wish {call.dsn, file, ConfigFolder(call.Value(u"config"_s)), call.Has(u"force"_s)};
    if (call.Has(u"no-settings"_s)) {
        wish.configFolder.reset();
    }
    return wish;
}

int Backup(const Call &call)
{
    return Report(MakeBackup(WishOf(call, call.file), Print),
                  u"The backup is in %1."_s.arg(call.file));
}

// What is left is told afterwards.
int Mend(const Call &call)
{
    const bool isDry = call.Has(u"dry-run"_s);
    const QString file = call.Value(u"backup"_s);
    if (file.isEmpty() && !isDry) {
        PrintError(u"Name a file for the backup that is made before, as in: tollbrook-db check "
                   "--dsn bill --repair --backup FILE"_s);
        return kWrongUse;
    }
    const auto mended =
        Repair(WishOf(call, file), isDry ? RepairMode::DryRun : RepairMode::Run, Print);
    if (!mended) {
        PrintError(mended.error());
        return kFailed;
    }
    Print((isDry ? u"%1 rows would be mended."_s : u"%1 rows were mended."_s).arg(*mended));
    return Look(call.dsn);
}

int Check(const Call &call)
{
    if (call.Has(u"repair"_s)) {
        return Mend(call);
    }
    for (const QString &option : {u"backup"_s, u"force"_s, u"dry-run"_s}) {
        if (call.Has(option)) {
            PrintError(u"\"check\" takes --%1 only with --repair."_s.arg(option));
            return kWrongUse;
        }
    }
    return Look(call.dsn);
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
    wish.onlySettings = call.Has(u"only-settings"_s);
    if (wish.onlySettings && !wish.configFolder) {
        PrintError(u"Name the folder of the settings, as in: tollbrook-db restore FILE "
                   "--only-settings --config FOLDER"_s);
        return kWrongUse;
    }
    if (wish.onlySettings) {
        return Report(Restore(wish, Print), u"The database was left as it is."_s);
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

// Nothing where `call` names no server or no database, which is reported. The name stands in a comment of the
// script, too, which ends with its line.
std::optional<RolesPlace> PlaceNamed(const Call &call, const QString &prefix)
{
    const QString database = call.Value(u"database"_s);
    if (std::ranges::any_of(database, [](QChar c) { return !c.isPrint(); })) {
        PrintError(u"The name of a database has no line breaks and no other control characters."_s);
        return std::nullopt;
    }
    const QString engine = call.Value(u"engine"_s).toLower();
    for (const Dialect *const each : {&kPostgresql, &kMariadb}) {
        if (engine == QString::fromLatin1(each->engine).toLower()) {
            RolesPlace place {.dialect = *each, .prefix = prefix};
            place.database = call.Has(u"database"_s) ? database : place.database;
            return place;
        }
    }
    PrintError(u"--engine is postgresql or mariadb."_s);
    return std::nullopt;
}

int PrintRoles(const std::optional<RolesPlace> &place)
{
    if (place) {
        QTextStream(stdout) << RolesScript(*place);
    }
    return place ? kDone : kWrongUse;
}

int RolesOfSource(const QString &dsn, const QString &prefix)
{
    DirectConnection database;
    const auto version = database.Open(dsn) ? SchemaVersionOf(database) : std::nullopt;
    if (version && &database.Engine() == &kSqlite) {
        PrintError(
            u"The database of \"%1\" is a file: there are no accounts. Who may read and write "
            "the file and its folder is who may use it; the packages give it to the group "
            "tollbrook, and tollbrook-view may read it."_s.arg(dsn));
        return kWrongUse;
    }
    const auto place = version ? RolesPlaceOf(database, prefix) : std::nullopt;
    if (!place) {
        PrintError(u"The data source \"%1\" cannot be read: %2"_s.arg(dsn, database.Error()));
        return kFailed;
    }
    if (const auto other = OtherSchemaText(*version, dsn)) {
        PrintError(*other);
        return AgeOf(*version) == SchemaAge::Older ? kFailed : kNewer;
    }
    return PrintRoles(place);
}

int Roles(const Call &call)
{
    const QString prefix = call.Value(u"accounts"_s);
    if (!IsRolesPrefix(prefix)) {
        PrintError(u"--accounts is a small letter and then at most 49 small letters, digits and "
                   "underscores."_s);
        return kWrongUse;
    }
    const bool namesEngine = call.Has(u"engine"_s);
    if (namesEngine != call.dsn.isEmpty() || (!namesEngine && call.Has(u"database"_s))) {
        PrintError(u"Name the data source or the engine, as in: tollbrook-db roles --dsn bill\n"
                   "or: tollbrook-db roles --engine postgresql --database bill"_s);
        return kWrongUse;
    }
    return namesEngine ? PrintRoles(PlaceNamed(call, prefix)) : RolesOfSource(call.dsn, prefix);
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
    bool needsDsn = true; // where it takes one
};

const Command *CommandOf(const QString &name)
{
    static const QStringList kDsn {u"dsn"_s};
    static const Command kCommands[] = {
        {"create", Create, kDsn},
        {"upgrade", Upgrade, kDsn + QStringList {u"dry-run"_s, u"while-connected"_s}},
        {"demo", DemoOf, kDsn + QStringList {u"users"_s, u"groups"_s, u"days"_s}},
        {"check",
         Check,
         kDsn
             + QStringList {u"repair"_s,
                            u"backup"_s,
                            u"force"_s,
                            u"dry-run"_s,
                            u"config"_s,
                            u"no-settings"_s}},
        {"backup", Backup, kDsn + QStringList {u"force"_s, u"config"_s, u"no-settings"_s}, true},
        {"restore",
         RestoreFrom,
         kDsn + QStringList {u"dry-run"_s, u"config"_s, u"only-settings"_s},
         true},
        {"copy", Copy, {u"from"_s, u"to"_s, u"dry-run"_s}},
        {"roles",
         Roles,
         kDsn + QStringList {u"engine"_s, u"database"_s, u"accounts"_s},
         false,
         false}};
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
    const bool needsDsn = command.needsDsn && !call.Has(u"only-settings"_s);
    if (needsDsn && command.options.contains(u"dsn"_s) && call.dsn.isEmpty()) {
        return u"Name one command and the data source, as in: tollbrook-db create --dsn bill"_s;
    }
    for (const QString &option : call.parser.optionNames()) {
        if (!command.options.contains(option)) {
            return u"\"%1\" does not take --%2; see --help."_s.arg(name, option);
        }
    }
    const qsizetype words = command.takesFile ? 2 : 1;
    if (call.parser.positionalArguments().size() != words
        || command.takesFile == call.file.isEmpty()) {
        return command.takesFile
            ? u"Name one file, as in: tollbrook-db %1 FILE --dsn bill"_s.arg(name)
            : u"\"%1\" takes options only; see --help."_s.arg(name);
    }
    return {};
}

} // namespace

void PrintError(const QString &text)
{
    QTextStream(stderr) << "tollbrook-db: " << text << '\n';
}

int Run(const QCommandLineParser &parser)
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
    const int status = command->run(call);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        PrintError(u"The output could not be written."_s);
        return status == kDone ? kFailed : status;
    }
    return status;
}

} // namespace commands
