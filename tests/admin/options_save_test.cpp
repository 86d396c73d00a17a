// What the option dialogs and the setup wizard read and write: the store value for value, the
// database statement for statement, on every engine.
#include "admin/global_options.h"
#include "admin/options.h"
#include "admin/protocol_storage.h"
#include "admin/setup.h"
#include "config/config_store.h"
#include "support/core/engine_fixture.h"
#include "support/core/scripted_prompt.h"
#include "support/core/statement_recorder.h"

#include <QDir>
#include <QDirIterator>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kProtocolRows = "SELECT proto_name, mon FROM protocols ORDER BY id";
constexpr auto kPortRows = "SELECT proto_name, port_number FROM protocols, ports "
                           "WHERE protocols.id = ports.proto_id ORDER BY proto_name, port_number";

constexpr ConfigKeyId kKeys[] = {
    ConfigKeyId::Base, ConfigKeyId::LocalIp, ConfigKeyId::Price, ConfigKeyId::DefProfile};

} // namespace

class OptionsSave : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        for (const ConfigKeyId key : kKeys) {
            ASSERT_TRUE(store.CreateKey(key));
        }
    }

    // The names of a key's values in the order in which they were first written.
    [[nodiscard]] QStringList NamesOf(ConfigKeyId key) const
    {
        QStringList names;
        QFile file(store.FileOf(key));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (const auto end = line.indexOf('='); end > 0) {
                names << QString::fromLatin1(line.left(end).trimmed());
            }
        }
        return names;
    }

    void Save(const Options &options)
    {
        SaveOptions(options, store, prompt, [this] { ++refreshes; });
    }

    // A table with the rows that the cases below count on, and nothing else.
    static void OnlyHttpAndFtp()
    {
        Execute("DELETE FROM Ports");
        Execute("DELETE FROM Protocols");
        for (const auto *name : {"HTTP", "FTP"}) {
            Execute("INSERT INTO Protocols (proto_name, mon) VALUES ((?), 1)",
                    QString::fromLatin1(name));
            Execute("INSERT INTO Ports (proto_id, port_number) SELECT id, 80 FROM Protocols WHERE "
                    "proto_name = (?)",
                    QString::fromLatin1(name));
        }
    }

    QTemporaryDir configFolder;
    ConfigStore store {configFolder.path()};
    ScriptedPrompt prompt;
    int refreshes = 0;
};
TB_ON_EVERY_ENGINE(OptionsSave);

TEST_P(OptionsSave, AStoreWithNoneOfTheValuesIsReadAndThenHoldsAllInTheirOrder)
{
    Options options = LoadOptions(store);
    EXPECT_EQ(options.adapter, u""_s);
    EXPECT_EQ(options.profile, DefaultProfile());
    EXPECT_TRUE(options.ranges.isEmpty() && options.exclusions.isEmpty());
    const QStringList before = EveryRow();
    Save(options);
    EXPECT_EQ(NamesOf(ConfigKeyId::Base),
              u"timer NIC IdentMode ControlMAC AuthPort AllowNotLogged AllowNonHost AuthReqNew "
              "monitorprotmode curuse currencyname currencysymbol currencyrate"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::DefProfile),
              u"Mode TrafficLimit TimeLimit Blocked AccPeriod"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp).first(3), u"rangenum exclude0 exclude1"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp).size(), 11);
    EXPECT_EQ(NamesOf(ConfigKeyId::Price), QStringList(u"trafprice"_s));
    EXPECT_EQ(EveryRow(), before);
    EXPECT_EQ(refreshes, 1);
    EXPECT_TRUE(prompt.TakeSaid().isEmpty());
}

TEST_P(OptionsSave, WithoutKeysNothingIsWrittenAndTheDatabaseStillIs)
{
    QDir(configFolder.path()).removeRecursively();
    Options options = LoadOptions(store);
    options.exclusions = {0x0A000001U};
    options.protocols.SetMonitored(0, false);
    Save(options);
    EXPECT_FALSE(QDir(configFolder.path()).exists());
    EXPECT_EQ(RowsOf("SELECT proto_name FROM protocols WHERE mon = 0").size(), 1);
}

