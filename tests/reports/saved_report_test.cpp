// Saved reports as files, their timers and their mail: rules without a database and without a screen.
#include "reports/saved_report.h"

#include "reports/catalogue.h"
#include "reports/report_mail.h"
#include "reports/report_timer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Every = ReportSchedule::Every;

SavedReport Whole()
{
    return {.row = kStatementRow,
            .period = u"previous-month"_s,
            .users = {FilterEffect::Only, {UserId {17}, UserId {4'000'000'000}}},
            .groups = {FilterEffect::AllBut, {GroupId {80}}},
            .output = u"/srv/b\u00fccher/\"letters\".pdf"_s,
            .split = false,
            .csvBom = true,
            .failIfEmpty = true,
            .mail = u"office@example.org"_s,
            .schedule = {.every = Every::Month, .day = 28, .at = {23, 59, 58}}};
}

class Saved : public testing::Test
{
protected:
    void Put(const QString &name, const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(reports.FileOf(name)).path());
        QFile file(reports.FileOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    ConfigStore settings {folder.path()};
    SavedReports reports {settings};
};

} // namespace

TEST_F(Saved, ReadsBackWhatItWrote)
{
    for (int row = 0; row < kListedCount; ++row) {
        EXPECT_EQ(FindReport(ShortNameOf(row)), row);
    }
    EXPECT_EQ(reports.Names(), QStringList());
    SavedReport split = Whole();
    split.mail.clear();
    split.split = true;
    SavedReport plain {.row = 3, .output = u"/a.csv"_s};
    for (const SavedReport &report : {Whole(), split, plain}) {
        ASSERT_TRUE(reports.Write(u"S\u00fcd 1"_s, report));
        const auto read = reports.Read(u"S\u00fcd 1"_s);
        ASSERT_TRUE(read) << TextOf(read.error()).toStdString();
        EXPECT_EQ(*read, report);
    }
    ASSERT_TRUE(reports.Write(u"a"_s, plain));
    EXPECT_EQ(reports.Names(), QStringList({u"a"_s, u"S\u00fcd 1"_s}));
    EXPECT_EQ(QFile::permissions(reports.FileOf(u"a"_s)) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::WriteGroup);
    ASSERT_TRUE(reports.Remove(u"a"_s));
    EXPECT_FALSE(reports.Has(u"a"_s));
    EXPECT_TRUE(reports.Remove(u"a"_s)); // gone is gone
    EXPECT_TRUE(TextOf(reports.Read(u"a"_s).error()).contains(u"does not exist"));
}

TEST_F(Saved, ADamagedFileIsToldAndKept)
{
    struct Case
    {
        QByteArray toml;
        const char *words;
        int line;
    };
    const QByteArray good = "report = \"trafall\"\noutput = \"/a.pdf\"\n";
    const Case cases[] = {
        {"report = ", "no TOML", 1},
        {"report = \"trafal\"\noutput = \"/a.pdf\"", "names none of the reports", 1},
        {"output = \"/a.pdf\"", "names none of the reports", 1},
        {good + "user = [1]", "the nearest known one is \"users\"", 3},
        {good + "period = \"month\"\nusers = [0]", "\"users\" is not a list of numbers", 4},
        {good + "period = \"month\"\nusers = [4294967296]", "not a list of numbers", 4},
        {good + "period = \"month\"\nusers = [\"anna\"]", "not a list of numbers", 4},
        {good + "period = \"month\"\nusers = []", "must name somebody", 0},
        {good + "period = \"month\"\nall_groups_but = []", "must name somebody", 0},
        {good + "users = [1]\nall_users_but = [2]", "cannot stand together", 4},
        {good + "users = [1]", "only together with a period", 0},
        {good + "period = \"yesterday\"", "is no period", 0},
        {good + "split = true", "Only statements", 0},
        {good + "split = 1", "neither true nor false", 3},
        {good + "mail = \"-oQ/tmp\"", "no mail address", 0},
        {good + "mail = \"a b\"", "no mail address", 0},
        {good + "mail = \"|/bin/sh\"", "no mail address", 0},
        {good + "mail = \"/etc/passwd\"", "no mail address", 0},
        {good + "mail = \"a@b\\nBcc: c@d\"", "no mail address", 0},
        {good + "mail = \"'a'@b\"", "no mail address", 0},
        {"report = \"trafall\"\noutput = \"/a\\n.pdf\"", "control character", 0},
        {"report = \"trafall\"\noutput = \"/a\\u0000.pdf\"", "control character", 0},
        {good + "schedule = \"day\"", "is not a [schedule]", 3},
        {good + "[[schedule]]\nevery = \"day\"", "is not a [schedule]", 3},
        {good + "[schedule]\nat = \"02:15\"", "needs \"every\"", 3},
        {good + "[schedule]\nevery = \"day\"\nat = \"02:15:59.5\"", "such as 02:15", 5},
        {"report = \"statement\"\noutput = \"/a.pdf\"\nsplit = true\nmail = \"a\"", "one file", 0},
        {"report = \"trafall\"\noutput = \"a.pdf\"", "full path", 0},
        {"report = \"trafall\"\noutput = \"/a.doc\"", "must end in", 0},
        {good + "[schedule]\nevery = \"hour\"", "cannot be \"hour\"", 4},
        {good + "[schedule]\nevery = \"week\"\nday = 8", "from 1 to 7", 5},
        {good + "[schedule]\nevery = \"month\"\nday = 29", "from 1 to 28", 5},
        {good + "[schedule]\nevery = \"day\"\nat = \"2 o'clock\"", "such as 02:15", 5},
    };
    for (const auto &[toml, words, line] : cases) {
        Put(u"x"_s, toml);
        const auto read = reports.Read(u"x"_s);
        ASSERT_FALSE(read) << toml.toStdString();
        EXPECT_TRUE(read.error().reason.contains(QLatin1StringView(words)))
            << read.error().reason.toStdString();
        EXPECT_EQ(read.error().line, line) << toml.toStdString();
        EXPECT_FALSE(TextOf(read.error()).endsWith(u".."_s)) << toml.toStdString();
        EXPECT_FALSE(reports.Write(u"x"_s, Whole()));
        EXPECT_EQ(reports.Names(), QStringList(u"x"_s));
    }
    Put(u"x"_s, good);
    EXPECT_TRUE(reports.Read(u"x"_s));
    // Somebody copied a file; what cannot run must be seen.
    Put(u"x (copy)"_s, good);
    EXPECT_EQ(reports.Names(), QStringList({u"x"_s, u"x (copy)"_s}));
    const auto copied = reports.Read(u"x (copy)"_s);
    ASSERT_FALSE(copied);
    EXPECT_TRUE(
        TextOf(copied.error()).contains(u"x (copy).toml\" has a name that no report can have"_s))
        << TextOf(copied.error()).toStdString();
}

TEST(SavedName, IsOneOfAFileAndOfATimer)
{
    for (const char *name : {"a", "Monthly bills 2", "S\u00fcd-West_1.0", "9"}) {
        EXPECT_EQ(NameProblem(QString::fromUtf8(name)), QString()) << name;
    }
    for (const char *name :
         {"", " a", "a ", ".a", "-a", "a/b", "a\nb", "a%i", "$a", "a\"b", "../a", "a\\b"}) {
        EXPECT_NE(NameProblem(QString::fromUtf8(name)), QString()) << name;
    }
    EXPECT_EQ(NameProblem(QString(50, u'a')), QString());
    EXPECT_NE(NameProblem(QString(51, u'a')), QString());
}

TEST(Schedule, IsWrittenAsATimerSaysIt)
{
    const QTime at(2, 15);
    EXPECT_EQ(CalendarText({}), QString());
    EXPECT_EQ(CalendarText({Every::Day, 1, at}), u"*-*-* 02:15:00"_s);
    EXPECT_EQ(CalendarText({Every::Week, 1, at}), u"Mon *-*-* 02:15:00"_s);
    EXPECT_EQ(CalendarText({Every::Week, 7, at}), u"Sun *-*-* 02:15:00"_s);
    EXPECT_EQ(CalendarText({Every::Day, 1, {2, 15, 9}}), u"*-*-* 02:15:09"_s);
    EXPECT_EQ(TimeText({2, 15, 9}), u"02:15:09"_s);
    EXPECT_EQ(CalendarText({Every::Month, 3, at}), u"*-*-03 02:15:00"_s);
    EXPECT_EQ(TimerUnit(u"S\u00fcd 1.a-b"_s),
              u"tollbrook-report@S\\xc3\\xbcd\\x201.a\\x2db.timer"_s);
    EXPECT_EQ(ServiceUnit(u"a"_s), u"tollbrook-report@a.service"_s);
}

TEST(Timer, IsMadeChangedAndRemoved)
{
    const QTemporaryDir folder;
    QStringList told;
    QString refused;
    const TimerPlace place {.folder = folder.path(),
                            .systemctl = [&](const QStringList &arguments, QString &problem) {
                                told += arguments.join(u' ');
                                problem = u"no"_s;
                                return told.back() != refused;
                            }};
    QString problem;
    ASSERT_TRUE(PutTimer(u"a"_s, {.every = Every::Week, .day = 2, .at = {6, 0}}, place, problem));
    const QString unit = u"tollbrook-report@a.timer"_s;
    EXPECT_EQ(told, QStringList({u"daemon-reload"_s, u"enable "_s + unit, u"restart "_s + unit}));
    QFile file(folder.filePath(unit));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("\nDescription=Time of the Tollbrook report \"a\"\n"));
    EXPECT_TRUE(text.contains("\nOnCalendar=Tue *-*-* 06:00:00\nPersistent=true\n"));
    EXPECT_TRUE(text.endsWith("[Install]\nWantedBy=timers.target\n"));
    told.clear();
    refused = u"disable --now "_s + unit;
    EXPECT_FALSE(PutTimer(u"a"_s, {}, place, problem));
    EXPECT_TRUE(QFile::exists(folder.filePath(unit))); // it still runs
    EXPECT_EQ(problem, u"no"_s);
    refused.clear();
    told.clear();
    EXPECT_TRUE(PutTimer(u"a"_s, {}, place, problem));
    EXPECT_EQ(told, QStringList({u"disable --now "_s + unit, u"daemon-reload"_s}));
    EXPECT_FALSE(QFile::exists(folder.filePath(unit)));
    told.clear();
    EXPECT_TRUE(PutTimer(u"a"_s, {}, place, problem));
    EXPECT_EQ(told, QStringList());
    EXPECT_FALSE(
        PutTimer(u"a"_s, {.every = Every::Day}, {.folder = folder.filePath(u"none"_s)}, problem));
    EXPECT_TRUE(problem.contains(u"cannot be written")) << problem.toStdString();
}

TEST(Mail, CarriesTheFileAndWordsOfAnyLetters)
{
    const QByteArray file(1000, '\xff');
    const QByteArray message = MessageOf({.to = u"a@example.org"_s,
                                          .subject = u"Traffic\nBcc: b@example.org \u00fc"_s,
                                          .text = u"T\u00fcr"_s,
                                          .fileName = u"S\u00fcd \"1\".pdf"_s,
                                          .file = file});
    const auto lines = message.split('\n');
    EXPECT_TRUE(std::all_of(
        lines.begin(), lines.end(), [](const QByteArray &line) { return line.size() <= 78; }));
    EXPECT_TRUE(message.startsWith("To: a@example.org\nSubject: =?UTF-8?B?"));
    EXPECT_FALSE(message.contains("\nBcc"));
    EXPECT_TRUE(message.contains("filename*=UTF-8''S%C3%BCd%20%221%22.pdf\n"));
    EXPECT_TRUE(message.contains(QByteArray("\n" + QByteArray("T\u00fcr").toBase64() + "\n")));
    QByteArray attached = message.mid(message.lastIndexOf(".pdf\n\n") + 6);
    attached.truncate(attached.indexOf("\n--=_"));
    EXPECT_EQ(QByteArray::fromBase64(attached.replace('\n', "")), file);
}
