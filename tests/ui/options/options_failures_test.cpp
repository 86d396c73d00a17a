// What the windows of the settings do while something cannot be read or written.
#include "options_window_fixture.h"
#include "ui/options/adapter_dialog.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kProtocolRows = "SELECT id, proto_name, mon FROM Protocols ORDER BY id";
constexpr auto kPortRows = "SELECT port_id, proto_id, port_number FROM Ports ORDER BY port_id";

void AddGopher(QDialog &sheet)
{
    TurnToPage(sheet, u"Protocols"_s);
    Click(sheet, "monitorSpecified");
    {
        const WhileModal watch([](QDialog &dialog) {
            Type(Find(dialog, "protocol"), u"Gopher"_s);
            Click(dialog, "ok");
        });
        Click(sheet, "protocolsAdd");
    }
    const WhileModal watch([](QDialog &dialog) {
        Type(Find(dialog, "port"), u"70"_s);
        Click(dialog, "ok");
    });
    Click(sheet, "portsAdd");
}

} // namespace

class OptionsFailures : public OptionsWindow
{
protected:
    // The one message since the last call.
    QString Message()
    {
        const QStringList said = prompt.TakeSaid();
        EXPECT_EQ(said.size(), 1) << said.join(u" | "_s).toStdString();
        return said.value(0);
    }
};

TEST_F(OptionsFailures, ProtocolsThatCouldNotBeReadAreToldAndNeverSaved)
{
    const QStringList protocols = RowsOf(kProtocolRows);
    const QStringList ports = RowsOf(kPortRows);
    ASSERT_EQ(ports.size(), 18);
    for (const auto *table : {"Protocols", "Ports"}) {
        Execute(
            u"ALTER TABLE %1 RENAME TO away"_s.arg(QLatin1String(table)).toLatin1().constData());
        EXPECT_TRUE(Run([&](QDialog &sheet) {
            const QString told = Message();
            EXPECT_TRUE(told.startsWith(u"The protocols could not be read."_s));
            EXPECT_TRUE(
                told.contains(u"no such table: "_s + QLatin1String(table), Qt::CaseInsensitive))
                << told.toStdString();
            TurnToPage(sheet, u"Protocols"_s);
            EXPECT_TRUE(IsShown(sheet, "unreadProtocols"));
            for (const auto *name : {"monitorSpecified", "protocols", "ports", "setUpMonitored"}) {
                EXPECT_FALSE(Find(sheet, name).isEnabled()) << name;
            }
            TurnToPage(sheet, u"General"_s);
            Type(Find(sheet, "updatePeriod"), u"60"_s);
            Execute(u"ALTER TABLE away RENAME TO %1"_s.arg(QLatin1String(table))
                        .toLatin1()
                        .constData());
            Click(sheet, "ok");
        }));
        EXPECT_EQ(prompt.TakeSaid(), QStringList());
        EXPECT_EQ(Store().ReadText(values::kTimer), u"60"_s);
        EXPECT_EQ(RowsOf(kProtocolRows), protocols);
        EXPECT_EQ(RowsOf(kPortRows), ports);
    }
}

TEST_F(OptionsFailures, AFailedSaveKeepsTheSheetAndTheNextOkWritesTheRest)
{
    QSignalSpy stored(&Services().news, &ChangeNews::SettingsStored);
    const QStringList ports = RowsOf(kPortRows);
    EXPECT_TRUE(Run([&](QDialog &sheet) {
        Type(Find(sheet, "updatePeriod"), u"60"_s);
        AddGopher(sheet);
        Execute("ALTER TABLE Protocols RENAME TO away");
        Click(sheet, "ok");
        const QString told = Message();
        EXPECT_TRUE(told.startsWith(u"Not all protocols and ports were stored."_s));
        EXPECT_TRUE(told.contains(u"no such table"_s)) << told.toStdString();
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_TRUE(stored.isEmpty());
        EXPECT_EQ(refreshes, 0);
        EXPECT_EQ(TextIn(sheet, "updatePeriod"), u"60"_s);
        EXPECT_TRUE(RowTexts(Find<QTreeWidget>(sheet, "protocols")).contains(u"Gopher"_s));
        EXPECT_EQ(Store().ReadText(values::kTimer), u"60"_s) << "the rest was written";
        Execute("ALTER TABLE away RENAME TO Protocols");
        for (const bool again : {true, false}) { // a port that fails, after its protocol was stored
            if (again) {
                Execute("CREATE TRIGGER refuse BEFORE INSERT ON Ports BEGIN "
                        "SELECT RAISE(ABORT, 'no port today'); END");
            } else {
                Execute("DROP TRIGGER refuse");
            }
            Click(sheet, "ok");
            EXPECT_EQ(sheet.isVisible(), again);
            EXPECT_EQ(prompt.TakeSaid().join(u'|').contains(u"no port today"_s), again);
        }
    }));
    EXPECT_EQ(RowsOf("SELECT proto_name, port_number FROM protocols, ports WHERE proto_id = id AND "
                     "proto_name = 'Gopher'"),
              QStringList(u"Gopher|70"_s));
    EXPECT_EQ(RowsOf(kPortRows).mid(0, ports.size()), ports);
    EXPECT_EQ(refreshes, 1);
    EXPECT_EQ(stored.size(), 1);
}