TEST_P(OptionsSave, EverySpellingOfAStoreWrittenByHandIsRead)
{
    const std::pair<ConfigKeyId, QByteArray> files[] = {
        {ConfigKeyId::Base,
         "TIMER='30'\nnic='Ethernet adapter eth0'\nidentmode='2'\nCONTROLMAC='7'\nAuthport='8081'\n"
         "authreqnew='1'\nALLOWNOTLOGGED='1'\nallowNONhost='1'\nMonitorProtMode='3'\nCurUse='2'\n"
         "CurrencyName='Dollar'\nCURRENCYSYMBOL='USD'\ncurrencyRATE='0.034'\nuserviewenabled='1'\n"
         "ClientPwd='secret'\n"},
        {ConfigKeyId::LocalIp,
         "RangeNum='2'\nNet0=0x0A000000\nMASK0=0xFFFFFF00\nnet1=0x0A000100\nEXCLUDE0=0x0A000001\n"
         "Exclude1=0\nexclude2=0x0A000002\nexclude4=0x0A000004\n"},
        {ConfigKeyId::Price, "TrafPrice='0.5'\n"},
        {ConfigKeyId::DefProfile,
         "mode='5'\ntrafficlimit='100'\nTIMELIMIT='8'\naccperiod='2'\nauthreq='1'\nBLOCKED='2'\n"},
    };
    for (const auto &[key, text] : files) {
        QFile file(store.FileOf(key));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    const Options options = LoadOptions(store);
    EXPECT_EQ(options.updatePeriod, 30);
    EXPECT_EQ(options.adapter, u"Ethernet adapter eth0"_s);
    EXPECT_EQ(options.identMode, ident_mode::kUserName);
    EXPECT_TRUE(options.controlMac) << "any number but 0 is on";
    EXPECT_EQ(options.authPort, 8081);
    EXPECT_TRUE(options.authRequiredForNew && options.allowNotLogged && options.allowNonHost);
    EXPECT_EQ(options.monitorMode, monitor_mode::kAllButSpecified);
    EXPECT_EQ(options.currency.symbol, u"USD"_s);
    EXPECT_EQ(options.currency.trafficPrice, 0.5);
    EXPECT_EQ(
        options.profile,
        (DefaultProfile {AccountingMode::TrafficAndTime, 100, 8, LimitPeriod::Month, false, true}))
        << "Blocked is on only for 1";
    EXPECT_EQ(options.ranges, (QList<AddressRange> {{0x0A000000U, 0xFFFFFF00U}, {0x0A000100U, 0}}));
    EXPECT_EQ(options.exclusions, (QList<Ipv4> {0x0A000001U, 0x0A000002U}))
        << "an empty slot is not offered, and the list ends at the first missing number";
    const GlobalOptions older = LoadGlobalOptions(store);
    EXPECT_TRUE(older.domainLogon && older.controlMac);
    EXPECT_EQ(older.deinstallPassword, u"secret"_s);
    EXPECT_EQ(older.identMode, ident_mode::kUserName);
    EXPECT_EQ(LoadSetup(store).proxies, options.exclusions);

    Save(options);
    EXPECT_EQ(store.ReadText(values::kDefAuthReq), u"1"_s) << "read, never written back";
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp).filter(u"rangenum"_s, Qt::CaseInsensitive).size(), 1);
    EXPECT_EQ(LoadOptions(store).profile, options.profile);
}

TEST_P(OptionsSave, AnAdapterTextOf1024BytesIsTooLong)
{
    for (const qsizetype size : {1023, 1024}) {
        const QString text(size, u'x');
        store.WriteText(values::kNic, text);
        const Options options = LoadOptions(store);
        EXPECT_EQ(options.adapter.has_value(), size < 1024);
        Save(options);
        EXPECT_EQ(store.ReadText(values::kNic, 4096), text) << "nobody chose another";
    }
}

