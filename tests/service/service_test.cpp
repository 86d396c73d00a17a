#include "service/service_control.h"
#include "service/service_guard.h"
#include "service/service_link.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"
#include "support/core/scripted_prompt.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>
#include <QXmlStreamReader>

#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using State = ServiceControl::State;

struct ServiceTest : testing::Test
{
    PrivateBus bus;
    FakeService service {bus};
    ServiceControl control {bus.Connection()};
};

TEST_F(ServiceTest, StateIsThatOfTheUnit)
{
    const std::pair<QString, State> states[] = {
        {u"active"_s, State::Running},
        {u"reloading"_s, State::Running},
        {u"activating"_s, State::StartPending},
        {u"deactivating"_s, State::StopPending},
        {u"inactive"_s, State::Stopped},
        {u"failed"_s, State::Stopped},
        {u"maintenance"_s, State::Stopped},
    };
    for (const auto &[active, state] : states) {
        service.SetStates({active});
        EXPECT_EQ(control.Query(), state) << qPrintable(active);
        EXPECT_EQ(control.IsRunning(), state == State::Running) << qPrintable(active);
    }
    service.ForgetUnit();
    EXPECT_EQ(control.Query(), std::nullopt);
}

TEST_F(ServiceTest, ATimerTellsOfItsNextRunAndOfTheLast)
{
    using Result = TimerState::Result;
    const QDateTime then = QDateTime::fromMSecsSinceEpoch(1'794'000'000'000);
    const quint64 thenMicroseconds = 1'794'000'000'000'000;
    const auto query = [this] { return control.QueryTimer(u"a.timer"_s, u"a.service"_s); };
    ASSERT_TRUE(query());
    EXPECT_FALSE(query()->isThere);
    EXPECT_FALSE(query()->next.isValid());
    EXPECT_EQ(query()->result, Result::NotYet);
    service.SetUnit(u"a.timer"_s,
                    {{u"ActiveState"_s, u"active"_s},
                     {u"NextElapseUSecRealtime"_s, QVariant(thenMicroseconds)}});
    struct Case
    {
        const char *activeState;
        const char *result;
        quint64 ended;
        int status;
        Result expected;
        int expectedStatus;
    };
    const Case cases[] = {
        {"inactive", "success", 0, 0, Result::NotYet, 0},
        {"activating", "success", thenMicroseconds, 0, Result::Running, 0},
        {"inactive", "success", thenMicroseconds, 0, Result::Done, 0},
        {"inactive", "success", thenMicroseconds, 1, Result::Done, 1},
        {"failed", "exit-code", thenMicroseconds, 3, Result::Failed, 3},
        {"failed", "signal", thenMicroseconds, 3, Result::Failed, TimerState::kKilled},
        {"failed", "resources", 0, 0, Result::Failed, TimerState::kKilled},
    };
    for (const auto &[activeState, result, ended, status, expected, expectedStatus] : cases) {
        service.SetUnit(u"a.service"_s,
                        {{u"ActiveState"_s, QString::fromLatin1(activeState)},
                         {u"Result"_s, QString::fromLatin1(result)},
                         {u"ExecMainExitTimestamp"_s, QVariant(ended)},
                         {u"ExecMainStatus"_s, status}});
        const auto state = query();
        ASSERT_TRUE(state);
        EXPECT_TRUE(state->isThere);
        EXPECT_EQ(state->next, then);
        EXPECT_EQ(state->result, expected) << activeState << result;
        EXPECT_EQ(state->exitStatus, expectedStatus) << result;
        EXPECT_EQ(state->last, ended == 0 || expected == Result::Running ? QDateTime() : then);
    }
    service.SetUnit(u"a.timer"_s,
                    {{u"NextElapseUSecRealtime"_s, QVariant(std::numeric_limits<quint64>::max())}});
    EXPECT_FALSE(query()->next.isValid());
    service.LeaveManager();
    EXPECT_EQ(query(), std::nullopt);
}

TEST_F(ServiceTest, CommandsReplaceOtherJobsAndMayAskForAPassword)
{
    EXPECT_TRUE(control.Start());
    EXPECT_TRUE(control.Stop());
    EXPECT_EQ(service.TakeCalls(),
              (QStringList {u"StartUnit tollbrooksvc.service replace, interactive"_s,
                            u"StopUnit tollbrooksvc.service replace, interactive"_s}));
    service.RefuseCommands();
    EXPECT_FALSE(control.Start());
    EXPECT_FALSE(control.Stop());
}

