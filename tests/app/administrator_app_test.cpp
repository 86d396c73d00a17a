#include "app/administrator_app.h"

#include "db/query.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "support/core/database_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/faulty_driver.h"
#include "support/core/private_bus.h"
#include "support/core/scripted_prompt.h"
#include "support/core/test_data_source.h"

#include <QFile>
#include <QTest>

#include <clocale>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString kRegistryError = u"Registry error detected. Please reinstall the software"_s;
const QString kDatabaseError =
    u"Failed connecting to the database. Please check the database options"_s;
const QString kNoInstance = u"Could not create instance"_s;

// The application object of this process.
CAdministratorApp &App()
{
    return *qobject_cast<CAdministratorApp *>(QCoreApplication::instance());
}

struct StartUpTest : DatabaseFixture
{
    PrivateBus bus;
    FakeService service {bus};
    ScriptedPrompt prompt;
    int frames = 0;
    int begun = 0;
    bool frameWorks = true;
    std::function<bool(int version)> offerUpgrade {};

    void SetUp() override
    {
        DatabaseFixture::SetUp();
        DisconnectDatabase();
    }

    void TearDown() override
    {
        CloseConnections(App().Services());
        DatabaseFixture::TearDown();
    }

    [[nodiscard]] ConfigStore Store() const { return ConfigStore(folder.filePath(u"config"_s)); }

    // Whether the application's own session is open.
    static bool IsOpen()
    {
        std::optional<bool> open;
        App().Services().database.Start(
            &App(),
            [] { return IsSessionOpen(); },
            [&open](const Result<bool> &answer) { open = answer.has_value(); });
        EXPECT_TRUE(QTest::qWaitFor([&open] { return open.has_value(); }));
        return open.value_or(false);
    }

    void Write(const TextValue &value, const QString &text)
    {
        static_cast<void>(Store().CreateKey(value.key));
        ASSERT_TRUE(Store().WriteText(value, text));
    }

    bool StartOn(const QDBusConnection &connection)
    {
        const auto show = [this] {
            EXPECT_EQ(prompt.TakeSaid(), QStringList()) << "the window stands first";
            ++frames;
            return frameWorks;
        };
        const auto begin = [this] { ++begun; };
        App().SetUp({.configFolder = Store().Folder(), .bus = connection},
                    prompt,
                    {.show = show, .begin = begin, .offerUpgrade = offerUpgrade});
        return App().InitInstance();
    }
    bool Start() { return StartOn(bus.Connection()); }
};

} // namespace

TEST_F(StartUpTest, WithoutAStoreTheConsoleSaysSoAndOpens)
{
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), (QStringList {kRegistryError, kDatabaseError}));
    EXPECT_EQ(frames, 1);
    EXPECT_EQ(begun, 1);
    EXPECT_EQ(App().Port(), 700);
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(App().IsServiceRunning());
    EXPECT_FALSE(App().IsConnected());
}

TEST_F(StartUpTest, ADataSourceThatIsMissingOrUnknownIsTold)
{
    ASSERT_TRUE(Store().CreateKey(ConfigKeyId::Base));
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), (QStringList {kRegistryError, kDatabaseError}));

    Write(values::kBillDsn, u"no such source"_s);
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList {kDatabaseError});

    Write(values::kBillDsn, QString(255, u'x')); // does not fit with its terminator
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), (QStringList {kRegistryError, kDatabaseError}));

    Write(values::kBillDsn, Dsn());
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(frames, 4);
}

TEST_F(StartUpTest, AnOlderSchemaIsToldOnceAndWorkedWith)
{
    Write(values::kBillDsn, Dsn());
    test_data_source::ForgetSchemaVersion(Dsn());
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList {OlderSchemaText(0, Dsn())});
    EXPECT_TRUE(OlderSchemaText(0, Dsn()).contains(u"tollbrook-db upgrade --dsn "_s + Dsn()));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(begun, 1);
}

TEST_F(StartUpTest, AnUpgradeOfAnOlderSchemaIsOfferedOnceAndToldWhenItIsDeclined)
{
    Write(values::kBillDsn, Dsn());
    test_data_source::ForgetSchemaVersion(Dsn());
    for (const bool accepted : {true, false}) {
        QList<int> offered;
        offerUpgrade = [&](int version) {
            EXPECT_EQ(begun, accepted ? 0 : 1) << "before the work of the first start";
            offered << version;
            return accepted;
        };
        EXPECT_TRUE(Start());
        EXPECT_EQ(offered, QList<int> {0});
        EXPECT_EQ(prompt.TakeSaid(),
                  accepted ? QStringList() : QStringList {OlderSchemaText(0, Dsn())});
        App().Services().database.Reopen();
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(offered.size(), 1);
    }
    offerUpgrade = {};
}

