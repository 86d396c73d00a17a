// The program for timers and scripts, run as one.
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "reports/report_fixture.h"
#include "reports/run_record.h"
#include "reports/saved_report.h"
#include "support/core/database_fixture.h"
#include "support/core/test_data_source.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

class Program : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        FillReportData();
        QFile::link(QStringLiteral(TB_SOURCE_DIR "/src/reports/layouts"),
                    folder.filePath(u"reports"_s));
        SetPath(folder.path() + u'/');
    }

    void SetPath(const QString &path)
    {
        QDir(folder.path()).mkpath(u"Software/Tollbrook"_s);
        QFile file(folder.filePath(u"Software/Tollbrook/Network.toml"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("path = \"" + path.toUtf8() + "\"\n");
    }

    // `before` is what a shell does before it becomes the program.
    int Run(QStringList arguments, const QString &before = u":"_s)
    {
        arguments << u"--config"_s << folder.path();
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);
        environment.remove(u"QT_QPA_PLATFORM"_s);
        process.setProcessEnvironment(environment);
        process.start(u"/bin/sh"_s,
                      QStringList {u"-c"_s,
                                   before + u"; exec \"$0\" \"$@\"",
                                   QStringLiteral(TB_REPORT_PROGRAM)}
                          + arguments);
        EXPECT_TRUE(process.waitForFinished(60'000));
        said = QString::fromUtf8(process.readAllStandardError());
        printed = QString::fromUtf8(process.readAllStandardOutput());
        return process.exitCode();
    }

    void SaveReport(const QString &name, const QByteArray &toml)
    {
        QDir(folder.path()).mkpath(u"saved-reports"_s);
        QFile file(SavedReports(ConfigStore(folder.path())).FileOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.fileName().toStdString();
        file.write(toml);
    }

    [[nodiscard]] QString Out(const QString &name) const { return folder.filePath(name); }

    QString said;
    QString printed;
};

} // namespace

TEST_F(Program, ListsTheReports)
{
    EXPECT_EQ(Run({u"--list"_s}), 0);
    EXPECT_EQ(printed.count(u'\n'), 17);
    EXPECT_TRUE(printed.contains(u"16  Statement"));
    EXPECT_TRUE(printed.contains(u"12  Top 10 Payers"));
}

TEST_F(Program, ReadsTheDataSourceThatTheSettingsNameForReports)
{
    const QStringList arguments {u"--report"_s, u"0"_s, u"--output"_s, Out(u"a.csv"_s)};
    EXPECT_EQ(Run(arguments), 3);
    EXPECT_TRUE(said.contains(u"data source \"bill\""_s)) << said.toStdString();
    ASSERT_TRUE(ConfigStore(folder.path()).WriteText(values::kReportsDsn, Dsn()));
    EXPECT_EQ(Run(arguments), 0) << said.toStdString();
    EXPECT_TRUE(printed.contains(Dsn())) << printed.toStdString();
    EXPECT_EQ(Run(arguments + QStringList {u"--dsn"_s, u"nowhere"_s}), 3);
}

TEST_F(Program, TellsByItsExitStatusHowItWent)
{
    struct Case
    {
        QStringList arguments;
        int status;
        const char *words;
    };
    const QStringList good {
        u"--report"_s, u"0"_s, u"--dsn"_s, Dsn(), u"--output"_s, Out(u"a.csv"_s)};
    const auto with = [&](const QStringList &more) { return good + more; };
    const Case cases[] = {
        {good, 0, ""},
        {with({u"--report"_s, u"Top 10 Sites"_s}), 0, ""},
        {with({u"--report"_s, u"webuser"_s, u"--period"_s, u"2026-11-01..2026-11-21"_s}), 0, ""},
        {with({u"--period"_s, u"2001-01-01..2001-01-02"_s}), 0, ""},
        {with({u"--period"_s, u"2001-01-01..2001-01-02"_s, u"--fail-if-empty"_s}),
         1,
         "nothing to report"},
        {with({u"--report"_s, u"reports\\webtop.rpt"_s}), 0, ""},
        {with({u"--users"_s, u"anna"_s}), 2, "apply only with a period"},
        {with({u"--users"_s, u""_s, u"--period"_s, u"month"_s}), 2, "must name somebody"},
        {with({u"--groups"_s, u" , "_s, u"--period"_s, u"month"_s}), 2, "must name somebody"},
        {with({u"--users"_s, u"anna"_s, u"--groups"_s, u""_s, u"--period"_s, u"month"_s}),
         2,
         "must name somebody"},
        {with({u"--report"_s, u"17"_s}), 2, "no such report"},
        {with({u"--report"_s, u"statement"_s, u"--users"_s, u"anna"_s}), 0, ""},
        {with({u"--split"_s}), 2, "--split is for statements"},
        {with({u"--report"_s, u""_s}), 2, "no such report"},
        {with({u"--period"_s, u"2026-11-21..2026-11-01"_s}), 2, "no such period"},
        {with({u"--period"_s, u"yesterday"_s}), 2, "no such period"},
        {with({u"--users"_s, u"nobody,anna"_s, u"--period"_s, u"month"_s}),
         2,
         "nobody is named \"nobody\""},
        {with({u"--output"_s, Out(u"a.doc"_s)}), 2, ".xlsx"},
        {with({u"--output"_s, Out(u"a.pdf"_s), u"--csv-bom"_s}), 2, "--csv-bom is for .csv files"},
        {with({u"--config"_s, Out(u"nothing"_s)}), 2, "there is no folder \""},
        {with({u"--dsn"_s, Dsn() + u";Database=other"_s}),
         2,
         "cannot be the name of a data source"},
        {with({u"--colour"_s}), 2, "colour"},
        {with({u"stray"_s}), 2, "stray"},
        {with({u"--dsn"_s, u"nowhere"_s}), 3, "tollbrook-report: data source \"nowhere\": "},
        {with({u"--dsn"_s, u"nowhere"_s}), 3, "no section [nowhere] in odbc.ini: add one"},
        {with({u"--dsn"_s, u"nowhere"_s, u"--users"_s, u"anna"_s, u"--period"_s, u"month"_s}),
         3,
         "\"nowhere\" cannot be opened. There is no section [nowhere]"},
        {with({u"--output"_s, Out(u"none/a.pdf"_s)}), 5, "does not exist"},
    };
    for (const auto &[arguments, status, words] : cases) {
        EXPECT_EQ(Run(arguments), status)
            << arguments.join(u' ').toStdString() << said.toStdString();
        EXPECT_TRUE(said.contains(QLatin1StringView(words))) << said.toStdString();
    }
    SetPath(u"/nowhere/"_s);
    EXPECT_EQ(Run(good), 4);
    EXPECT_TRUE(said.contains(u"/nowhere/reports/trafall.rpt: there is no such layout file"))
        << said.toStdString();
    Execute("DROP TABLE users");
    EXPECT_EQ(Run(with({u"--users"_s, u"anna"_s, u"--period"_s, u"month"_s})), 3);
    EXPECT_TRUE(said.contains(u"tollbrook-report: [SQLite]no such table")) << said.toStdString();
    Execute("DROP TABLE groups");
    EXPECT_EQ(Run(with({u"--groups"_s, u"Workshop"_s, u"--period"_s, u"month"_s})), 3);
    EXPECT_TRUE(said.contains(u"tollbrook-report: [SQLite]no such table")) << said.toStdString();
}

TEST_F(Program, WritesAFileForEachStatement)
{
    const QStringList arguments {u"--report"_s,
                                 u"16"_s,
                                 u"--dsn"_s,
                                 Dsn(),
                                 u"--period"_s,
                                 u"2026-11-01..2026-11-30"_s,
                                 u"--split"_s,
                                 u"--output"_s};
    QDir(folder.path()).mkpath(u"each"_s);
    ASSERT_EQ(Run(arguments + QStringList {Out(u"each/s.csv"_s)}), 0) << said.toStdString();
    EXPECT_TRUE(printed.startsWith(u"9 statements in the folder "_s)) << printed.toStdString();
    const QStringList names = QDir(Out(u"each"_s)).entryList(QDir::Files, QDir::Name);
    const QStringList wanted {u"s-_1_1-3.csv"_s,
                              u"s-_Zo\u00eb-8.csv"_s,
                              u"s-__-blank-9.csv"_s,
                              u"s-_b__amp_-6.csv"_s,
                              u"s-anna-1.csv"_s,
                              u"s-O_Hara___Frank_-2.csv"_s,
                              u"s-two_lines-4.csv"_s,
                              u"s-%1-7.csv"_s.arg(QString(50, u'w')),
                              u"s-\u05d3\u05d5\u05d3-5.csv"_s};
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()),
              QSet<QString>(wanted.begin(), wanted.end()))
        << names.join(u' ').toStdString();
    QFile anna(Out(u"each/s-anna-1.csv"_s));
    ASSERT_TRUE(anna.open(QIODevice::ReadOnly));
    const auto lines = anna.readAll().trimmed().split('\n');
    EXPECT_GT(lines.size(), 4);
    EXPECT_TRUE(std::all_of(lines.begin() + 1, lines.end(), [](const QByteArray &line) {
        return line.startsWith("anna,");
    }));
}

