// "time ..." and "restriction ...": of users and of groups.
#include "cli/command_line_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class RestrictionCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        AddOwners();
    }
};
TB_ON_EVERY_ENGINE(RestrictionCommands);

QStringList Words(const QString &line)
{
    return line.split(u' ');
}

struct OwnerCase
{
    QString words;
    const char *ranges;
    const char *grant;
    const char *ports;
    const char *allow;
};

const OwnerCase kOwners[] = {
    {u"anna"_s,
     "SELECT dayofweek, timestart, timestop FROM Time_blocked WHERE user_id = 1 AND group_id IS NULL "
     "ORDER BY dayofweek, timestart",
     "SELECT TimeAccess FROM users WHERE user_id = 1",
     "SELECT port_id FROM Port_blocked WHERE user_id = 1 AND group_id IS NULL",
     "SELECT PortAccess FROM users WHERE user_id = 1"},
    {u"--group yard"_s,
     "SELECT dayofweek, timestart, timestop FROM Time_blocked WHERE group_id = 90 "
     "AND user_id IS NULL ORDER BY dayofweek, timestart",
     "SELECT TimeAccess FROM groups WHERE group_id = 90",
     "SELECT port_id FROM Port_blocked WHERE group_id = 90 AND user_id IS NULL",
     "SELECT PortAccess FROM groups WHERE group_id = 90"}};

} // namespace

TEST_P(RestrictionCommands, TimesAreAddedShownAndRemoved)
{
    for (const OwnerCase &owner : kOwners) {
        SCOPED_TRACE(qPrintable(owner.words));
        const QString add = u"time add %1 --day friday --day monday --from 8:00 --until 17:30 "
                            "--access allow"_s.arg(owner.words);
        const QStringList before = EveryRow();
        ASSERT_EQ(Run(Words(add + u" --dry-run"_s)), 0) << qPrintable(said);
        EXPECT_THAT(printed.toStdString(), HasSubstr("Nothing was written"));
        EXPECT_EQ(EveryRow(), before);

        const auto added = ObjectOf(Words(add));
        EXPECT_EQ(added[u"changes"].toArray().size(), 3) << qPrintable(printed);
        const QStringList both {u"1|08:00:00|17:30:00"_s, u"5|08:00:00|17:30:00"_s};
        EXPECT_EQ(RowsOf(owner.ranges), both);
        EXPECT_EQ(RowsOf(owner.grant), QStringList(u"1"_s));
        ASSERT_EQ(Run(Words(u"time set %1 --access allow"_s.arg(owner.words))), 0);
        EXPECT_THAT(printed.toStdString(), HasSubstr("is so already. Nothing was changed."));

        const auto shown = ObjectOf(Words(u"time show "_s + owner.words));
        EXPECT_EQ(shown[u"access"], u"allow"_s);
        const auto ranges = shown[u"ranges"].toArray();
        EXPECT_EQ(FieldsOf(ranges, u"day"_s), (QStringList {u"monday"_s, u"friday"_s}));
        ASSERT_EQ(Run(Words(u"time show "_s + owner.words)), 0);
        EXPECT_THAT(printed.toStdString(), HasSubstr("friday  08:00:00  17:30:00\n"));

        const QString monday = FieldsOf(ranges, u"range"_s).value(0);
        ASSERT_EQ(Run(Words(u"time remove %1 --range %2"_s.arg(owner.words, monday))), 0)
            << qPrintable(said);
        EXPECT_EQ(RowsOf(owner.ranges), both.sliced(1));
        ExpectRefused(qPrintable(u"time remove %1 --range %2"_s.arg(owner.words, monday)),
                      1,
                      "There is no range");
        ASSERT_EQ(Run(Words(u"time set %1 --access deny"_s.arg(owner.words))), 0);
        EXPECT_EQ(RowsOf(owner.grant), QStringList(u"0"_s));
        EXPECT_EQ(RowsOf(owner.ranges), both.sliced(1));
    }
}

TEST_P(RestrictionCommands, TimesThatAreNoneAreRefused)
{
    struct Case
    {
        const char *line;
        int status;
        const char *words;
    };
    const Case cases[] = {
        {"time add anna --day monday --from 17:00 --until 17:00", 1, "Wrong time specification"},
        {"time add anna --day monday --from 22:00 --until 2:00", 1, "Wrong time specification"},
        {"time add anna --from 8:00 --until 9:00", 1, "Please select day"},
        {"time add anna --day someday --from 8:00 --until 9:00", 2, "monday, tuesday"},
        {"time add anna --day monday --from 24:00 --until 25:00", 2, "is no time of day"},
        {"time add anna --day monday --from 8:00", 2, "--until"},
        {"time add anna --day monday --from 8:00 --until 9:00 --access maybe", 2, "allow, deny"},
        {"time add --day monday --from 8:00 --until 9:00", 2, "Name either a user or"},
        {"time add nobody --day monday --from 8:00 --until 9:00", 1, "There is no user"},
        {"time set anna", 2, "Name what is to change"},
        {"time set --group Yard", 2, "Name what is to change"},
        {"time remove anna", 2, "--range"},
        {"time remove anna --range x", 1, "There is no range x"},
        {"time show --group nowhere", 1, "There is no group"},
    };
    for (const auto &[line, status, words] : cases) {
        ExpectRefused(line, status, words);
    }
}

TEST_P(RestrictionCommands, ProtocolsAreSelectedAndReleased)
{
    const QStringList ftpPorts =
        RowsOf("SELECT port_id FROM Ports WHERE proto_id = 3 ORDER BY port_id");
    ASSERT_FALSE(ftpPorts.isEmpty());
    for (const OwnerCase &owner : kOwners) {
        SCOPED_TRACE(qPrintable(owner.words));
        const QString set = u"restriction set "_s + owner.words;
        const QStringList before = EveryRow();
        ASSERT_EQ(Run(Words(set + u" --select ftp --access allow --dry-run"_s)), 0);
        EXPECT_EQ(EveryRow(), before);
        ASSERT_EQ(Run(Words(set + u" --select ftp --access allow"_s)), 0) << qPrintable(said);
        EXPECT_EQ(RowsOf(owner.ports), ftpPorts);
        EXPECT_EQ(RowsOf(owner.allow), QStringList(u"1"_s));
        const auto shown = ObjectOf(Words(u"restriction show "_s + owner.words));
        EXPECT_EQ(shown[u"access"], u"allow"_s);
        EXPECT_EQ(shown[u"selected"].toArray(), QJsonArray {u"FTP"_s});
        EXPECT_FALSE(shown[u"available"].toArray().contains(u"FTP"_s));
        ASSERT_EQ(Run(Words(set + u" --select FTP"_s)), 0);
        EXPECT_TRUE(printed.contains(u"is so already"_s)) << printed.toStdString();
        ExpectRefused(qPrintable(set + u" --select GOPHER"_s), 1, "There is no protocol");
        ExpectRefused(qPrintable(set + u" --release GOPHER"_s), 1, "There is no protocol");
        ASSERT_EQ(Run(Words(set + u" --release FTP --access deny"_s)), 0);
        EXPECT_EQ(RowsOf(owner.ports), QStringList());
        EXPECT_EQ(RowsOf(owner.allow), QStringList(u"0"_s));
    }
    RunBeside("INSERT INTO Protocols (proto_name, mon) VALUES ('EMPTY', 0)");
    ExpectRefused("restriction set anna --select EMPTY", 1, "has no ports");
}