TEST_P(OptionsSave, FewerRangesThanBeforeLeaveNoneBehind)
{
    Options options;
    for (Ipv4 i = 0; i < 3; ++i) {
        options.ranges.append({0x0A000000U + (i << 8U), 0xFFFFFF00U});
    }
    Save(options);
    EXPECT_EQ(LoadRanges(store), options.ranges);
    options.ranges.removeFirst();
    Save(options);
    EXPECT_EQ(LoadRanges(store), options.ranges);
    EXPECT_EQ(store.ReadInteger(values::kRangeNum), 2);
    EXPECT_EQ(store.ReadNumber(values::kNet, 2), std::nullopt);
    EXPECT_EQ(store.ReadNumber(values::kMask, 2), std::nullopt);

    store.Edit(ConfigKeyId::LocalIp, [](KeyEditor &key) {
        key.WriteNumber(values::kMask, 5, 1); // beyond a gap, the old ones are not looked for
    });
    Save(options);
    EXPECT_EQ(store.ReadNumber(values::kMask, 5), 1U);
}

TEST_P(OptionsSave, AnExcludedUserMayBeRemoved)
{
    for (const auto *address : {"10.0.0.1", "10.0.0.2", "10.0.0.3"}) {
        Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ((?), (?), 80)",
                u"anna"_s,
                QString::fromLatin1(address));
    }
    prompt.AnswerWith({true, false});
    StatementRecorder statements;
    SaveExclusions(store, {0x0A000001U, 0x0A000002U, 0x0A000009U}, prompt, [this] { ++refreshes; });
    EXPECT_EQ(statements.Take(),
              (QStringList {u"SELECT user_id FROM users WHERE ip_addr = (?)"_s,
                            u"DELETE FROM users WHERE ip_addr = (?)"_s,
                            u"SELECT user_id FROM users WHERE ip_addr = (?)"_s,
                            u"SELECT user_id FROM users WHERE ip_addr = (?)"_s}));
    EXPECT_EQ(
        prompt.TakeSaid().first(),
        u"IP-Address 10.0.0.1 is already in the active database. You can not exclude "
        "IP-addresses that are in the database. Unless you remove this user Tollbrook will not "
        "be able to process excluded address. Remove it now?"_s);
    EXPECT_EQ(refreshes, 1);
    EXPECT_EQ(RowsOf("SELECT ip_addr FROM users ORDER BY ip_addr"),
              (QStringList {u"10.0.0.2"_s, u"10.0.0.3"_s}));
    for (int i = 0; i < 10; ++i) {
        const QList<quint32> written {0x0A000001U, 0x0A000002U, 0x0A000009U};
        EXPECT_EQ(store.ReadNumber(values::kExclude, i), written.value(i)) << "No excludes as well";
    }
}

TEST_P(OptionsSave, ProtocolsAreSavedInFiveSteps)
{
    OnlyHttpAndFtp();
    ProtocolTable table = LoadProtocols();
    ASSERT_EQ(table.Protocols().size(), 2);
    ASSERT_EQ(table.Add(u"New"_s), std::nullopt);
    ASSERT_EQ(table.AddPort(2, 7), std::nullopt);
    table.SetMonitored(2, true);
    ASSERT_EQ(table.AddPort(1, 8080), std::nullopt);
    table.RemovePort(1, 0);
    table.Remove(0); // FTP
    StatementRecorder statements;
    SaveProtocols(table);
    EXPECT_EQ(statements.Take(),
              (QStringList {
                  u"INSERT INTO Protocols (proto_name, mon) VALUES ((?), (?))"_s,
                  u"SELECT id FROM Protocols WHERE proto_name = (?)"_s,
                  u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
                  u"SELECT port_id FROM Ports WHERE proto_id = (?) AND port_number = (?)"_s,
                  u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
                  u"DELETE FROM Protocols WHERE id = (?)"_s,
                  u"DELETE FROM Ports WHERE proto_id = (?)"_s,
                  u"DELETE FROM Ports WHERE port_id = (?)"_s,
                  u"UPDATE Protocols SET mon=(?) WHERE proto_name=(?)"_s,
                  u"UPDATE Protocols SET mon=(?) WHERE proto_name=(?)"_s,
              }));
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"New|1"_s}));
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"HTTP|8080"_s, u"New|7"_s}));
    EXPECT_EQ(RowsOf("SELECT count(*) FROM ports"), QStringList(u"2"_s));
}