TEST_F(Program, TellsHowManyStatementsAreWrittenWhenOneCannotBe)
{
    QDir(folder.path()).mkpath(u"s-anna-1.csv/in the way"_s);
    EXPECT_EQ(Run({u"--report"_s,
                   u"16"_s,
                   u"--dsn"_s,
                   Dsn(),
                   u"--split"_s,
                   u"--output"_s,
                   Out(u"s.csv"_s)}),
              5);
    EXPECT_TRUE(said.contains(u" of 9 statements are written)"_s)) << said.toStdString();
}

TEST_F(Program, TellsOfAnOlderSchemaAndRefusesANewerOne)
{
    const QStringList all {
        u"--report"_s, u"0"_s, u"--dsn"_s, Dsn(), u"--output"_s, Out(u"a.csv"_s)};
    const QStringList some = all + QStringList {u"--users"_s, u"anna"_s, u"--period"_s, u"month"_s};
    EXPECT_EQ(Run(all), 0);
    EXPECT_FALSE(said.contains(u"tollbrook-report: "_s)) << said.toStdString();
    test_data_source::RaiseSchemaVersion(Dsn());
    for (const QStringList &arguments : {all, some}) {
        QFile::remove(Out(u"a.csv"_s));
        EXPECT_EQ(Run(arguments), 3);
        EXPECT_TRUE(said.contains(NewerSchemaText(NewestSchema() + 1))) << said.toStdString();
        EXPECT_FALSE(QFile::exists(Out(u"a.csv"_s)));
    }
    test_data_source::ForgetSchemaVersion(Dsn());
    for (const QStringList &arguments : {all, some}) {
        EXPECT_EQ(Run(arguments), 0);
        EXPECT_TRUE(said.endsWith(u"tollbrook-report: "_s + OlderSchemaText(0, Dsn()) + u'\n'))
            << said.toStdString();
    }
}

