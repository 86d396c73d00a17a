// The program: its beginning, its signals and what it ends with.
#include "daemon/service_lab.h"

#include <QTest>

#include <csignal>
#include <linux/capability.h>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

class ServiceProgram : public ServiceLab
{
protected:
    struct Ended
    {
        int status = 0;
        QString said;
    };

    // Of a program that ends by itself.
    [[nodiscard]] Ended RunToItsEnd(const QStringList &options = {},
                                    const Prepare &prepare = {}) const
    {
        const auto process = Spawn(options, prepare);
        EXPECT_TRUE(process->waitForFinished(kPatience));
        EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
        return {process->exitCode(), QString::fromUtf8(process->readAll())};
    }

    // In a process that is about to become the program.
    static void DropRights()
    {
        prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_LOWER, CAP_NET_ADMIN, 0, 0);
        prctl(PR_CAPBSET_DROP, CAP_NET_ADMIN, 0, 0, 0);
    }

    void ExpectCounting(Probe &probe)
    {
        EXPECT_TRUE(probe.Passes());
        const BytesByUser expected {{1, {0, probe.PassedBytes()}}};
        EXPECT_EQ(AwaitAccounted(expected), expected);
    }
};

INSTANTIATE_TEST_SUITE_P(Engines, ServiceProgram, testing::Values("sqlite"), EngineName);

TEST_P(ServiceProgram, GoesOnWithTheSettingsOfBeforeWhenTheFileIsBroken)
{
    AddUser(1);
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    ExpectCounting(probe);
    const QString file = store.FileOf(ConfigKeyId::Base);
    struct
    {
        QByteArray text;
        QString told;
    } const cases[] {{"timer = = [", u"Network.toml"_s},
                     {"timer = \"soon\"\n", u"timer in "_s + file}};
    for (const auto &[text, told] : cases) {
        Write(file, text);
        Signal(SIGHUP);
        AwaitLine(told);
        EXPECT_EQ(Problems().size(), 1);
        EXPECT_TRUE(Problems().value(0).contains(told)) << qPrintable(Problems().value(0));
        ExpectCounting(probe);
    }
    WriteSettings();
    Signal(SIGHUP);
    AwaitLine(u"Over: "_s);
    EXPECT_TRUE(Problems().isEmpty());
    ExpectCounting(probe);
    EXPECT_EQ(Stop(), 0);
}

TEST_P(ServiceProgram, WritesTheLastCountsAndLetsEverybodyPass)
{
    Write(store.FileOf(ConfigKeyId::Base),
          "\"bill dsn\" = \"" + Dsn().toUtf8() + "\"\ntimer = \"3600\"\n");
    AddUser(1);
    AddUser(2, "blocked = true, blockreason = 3");
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    Probe refused(Lab(), Workstation(2), kThere);
    EXPECT_TRUE(probe.Passes());
    EXPECT_FALSE(refused.Passes());
    EXPECT_TRUE(IsTableStanding());
    EXPECT_EQ(Stop(), 0);
    EXPECT_EQ(Accounted(), (BytesByUser {{1, {0, probe.PassedBytes()}}}));
    EXPECT_FALSE(IsTableStanding());
    EXPECT_TRUE(refused.Passes());
}

TEST_P(ServiceProgram, LeavesTheTableWhereTheSettingsKeepIt)
{
    WriteSettings("OnStop = \"keep\"\n");
    AddUser(1);
    AddUser(2, "blocked = true, blockreason = 3");
    Start();
    EXPECT_EQ(Stop(), 0);
    EXPECT_TRUE(IsTableStanding());
    Probe probe(Lab(), Workstation(1), kThere);
    Probe refused(Lab(), Workstation(2), kThere);
    EXPECT_TRUE(probe.Passes());
    EXPECT_FALSE(refused.Passes());
    service = Spawn();
    AwaitLine(u"Goes on with the kernel's table"_s);
    AwaitLine(u"Counting."_s);
    ExpectCounting(probe); // what passed while there was no service, too
}

TEST_P(ServiceProgram, ASecondOneEndsAndLeavesTheFirstAlone)
{
    AddUser(1);
    AddUser(2, "blocked = true, blockreason = 3");
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    Probe refused(Lab(), Workstation(2), kThere);
    ExpectCounting(probe);
    const Ended second = RunToItsEnd();
    EXPECT_EQ(second.status, 6) << qPrintable(second.said);
    EXPECT_TRUE(second.said.contains(u"another"_s)) << qPrintable(second.said);
    EXPECT_EQ(service->state(), QProcess::Running);
    EXPECT_FALSE(refused.Passes());
    ExpectCounting(probe);
    EXPECT_TRUE(Problems().isEmpty());
    EXPECT_EQ(Stop(), 0);
}

TEST_P(ServiceProgram, TellsByItsStatusWhyItCannotWork)
{
    const QString base = store.FileOf(ConfigKeyId::Base);
    const QString ranges = store.FileOf(ConfigKeyId::LocalIp);
    EXPECT_EQ(RunToItsEnd({u"--bus"_s, u"other"_s}).status, 2);

    const Ended powerless = RunToItsEnd({}, DropRights);
    EXPECT_EQ(powerless.status, 4);
    EXPECT_TRUE(powerless.said.contains(u"CAP_NET_ADMIN"_s)) << qPrintable(powerless.said);

    Write(base, "\"bill dsn\" = \"nowhere\"\n");
    const Ended homeless = RunToItsEnd();
    EXPECT_EQ(homeless.status, 5);
    EXPECT_TRUE(homeless.said.contains(u"nowhere"_s)) << qPrintable(homeless.said);

    Write(ranges, "rangenum = \"0\"\n");
    const Ended aimless = RunToItsEnd();
    EXPECT_EQ(aimless.status, 3);
    EXPECT_TRUE(aimless.said.contains(u"no local address range"_s)) << qPrintable(aimless.said);
    EXPECT_FALSE(IsTableStanding());
}

TEST_P(ServiceProgram, ChecksWhetherItCouldWork)
{
    const Ended good = RunToItsEnd({u"--check"_s});
    EXPECT_EQ(good.status, 0) << qPrintable(good.said);
    EXPECT_FALSE(good.said.contains(u"PROBLEM"_s)) << qPrintable(good.said);
    EXPECT_TRUE(good.said.contains(u"interfaces: lan0"_s)) << qPrintable(good.said);

    const Ended powerless = RunToItsEnd({u"--check"_s}, DropRights);
    EXPECT_EQ(powerless.status, 1);
    EXPECT_TRUE(powerless.said.contains(u"CAP_NET_ADMIN"_s)) << qPrintable(powerless.said);

    Write(store.FileOf(ConfigKeyId::Base), "\"bill dsn\" = \"nowhere\"\ntimer = \"soon\"\n");
    const Ended bad = RunToItsEnd({u"--check"_s});
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.said.count(u"PROBLEM"_s), 2) << qPrintable(bad.said);
    EXPECT_FALSE(IsTableStanding());
}
