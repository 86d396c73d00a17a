// What the setup wizard's Finish writes.
#include "options_fixture.h"
#include "support/core/statement_recorder.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

class WizardSave : public OptionsFixture
{
protected:
    void SetUp() override
    {
        OptionsFixture::SetUp();
        OnlyHttpAndFtp();
    }

    void Finish(const NetworkSetup &base, const NetworkSetup &draft, const Answers &answers = {})
    {
        const SaveReport report = SaveSetup({base, draft}, store, answers);
        EXPECT_TRUE(report.IsDone()) << qPrintable(report.InWords());
    }

    [[nodiscard]] QStringList LocalIpNames() const
    {
        QStringList names;
        QFile file(store.FileOf(ConfigKeyId::LocalIp));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (const auto end = line.indexOf('='); end > 0) {
                names << QString::fromLatin1(line.left(end).trimmed());
            }
        }
        return names;
    }
};
TB_ON_EVERY_ENGINE(WizardSave);

TEST_P(WizardSave, WritesItsOrderAndItsPorts)
{
    for (int i = 0; i < 12; ++i) {
        EXPECT_TRUE(store.WriteNumber(values::kExclude, i, 0x0A000001U + static_cast<quint32>(i)));
    }
    const NetworkSetup base = LoadWizard();
    NetworkSetup setup = base;
    EXPECT_TRUE(setup.usesProxy);
    EXPECT_EQ(setup.proxies.size(), 12) << "the wizard holds 50";
    setup.ranges = {{0x0A000000U, 0xFFFFFF00U}};
    setup.proxies = {0x0A000009U};
    setup.monitorMode = 3;
    setup.identMode = 1;
    setup.protocols->Remove(setup.protocols->IndexOf(u"FTP"_s));
    ASSERT_EQ(setup.protocols->AddPort(0, 8080), std::nullopt);
    ASSERT_EQ(setup.protocols->Add(u"New"_s), std::nullopt);
    ASSERT_EQ(setup.protocols->AddPort(1, 7), std::nullopt);
    StatementRecorder statements;
    Finish(base, setup);
    const QStringList expected {
        u"DELETE FROM Ports WHERE proto_id = (?)"_s, // HTTP
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"UPDATE Protocols SET mon = 1 WHERE id = (?)"_s,
        u"INSERT INTO Protocols (proto_name) VALUES ((?))"_s, // New
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"UPDATE Protocols SET mon = 1 WHERE id = (?)"_s,
        u"DELETE FROM Ports WHERE proto_id = (?)"_s, // FTP, no longer listed
        u"INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))"_s,
        u"UPDATE Protocols SET mon = 0 WHERE id = (?)"_s,
    };
    const QStringList sent = statements.Take();
    EXPECT_EQ(sent.filter(QRegularExpression(u"^(INSERT|UPDATE|DELETE)"_s)), expected);
    EXPECT_TRUE(sent.contains(u"SELECT id FROM Protocols WHERE proto_name = (?)"_s));
    EXPECT_EQ(sent.count(u"COMMIT"_s), 3) << "each protocol as a whole";
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|0"_s, u"New|1"_s}));
    EXPECT_EQ(RowsOf(kPortRows),
              (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"HTTP|8080"_s, u"New|7"_s}));
    EXPECT_EQ(LocalIpNames(), u"net0 mask0 rangenum Exclude0"_s.split(u' '));
    EXPECT_EQ(store.ReadInteger(values::kMonitorProtMode), 3);
    EXPECT_EQ(store.ReadInteger(values::kIdentMode), 1);

    const NetworkSetup shown = LoadWizard();
    NetworkSetup again = shown;
    EXPECT_EQ(again.proxies, setup.proxies);
    EXPECT_EQ(again.protocols->Protocols().size(), 2);
    ASSERT_EQ(again.protocols->Add(u"ftp"_s), std::nullopt) << "listed again with its ports";
    again.protocols->RemovePort(again.protocols->IndexOf(u"New"_s), 0);
    ASSERT_EQ(again.protocols->AddPort(again.protocols->IndexOf(u"New"_s), 9), std::nullopt);
    again.usesProxy = false;
    Finish(shown, again);
    EXPECT_EQ(RowsOf(kPortRows),
              (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"HTTP|8080"_s, u"New|9"_s}));
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|1"_s, u"FTP|1"_s, u"New|1"_s}));
    EXPECT_EQ(LocalIpNames(), u"net0 mask0 rangenum"_s.split(u' '));
}

