#include "service/service_control.h"
#include "service/service_guard.h"
#include "service/service_link.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"
#include "support/core/scripted_prompt.h"

#include <QFile>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

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

TEST_F(ServiceTest, NotificationsCarryTheUserAndAskForNoReply)
{
    EXPECT_EQ(ServiceLink::Create(bus.Connection()), nullptr);
    service.OfferAccounting();
    const auto link = ServiceLink::Create(bus.Connection());
    ASSERT_NE(link, nullptr);
    link->BlockUser(UserId {7});
    link->UnblockUser(UserId {4294967295U});
    EXPECT_EQ(service.TakeCalls(),
              (QStringList {u"BlockUser 7, no reply"_s, u"UnblockUser 4294967295, no reply"_s}));
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
