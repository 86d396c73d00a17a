#include "admin/adapters.h"

#include "admin/setup.h"
#include "config/config_store.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QList<Adapter> kAdapters {
    {u"lo"_s, u"Network adapter lo"_s, true, 0x7F000001U, 8},
    {u"eth0"_s, u"Ethernet adapter eth0"_s, false, 0xC0A80107U, 24},
    {u"eth1"_s, u"Ethernet adapter eth1"_s, false, 0xC0A80108U, 24},
    {u"wlan0"_s, u"Wireless adapter wlan0"_s, false, std::nullopt, 0},
    {u"tun0"_s, u"Virtual adapter tun0"_s, false, 0x0A080001U, 32},
    {u"eth2"_s, u"Ethernet adapter eth2"_s, false, 0x0A000005U, 8},
};

} // namespace

TEST(Adapters, HiddenOnesAreNeverOffered)
{
    EXPECT_EQ(Selectable(kAdapters), kAdapters.mid(1));
    EXPECT_EQ(FindAdapter(kAdapters, u"Network adapter lo"_s), nullptr);
    EXPECT_EQ(FindAdapter(kAdapters, u"ethernet adapter eth0"_s), nullptr) << "byte for byte";
    ASSERT_NE(FindAdapter(kAdapters, u"Ethernet adapter eth0"_s), nullptr);
}

TEST(Adapters, TheMachineHasItsLoopback)
{
    int hidden = 0;
    for (const Adapter &adapter : SystemAdapters()) {
        EXPECT_FALSE(adapter.description.isEmpty());
        EXPECT_TRUE(adapter.description.contains(adapter.name));
        hidden += adapter.hidden ? 1 : 0;
    }
    EXPECT_EQ(hidden, 1);
}

// The settings keep the description, and a service of another language looks for it.
TEST(Adapters, AreDescribedAlikeInEveryLanguage)
{
    struct Changed : QTranslator
    {
        [[nodiscard]] bool isEmpty() const override { return false; }
        QString translate(const char *, const char *text, const char *, int) const override
        {
            return u"changed "_s + QString::fromUtf8(text);
        }
    };
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const QList<Adapter> before = SystemAdapters();
    Changed translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    EXPECT_EQ(SystemAdapters(), before);
}

TEST(Adapters, TheBindingHasAKeyOfItsOwn)
{
    const QTemporaryDir folder;
    const ConfigStore store(folder.path());
    EXPECT_EQ(CaptureBinding(store).value(), std::nullopt);
    EXPECT_TRUE(BindAdapter(store, kAdapters[1])) << "without its key it is skipped";
    for (const ConfigKeyId key :
         {ConfigKeyId::Base, ConfigKeyId::AdapterBind, ConfigKeyId::CaptureDriver}) {
        ASSERT_TRUE(store.CreateKey(key));
    }
    EXPECT_TRUE(BindAdapter(store, kAdapters[1]));
    EXPECT_EQ(store.ReadText(values::kBoundNic), u"Ethernet adapter eth0"_s);
    EXPECT_EQ(store.ReadText(values::kNic), std::nullopt) << "the Options dialog's is another";
    EXPECT_EQ(BoundAdapter(store).value(), std::nullopt) << "no capture driver";
    EXPECT_TRUE(store.WriteText(values::kCaptureExport, u"\\Device\\Packet_eth0"_s));
    EXPECT_EQ(CaptureBinding(store).value(), u"eth0"_s);
    EXPECT_EQ(BoundAdapter(store).value(), u"Ethernet adapter eth0"_s);
}

TEST(Adapters, ADamagedBindingIsNeitherReadNorReplaced)
{
    const QTemporaryDir folder;
    const ConfigStore store(folder.path());
    for (const ConfigKeyId key : {ConfigKeyId::CaptureDriver, ConfigKeyId::AdapterBind}) {
        ASSERT_TRUE(store.CreateKey(key));
    }
    ASSERT_TRUE(store.WriteText(values::kCaptureExport, u"\\Device\\Packet_eth0"_s));
    const QByteArray damaged = "NIC = eth0\n";
    QFile file(store.FileOf(ConfigKeyId::AdapterBind));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(damaged) == damaged.size());
    file.close();
    const auto bound = BoundAdapter(store);
    ASSERT_FALSE(bound);
    EXPECT_EQ(bound.error().line, 1);
    const auto written = BindAdapter(store, kAdapters[1]);
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().file, file.fileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), damaged);
}

TEST(Adapters, TheMachinesOwnNetworksAreSuggestedOnceEach)
{
    EXPECT_EQ(SuggestedRanges(kAdapters),
              (QList<AddressRange> {{0xC0A80100U, 0xFFFFFF00U}, {0x0A000000U, 0xFF000000U}}));
    EXPECT_TRUE(SuggestedRanges({}).isEmpty());
}
