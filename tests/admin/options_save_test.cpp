// What the option dialogs and the setup wizard read and write: the store value for value, the
// database statement for statement, on every engine.
#include "admin/global_options.h"
#include "options_fixture.h"
#include "support/core/statement_recorder.h"

#include <QDir>

using namespace Qt::StringLiterals;

class OptionsSave : public OptionsFixture
{
protected:
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
};
TB_ON_EVERY_ENGINE(OptionsSave);

TEST_P(OptionsSave, AStoreWithNoneOfTheValuesIsReadAndThenHoldsAllInTheirOrder)
{
    const Options options = Load();
    EXPECT_EQ(options.adapter, u""_s);
    EXPECT_EQ(options.profile, DefaultProfile());
    EXPECT_TRUE(options.ranges.isEmpty() && options.exclusions.isEmpty());
    const QStringList before = EveryRow();
    Save(options, options);
    EXPECT_EQ(NamesOf(ConfigKeyId::Base),
              u"timer NIC IdentMode ControlMAC AuthPort AllowNotLogged AllowNonHost AuthReqNew "
              "monitorprotmode curuse currencyname currencysymbol currencyrate"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::DefProfile),
              u"Mode TrafficLimit TimeLimit Blocked AccPeriod"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp).first(3), u"rangenum exclude0 exclude1"_s.split(u' '));
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp).size(), 11);
    EXPECT_EQ(NamesOf(ConfigKeyId::Price), QStringList(u"trafprice"_s));
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(OptionsSave, WithoutKeysNothingIsWrittenAndTheDatabaseStillIs)
{
    QDir(configFolder.path()).removeRecursively();
    const Options base = Load();
    Options options = base;
    options.exclusions = {0x0A000001U};
    options.protocols->SetMonitored(0, false);
    Save(base, options);
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
         "RangeNum='2'\nNet0=0x0A000000\nMASK0=0xFFFFFF00\nnet1=0x0A000100\nMask1=0\nEXCLUDE0=0x0A000001\n"
         "Exclude1=0\nexclude2=0x0A000002\nexclude4=0x0A000004\n"},
        {ConfigKeyId::Price, "TrafPrice='0.5'\n"},
        {ConfigKeyId::DefProfile,
         "mode='5'\ntrafficlimit='100'\nTIMELIMIT='8'\naccperiod='2'\nauthreq='1'\nBLOCKED='2'\n"},
    };
    for (const auto &[key, text] : files) {
        QFile file(store.FileOf(key));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    const Options options = Load();
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
    const GlobalOptions older = LoadGlobalOptions(store).settings;
    EXPECT_TRUE(older.domainLogon && older.controlMac);
    EXPECT_EQ(older.deinstallPassword, u"secret"_s);
    EXPECT_EQ(older.identMode, ident_mode::kUserName);
    EXPECT_EQ(LoadSetup(store).settings.proxies, options.exclusions);

    Options changed = options;
    changed.ranges.removeLast();
    Save(options, changed);
    EXPECT_EQ(store.ReadText(values::kDefAuthReq), u"1"_s) << "read, never written back";
    EXPECT_EQ(NamesOf(ConfigKeyId::LocalIp).filter(u"rangenum"_s, Qt::CaseInsensitive).size(), 1);
    changed.protocols.reset();
    EXPECT_EQ(Load().profile, options.profile);
    EXPECT_EQ(Load().ranges, changed.ranges);
    EXPECT_EQ(store.ReadText(values::kControlMac), u"7"_s) << "as somebody wrote it";
}

TEST_P(OptionsSave, AnAdapterTextOf1024BytesIsTooLong)
{
    for (const qsizetype size : {1023, 1024}) {
        const QString text(size, u'x');
        EXPECT_TRUE(store.WriteText(values::kNic, text));
        const Options options = Load();
        EXPECT_EQ(options.adapter.has_value(), size < 1024);
        Save(options, options);
        EXPECT_EQ(store.ReadText(values::kNic, 4096), text) << "nobody chose another";
    }
}

