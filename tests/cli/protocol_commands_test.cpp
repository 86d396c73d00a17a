// "protocol ..." and "purge".
#include "cli/command_line_fixture.h"
#include "support/core/fake_service.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class ProtocolCommands : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        AddOwners();
    }

    // Done as it is, and nothing with --dry-run.
    void ExpectDone(const char *line)
    {
        const QStringList words = QString::fromUtf8(line).split(u' ');
        const QStringList before = EveryRow();
        EXPECT_EQ(Run(words + QStringList {u"--dry-run"_s}), 0) << line << qPrintable(said);
        EXPECT_THAT(printed.toStdString(), HasSubstr("protocols "));
        EXPECT_EQ(EveryRow(), before) << line;
        EXPECT_EQ(Run(words), 0) << line << qPrintable(said);
        EXPECT_NE(EveryRow(), before) << line;
    }
};
TB_ON_EVERY_ENGINE(ProtocolCommands);

class PurgeCommand : public ProtocolCommands
{
protected:
    void SetUp() override
    {
        ProtocolCommands::SetUp();
        RunBeside("INSERT INTO traffic_use (user_id, period, current_time) "
                  "VALUES (1, 0, '2026-01-01')");
        RunBeside("INSERT INTO traffic_use (user_id, period, current_time) "
                  "VALUES (1, 0, '2026-02-01')");
        UseBus(bus.Address());
    }

    PrivateBus bus;
    FakeService service {bus};
};
TB_ON_EVERY_ENGINE(PurgeCommand);

QStringList Words(const char *line)
{
    return QString::fromUtf8(line).split(u' ');
}

QStringList PortsOf(const char *protocol)
{
    return RowsOf((std::string("SELECT port_number FROM Ports WHERE proto_id = "
                               "(SELECT id FROM Protocols WHERE proto_name = '")
                   + protocol + "') ORDER BY port_number")
                      .c_str());
}

} // namespace

TEST_P(ProtocolCommands, ProtocolsAndPortsAreAddedChangedAndRemoved)
{
    ExpectDone("protocol add Gopher 70 7070 --monitored");
    EXPECT_EQ(PortsOf("Gopher"), (QStringList {u"70"_s, u"7070"_s}));
    EXPECT_EQ(RowsOf("SELECT mon FROM Protocols WHERE proto_name = 'Gopher'"), QStringList(u"1"_s));
    ExpectDone("protocol set GOPHER --add-port 71 --add-port 72 --remove-port 7070");
    EXPECT_EQ(PortsOf("Gopher"), (QStringList {u"70"_s, u"71"_s, u"72"_s}));
    ExpectDone("protocol set gopher --monitored no");
    const auto listed = ListOf(Words("protocol list"));
    const qsizetype place = FieldsOf(listed, u"name"_s).indexOf(u"Gopher"_s);
    ASSERT_GE(place, 0);
    EXPECT_EQ(listed[place][u"monitored"], false);
    EXPECT_EQ(listed[place][u"ports"].toArray(), (QJsonArray {70, 71, 72}));
    ExpectDone("protocol remove gopher");
    EXPECT_EQ(PortsOf("Gopher"), QStringList());
}

TEST_P(ProtocolCommands, RefusesWhatTheWindowsRefuse)
{
    struct Case
    {
        const char *line;
        int status;
        const char *words;
    };
    const Case cases[] = {
        {"protocol add ftp", 1, "already in the list"},
        {"protocol add Gopher 0", 1, "between 1 and 65535"},
        {"protocol add Gopher 65536", 1, "between 1 and 65535"},
        {"protocol add Gopher seventy", 1, "between 1 and 65535"},
        {"protocol add Gopher 70 70", 1, "already in list"},
        {"protocol set Gopher --add-port 1", 1, "There is no protocol \"Gopher\""},
        {"protocol set FTP --remove-port 9999", 1, "has no port 9999"},
        {"protocol set FTP --remove-port x", 1, "has no port x"},
        {"protocol set FTP --monitored maybe", 2, "yes, no"},
        {"protocol set FTP", 2, "Name what is to change"},
        {"protocol remove Gopher", 1, "There is no protocol"},
    };
    for (const auto &[line, status, words] : cases) {
        ExpectRefused(line, status, words);
    }
}

TEST_P(ProtocolCommands, WhatSomebodyIsDeniedGoesAfterAQuestion)
{
    ASSERT_EQ(Run(Words("restriction set anna --select FTP")), 0) << qPrintable(said);
    ExpectRefused("protocol remove FTP", 1, "FTP");
    const QStringList before = EveryRow();
    EXPECT_EQ(RunOnTerminal(Words("protocol remove FTP"), "n\n"), 1);
    EXPECT_THAT(said.toStdString(), HasSubstr("Nothing was changed."));
    EXPECT_EQ(EveryRow(), before);
    ASSERT_EQ(Run(Words("protocol remove FTP --yes")), 0) << qPrintable(said);
    EXPECT_EQ(RowsOf("SELECT port_id FROM Port_blocked"), QStringList());
}