TEST_F(ServiceTest, NobodyThereIsNoStateAndNoConnection)
{
    const auto expectNothing = [](const QDBusConnection &connection) {
        const ServiceControl lost(connection);
        EXPECT_EQ(lost.Query(), std::nullopt);
        EXPECT_FALSE(lost.Start());
        EXPECT_FALSE(lost.Stop());
        EXPECT_EQ(ServiceLink::Create(connection), nullptr);
    };
    service.LeaveManager();
    expectNothing(bus.Connection());
    bus.Stop();
    expectNothing(bus.Connection());
    expectNothing(QDBusConnection(u"never made"_s));
}

// A link to a service that is there, and what is told of notices that were not heard.
struct NoticeTest : ServiceTest
{
    std::unique_ptr<ServiceLink> link;
    QStringList told; // as in "7: why"

    void SetUp() override
    {
        EXPECT_EQ(ServiceLink::Create(bus.Connection()), nullptr);
        service.OfferAccounting();
        Connect(ServiceLink::kReplyTimeout);
    }

    void Connect(int replyTimeout)
    {
        link = ServiceLink::Create(bus.Connection(), replyTimeout);
        ASSERT_NE(link, nullptr);
        QObject::connect(
            link.get(), &ServiceLink::NotHeard, [this](UserId userId, const QString &reason) {
                EXPECT_EQ(QThread::currentThread(), link->thread());
                told << u"%1: %2"_s.arg(userId.value).arg(reason);
            });
    }

    // Answers may be told of in another order than they came.
    void ExpectTold(QStringList expected)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() >= expected.size(); }, kPatience));
        told.sort();
        expected.sort();
        EXPECT_EQ(told, expected) << qPrintable(told.join(u'\n'));
        told.clear();
    }

    // More than the bus lets a connection have unanswered.
    static constexpr quint32 kMany = 200;

    void SendMany()
    {
        for (quint32 user = 1; user <= kMany; ++user) {
            user % 2 == 1 ? link->BlockUser(UserId {user}) : link->UnblockUser(UserId {user});
        }
    }
    static QStringList ManyCalls()
    {
        QStringList calls;
        for (quint32 user = 1; user <= kMany; ++user) {
            calls << (user % 2 == 1 ? u"BlockUser %1"_s : u"UnblockUser %1"_s).arg(user);
        }
        return calls;
    }
    static QStringList ManyTold(const QString &reason)
    {
        QStringList lines;
        for (quint32 user = 1; user <= kMany; ++user) {
            lines << u"%1: %2"_s.arg(user).arg(reason);
        }
        return lines;
    }

    static constexpr int kPatience =
        ServiceLink::kReplyTimeout / 2; // sooner than an unanswered one
};

TEST_F(NoticeTest, CarryTheUserAndAskForAReply)
{
    link->BlockUser(UserId {7});
    link->UnblockUser(UserId {4294967295U});
    EXPECT_EQ(service.TakeCalls(), (QStringList {u"BlockUser 7"_s, u"UnblockUser 4294967295"_s}));
    QTest::qWait(50);
    EXPECT_EQ(told, QStringList()) << "both were answered";
}

TEST_F(NoticeTest, AnErrorOfTheServiceIsTold)
{
    service.RefuseNotices(u"The table of the kernel is gone"_s);
    link->BlockUser(UserId {7});
    link->UnblockUser(UserId {8});
    EXPECT_EQ(told, QStringList()) << "never within the call";
    ExpectTold({u"7: The table of the kernel is gone"_s, u"8: The table of the kernel is gone"_s});
    service.RefuseNotices({});
    link->BlockUser(UserId {9});
    static_cast<void>(service.TakeCalls());
    QTest::qWait(50);
    EXPECT_EQ(told, QStringList());
}

