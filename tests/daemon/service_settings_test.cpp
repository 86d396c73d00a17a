#include "daemon/service_settings.h"

#include "config/store_fixture.h"

#include <QLoggingCategory>
#include <QRandomGenerator>

#include <cmath>
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
        {"ServiceDsn = \"own\"\n\"bill dsn\" = \"bill\"",
         [](auto &to) { to.dataSource = u"own"_s; }},
        {"ServiceDsn = \"\"\n\"bill dsn\" = \"bill\"", [](auto &to) { to.dataSource = u"bill"_s; }},
        {"ServiceDsn = 1\n\"bill dsn\" = \"bill\"", same, u"ServiceDsn"_s},
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

// A price that cannot be read is not a price of nothing, with which money would never end.
TEST_F(SettingsOfService, OfAnotherKindThanTextAndBadPricesStayAsTheyWere)
{
    ServiceSettings before;
    before.period = 7s;
    before.bindsHardware = true;
    before.price = 2;
    Write(ConfigKeyId::Base, "timer = 5\nControlMAC = true\nGatewayId = 7\n");
    for (const char *const price :
         {"trafprice = 1.5", "trafprice = \"dear\"", "trafprice = \"-1\"", "trafprice = \"inf\""}) {
        Write(ConfigKeyId::Price, price);
        const ReadSettings read = ReadServiceSettings(store, before);
        EXPECT_EQ(read.faults.size(), 4) << price << ": " << qPrintable(read.faults.join(u'\n'));
        EXPECT_TRUE(read.settings == before) << price;
    }
    Write(ConfigKeyId::Price, "trafprice = \" 1.5 \"");
    EXPECT_EQ(ReadServiceSettings(store, before).settings.price, 1.5);
    Write(ConfigKeyId::Price, "");
    EXPECT_EQ(ReadServiceSettings(store, before).settings.price, 0);
}

// A mask that is no number would be none, and every address a local one.
TEST_F(SettingsOfService, AddressesThatAreNotAllNumbersStayAsTheyWere)
{
    ServiceSettings before;
    before.local = {{0x0A000000, 0xFFFF0000}};
    before.excluded = {0x0A00FFFE};
    const std::pair<QByteArray, QString> cases[] = {
        {"rangenum = \"2\"\nnet0 = 1\nmask0 = 1\nnet1 = 2", u"mask1"_s},
        {"rangenum = \"1\"\nnet0 = 1\nmask0 = \"4294901760\"", u"mask0"_s},
        {"rangenum = \"1\"\nnet0 = \"1\"\nmask0 = 1", u"net0"_s},
        {"rangenum = 1\nnet0 = 1\nmask0 = 1", u"rangenum"_s},
        {"rangenum = \"51\"", u"rangenum"_s},
        {"rangenum = \"one\"", u"rangenum"_s},
        {"rangenum = \"1\"\nnet0 = 1\nmask0 = 1\nexclude0 = \"1\"", u"exclude0"_s}};
    for (const auto &[text, fault] : cases) {
        Write(ConfigKeyId::LocalIp, text);
        const ReadSettings read = ReadServiceSettings(store, before);
        ASSERT_EQ(read.faults.size(), 1) << text.constData();
        EXPECT_TRUE(read.faults.first().startsWith(fault + u" in "))
            << qPrintable(read.faults.first());
        EXPECT_EQ(read.settings.local, before.local) << text.constData();
        EXPECT_EQ(read.settings.excluded, before.excluded) << text.constData();
    }
}