TEST_P(ProtocolCommands, ToMonitorNothingIsAQuestion)
{
    RunBeside("UPDATE Protocols SET mon = 0 WHERE proto_name <> 'FTP'");
    ASSERT_TRUE(Settings().WriteText(values::kMonitorProtMode, u"2"_s));
    ExpectRefused("protocol set FTP --monitored no", 1, "will not track any traffic");
    ASSERT_EQ(Run(Words("protocol set FTP --monitored no --yes")), 0) << qPrintable(said);
    EXPECT_EQ(RowsOf("SELECT id FROM Protocols WHERE mon = 1"), QStringList());
}

TEST_P(PurgeCommand, RemovesWhatIsNotKeptAfterAQuestion)
{
    const QStringList purge = Words("purge --since 2026-02-01 --until 2026-02-28");
    const QStringList before = EveryRow();
    const auto tried = ObjectOf(purge + QStringList {u"--dry-run"_s});
    EXPECT_EQ(tried[u"dryRun"], true);
    EXPECT_EQ(FieldsOf(tried[u"tables"].toArray(), u"rows"_s).first(), u"1"_s);
    EXPECT_EQ(EveryRow(), before);
    ExpectRefused("purge --since 2026-02-01 --until 2026-02-28", 1, "traffic_use: 1");
    ASSERT_EQ(Run(purge + QStringList {u"--yes"_s}), 0) << qPrintable(said);
    EXPECT_EQ(RowsOf("SELECT traf_id FROM traffic_use").size(), 1);
    EXPECT_EQ(RowsOf("SELECT username FROM users").size(), 2);
    ASSERT_EQ(Run(Words("purge --keep nothing --users --yes")), 0) << qPrintable(said);
    EXPECT_EQ(RowsOf("SELECT traf_id FROM traffic_use"), QStringList());
    EXPECT_EQ(RowsOf("SELECT username FROM users"), QStringList());
}

TEST_P(PurgeCommand, IsRefusedWhileTheServiceRunsAndWithoutAPeriod)
{
    ExpectRefused("purge", 2, "--keep");
    ExpectRefused("purge --keep today --since 2026-01-01 --until 2026-01-02", 2, "--keep");
    ExpectRefused("purge --since 2026-01-02", 2, "--until");
    ExpectRefused("purge --since 2026-01-02 --until 2026-01-01", 2, "before it begins");
    ExpectRefused("purge --keep year", 2, "nothing, today, week, month");
    ExpectRefused("purge --keep today --users", 2, "--keep nothing only");
    service.SetStates({u"active"_s});
    ExpectRefused("purge --keep nothing --yes", 1, "Please stop the Tollbrook Service");
    service.LeaveManager();
    ExpectRefused("purge --keep nothing --yes", 1, "Can not find records");
}

TEST_P(PurgeCommand, WhatCannotBeCountedIsNotPurged)
{
    RunBeside("ALTER TABLE time_use RENAME TO time_use_away");
    EXPECT_EQ(Run(Words("purge --keep nothing --yes")), 3);
    EXPECT_THAT(said.toStdString(), HasSubstr("time_use"));
    RunBeside("ALTER TABLE time_use_away RENAME TO time_use");
    EXPECT_EQ(RowsOf("SELECT traf_id FROM traffic_use").size(), 2);
}

TEST_P(PurgeCommand, WhatFailsIsToldAndTheRestGoes)
{
    // From such a view nothing can be deleted.
    RunBeside("ALTER TABLE time_use RENAME TO time_use_away");
    RunBeside("CREATE VIEW time_use AS SELECT DISTINCT * FROM time_use_away");
    if (Engine() == u"postgresql"_s) { // where rights go with the table
        RunBeside("GRANT ALL ON time_use TO PUBLIC");
    }
    EXPECT_EQ(Run(Words("purge --keep nothing --yes")), 4);
    RunBeside("DROP VIEW time_use");
    RunBeside("ALTER TABLE time_use_away RENAME TO time_use");
    EXPECT_THAT(said.toStdString(), HasSubstr("time_use: Not all records were removed."));
    EXPECT_THAT(said.toStdString(), HasSubstr("The purge is not complete."));
    EXPECT_THAT(printed.toStdString(), HasSubstr("failed"));
    EXPECT_EQ(RowsOf("SELECT traf_id FROM traffic_use"), QStringList());
}