TEST_F(OptionsFailures, ADamagedFileIsToldOnOpeningAndNeverReplaced)
{
    const QByteArray damaged = "timer = 5 sec\nport = \"1\"\n";
    const QString name = u"Network.toml"_s;
    WriteFile(Store(), ConfigKeyId::Base, damaged);
    EXPECT_TRUE(Run([&](QDialog &sheet) {
        QString told = Message();
        EXPECT_TRUE(told.startsWith(u"Not all settings could be read."_s));
        EXPECT_TRUE(told.contains(u"Line 1 of the settings file"_s) && told.contains(name))
            << told.toStdString();
        Type(Find(sheet, "updatePeriod"), u"60"_s);
        TurnToPage(sheet, u"Network"_s);
        TypeAddress(sheet, "exclusion", u"10.0.0.1"_s);
        Click(sheet, "exclusionsAdd");
        Click(sheet, "ok");
        told = Message();
        EXPECT_TRUE(told.startsWith(
            u"Not all settings were written. Left as they were: the update period, "_s))
            << told.toStdString();
        EXPECT_TRUE(told.contains(name)) << told.toStdString();
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(BytesOf(Store()).value(Store().FileOf(ConfigKeyId::Base)), damaged);
        EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U) << "another file";
        EXPECT_EQ(TextIn(sheet, "updatePeriod"), u"60"_s);
        WriteFile(Store(), ConfigKeyId::Base, "timer = \"5\"\nport = \"1\"\n");
        Click(sheet, "ok");
        EXPECT_EQ(prompt.TakeSaid(), QStringList());
    }));
    EXPECT_EQ(Store().ReadText(values::kTimer), u"60"_s);
    EXPECT_EQ(Store().ReadText(values::kPort), u"1"_s);
}

TEST_F(OptionsFailures, EachKeyThatCannotBeWrittenKeepsBothSheetsOpen)
{
    Store().WriteText(values::kTimer, u"60"_s); // the older sheet takes no 0
    for (const auto key : {ConfigKeyId::Base, ConfigKeyId::LocalIp, ConfigKeyId::Price}) {
        for (const bool global : {false, true}) {
            const QByteArray whole = BytesOf(Store()).value(Store().FileOf(key));
            const auto answer = [&](QDialog &sheet) {
                Type(Find(sheet, "updatePeriod"), u"90"_s);
                WriteFile(Store(), key, "= broken");
                Click(sheet, "ok");
                EXPECT_TRUE(sheet.isVisible());
                EXPECT_TRUE(Message().contains(Store().FileOf(key)));
                EXPECT_EQ(TextIn(sheet, "updatePeriod"), u"90"_s);
                Click(sheet, "cancel");
            };
            refreshes = 0;
            EXPECT_FALSE(global ? RunGlobal(answer) : Run(answer));
            EXPECT_EQ(refreshes, 1) << "some of it was written";
            WriteFile(Store(), key, whole);
        }
    }
}

TEST_F(OptionsFailures, WhatAControlCannotShowStaysWhileItIsNotTouched)
{
    const std::pair<TextValue, const char *> kept[] = {
        {values::kTimer, "-5"},
        {values::kAuthPort, "-1"},
        {values::kDefMode, "9"},
        {values::kDefTrafficLimit, "-3"},
        {values::kDefTimeLimit, "012"},
        {values::kDefAccPeriod, "7"},
        {values::kIdentMode, "8"},
        {values::kControlMac, "3"},
    };
    for (const auto &[value, text] : kept) {
        Store().WriteText(value, QString::fromLatin1(text));
    }
    EXPECT_TRUE(Run([](QDialog &sheet) { Click(sheet, "ok"); }));
    for (const auto &[value, text] : kept) {
        EXPECT_EQ(Store().ReadText(value), QString::fromLatin1(text)) << value.name;
    }
}