TEST_F(Program, NeedsNoScreenWhateverTheEnvironmentNames)
{
    EXPECT_EQ(Run({u"--report"_s, u"0"_s, u"--dsn"_s, Dsn(), u"--output"_s, Out(u"a.pdf"_s)},
                  u"export QT_QPA_PLATFORM=xcb"_s),
              0)
        << said.toStdString();
}

TEST_F(Program, NarrowsToUsersAndGroupsWithinAPeriod)
{
    const QString name = u"\"O'Hara, \"\"Frank\"\"\",anna"_s;
    ASSERT_EQ(Run({u"--report"_s,
                   u"0"_s,
                   u"--dsn"_s,
                   Dsn(),
                   u"--period"_s,
                   u"2026-11-01..2026-11-30"_s,
                   u"--users"_s,
                   name,
                   u"--output"_s,
                   Out(u"b.csv"_s)}),
              0)
        << said.toStdString();
    QFile file(Out(u"b.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count('\n'), 3); // headings and two users
}

// Of two groups one is half of them, for which a dialog would write whom to leave out.
TEST_F(Program, AReportIsOfThoseNamedAndOfNobodyElse)
{
    Execute("INSERT INTO groups (group_id, name) VALUES (82, 'Yard'), (83, 'Empty')");
    Execute("UPDATE users SET group_id = 82 WHERE username = 'anna'");
    Execute("UPDATE users SET monitored = 0");
    Execute("UPDATE users SET monitored = 1 WHERE username = 'anna'");
    struct Case
    {
        QStringList narrowing;
        int users;
    };
    const Case cases[] = {
        {{u"--users"_s, u"anna"_s}, 1}, // the only one that is monitored
        {{u"--users"_s, u" anna , @ZO\u00cb"_s}, 2}, // one that is not
        {{u"--groups"_s, u"Yard, Empty"_s}, 1}, // half of them
        {{u"--users"_s, u"anna"_s, u"--groups"_s, u"Empty"_s}, 0},
    };
    for (const auto &[narrowing, users] : cases) {
        ASSERT_EQ(Run(narrowing
                      + QStringList {u"--report"_s,
                                     u"0"_s,
                                     u"--dsn"_s,
                                     Dsn(),
                                     u"--period"_s,
                                     u"2026-11-01..2026-11-30"_s,
                                     u"--output"_s,
                                     Out(u"b.csv"_s)}),
                  0)
            << said.toStdString();
        QFile file(Out(u"b.csv"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll().count('\n'), 1 + users) << narrowing.join(u' ').toStdString();
    }
}

TEST_F(Program, AnEmptyReportLeavesTheFormerFileWhenItIsAskedTo)
{
    QFile file(Out(u"c.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("yesterday") == 9);
    file.close();
    QStringList arguments {u"--report"_s,
                           u"0"_s,
                           u"--dsn"_s,
                           Dsn(),
                           u"--period"_s,
                           u"2001-01-01..2001-01-02"_s,
                           u"--output"_s,
                           file.fileName()};
    EXPECT_EQ(Run(arguments + QStringList {u"--fail-if-empty"_s}), 1);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "yesterday");
    file.close();
    EXPECT_EQ(Run(arguments), 0);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("User,"));
}

TEST_F(Program, SaysWhichDataSourceItHasRead)
{
    const QString file = Out(u"d.csv"_s);
    EXPECT_EQ(Run({u"--report"_s, u"0"_s, u"--dsn"_s, Dsn(), u"--output"_s, file}), 0);
    EXPECT_EQ(printed, u"%1: made from the data source \"%2\"\n"_s.arg(file, Dsn()));
}

TEST_F(Program, TellsItsVersion)
{
    EXPECT_EQ(Run({u"--version"_s}), 0);
    EXPECT_TRUE(printed.startsWith(u"tollbrook-report "_s) && printed.endsWith(u'\n'))
        << printed.toStdString();
    EXPECT_EQ(printed.count(u'.'), 2) << printed.toStdString();
}

TEST_F(Program, NoFontAndAFullDiskAreTold)
{
    for (int copies = 0; copies < 3; ++copies) { // more than the file's buffer takes
        Execute("INSERT INTO SiteAccess (user_id, site_id, access_time) SELECT user_id, site_id, "
                "access_time FROM SiteAccess");
    }
    QFile fonts(Out(u"fonts.conf"_s));
    ASSERT_TRUE(fonts.open(QIODevice::WriteOnly));
    fonts.write("<?xml version=\"1.0\"?><fontconfig/>");
    fonts.close();
    const QString noFonts = u"export FONTCONFIG_FILE='%1'"_s.arg(fonts.fileName());
    const QString smallDisk = u"trap '' XFSZ; ulimit -f 1"_s;
    struct Case
    {
        QString name;
        QString before;
        int status;
        const char *words;
    };
    const Case cases[] = {
        {u"a.pdf"_s, noFonts, 5, "no font is installed; install fonts-dejavu-core"},
        {u"a.csv"_s, noFonts, 0, ""},
        {u"b.pdf"_s, smallDisk, 5, "b.pdf cannot be written: "},
        {u"b.csv"_s, smallDisk, 5, "b.csv cannot be written: File too large"},
        {u"b.html"_s, smallDisk, 5, "b.html cannot be written: File too large"},
        {u"b.xlsx"_s, smallDisk, 5, "b.xlsx cannot be written: "},
    };
    for (const auto &[name, before, status, words] : cases) {
        const QStringList arguments {
            u"--report"_s, u"15"_s, u"--dsn"_s, Dsn(), u"--output"_s, Out(name)};
        EXPECT_EQ(Run(arguments, before), status) << name.toStdString() << said.toStdString();
        EXPECT_TRUE(said.contains(QLatin1StringView(words))) << said.toStdString();
        EXPECT_EQ(QFile::exists(Out(name)), status == 0) << name.toStdString();
    }
}

TEST_F(Program, MakesASavedReport)
{
    SaveReport(u"A week"_s,
               "report = \"trafall\"\nperiod = \"2026-11-01..2026-11-30\"\nusers = [1, 2, 99]\n"
               "output = \""
                   + Out(u"week.csv"_s).toUtf8() + "\"\n[schedule]\nevery = \"day\"\n");
    const QStringList saved {u"--saved"_s, u"A week"_s, u"--dsn"_s, Dsn()};
    const auto lines = [this](const QString &name) {
        QFile file(Out(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().count('\n') : -1;
    };
    ASSERT_EQ(Run(saved), 0) << said.toStdString();
    EXPECT_EQ(lines(u"week.csv"_s), 3); // headings and two users; the third is gone
    EXPECT_EQ(QFile::permissions(Out(u"week.csv"_s)) & QFile::ReadGroup, QFile::Permissions());
    QFile::remove(Out(u"week.csv"_s));
    ASSERT_EQ(Run(saved + QStringList {u"--group-reads"_s}), 0);
    EXPECT_EQ(QFile::permissions(Out(u"week.csv"_s)) & (QFile::ReadGroup | QFile::WriteGroup),
              QFile::ReadGroup);
    ASSERT_EQ(Run(saved + QStringList {u"--output"_s, Out(u"trial.html"_s)}), 0);
    EXPECT_TRUE(QFile::exists(Out(u"trial.html"_s)));
    ASSERT_EQ(Run({u"--list-saved"_s}), 0);
    EXPECT_EQ(printed,
              u"A week: Traffic (Summary), 2026-11-01..2026-11-30, %1, each day at 02:15\n"_s.arg(
                  Out(u"week.csv"_s)));
    SaveReport(u"but"_s,
               "report = \"trafall\"\nperiod = \"2026-11-01..2026-11-30\"\nall_users_but = [1]\n"
               "output = \""
                   + Out(u"but.csv"_s).toUtf8() + "\"\n");
    ASSERT_EQ(Run({u"--saved"_s, u"but"_s, u"--dsn"_s, Dsn()}), 0) << said.toStdString();
    EXPECT_GT(lines(u"but.csv"_s), 3);
    QFile but(Out(u"but.csv"_s));
    ASSERT_TRUE(but.open(QIODevice::ReadOnly));
    EXPECT_FALSE(but.readAll().contains("anna"));
}

TEST_F(Program, RefusesASavedReportThatIsNotWhole)
{
    const QByteArray rest = "output = \"" + Out(u"x.csv"_s).toUtf8() + "\"\n";
    SaveReport(u"gone"_s, "report = \"trafall\"\nperiod = \"month\"\nusers = [99]\n" + rest);
    SaveReport(u"damaged"_s, "report = 7\n" + rest);
    SaveReport(u"good"_s, "report = \"trafall\"\n" + rest);
    struct Case
    {
        QStringList arguments;
        const char *words;
    };
    const Case cases[] = {
        {{u"--saved"_s, u"gone"_s}, "exists any more"},
        {{u"--saved"_s, u"damaged"_s}, "damaged.toml\" is damaged and must be mended"},
        {{u"--saved"_s, u"none"_s}, "no such saved report: \"none\""},
        {{u"--saved"_s, u"../good"_s}, "no such saved report"},
        {{u"--saved"_s, u"good"_s, u"--period"_s, u"month"_s}, "already what --period would"},
        {{u"--saved"_s, u"good"_s, u"--users"_s, u"anna"_s}, "already what --users would"},
        {{u"--schedule"_s, u"damaged"_s, u"--units"_s, Out({})}, "is damaged"},
        {{u"--schedule"_s, u"a/b"_s, u"--units"_s, Out({})}, "A name has letters"},
        {{u"--schedule"_s, u"good"_s}, "are saved in /etc/tollbrook, not in"},
        {{u"--saved"_s, u"good"_s, u"--list-saved"_s}, "--saved and --list-saved cannot stand"},
        {{u"--saved"_s, u"good"_s, u"--schedule"_s, u"good"_s}, "cannot stand together"},
        {{u"--saved"_s, u"good"_s, u"--units"_s, u"/tmp"_s}, "--units goes with --schedule"},
        {{u"--saved"_s, u"good"_s, u"--output"_s, u"x.doc"_s}, "--output must name a"},
        {{u"--list-saved"_s}, "damaged.toml"},
    };
    for (const auto &[arguments, words] : cases) {
        EXPECT_EQ(Run(arguments + QStringList {u"--dsn"_s, Dsn()}), 2)
            << arguments.join(u' ').toStdString();
        EXPECT_TRUE(said.contains(QLatin1StringView(words))) << said.toStdString();
        EXPECT_FALSE(QFile::exists(Out(u"x.csv"_s)));
    }
}

TEST_F(Program, BringsTheTimerInLineWithTheSchedule)
{
    const QByteArray report =
        "report = \"trafall\"\noutput = \"" + Out(u"x.csv"_s).toUtf8() + "\"\n";
    SaveReport(u"a"_s, report + "[schedule]\nevery = \"month\"\nday = 3\nat = \"06:30\"\n");
    const QStringList arguments {u"--schedule"_s, u"a"_s, u"--units"_s, folder.path()};
    const QString timer = Out(u"tollbrook-report@a.timer"_s);
    ASSERT_EQ(Run(arguments), 0) << said.toStdString();
    EXPECT_EQ(printed, u"a: on day 3 of each month at 06:30\n"_s);
    QFile file(timer);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("\nOnCalendar=*-*-03 06:30:00\n"));
    SaveReport(u"a"_s, report);
    ASSERT_EQ(Run(arguments), 0);
    EXPECT_EQ(printed, u"a: not scheduled\n"_s);
    EXPECT_FALSE(QFile::exists(timer));
    SaveReport(u"a"_s, report + "[schedule]\nevery = \"day\"\n");
    ASSERT_EQ(Run(arguments), 0);
    ASSERT_TRUE(QFile::exists(timer));
    QFile::remove(SavedReports(ConfigStore(folder.path())).FileOf(u"a"_s));
    ASSERT_EQ(Run(arguments), 0);
    EXPECT_FALSE(QFile::exists(timer));
    EXPECT_EQ(Run({u"--schedule"_s, u"a"_s, u"--units"_s, Out(u"none"_s)}), 0); // nothing to remove
    SaveReport(u"a"_s, report + "[schedule]\nevery = \"day\"\n");
    EXPECT_EQ(Run({u"--schedule"_s, u"a"_s, u"--units"_s, Out(u"none"_s)}), 7);
    EXPECT_TRUE(said.contains(u"cannot be written"_s)) << said.toStdString();
}

TEST_F(Program, NotesHowARunWentWhereEverybodyMayReadIt)
{
    using Result = TimerState::Result;
    struct Case
    {
        QString environment;
        Result result;
        int status;
    };
    const Case cases[] = {
        {u"SERVICE_RESULT=success EXIT_CODE=exited EXIT_STATUS=0"_s, Result::Done, 0},
        {u"SERVICE_RESULT=success EXIT_CODE=exited EXIT_STATUS=1"_s, Result::Done, 1},
        {u"SERVICE_RESULT=exit-code EXIT_CODE=exited EXIT_STATUS=5"_s, Result::Failed, 5},
        {u"SERVICE_RESULT=signal EXIT_CODE=killed EXIT_STATUS=KILL"_s,
         Result::Failed,
         TimerState::kKilled},
        {u"SERVICE_RESULT=signal EXIT_CODE=killed EXIT_STATUS=9"_s,
         Result::Failed,
         TimerState::kKilled},
        {u"SERVICE_RESULT=resources"_s, Result::Failed, TimerState::kKilled},
    };
    const RunRecords records {ConfigStore(folder.path())};
    const QString name = u"Month end \u00e4"_s;
    EXPECT_FALSE(records.Read(name).value());
    const QStringList note {u"--note-run"_s, name};
    for (const Case &each : cases) {
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        ASSERT_EQ(Run(note, u"umask 0077; export "_s + each.environment), 0) << said.toStdString();
        const auto record = records.Read(name);
        ASSERT_TRUE(record && *record) << each.environment.toStdString();
        EXPECT_EQ((*record)->result, each.result) << each.environment.toStdString();
        EXPECT_EQ((*record)->exitStatus, each.status) << each.environment.toStdString();
        EXPECT_GE((*record)->ended, before);
        EXPECT_LE((*record)->ended, QDateTime::currentDateTime());
        EXPECT_TRUE(QFile(records.FileOf(name)).permissions().testFlag(QFile::ReadOther));
    }
    EXPECT_EQ(Run(note), 2) << "no run has ended";
    EXPECT_EQ(Run({u"--note-run"_s, u"../x"_s}, u"export SERVICE_RESULT=success"_s), 2);
    ASSERT_EQ(Run({u"--schedule"_s, name, u"--units"_s, folder.path()}),
              0); // there is no such report
    EXPECT_FALSE(records.Read(name).value());
}

TEST_F(Program, ANoteThatIsNotWholeIsNoRun)
{
    const RunRecords records {ConfigStore(folder.path())};
    QDir(folder.path()).mkpath(u"report-runs"_s);
    const char *const damaged[] = {
        "",
        "ended = \"2026-11-21T02:15:00Z\"\n",
        "result = \"done\"\n",
        "ended = \"soon\"\nresult = \"done\"\n",
        "ended = \"2026-11-21T02:15:00Z\"\nresult = \"well\"\n",
        "ended = \"2026-11-21T02:15:00Z\"\nresult = \"done\"\nstatus = 256\n",
        "ended = "};
    for (const char *toml : damaged) {
        QFile file(records.FileOf(u"a"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(toml) >= 0);
        file.close();
        const auto record = records.Read(u"a"_s);
        const bool isDone = record && *record && (*record)->result == TimerState::Result::Done;
        EXPECT_FALSE(isDone) << toml;
    }
    const QDateTime then({2026, 11, 21}, {2, 15});
    ASSERT_TRUE(records.Write(u"a"_s, {then, TimerState::Result::Failed, 3}));
    EXPECT_EQ(records.Read(u"a"_s).value(), (RunRecord {then, TimerState::Result::Failed, 3}));
}

TEST_F(Program, SendsTheFileByTheSystemsSendmail)
{
    EXPECT_EQ(Run({u"--report"_s, u"0"_s, u"--output"_s, Out(u"x.csv"_s), u"--mail"_s, QString()}),
              2);
    EXPECT_TRUE(said.contains(u"--mail needs an address"_s)) << said.toStdString();
    QDir(folder.path()).mkpath(u"bin"_s);
    const auto sendmail = [this](const QByteArray &script) {
        QFile file(Out(u"bin/sendmail"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    };
    const QString before = u"PATH='%1':$PATH"_s.arg(Out(u"bin"_s));
    sendmail("echo \"$@\" >'" + Out(u"sent"_s).toUtf8() + "'; cat >>'" + Out(u"sent"_s).toUtf8()
             + "'");
    const QStringList arguments {u"--report"_s,
                                 u"0"_s,
                                 u"--dsn"_s,
                                 Dsn(),
                                 u"--output"_s,
                                 Out(u"a.csv"_s),
                                 u"--mail"_s,
                                 u"office@example.org"_s};
    ASSERT_EQ(Run(arguments, before), 0) << said.toStdString();
    EXPECT_TRUE(printed.endsWith(u"a.csv: sent to office@example.org\n"_s))
        << printed.toStdString();
    QFile sent(Out(u"sent"_s));
    QFile made(Out(u"a.csv"_s));
    ASSERT_TRUE(sent.open(QIODevice::ReadOnly) && made.open(QIODevice::ReadOnly));
    QByteArray message = sent.readAll();
    EXPECT_TRUE(message.startsWith("-i -- office@example.org\nTo: office@example.org\n"));
    EXPECT_TRUE(message.replace('\n', "").contains(made.readAll().toBase64()));
    sendmail("cat >/dev/null; echo 'mailbox full'; exit 75\n");
    EXPECT_EQ(Run(arguments, before), 6);
    EXPECT_TRUE(said.contains(u"was not sent to office@example.org: "_s)) << said.toStdString();
    EXPECT_TRUE(said.contains(u"ended with status 75. mailbox full"_s)) << said.toStdString();
    QFile::remove(sent.fileName());
    const QStringList empty {u"--period"_s, u"2001-01-01..2001-01-02"_s, u"--fail-if-empty"_s};
    sendmail("touch '" + Out(u"sent"_s).toUtf8() + "'\n");
    EXPECT_EQ(Run(arguments + empty, before), 1);
    EXPECT_FALSE(QFile::exists(Out(u"sent"_s)));
    EXPECT_EQ(Run(arguments + QStringList {u"--mail"_s, u"-bad"_s}, before), 2);
}