TEST_P(OptionsSave, FewerRangesThanBeforeLeaveNoneBehind)
{
    const auto save = [this](const QList<AddressRange> &ranges) {
        const Options base = Load();
        Options options = base;
        options.ranges = ranges;
        Save(base, options);
        EXPECT_EQ(Load().ranges, ranges);
    };
    QList<AddressRange> ranges;
    for (Ipv4 i = 0; i < 3; ++i) {
        ranges.append({0x0A000000U + (i << 8U), 0xFFFFFF00U});
    }
    save(ranges);
    ranges.removeFirst();
    save(ranges);
    EXPECT_EQ(store.ReadInteger(values::kRangeNum), 2);
    EXPECT_EQ(store.ReadNumber(values::kNet, 2), std::nullopt);
    EXPECT_EQ(store.ReadNumber(values::kMask, 2), std::nullopt);

    EXPECT_TRUE(
        store.WriteNumber(values::kMask, 5, 1)); // beyond a gap the old ones are not looked for
    ranges.removeFirst();
    save(ranges);
    EXPECT_EQ(store.ReadNumber(values::kMask, 5), 1U);
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
    const ProtocolTable table = LoadProtocols().value();
    ASSERT_EQ(table.Protocols().size(), 100);
    EXPECT_EQ(table.Protocols().first().name, u"A"_s);
    EXPECT_FALSE(table.Protocols().first().monitored) << "1 is, 2 is not";
    EXPECT_EQ(table.Protocols().first().ports.size(), 100);
    EXPECT_EQ(table.Protocols().last().name, u"A098"_s);
}

TEST_P(OptionsSave, ADatabaseThatFailsHalfWayStopsNothingAndIsTold)
{
    const Options base = Load();
    Options options = base;
    options.updatePeriod = 60;
    options.monitorMode = 2;
    options.currency.trafficPrice = 0.25;
    options.exclusions = {0x0A000001U};
    options.protocols->SetMonitored(0, false);
    ASSERT_EQ(options.protocols->Add(u"New"_s), std::nullopt);
    ASSERT_EQ(options.protocols->AddPort(options.protocols->Protocols().size() - 1, 7),
              std::nullopt);
    Execute("ALTER TABLE Ports RENAME TO ports_away");
    Execute("ALTER TABLE users RENAME TO users_away");
    const SaveReport report = SaveOptions({base, options}, store, {});
    Execute("ALTER TABLE ports_away RENAME TO Ports");
    Execute("ALTER TABLE users_away RENAME TO users");
    EXPECT_TRUE(RowsOf(kProtocolRows).contains(u"New|0"_s));
    EXPECT_EQ(RowsOf("SELECT proto_name FROM protocols WHERE mon = 0").size(), 2)
        << "the steps after the failing one ran";
    EXPECT_EQ(store.ReadNumber(values::kExclude, 0), 0x0A000001U);
    EXPECT_EQ(store.ReadInteger(values::kMonitorProtMode), 2);
    EXPECT_EQ(store.ReadText(values::kTrafPrice), u"0.25"_s);

    EXPECT_FALSE(report.IsDone());
    ASSERT_FALSE(report.statements.isEmpty());
    EXPECT_EQ(report.statements.first().statement,
              u"SELECT user_id FROM users WHERE ip_addr = (?)"_s);
    EXPECT_TRUE(report.leftOut.contains(
        u"Whether a user has the excluded address 10.0.0.1 is not known."_s));
    EXPECT_TRUE(report.leftOut.contains(u"The port New 7 was not added."_s))
        << qPrintable(report.leftOut.join(u'\n'));
    const QString words = report.InWords();
    EXPECT_TRUE(words.startsWith(u"Not all protocols and ports were stored.\n"_s));
    EXPECT_TRUE(words.contains(u"What is not named here was written as it was entered.\n\n"_s));
    EXPECT_TRUE(words.endsWith(report.statements.last().text)) << "the driver's words come last";
}