TEST_P(WizardSave, WritesEveryValueOfAnEmptyStore)
{
    const NetworkSetup base = LoadWizard();
    Finish(base, base);
    EXPECT_EQ(LocalIpNames(), QStringList {u"rangenum"_s});
    EXPECT_EQ(store.ReadText(values::kMonitorProtMode), u"0"_s);
    EXPECT_EQ(store.ReadText(values::kIdentMode), u"0"_s);
}

TEST_P(WizardSave, WhatIsDeniedKeepsNamingTheSamePort)
{
    AddPort(u"HTTP"_s, 443); // every engine reads them in this order
    AddPort(u"HTTP"_s, 8080);
    for (const quint32 number : {80U, 8080U, 443U}) {
        DenyUser(7, PortOf(u"HTTP"_s, number));
        DenyGroup(81, PortOf(u"HTTP"_s, number));
    }
    DenyUser(8, PortOf(u"FTP"_s, 80));
    const QStringList denied = RowsOf(kDenials);
    ASSERT_EQ(denied.size(), 7);
    const QStringList ids = RowsOf("SELECT port_id FROM ports ORDER BY port_id");
    const NetworkSetup base = LoadWizard();
    Finish(base, base);
    EXPECT_EQ(RowsOf(kDenials), denied);
    for (const QString &id : RowsOf("SELECT port_id FROM ports ORDER BY port_id")) {
        EXPECT_FALSE(ids.contains(id)) << "the rows are new ones";
    }

    NetworkSetup setup = base;
    setup.protocols = LoadWizardProtocols().value();
    setup.protocols->RemovePort(1, 2); // HTTP 8080
    const QStringList before = EveryRow();
    const SaveReport asked = SaveSetup({base, setup}, store, {});
    ASSERT_EQ(asked.questions.size(), 1);
    EXPECT_EQ(asked.questions[0].text,
              u"2 denied ports of users and groups name HTTP 8080 and go with it. Continue?"_s);
    EXPECT_TRUE(SaveSetup({base, setup}, store, AllAnswered(asked, false)).isDeclined);
    EXPECT_EQ(EveryRow(), before);
    Finish(base, setup, AllAnswered(asked, true));
    EXPECT_EQ(RowsOf(kDenials), denied.filter(QRegularExpression(u"\\|(80|443)\\|"_s)));
    EXPECT_EQ(RowsOf("SELECT pb_id FROM port_blocked").size(), 5);
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"FTP|80"_s, u"HTTP|80"_s, u"HTTP|443"_s}));
}

TEST_P(WizardSave, PortsBeyondTheHundredthAreLeftAlone)
{
    for (quint32 number = 1001; number <= 1120; ++number) {
        AddPort(u"HTTP"_s, number);
    }
    DenyUser(7, PortOf(u"HTTP"_s, 1001));
    DenyUser(7, PortOf(u"HTTP"_s, 1120));
    const QStringList denied = RowsOf(kDenials);
    const QStringList ports = RowsOf(kPortRows);
    ASSERT_EQ(ports.size(), 122);
    const NetworkSetup base = LoadWizard();
    ASSERT_EQ(base.protocols->Protocols()[1].ports.size(), 100);
    NetworkSetup setup = base;
    setup.protocols->RemovePort(1, 0);
    Finish(base, setup);
    QStringList left = ports;
    left.removeOne(u"HTTP|80"_s);
    EXPECT_EQ(RowsOf(kPortRows), left);
    EXPECT_EQ(RowsOf(kDenials), denied);
}

