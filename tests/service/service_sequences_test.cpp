#include "service/service_sequences.h"

#include "base/wait.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Everything a person would see of a sequence, in order; a wait and tick of a poll read as ".".
struct SequenceTest : testing::Test
{
    PrivateBus bus;
    FakeService service {bus};
    ServiceControl control {bus.Connection()};
    QStringList seen;
    ServiceProgress progress;
    int polls = 0;
    const WaitOverride instant {[this](int milliseconds) { Waited(milliseconds); }};

    const StepSink step = [this](ProgressStep told) {
        progress.Take(told);
        if (told == ProgressStep::Tick) {
            EXPECT_EQ(seen.takeLast(), u"100"_s);
            ++polls;
        } else {
            seen << u"[%1]"_s.arg(static_cast<int>(told));
        }
    };
    const StateSink changed = [this](bool running) {
        seen << (running ? u"running"_s : u"stopped"_s);
    };

    void Waited(int milliseconds) { seen << QString::number(milliseconds); }
    [[nodiscard]] QString Seen() { return std::exchange(seen, {}).join(u' '); }
};

TEST(Progress, StepsShowTheirTextAndAddTheirPart)
{
    struct Case
    {
        int step;
        QString text;
        int total;
    };
    ServiceProgress progress;
    EXPECT_EQ(progress.text, u"Status"_s);
    EXPECT_EQ(progress.total, 0);
    const Case cases[] = {
        {1, u"Trying to start the service..."_s, 10},
        {2, u"Service started successfully"_s, 30},
        {7, u"Service started successfully"_s, 35},
        {7, u"Service started successfully"_s, 40},
        {7, u"Service started successfully"_s, 40},
        {4, u"Trying to connect to the service..."_s, 50},
        {5, u"Connected to the service successfully"_s, 80},
        {0, u"Connected to the service successfully"_s, 80},
        {13, u"Connected to the service successfully"_s, 80},
        {8, u"Connected to the service successfully"_s, 100},
    };
    for (const auto &[step, text, total] : cases) {
        progress.Take(static_cast<ProgressStep>(step));
        EXPECT_EQ(progress.text, text) << step;
        EXPECT_EQ(progress.total, total) << step;
    }
}

TEST(Progress, EveryOtherStepFromNothing)
{
    struct Case
    {
        int step;
        QString text;
        int total;
    };
    const Case cases[] = {
        {3, u"Failed to start the service"_s, 50},
        {6, u"Failed to connect to the service"_s, 30},
        {7, u"Status"_s, 5},
        {9, u"Failed to complete the process"_s, 100},
        {10, u"Trying to stop the service..."_s, 10},
        {11, u"Service was stopped successfully"_s, 20},
        {12, u"Failed to stop the service"_s, 50},
    };
    for (const auto &[step, text, total] : cases) {
        ServiceProgress progress;
        progress.Take(static_cast<ProgressStep>(step));
        EXPECT_EQ(progress.text, text) << step;
        EXPECT_EQ(progress.total, total) << step;
    }
}

TEST_F(SequenceTest, StartWaitsUntilTheServiceRuns)
{
    service.OnStart({u"activating"_s, u"activating"_s, u"active"_s});
    EXPECT_TRUE(StartService(control, step, changed));
    EXPECT_EQ(Seen(), u"[1] 1300 [2] running 400 [8] 800"_s);
    EXPECT_EQ(polls, 3);
    EXPECT_EQ(progress.total, 100);
}

TEST_F(SequenceTest, StopWaitsUntilTheServiceIsStopped)
{
    service.SetStates({u"active"_s});
    service.OnStop({u"active"_s, u"deactivating"_s, u"inactive"_s});
    EXPECT_TRUE(StopService(control, step, changed));
    EXPECT_EQ(Seen(), u"[10] 1300 [11] stopped 400 [8] 800"_s);
    EXPECT_EQ(polls, 3);
}

TEST_F(SequenceTest, NothingHappensWhenThereIsNothingToDo)
{
    EXPECT_FALSE(StopService(control, step, changed));
    service.SetStates({u"active"_s});
    EXPECT_FALSE(StartService(control, step, changed));
    EXPECT_EQ(Seen(), QString());
    EXPECT_EQ(service.TakeCalls(), QStringList());
}

