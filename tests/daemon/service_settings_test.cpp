#include "daemon/service_settings.h"

#include "config/store_fixture.h"

#include <functional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class SettingsOfService : public StoreFixture
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        for (const auto key : {ConfigKeyId::Base,
                               ConfigKeyId::Price,
                               ConfigKeyId::DefProfile,
                               ConfigKeyId::LocalIp,
                               ConfigKeyId::AdapterBind}) {
            ASSERT_TRUE(store.CreateKey(key));
        }
    }

    void Write(ConfigKeyId key, const QByteArray &text) const
    {
        QFile file(store.FileOf(key));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
};

// Each text by itself, with nothing before: what it is taken for, or the fault that it is.
TEST_F(SettingsOfService, TakeEachValueOrLeaveItAsItWas)
{
    struct Case
    {
        QByteArray text;
        std::function<void(ServiceSettings &)> expect;
        QString fault = {}; // the name of the bad value
    };
    const auto same = [](ServiceSettings &) {};
    const Case cases[] {
        {"\"bill dsn\" = \"bill\"", [](auto &to) { to.dataSource = u"bill"_s; }},
        {"timer = \"5\"", [](auto &to) { to.period = 5s; }},
        {"timer = \"0\"", [](auto &to) { to.period = 60s; }},
        {"timer = \"86401\"", same, u"timer"_s},
        {"timer = \"-1\"", same, u"timer"_s},
        {"timer = \"often\"", same, u"timer"_s},
        {"IdleGrace = \"1\"", [](auto &to) { to.idleGrace = 1s; }},
        {"IdleGrace = \"0\"", same, u"IdleGrace"_s},
        {"IdentMode = \"1\"", [](auto &to) { to.identification = Identification::ByMac; }},
        {"IdentMode = \"3\"", same, u"IdentMode"_s},
        {"ControlMAC = \"1\"", [](auto &to) { to.bindsHardware = true; }},
        {"monitorprotmode = \"3\"",
         [](auto &to) { to.protocols = MonitoredProtocols::AllButMarked; }},
        {"monitorprotmode = \"4\"", same, u"monitorprotmode"_s},
        {"AuthPort = \"7001\"", [](auto &to) { to.authPort = 7001; }},
        {"AuthPort = \"65536\"", same, u"AuthPort"_s},
        {"AuthReqNew = \"1\"", [](auto &to) { to.newUser.authRequired = true; }},
        {"OnStop = \" Keep \"", [](auto &to) { to.keepsTableOnStop = true; }},
        {"OnStop = \"pass\"", same},
        {"OnStop = \"stay\"", same, u"OnStop"_s},
        {"UnknownIPv6 = \"pass\"", [](auto &to) { to.passesUnknownIpv6 = true; }},
        {"GatewayId = \"north\"", [](auto &to) { to.gatewayId = u"north"_s; }},
    };
    Write(ConfigKeyId::Base, "");
    const ServiceSettings empty = ReadServiceSettings(store, {}).settings;
    EXPECT_EQ(empty.gatewayId.size(), 32);
    for (const Case &each : cases) {
        Write(ConfigKeyId::Base, each.text);
        ServiceSettings expected = empty;
        each.expect(expected);
        const ReadSettings read = ReadServiceSettings(store, {});
        EXPECT_TRUE(read.settings == expected) << each.text.constData();
        ASSERT_EQ(read.faults.size(), each.fault.isEmpty() ? 0 : 1) << each.text.constData();
        if (!each.fault.isEmpty()) {
            EXPECT_TRUE(read.faults.first().startsWith(each.fault + u" in " + path))
                << qPrintable(read.faults.first());
        }
    }
}

TEST_F(SettingsOfService, OfOtherKeysAreReadToo)
{
    Write(ConfigKeyId::LocalIp,
          "rangenum = \"1\"\nnet0 = 167772160\nmask0 = 4294901760\nexclude0 = 167837694\n");
    Write(ConfigKeyId::AdapterBind, "NIC = \"eth1\"\n");
    const ServiceSettings settings = ReadServiceSettings(store, {}).settings;
    ASSERT_EQ(settings.local.size(), 1);
    EXPECT_EQ(settings.local.first(), (AddressRange {0x0A000000, 0xFFFF0000}));
    EXPECT_EQ(settings.excluded, QList<Ipv4> {0x0A00FFFE});
    EXPECT_EQ(settings.adapter, u"eth1"_s);
}

TEST_F(SettingsOfService, OfABrokenFileStayAsTheyWere)
{
    ServiceSettings before;
    before.dataSource = u"bill"_s;
    before.gatewayId = u"north"_s;
    before.period = 7s;
    before.local = {{0x0A000000, 0xFFFF0000}};
    before.price = 2;
    Write(ConfigKeyId::Base, "timer = = [");
    Write(ConfigKeyId::LocalIp, "net0 = [");
    Write(ConfigKeyId::Price, "price = {");
    const ReadSettings read = ReadServiceSettings(store, before);
    EXPECT_EQ(read.faults.size(), 3) << qPrintable(read.faults.join(u'\n'));
    EXPECT_EQ(read.settings.dataSource, before.dataSource);
    EXPECT_EQ(read.settings.period, before.period);
    EXPECT_EQ(read.settings.local, before.local);
    EXPECT_EQ(read.settings.price, before.price);
}

TEST_F(SettingsOfService, ThatNobodyCouldBeCountedWithAreProblems)
{
    ServiceSettings settings;
    settings.dataSource = u"bill"_s;
    settings.local = {{0x0A000000, 0xFFFF0000}};
    EXPECT_TRUE(ProblemsOf(settings).isEmpty());
    settings.identifiesByLogin = true;
    EXPECT_EQ(ProblemsOf(settings).size(), 1);
    settings.local.clear();
    EXPECT_EQ(ProblemsOf(settings).size(), 2);
    settings.dataSource.clear();
    EXPECT_EQ(ProblemsOf(settings).size(), 3);
}
