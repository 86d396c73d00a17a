// tollbrook-db: makes, upgrades, fills, checks, backs up and copies the shared database of a data source.
#include "upkeep/commands.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <clocale>
#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const auto kDescription = uR"(Makes and looks after the shared database of Tollbrook Network.

Commands:
  create   makes the tables, their indexes and first rows, and prints the section
           of odbc.ini with the options that matter
  upgrade  brings the tables of an older version up to date and keeps what they hold;
           with --dry-run it only tells the versions and the steps; refused while the
           service or anybody else is connected, unless with --while-connected
  demo     fills a database without users with demonstration data
  check    reports rows that point nowhere or contradict each other; what the
           console leaves behind by design, such as records of a deleted user,
           is reported after "note:" and does not count as wrong;
           with --repair it makes a backup, mends what can be mended without loss,
           tells each row, and reports what is left
  backup FILE
           writes the database and the settings into one file, while the programs run
  restore FILE
           fills an empty database, of any engine, from a backup; nobody else may be
           connected
  copy     fills an empty database, --to, with what another one, --from, holds
  roles    prints a script for the client of the database server, psql or mariadb,
           that makes an account for each program with no more rights than it needs

The data source NAME stands in odbc.ini; its own Password is used, and its own
account where it names one (UserName, User or UID), else "system". SQLite makes
the database file by itself; PostgreSQL (in UTF-8) and MariaDB need an empty
database and an account that may make tables there.

Exit status: 0 done, 1 check found something wrong, 2 wrong use, 3 the database
could not be opened, a statement failed or a backup is damaged, 4 upgrade or
check found the tables of a newer version than this program, or not whole.)"_s;

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    std::signal(SIGPIPE, SIG_IGN); // what was begun is not left halfway because a reader has gone
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows too large is a failure to be told
    QCoreApplication::setApplicationName(u"tollbrook-db"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(TB_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(u"command"_s,
                                 u"create, upgrade, demo, check, backup, restore, copy or roles"_s);
    parser.addOptions(
        {{u"dsn"_s, u"The ODBC data source."_s, u"NAME"_s},
         {u"from"_s, u"copy: the data source to read."_s, u"NAME"_s},
         {u"to"_s, u"copy: the data source to fill."_s, u"NAME"_s},
         {u"dry-run"_s, u"upgrade, restore, copy, check --repair: only tell what would be done."_s},
         {u"while-connected"_s, u"upgrade: although others are connected to the database."_s},
         {u"repair"_s, u"check: mend what can be mended without loss."_s},
         {u"backup"_s, u"check --repair: the file for the backup before it."_s, u"FILE"_s},
         {u"force"_s, u"backup, check --repair: replace a backup that is there already."_s},
         {u"config"_s,
          u"backup: the folder with the settings ($TOLLBROOK_CONFIG, else "
          "/etc/tollbrook); restore: the folder to put them in."_s,
          u"FOLDER"_s},
         {u"only-settings"_s, u"restore: put the settings back and leave the database alone."_s},
         {u"no-settings"_s, u"backup: leave the settings out."_s},
         {u"engine"_s, u"roles: postgresql or mariadb, without a data source."_s, u"ENGINE"_s},
         {u"database"_s, u"roles --engine: the database's name, bill unless given."_s, u"NAME"_s},
         {u"accounts"_s,
          u"roles: what the accounts' names begin with."_s,
          u"PREFIX"_s,
          u"tollbrook"_s},
         {u"users"_s, u"demo: how many users."_s, u"N"_s, u"250"_s},
         {u"groups"_s, u"demo: how many groups."_s, u"N"_s, u"12"_s},
         {u"days"_s, u"demo: days of usage up to today."_s, u"N"_s, u"90"_s}});
    if (!parser.parse(QCoreApplication::arguments())) {
        commands::PrintError(parser.errorText());
        return commands::kWrongUse;
    }
    if (parser.isSet(u"version"_s)) {
        parser.showVersion();
    }
    if (parser.isSet(u"help"_s)) {
        parser.showHelp(commands::kDone);
    }
    return commands::Run(parser);
}