TEST_F(NoticeTest, ItIsToldWhenAllAreKnown)
{
    QList<bool> settled;
    QObject::connect(
        link.get(), &ServiceLink::Settled, [&](bool allHeard) { settled << allHeard; });
    const auto isSettled = [&] { return !settled.isEmpty(); };
    service.LeaveNoticesUnanswered();
    SendMany();
    static_cast<void>(service.TakeCalls());
    QTest::qWait(50);
    EXPECT_TRUE(link->IsTelling());
    EXPECT_EQ(settled, QList<bool>());
    service.AnswerNotices();
    EXPECT_TRUE(QTest::qWaitFor(isSettled, kPatience));
    EXPECT_FALSE(link->IsTelling());
    EXPECT_EQ(std::exchange(settled, {}), QList<bool> {true}) << "once for all";

    service.RefuseNotices(u"no"_s);
    link->BlockUser(UserId {7});
    EXPECT_TRUE(QTest::qWaitFor(isSettled, kPatience));
    EXPECT_EQ(std::exchange(settled, {}), QList<bool> {false});
    service.RefuseNotices({});
    link->BlockUser(UserId {8});
    EXPECT_TRUE(QTest::qWaitFor(isSettled, kPatience));
    EXPECT_EQ(settled, QList<bool> {true}) << "what was not heard before does not count again";
}

TEST_F(NoticeTest, AServiceThatHasGoneIsToldAndNotStarted)
{
    service.LeaveAccounting();
    link->BlockUser(UserId {7});
    ExpectTold({u"7: Name \"org.tollbrook.Accounting\" does not exist"_s});
    EXPECT_EQ(service.TakeCalls(), QStringList());
    service.OfferAccounting();
    link->UnblockUser(UserId {7});
    EXPECT_EQ(service.TakeCalls(), QStringList {u"UnblockUser 7"_s}) << "the same link goes on";
    EXPECT_EQ(told, QStringList());
}

TEST_F(NoticeTest, ALostBusIsTold)
{
    service.LeaveNoticesUnanswered();
    link->BlockUser(UserId {7});
    EXPECT_EQ(service.TakeCalls(), QStringList {u"BlockUser 7"_s});
    bus.Stop();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !told.isEmpty(); }, kPatience));
    EXPECT_TRUE(told.join(u' ').startsWith(u"7: "_s)) << qPrintable(told.join(u' '));
    told.clear();
    link->UnblockUser(UserId {8});
    ExpectTold({u"8: Not connected to D-Bus server"_s});
}

TEST_F(NoticeTest, OneWithoutAnAnswerIsToldInTime)
{
    Connect(300);
    service.LeaveNoticesUnanswered();
    QElapsedTimer sent;
    sent.start();
    link->BlockUser(UserId {7});
    EXPECT_LT(sent.elapsed(), 300) << "the caller does not wait";
    EXPECT_TRUE(QTest::qWaitFor([this] { return !told.isEmpty(); }, kPatience));
    EXPECT_GE(sent.elapsed(), 300);
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0], u"7: No answer within 0.3 seconds"_s);
    service.AnswerNotices();
    QTest::qWait(50);
    bus.Stop();
    QTest::qWait(50);
    EXPECT_EQ(told.size(), 1) << "once, whatever comes later";
}

TEST_F(NoticeTest, ComeFromAnyThreadInTheirOrder)
{
    service.RefuseNotices(u"no"_s);
    std::thread first([this] { SendMany(); });
    first.join();
    link->BlockUser(UserId {kMany + 1}); // after all of the other thread's
    ExpectTold(ManyTold(u"no"_s) << u"201: no"_s);
    EXPECT_EQ(service.TakeCalls(), ManyCalls() << u"BlockUser 201"_s);
}

TEST_F(NoticeTest, AServiceThatIsSlowHearsThemAllInTheirOrder)
{
    service.LeaveNoticesUnanswered();
    SendMany();
    const QStringList before = service.TakeCalls();
    EXPECT_EQ(before, ManyCalls().first(NoticeQueue::kMostUnanswered));
    service.AnswerNotices();
    QStringList all = before;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return (all += service.TakeCalls()).size() >= qsizetype(kMany); }, kPatience));
    EXPECT_EQ(all, ManyCalls());
    QTest::qWait(50);
    EXPECT_EQ(told, QStringList());
}