TEST_P(WizardSave, AProtocolThatCannotBeReadOrWrittenKeepsItsPorts)
{
    AddPort(u"HTTP"_s, 8080);
    const NetworkSetup base = LoadWizard();
    NetworkSetup setup = base;
    setup.identMode = 2;
    setup.protocols->RemovePort(1, 0);
    ASSERT_EQ(setup.protocols->AddPort(0, 21), std::nullopt); // FTP

    // One statement of HTTP's fails: an index of this test refuses a port that is there already.
    ASSERT_EQ(setup.protocols->AddPort(1, 21), std::nullopt);
    Execute("DELETE FROM Ports WHERE proto_id = (?) AND port_number = 80", ProtocolOf(u"FTP"_s));
    Execute("CREATE UNIQUE INDEX test_ports ON ports (port_number)");
    const SaveReport report = SaveSetup({base, setup}, store, {});
    Execute(Engine() == u"mariadb"_s ? "DROP INDEX test_ports ON ports" : "DROP INDEX test_ports");
    EXPECT_EQ(report.statements.size(), 1);
    EXPECT_EQ(report.leftOut,
              QStringList {u"The protocol HTTP and its ports stay as they were."_s});
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"FTP|21"_s, u"HTTP|80"_s, u"HTTP|8080"_s}))
        << "FTP is written, HTTP as it was";
    EXPECT_EQ(store.ReadInteger(values::kIdentMode), 2);

    Execute("ALTER TABLE port_blocked RENAME TO port_blocked_away");
    const SaveReport unread = SaveSetup({base, setup}, store, {});
    Execute("ALTER TABLE port_blocked_away RENAME TO port_blocked");
    EXPECT_EQ(unread.leftOut.size(), 2);
    EXPECT_EQ(RowsOf(kPortRows), (QStringList {u"FTP|21"_s, u"HTTP|80"_s, u"HTTP|8080"_s}));
}

TEST_P(WizardSave, ProtocolsThatCouldNotBeReadAreNotTouched)
{
    const NetworkSetup base = LoadWizard();
    NetworkSetup setup = base;
    setup.protocols.reset();
    setup.monitorMode = 2;
    StatementRecorder statements;
    Finish(base, setup);
    EXPECT_EQ(statements.Take(), QStringList());
    EXPECT_EQ(store.ReadInteger(values::kMonitorProtMode), 2);
}

TEST_P(WizardSave, WhatTheOtherConsoleDidStays)
{
    AddPort(u"HTTP"_s, 8080);
    const NetworkSetup base = LoadWizard();
    NetworkSetup setup = base;
    setup.identMode = 1;
    ASSERT_EQ(setup.protocols->AddPort(1, 443), std::nullopt); // HTTP
    ASSERT_EQ(setup.protocols->Add(u"Mail"_s), std::nullopt);
    ASSERT_EQ(setup.protocols->AddPort(2, 25), std::nullopt);

    // The other one removes FTP and HTTP 8080, adds HTTP 81 and a Mail of its own.
    Execute("DELETE FROM Ports WHERE proto_id = (?)", ProtocolOf(u"FTP"_s));
    Execute("DELETE FROM Protocols WHERE proto_name = 'FTP'");
    Execute("DELETE FROM Ports WHERE port_number = 8080");
    AddPort(u"HTTP"_s, 81);
    Execute("UPDATE Protocols SET mon = 0 WHERE proto_name = 'HTTP'");
    Execute("INSERT INTO Protocols (proto_name, mon) VALUES ('Mail', 0)");
    AddPort(u"Mail"_s, 587);
    EXPECT_TRUE(store.WriteInteger(values::kMonitorProtMode, 3));
    EXPECT_TRUE(store.WriteNumber(values::kExclude, 0, 5));

    const SaveReport report = SaveSetup({base, setup}, store, {});
    EXPECT_EQ(
        report.leftOut,
        QStringList {u"FTP was removed by somebody else meanwhile and does not come back."_s});
    EXPECT_EQ(RowsOf(kProtocolRows), (QStringList {u"HTTP|0"_s, u"Mail|1"_s}));
    EXPECT_EQ(
        RowsOf(kPortRows),
        (QStringList {u"HTTP|80"_s, u"HTTP|81"_s, u"HTTP|443"_s, u"Mail|25"_s, u"Mail|587"_s}));
    EXPECT_EQ(store.ReadInteger(values::kMonitorProtMode), 3);
    EXPECT_EQ(store.ReadNumber(values::kExclude, 0), 5U);
    EXPECT_EQ(store.ReadInteger(values::kIdentMode), 1);
}