TEST_F(StartUpTest, AnOlderSchemaIsToldWhenTheDatabaseComesLater)
{
    Write(values::kBillDsn, Dsn());
    test_data_source::ForgetSchemaVersion(Dsn());
    FaultyDriver driver(Dsn());
    driver.RefuseConnects(true);
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList {kDatabaseError});
    driver.RefuseConnects(false);
    App().Services().database.Reopen();
    QStringList said;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !(said += prompt.TakeSaid()).isEmpty(); }));
    EXPECT_EQ(said, QStringList {OlderSchemaText(0, Dsn())});

    driver.RefuseConnects(true); // once is enough
    App().Services().database.Open(Dsn());
    EXPECT_FALSE(IsOpen());
    driver.RefuseConnects(false);
    App().Services().database.Reopen();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
}

TEST_F(StartUpTest, ANewerSchemaIsToldAndNothingIsSentToIt)
{
    Write(values::kBillDsn, Dsn());
    test_data_source::RaiseSchemaVersion(Dsn());
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList {NewerSchemaText(NewestSchema() + 1)});
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(begun, 1); // the window stands all the same
}

TEST_F(StartUpTest, ADamagedStoreIsNamedWithItsLine)
{
    Write(values::kBillDsn, Dsn());
    QFile file(Store().FileOf(ConfigKeyId::Base));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("timer = 5 sec\n");
    file.close();
    EXPECT_TRUE(Start());
    const QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 3);
    EXPECT_EQ(said[0], kRegistryError);
    EXPECT_TRUE(said[1].contains(file.fileName()) && said[1].contains(u"Line 2"_s))
        << qPrintable(said[1]);
    EXPECT_EQ(said[2], kDatabaseError);
}

TEST_F(StartUpTest, ThePortIsReadTheCWay)
{
    Write(values::kBillDsn, Dsn());
    EXPECT_TRUE(Start());
    EXPECT_EQ(App().Port(), 0); // the key is there and the value is not
    const std::pair<QString, int> ports[] = {
        {u"8080"_s, 8080}, {u"abc"_s, 0}, {u""_s, 0}, {u" 12x"_s, 12}, {u"-1"_s, -1}};
    for (const auto &[text, port] : ports) {
        Write(values::kPort, text);
        EXPECT_TRUE(Start());
        EXPECT_EQ(App().Port(), port) << qPrintable(text);
    }
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
}

TEST_F(StartUpTest, AServiceThatDoesNotRunIsLeftAlone)
{
    Write(values::kBillDsn, Dsn());
    service.OfferAccounting();
    const auto expectNoService = [this](const QDBusConnection &connection) {
        EXPECT_TRUE(StartOn(connection));
        EXPECT_EQ(prompt.TakeSaid(), QStringList());
        EXPECT_FALSE(App().IsServiceRunning());
        EXPECT_FALSE(App().IsConnected());
        EXPECT_EQ(App().Services().connection.Link(), nullptr);
    };
    for (const auto &state : {u"inactive"_s, u"activating"_s, u"deactivating"_s, u"failed"_s}) {
        service.SetStates({state});
        expectNoService(bus.Connection());
    }
    expectNoService(QDBusConnection(u"no such bus"_s));
}

TEST_F(StartUpTest, ARunningServiceIsConnectedTo)
{
    Write(values::kBillDsn, Dsn());
    service.SetStates({u"active"_s});
    service.OfferAccounting();
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_TRUE(App().IsServiceRunning());
    EXPECT_TRUE(App().IsConnected());
    ASSERT_NE(App().Services().connection.Link(), nullptr);
    App().Services().connection.Link()->BlockUser(UserId {5});
    EXPECT_EQ(service.TakeCalls(), QStringList {u"BlockUser 5"_s});

    CloseConnections(App().Services());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(App().Services().connection.Link(), nullptr);
}

TEST_F(StartUpTest, ARunningServiceWithoutItsObjectCountsAsConnected)
{
    Write(values::kBillDsn, Dsn());
    service.SetStates({u"active"_s});
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList {kNoInstance});
    EXPECT_TRUE(App().IsServiceRunning());
    EXPECT_TRUE(App().IsConnected());
    EXPECT_EQ(App().Services().connection.Link(), nullptr);

    service.OfferAccounting(); // a later attempt
    EXPECT_EQ(App().Services().connection.Connect(prompt), 0);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_NE(App().Services().connection.Link(), nullptr);
}

TEST_F(StartUpTest, MessagesComeInTheOrderOfTheSteps)
{
    service.SetStates({u"active"_s});
    EXPECT_TRUE(Start());
    EXPECT_EQ(prompt.TakeSaid(), (QStringList {kRegistryError, kDatabaseError, kNoInstance}));
    EXPECT_EQ(frames, 1);
}

TEST_F(StartUpTest, WithoutAFrameTheProcessEnds)
{
    Write(values::kBillDsn, Dsn());
    frameWorks = false;
    EXPECT_FALSE(Start());
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_EQ(begun, 0);
}

// In a locale with a decimal comma a driver writes one, and what stands behind it would be lost.
TEST(Locale, WritesNumbersAsTheDatabaseDoes)
{
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}