TEST_F(SequenceTest, ARefusalEndsAtOnce)
{
    service.RefuseCommands();
    EXPECT_TRUE(StartService(control, step, changed));
    EXPECT_EQ(Seen(), u"[1] 1300 550 [3] 800"_s);
    service.SetStates({u"active"_s});
    EXPECT_TRUE(StopService(control, step, changed));
    EXPECT_EQ(Seen(), u"[10] 1300 550 [12] 800"_s);
    EXPECT_EQ(polls, 0);
}

TEST_F(SequenceTest, AStartThatNeverEndsFailsAfter300Polls)
{
    for (const auto &states : {QStringList {u"activating"_s},
                               QStringList {u"activating"_s, u"activating"_s, u"failed"_s}}) {
        polls = 0;
        service.SetStates({u"inactive"_s});
        service.OnStart(states);
        progress = {};
        EXPECT_TRUE(StartService(control, step, changed));
        EXPECT_EQ(Seen(), u"[1] 1300 [3] 800"_s);
        EXPECT_EQ(polls, 300);
        EXPECT_EQ(progress.total, 90); // the ticks alone never came beyond 40
    }
}

TEST_F(SequenceTest, AStopThatDoesNotEndInAStoppedServiceFails)
{
    const std::pair<QStringList, int> ends[] = {
        {{u"deactivating"_s}, 300}, // hangs
        {{u"active"_s}, 300}, // takes no notice
        {{u"deactivating"_s, u"activating"_s}, 2}, // somebody starts it again
    };
    for (const auto &[states, expected] : ends) {
        polls = 0;
        service.SetStates({u"active"_s});
        service.OnStop(states);
        EXPECT_TRUE(StopService(control, step, changed));
        EXPECT_EQ(Seen(), u"[10] 1300 [12] 800"_s);
        EXPECT_EQ(polls, expected);
    }
}

TEST_F(SequenceTest, ReconnectStartsAndConnects)
{
    struct Case
    {
        QString before;
        int connectResult;
        QString seen;
        bool connected;
    };
    const Case cases[] = {
        {u"inactive"_s, 0, u"[1] 1300 [2] 300 [4] 450 connect 200 [5] 400 500 [8] 1000"_s, true},
        {u"active"_s, 0, u"300 [4] 450 connect 200 [5] 400 500 [8] 1000"_s, true},
        {u"active"_s, 1, u"300 [4] 450 connect 200 [6] 400 500 [8] 1000"_s, false},
    };
    for (const auto &[before, connectResult, expected, connected] : cases) {
        service.SetStates({before});
        ReconnectFlags flags;
        const auto connect = [&, result = connectResult] {
            seen << u"connect"_s;
            return result;
        };
        Reconnect(control, step, connect, flags);
        EXPECT_EQ(Seen(), expected);
        EXPECT_TRUE(flags.serviceRunning);
        EXPECT_EQ(flags.connected, connected);
        EXPECT_EQ(flags.Restored(), connected);
    }
}

TEST_F(SequenceTest, ReconnectThatCannotStartLeavesTheFlags)
{
    service.RefuseCommands();
    ReconnectFlags flags;
    const auto connect = [] {
        ADD_FAILURE() << "there is nothing to connect to";
        return 0;
    };
    Reconnect(control, step, connect, flags);
    EXPECT_EQ(Seen(), u"[1] 1300 550 [3] 300 [9] 500 [8] 1000"_s);
    EXPECT_EQ(progress.text, u"Failed to complete the process"_s);
    EXPECT_FALSE(flags.serviceRunning);
    EXPECT_FALSE(flags.connected);
}

TEST_F(SequenceTest, AServiceThatDiesBeforeTheConnectionIsNotConnectedTo)
{
    service.OnStart({u"active"_s, u"failed"_s});
    ReconnectFlags flags;
    Reconnect(
        control, step, [] { return 0; }, flags);
    EXPECT_EQ(Seen(), u"[1] 1300 [2] 300 [9] 500 [8] 1000"_s);
    EXPECT_TRUE(flags.serviceRunning); // kept: the start did succeed
    EXPECT_FALSE(flags.connected);
}

} // namespace
