// The stand-in service as a program, seen from the console's side of the bus.
#include "service/service_control.h"
#include "service/service_link.h"
#include "support/core/database_fixture.h"
#include "support/core/private_bus.h"

#include <QDBusMessage>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using State = ServiceControl::State;

constexpr int kPatience = 10000; // milliseconds

struct DemoServiceTest : DatabaseFixture
{
    PrivateBus bus;
    ServiceControl control {bus.Connection()};
    QProcess program;

    void Launch(const QStringList &options)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.Address());
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QStringLiteral(TB_DEMO_PROGRAM),
                      QStringList {u"--every"_s, u"0"_s, u"--delay"_s, u"0"_s} + options);
        WaitFor(u"ready"_s);
    }

    // Reads lines until one ends with `text`; they come within moments or the test fails.
    void WaitFor(const QString &text)
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < kPatience && program.state() != QProcess::NotRunning) {
            while (program.canReadLine()) {
                if (QString::fromUtf8(program.readLine()).trimmed().endsWith(text)) {
                    return;
                }
            }
            program.waitForReadyRead(100);
        }
        FAIL() << "never said: " << qPrintable(text) << qPrintable(program.errorString());
    }

    QDBusMessage Ask(const QString &method, const QVariantList &arguments = {})
    {
        auto call = QDBusMessage::createMethodCall(
            u"org.tollbrook.Demo"_s, u"/org/tollbrook/Demo"_s, u"org.tollbrook.Demo1"_s, method);
        call.setArguments(arguments);
        return bus.Connection().call(call);
    }

    void TearDown() override
    {
        program.terminate();
        program.waitForFinished(kPatience);
        DatabaseFixture::TearDown();
    }
};

TEST_F(DemoServiceTest, IsStartedStoppedAndToldOfBlocks)
{
    Launch({u"--stopped"_s});
    EXPECT_EQ(control.Query(), State::Stopped);
    EXPECT_EQ(ServiceLink::Create(bus.Connection()), nullptr);
    EXPECT_TRUE(control.Start());
    WaitFor(u"service active"_s);
    EXPECT_EQ(control.Query(), State::Running);
    const auto link = ServiceLink::Create(bus.Connection());
    ASSERT_NE(link, nullptr);
    QList<quint32> notHeard;
    QObject::connect(
        link.get(), &ServiceLink::NotHeard, [&](UserId user) { notHeard << user.value; });
    link->BlockUser(UserId {12});
    link->UnblockUser(UserId {13});
    WaitFor(u"BlockUser 12"_s);
    WaitFor(u"UnblockUser 13"_s);
    EXPECT_TRUE(control.Stop());
    WaitFor(u"service inactive"_s);
    link->BlockUser(UserId {14});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !notHeard.isEmpty(); }));
    EXPECT_EQ(notHeard, QList<quint32> {14}) << "the others were answered";
    EXPECT_EQ(control.Query(), State::Stopped);
    EXPECT_EQ(ServiceLink::Create(bus.Connection()), nullptr);
}

TEST_F(DemoServiceTest, FaultsComeWhenAskedFor)
{
    Launch({u"--on-start"_s, u"refuse"_s});
    EXPECT_EQ(control.Query(), State::Running);
    Ask(u"Die"_s);
    EXPECT_EQ(control.Query(), State::Stopped);
    EXPECT_EQ(ServiceLink::Create(bus.Connection()), nullptr);
    EXPECT_FALSE(control.Start());
    Ask(u"OnStart"_s, {u"die"_s});
    EXPECT_TRUE(control.Start());
    WaitFor(u"service failed"_s);
    Ask(u"OnStart"_s, {u"hang"_s});
    EXPECT_TRUE(control.Start());
    EXPECT_EQ(control.Query(), State::StartPending);
    Ask(u"OnStop"_s, {u"refuse"_s});
    EXPECT_FALSE(control.Stop());
    Ask(u"OnStop"_s, {u"hang"_s});
    EXPECT_TRUE(control.Stop());
    EXPECT_EQ(control.Query(), State::StopPending);
    EXPECT_EQ(Ask(u"OnStop"_s, {u"sleep"_s}).type(), QDBusMessage::ErrorMessage);
}

TEST_F(DemoServiceTest, CountsIntoTheDatabaseWhileItRuns)
{
    Execute("INSERT INTO users (username, mode, traflim, trafperiod) VALUES ('anna', 1, 1, 1)");
    Execute("INSERT INTO users (username, blocked, blockreason) VALUES ('otto', 1, 3)");
    Launch({u"--dsn"_s, Dsn()});
    for (int i = 0; i < 4; ++i) {
        Ask(u"Count"_s);
    }
    EXPECT_EQ(RowsOf("SELECT user_id, blocked, blockreason FROM users ORDER BY user_id"),
              (QStringList {u"1|1|1"_s, u"2|1|3"_s}));
    EXPECT_EQ(RowsOf("SELECT user_id, period, blocked FROM traffic_use ORDER BY period"),
              (QStringList {u"1|0|0"_s, u"1|1|1"_s}));
    EXPECT_EQ(RowsOf("SELECT user_id, period FROM time_use"), QStringList {u"1|0"_s});
}

} // namespace