TEST_P(OptionsSave, ProtocolsThatCouldNotBeReadAreNotSaved)
{
    Options options = Load();
    options.protocols.reset();
    const QStringList before = EveryRow();
    StatementRecorder statements;
    Save(options, options);
    EXPECT_EQ(statements.Take(), QStringList());
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(OptionsSave, TheGlobalSheetHasItsOwnOrderAndSpellings)
{
    GlobalOptions base = LoadGlobalOptions(store).settings;
    base.protocols = LoadProtocols().value();
    GlobalOptions options = base;
    options.deinstallPassword = u"s\u00e9cret \"x\""_s;
    EXPECT_TRUE(SaveGlobalOptions({base, options}, store, {}).IsDone());
    EXPECT_EQ(NamesOf(ConfigKeyId::Base),
              u"curuse currencyname currencysymbol currencyrate ControlMac timer UserviewEnabled "
              "clientpwd monitorprotmode identmode"_s.split(u' '));
    EXPECT_TRUE(NamesOf(ConfigKeyId::DefProfile).isEmpty());
    EXPECT_EQ(LoadGlobalOptions(store).settings.deinstallPassword, options.deinstallPassword);

    Save(Load(), Load());
    EXPECT_EQ(NamesOf(ConfigKeyId::Base).filter(u"identmode"_s, Qt::CaseInsensitive),
              QStringList(u"identmode"_s))
        << "one value, whatever its spelling";
}

TEST_P(OptionsSave, AnExcludedUserMayBeRemoved)
{
    for (const auto *address : {"10.0.0.1", "10.0.0.2", "10.0.0.3"}) {
        Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ((?), (?), 80)",
                u"anna"_s,
                QString::fromLatin1(address));
    }
    const Options base = Load();
    Options options = base;
    options.updatePeriod = 60;
    options.exclusions = {0x0A000001U, 0x0A000002U, 0x0A000009U};
    const QStringList rows = EveryRow();
    SaveReport report = SaveOptions({base, options}, store, {});
    ASSERT_EQ(report.questions.size(), 2);
    EXPECT_EQ(
        report.questions[0].text,
        u"IP-Address 10.0.0.1 is already in the active database. You can not exclude "
        "IP-addresses that are in the database. Unless you remove this user Tollbrook will not "
        "be able to process excluded address. Remove it now?"_s);
    EXPECT_TRUE(report.questions[0].destroys);
    EXPECT_EQ(report.questions[0].goes, u"anna"_s);
    EXPECT_EQ(report.InWords(), QString());
    EXPECT_EQ(EveryRow(), rows);
    EXPECT_TRUE(NamesOf(ConfigKeyId::Base).isEmpty()) << "nothing is written before the answers";

    const Answers answers {{report.questions[0].key, true}, {report.questions[1].key, false}};
    StatementRecorder statements;
    report = SaveOptions({base, options}, store, answers);
    const QStringList sent = statements.Take();
    EXPECT_TRUE(report.IsDone());
    EXPECT_EQ(sent.first(3), QStringList(3, u"SELECT user_id FROM users WHERE ip_addr = (?)"_s));
    EXPECT_EQ(sent.count(u"DELETE FROM users WHERE ip_addr = (?)"_s), 1);
    EXPECT_EQ(RowsOf("SELECT ip_addr FROM users ORDER BY ip_addr"),
              (QStringList {u"10.0.0.2"_s, u"10.0.0.3"_s}));
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(store.ReadNumber(values::kExclude, i), options.exclusions.value(i))
            << "No excludes as well";
    }
}

TEST_P(OptionsSave, AnotherUserAtAnExcludedAddressIsAnotherQuestion)
{
    const auto addUser = [] {
        Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('anna', '10.0.0.1', 80)");
    };
    addUser();
    const Options base = Load();
    Options options = base;
    options.exclusions = {0x0A000001U};
    const Answers yes = AllAnswered(SaveOptions({base, options}, store, {}), true);
    ASSERT_EQ(yes.size(), 1);
    Execute("DELETE FROM users");
    addUser();
    const SaveReport report = SaveOptions({base, options}, store, yes);
    EXPECT_EQ(report.questions.size(), 1) << "nobody said that this one may go";
    EXPECT_EQ(RowsOf("SELECT ip_addr FROM users").size(), 1);
}