TEST_P(OptionsSave, TheFirstHundredByNameAreLoadedWithTheirFirstHundredPorts)
{
    OnlyHttpAndFtp();
    for (int i = 0; i < 101; ++i) {
        Execute("INSERT INTO Protocols (proto_name, mon) VALUES ((?), 0)",
                u"A%1"_s.arg(i, 3, 10, QChar(u'0')));
    }
    Execute("INSERT INTO Protocols (proto_name, mon) VALUES ((?), 2)", u"A"_s);
    RunQuery("SELECT id FROM Protocols WHERE proto_name = (?)", FetchMode::All, u"A"_s);
    const quint32 id = queryResult.Integer(1);
    for (quint32 i = 1; i <= 101; ++i) {
        Execute("INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))", id, i);
    }
    const ProtocolTable table = LoadProtocols();
    ASSERT_EQ(table.Protocols().size(), 100);
    EXPECT_EQ(table.Protocols().first().name, u"A"_s);
    EXPECT_FALSE(table.Protocols().first().monitored) << "1 is, 2 is not";
    EXPECT_EQ(table.Protocols().first().ports.size(), 100);
    EXPECT_EQ(table.Protocols().last().name, u"A098"_s);
}

TEST_P(OptionsSave, ADatabaseThatFailsHalfWayStopsNothing)
{
    Options options = LoadOptions(store);
    options.updatePeriod = 60;
    options.monitorMode = 2;
    options.currency.trafficPrice = 0.25;
    options.exclusions = {0x0A000001U};
    options.protocols.SetMonitored(0, false);
    ASSERT_EQ(options.protocols.Add(u"New"_s), std::nullopt);
    ASSERT_EQ(options.protocols.AddPort(options.protocols.Protocols().size() - 1, 7), std::nullopt);
    Execute("ALTER TABLE Ports RENAME TO ports_away");
    Execute("ALTER TABLE users RENAME TO users_away");
    Save(options);
    Execute("ALTER TABLE ports_away RENAME TO Ports");
    Execute("ALTER TABLE users_away RENAME TO users");
    EXPECT_TRUE(RowsOf(kProtocolRows).contains(u"New|0"_s));
    EXPECT_EQ(RowsOf("SELECT proto_name FROM protocols WHERE mon = 0").size(), 2)
        << "the steps after the failing one ran";
    EXPECT_EQ(store.ReadNumber(values::kExclude, 0), 0x0A000001U);
    EXPECT_EQ(store.ReadInteger(values::kMonitorProtMode), 2);
    EXPECT_EQ(store.ReadText(values::kTrafPrice), u"0.25"_s);
    EXPECT_EQ(refreshes, 1);
}