TEST_F(NoticeTest, AServiceThatHangsDoesNotUseUpTheBus)
{
    Connect(200);
    service.LeaveNoticesUnanswered();
    SendMany();
    ExpectTold(ManyTold(u"No answer within 0.2 seconds"_s));
    EXPECT_NE(control.Query(), std::nullopt) << "other questions are answered";
    QStringList heard = ManyCalls();
    for (qsizetype i = NoticeQueue::kMostUnanswered; i < heard.size(); ++i) {
        heard[i] += u", no reply"_s;
    }
    EXPECT_EQ(service.TakeCalls(), heard) << "late";

    service.AnswerNotices();
    link->BlockUser(UserId {7});
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return service.TakeCalls() == QStringList(u"BlockUser 7"_s); }, kPatience));
    QTest::qWait(250);
    EXPECT_EQ(told, QStringList());
}

TEST_F(NoticeTest, WhatStillWaitsIsSentWhenTheLinkGoes)
{
    service.LeaveNoticesUnanswered();
    SendMany();
    link.reset();
    EXPECT_EQ(service.TakeCalls().size(), kMany);
    EXPECT_EQ(told, QStringList());
}

TEST_F(NoticeTest, WhoeverIsToldMayEndTheLink)
{
    service.RefuseNotices(u"no"_s);
    bool ended = false;
    QObject::connect(link.get(), &ServiceLink::NotHeard, [&] {
        link.reset();
        ended = true;
    });
    link->BlockUser(UserId {7});
    link->BlockUser(UserId {8});
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended; }, kPatience));
    EXPECT_EQ(told, QStringList(u"7: no"_s));
}

TEST_F(NoticeTest, ALinkMayGoBeforeItsAnswers)
{
    service.RefuseNotices(u"no"_s);
    for (quint32 user = 1; user <= 50; ++user) {
        link->BlockUser(UserId {user});
    }
    link.reset();
    EXPECT_EQ(service.TakeCalls().size(), 50);
    QTest::qWait(50);
    EXPECT_EQ(told, QStringList());
}

TEST(Interface, OperationsKeepTheirSlots)
{
    QFile file(QStringLiteral(TB_SOURCE_DIR "/src/service/org.tollbrook.Accounting1.xml"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QStringList found;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const auto read = [&](const QString &name) {
            return xml.attributes().value(name).toString();
        };
        if (xml.name() == u"interface" || xml.name() == u"method") {
            found << read(u"name"_s);
        } else if (xml.name() == u"annotation" && read(u"name"_s) == u"org.tollbrook.Slot") {
            found.last() += u" in slot "_s + read(u"value"_s);
        } else if (xml.name() == u"arg") {
            found.last() += u", "_s + read(u"type"_s);
        }
    }
    EXPECT_FALSE(xml.hasError()) << qPrintable(xml.errorString());
    EXPECT_EQ(found,
              (QStringList {u"org.tollbrook.Accounting1"_s,
                            u"BlockUser in slot 7, u"_s,
                            u"UnblockUser in slot 8, u"_s}));
}

TEST_F(ServiceTest, PurgeOpensOnlyWhileTheServiceIsStopped)
{
    ScriptedPrompt prompt;
    for (const auto &active : {u"inactive"_s, u"failed"_s}) {
        service.SetStates({active});
        EXPECT_TRUE(PurgeMayOpen(control, prompt)) << qPrintable(active);
        EXPECT_EQ(prompt.TakeSaid(), QStringList());
    }
    for (const auto &active : {u"active"_s, u"activating"_s, u"deactivating"_s}) {
        service.SetStates({active});
        EXPECT_FALSE(PurgeMayOpen(control, prompt)) << qPrintable(active);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList {u"Please stop the Tollbrook Service before proceeding"_s});
        EXPECT_EQ(prompt.lastIcon, Prompt::Icon::Error);
    }
    service.ForgetUnit();
    EXPECT_FALSE(PurgeMayOpen(control, prompt));
    EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Can not find records about Tollbrook Service!"_s});
    EXPECT_EQ(prompt.lastIcon, Prompt::Icon::Error);
}

TEST_F(ServiceTest, AdapterChangesOnlyWhileTheServiceIsStopped)
{
    ScriptedPrompt prompt;
    EXPECT_EQ(AdapterMayChange(control, prompt), true);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    service.SetStates({u"active"_s});
    EXPECT_EQ(AdapterMayChange(control, prompt), false);
    EXPECT_EQ(
        prompt.TakeSaid(),
        QStringList {u"To make any changes in NIC options you have to stop the service before"_s});
    service.LeaveManager();
    EXPECT_EQ(AdapterMayChange(control, prompt), std::nullopt);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList {u"This command may be executed only on a server machine"_s});
}

} // namespace