TEST_F(OptionsFailures, UsersOfAnExcludedAddressAreAskedForBeforeAnythingIsWritten)
{
    Execute("INSERT INTO users (username, ip_addr, group_id) VALUES ('ann', '10.0.0.1', 80)");
    for (const bool removed : {false, true}) {
        EXPECT_TRUE(Run([&](QDialog &sheet) {
            TurnToPage(sheet, u"Network"_s);
            TypeAddress(sheet, "exclusion", removed ? u"10.0.0.2"_s : u"10.0.0.1"_s);
            Click(sheet, "exclusionsAdd");
            prompt.AnswerWith({removed});
            Click(sheet, "ok");
        }));
        EXPECT_TRUE(
            Message().startsWith(u"IP-Address 10.0.0.1 is already in the active database."));
        EXPECT_EQ(RowsOf("SELECT username FROM users").isEmpty(), removed);
        EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U);
    }
}

TEST_F(OptionsFailures, ANoToDeniedPortsWritesNothingAndKeepsTheSheet)
{
    Execute("INSERT INTO port_blocked (user_id, port_id) SELECT 7, port_id FROM ports WHERE "
            "port_number = 80");
    const QStringList rows = EveryRow();
    const auto bytes = StoreBytes();
    EXPECT_TRUE(Run([&](QDialog &sheet) {
        TurnToPage(sheet, u"Protocols"_s);
        Click(sheet, "monitorSpecified");
        auto &protocols = Find<QTreeWidget>(sheet, "protocols");
        protocols.setCurrentItem(protocols.findItems(u"HTTP"_s, Qt::MatchExactly).value(0));
        Click(sheet, "protocolsRemove");
        Click(sheet, "ok");
        EXPECT_TRUE(Message().contains(u"HTTP"_s));
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(EveryRow(), rows);
        EXPECT_EQ(StoreBytes(), bytes);
        prompt.AnswerWith({true});
        Click(sheet, "ok");
    }));
    EXPECT_TRUE(RowsOf("SELECT pb_id FROM port_blocked").isEmpty());
    EXPECT_TRUE(RowsOf("SELECT id FROM protocols WHERE proto_name = 'HTTP'").isEmpty());
}

TEST_F(OptionsFailures, TheOlderSheetOpensWithoutProtocolsToo)
{
    Store().WriteText(values::kTimer, u"60"_s);
    const QStringList protocols = RowsOf(kProtocolRows);
    Execute("ALTER TABLE Protocols RENAME TO away");
    EXPECT_TRUE(RunGlobal([this](QDialog &sheet) {
        EXPECT_TRUE(Message().startsWith(u"The protocols could not be read."_s));
        TurnTo(Find<QTabWidget>(sheet, "pages"), u"Protocols"_s);
        EXPECT_TRUE(IsShown(sheet, "unreadProtocols"));
        EXPECT_FALSE(Find(sheet, "monitorAll").isEnabled());
        Execute("ALTER TABLE away RENAME TO Protocols");
        Click(sheet, "ok");
    }));
    EXPECT_EQ(RowsOf(kProtocolRows), protocols);
}

class AdapterFailures : public OptionsFailures
{
protected:
    void SetUp() override
    {
        OptionsFailures::SetUp();
        Settings().WriteText(values::kBoundNic, u"Ethernet adapter eth0"_s);
        Settings().WriteText(values::kCaptureExport, u"\\Device\\Packet_eth0"_s);
    }

    QList<Adapter> adapters {{u"eth0"_s, u"Ethernet adapter eth0"_s, false, 0xC0A80107U, 24},
                             {u"eth1"_s, u"Ethernet adapter eth1"_s, false, {}, 0}};
};

TEST_F(AdapterFailures, AChoiceThatCannotBeWrittenIsToldAndIsNone)
{
    AdapterDialog dialog(Services(), adapters, true, nullptr);
    dialog.show();
    WriteFile(Settings(), ConfigKeyId::AdapterBind, "= broken");
    auto &box = Find<QComboBox>(dialog, "newAdapter");
    box.setFocus();
    prompt.AnswerWith({true});
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
    const QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 2) << "the question and the failure";
    EXPECT_TRUE(said[1].contains(Settings().FileOf(ConfigKeyId::AdapterBind)));
    EXPECT_EQ(TextIn(dialog, "currentAdapter"), u"Ethernet adapter eth0"_s);
    EXPECT_EQ(TextIn(dialog, "boundAddress"), u"192.168.1.7"_s);
    EXPECT_EQ(box.currentIndex(), 0);
}

TEST_F(AdapterFailures, ABindingThatCannotBeReadIsTold)
{
    for (const auto key : {ConfigKeyId::CaptureDriver, ConfigKeyId::AdapterBind}) {
        WriteFile(Settings(), key, "= broken");
        const AdapterDialog dialog(Services(), adapters, true, nullptr);
        EXPECT_TRUE(Message().contains(Settings().FileOf(key)));
        EXPECT_EQ(TextIn(dialog, "currentAdapter"), u""_s);
        WriteFile(Settings(),
                  key,
                  key == ConfigKeyId::CaptureDriver ? "Export = \"123456789012345eth0\"\n" : "");
    }
}