// New users would be without the limit that was meant.
TEST_F(SettingsOfService, AProfileWithABadValueStaysAsItWas)
{
    Write(ConfigKeyId::DefProfile, "Mode = \"1\"\nTrafficLimit = \"500\"\n");
    const ServiceSettings before = ReadServiceSettings(store, {}).settings;
    for (const TextValue &value : {values::kDefMode,
                                   values::kDefTrafficLimit,
                                   values::kDefTimeLimit,
                                   values::kDefAccPeriod,
                                   values::kDefAuthReq,
                                   values::kDefBlocked}) {
        for (const char *const bad : {" = 1", " = \"all\"", " = \"-1\""}) {
            Write(ConfigKeyId::DefProfile, QByteArray(value.name) + bad);
            const ReadSettings read = ReadServiceSettings(store, before);
            EXPECT_EQ(read.faults.size(), 1) << value.name << bad;
            EXPECT_TRUE(read.settings == before) << value.name << bad;
        }
    }
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

// Bytes are changed, lost, doubled and put in anywhere, the same in each run.
TEST_F(SettingsOfService, OfGarbledFilesStayWithinTheirBounds)
{
    const std::pair<ConfigKeyId, QByteArray> files[] {
        {ConfigKeyId::Base,
         "\"bill dsn\" = \"bill\"\ntimer = \"5\"\nIdleGrace = \"7\"\nIdentMode = \"1\"\n"
         "ControlMAC = \"1\"\nmonitorprotmode = \"3\"\nAuthPort = \"7001\"\nAuthReqNew = \"1\"\n"
         "OnStop = \"keep\"\nUnknownIPv6 = \"pass\"\nGatewayId = \"north\"\n"},
        {ConfigKeyId::Price, "trafprice = \"0.25\"\n"},
        {ConfigKeyId::DefProfile,
         "Mode = \"1\"\nTrafficLimit = \"5\"\nTimeLimit = \"6\"\nAccPeriod = \"1\"\nBlocked = \"1\"\n"},
        {ConfigKeyId::LocalIp,
         "rangenum = \"2\"\nnet0 = 167772160\nmask0 = 4294901760\nnet1 = 1\nexclude0 = 167837694\n"},
        {ConfigKeyId::AdapterBind, "NIC = \"eth1\"\n"}};
    const QByteArray marks = QByteArray("\"'=[]{}#\\\n\0\xff\xc3-.9e\t ", 19);
    QRandomGenerator random(3);
    const auto anywhere = [&random](const QByteArray &text) {
        return random.bounded(static_cast<int>(text.size()) + 1);
    };
    for (const auto &[key, text] : files) {
        Write(key, text);
    }
    ServiceSettings settings = ReadServiceSettings(store, {}).settings;
    int faults = 0;
    QLoggingCategory::setFilterRules(u"tollbrook.config=false"_s); // it tells of each one
    for (int i = 0; i < 600; ++i) {
        const auto &[key, whole] = files[static_cast<size_t>(i) % std::size(files)];
        QByteArray text = whole;
        for (int changes = random.bounded(1, 4); changes > 0; --changes) {
            switch (random.bounded(4)) {
            case 0:
                text.insert(anywhere(text), marks.at(random.bounded(marks.size())));
                break;
            case 1:
                text.remove(anywhere(text), random.bounded(9));
                break;
            case 2:
                text.insert(anywhere(text), text.mid(anywhere(text), random.bounded(40)));
                break;
            default:
                text.replace(
                    anywhere(text), 1, QByteArray(1, static_cast<char>(random.bounded(256))));
            }
        }
        Write(key, text);
        const ReadSettings read = ReadServiceSettings(store, settings);
        settings = read.settings;
        faults += static_cast<int>(read.faults.size());
        ASSERT_TRUE(settings.period >= 1s && settings.period <= 86400s) << i;
        ASSERT_TRUE(settings.idleGrace >= 1s && settings.idleGrace <= 86400s) << i;
        ASSERT_TRUE(settings.price >= 0 && std::isfinite(settings.price)) << i;
        ASSERT_TRUE(!settings.gatewayId.isEmpty() && settings.gatewayId.size() <= 64) << i;
        ASSERT_LE(settings.local.size(), 50) << i;
        ASSERT_LE(static_cast<int>(settings.protocols), 3) << i;
    }
    QLoggingCategory::setFilterRules({});
    EXPECT_GT(faults, 600);
}