TEST_P(OptionsSave, TheGlobalSheetHasItsOwnOrderAndSpellings)
{
    GlobalOptions options = LoadGlobalOptions(store);
    options.deinstallPassword = u"s\u00e9cret \"x\""_s;
    SaveGlobalOptions(options, store, prompt, [this] { ++refreshes; });
    EXPECT_EQ(NamesOf(ConfigKeyId::Base),
              u"curuse currencyname currencysymbol currencyrate ControlMac timer UserviewEnabled "
              "clientpwd monitorprotmode identmode"_s.split(u' '));
    EXPECT_TRUE(NamesOf(ConfigKeyId::DefProfile).isEmpty());
    EXPECT_EQ(LoadGlobalOptions(store).deinstallPassword, options.deinstallPassword);
    EXPECT_EQ(refreshes, 1);

    Save(LoadOptions(store));
    EXPECT_EQ(NamesOf(ConfigKeyId::Base).filter(u"identmode"_s, Qt::CaseInsensitive),
              QStringList(u"identmode"_s))
        << "one value, whatever its spelling";
}

TEST_P(OptionsSave, TheWizardWritesItsOrderAndItsPorts)
{
    OnlyHttpAndFtp();
    for (int i = 0; i < 12; ++i) {
        store.WriteNumber(values::kExclude, i, 0x0A000001U + static_cast<quint32>(i));
    }
    NetworkSetup setup = LoadSetup(store);
    EXPECT_TRUE(setup.usesProxy);
    EXPECT_EQ(setup.proxies.size(), 12) << "the wizard holds 50";
    setup.ranges = {{0x0A000000U, 0xFFFFFF00U}};
    setup.proxies = {0x0A000009U};
    setup.monitorMode = 3;
    setup.identMode = 1;
    setup.protocols.Remove(setup.protocols.IndexOf(u"FTP"_s));
    ASSERT_EQ(setup.protocols.AddPort(0, 8080), std::nullopt);
    ASSERT_EQ(setup.protocols.Add(u"New"_s), std::nullopt);
    ASSERT_EQ(setup.protocols.AddPort(1, 7), std::nullopt);
    StatementRecorder statements;
    SaveSetup(setup, store);
    const QStringList expected {
        u"SELECT id FROM Protocols WHERE proto_name = (?)"_s, // HTTP
        u"DELETE FROM Ports WHERE proto_id = (?)"_s,
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"SELECT id FROM Protocols WHERE proto_name = (?)"_s,
        u"UPDATE Protocols SET mon = 1 WHERE id = (?)"_s,
        u"INSERT INTO Protocols (proto_name) VALUES ((?))"_s, // New
        u"SELECT id FROM Protocols WHERE proto_name = (?)"_s,
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"SELECT id FROM Protocols WHERE proto_name = (?)"_s,
        u"UPDATE Protocols SET mon = 1 WHERE id = (?)"_s,
        u"SELECT id FROM Protocols WHERE proto_name = (?)"_s, // FTP, no longer listed
        u"DELETE FROM Ports WHERE proto_id = (?)"_s,
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"SELECT id FROM Protocols WHERE proto_name = (?)"_s,
        u"UPDATE Protocols SET mon = 0 WHERE id = (?)"_s,
    };
    EXPECT_EQ(statements.Take(), expected);
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|0"_s, u"New|1"_s}));
    EXPECT_EQ(RowsOf(kPortRows),
              (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"HTTP|8080"_s, u"New|7"_s}));
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp), u"net0 mask0 rangenum Exclude0"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::Base), u"monitorprotmode identmode"_s.split(u' '));

    NetworkSetup again = LoadSetup(store);
    EXPECT_EQ(again.proxies, setup.proxies);
    EXPECT_EQ(again.protocols.Protocols().size(), 2);
    ASSERT_EQ(again.protocols.Add(u"ftp"_s), std::nullopt) << "listed again with its ports";
    again.protocols.RemovePort(again.protocols.IndexOf(u"New"_s), 0);
    ASSERT_EQ(again.protocols.AddPort(again.protocols.IndexOf(u"New"_s), 9), std::nullopt);
    again.usesProxy = false;
    SaveSetup(again, store);
    EXPECT_EQ(RowsOf(kPortRows),
              (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"HTTP|8080"_s, u"New|9"_s}));
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|1"_s, u"New|1"_s}));
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp), u"rangenum net0 mask0"_s.split(u' '));
}
