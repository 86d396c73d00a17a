#include "ui/wizard/setup_wizard.h"

#include "support/windows/keyboard.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/common/ip_address_field.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QWizardPage>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kEveryProtocol = "SELECT id, proto_name, mon FROM Protocols ORDER BY id";
constexpr auto kEveryPort = "SELECT port_id, proto_id, port_number FROM Ports ORDER BY port_id";
constexpr auto kPortRows =
    "SELECT proto_name, port_number FROM protocols, ports WHERE proto_id = id "
    "AND proto_name = 'Gopher' ORDER BY port_number";

QString Title(const QDialog &dialog)
{
    return static_cast<const QWizard &>(dialog).currentPage()->title();
}

void TypeAddress(const QObject &root, const char *name, const QString &dotted)
{
    Paste(*Find<IpAddressField>(root, name).findChild<QLineEdit *>(), dotted);
}

// Next until the page with this title.
void GoTo(const QDialog &wizard, const QString &title)
{
    for (int page = 0; page < 7 && Title(wizard) != title; ++page) {
        Click(wizard, "next");
    }
    EXPECT_EQ(Title(wizard), title);
}

// The widget of this name on the page that is shown.
template <typename T = QWidget>
T &OnPage(const QDialog &wizard, const char *name)
{
    return Find<T>(*static_cast<const QWizard &>(wizard).currentPage(), name);
}

} // namespace

class SetupWizardWindow : public WindowFixture
{
protected:
    [[nodiscard]] ConfigStore &Store() const { return Settings(); }

    bool Run(const std::function<void(QDialog &)> &answer)
    {
        const WhileModal watch(answer);
        return RunSetupWizard(Services(), nullptr);
    }

    // The one message since the last call.
    QString Message()
    {
        const QStringList said = prompt.TakeSaid();
        EXPECT_EQ(said.size(), 1) << said.join(u" | "_s).toStdString();
        return said.value(0);
    }

    void WriteBaseFile(const QByteArray &text)
    {
        QFile file(Store().FileOf(ConfigKeyId::Base));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
};

TEST_F(SetupWizardWindow, HasItsSevenPagesInOrder)
{
    EXPECT_FALSE(Run([](QDialog &wizard) {
        QStringList titles;
        QStringList classes;
        for (;;) {
            auto *page = static_cast<QWizard &>(wizard).currentPage();
            titles << page->title().remove(u"Setup Wizard - "_s);
            classes << QString::fromLatin1(page->metaObject()->className());
            Grab(wizard, u"wizard-page-%1"_s.arg(titles.size()));
            if (titles.size() == 7) {
                break;
            }
            Click(wizard, "next");
        }
        EXPECT_EQ(titles.join(u", "_s),
                  u"Welcome, Local IP Addresses, Proxy and gateway, Monitored protocols, TCP/IP "
                  "ports, User binds, Finish"_s);
        EXPECT_EQ(classes,
                  u"CSetupWizardDlg1 CSetupWizardDlg2 CSetupWizardDlg3 CSetupWizardDlg4 "
                  "CSetupWizardDlg5 CSetupWizardDlg6 CSetupWizardDlg7"_s.split(u' '));
        Click(wizard, "cancel");
    }));
}

TEST_F(SetupWizardWindow, FinishWritesWhatEveryPageCollected)
{
    Store().WriteNumber(values::kExclude, 0, 0x01020304U);
    EXPECT_TRUE(Run([this](QDialog &wizard) {
        GoTo(wizard, u"Setup Wizard - Local IP Addresses"_s);
        TypeAddress(wizard, "network", u"10.0.0.0"_s);
        TypeAddress(wizard, "mask", u"255.255.255.253"_s);
        Click(OnPage<QPushButton>(wizard, "rangesAdd"));
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"You entered incorrect IP addresses and/or subnet mask"_s));
        TypeAddress(wizard, "mask", u"255.255.255.0"_s);
        Click(OnPage<QPushButton>(wizard, "rangesAdd"));
        GoTo(wizard, u"Setup Wizard - Proxy and gateway"_s);
        EXPECT_TRUE(OnPage<QAbstractButton>(wizard, "usesProxy").isChecked());
        auto &proxies = OnPage<QTreeWidget>(wizard, "exclusions");
        EXPECT_EQ(RowTexts(proxies), QStringList(u"1.2.3.4"_s));
        ClickCell(proxies, 0, 0);
        Click(OnPage<QPushButton>(wizard, "exclusionsRemove"));
        TypeAddress(wizard, "exclusion", u"10.0.0.1"_s);
        Click(OnPage<QPushButton>(wizard, "exclusionsAdd"));
        GoTo(wizard, u"Setup Wizard - Monitored protocols"_s);
        EXPECT_FALSE(OnPage(wizard, "protocols").isEnabled());
        Click(OnPage<QAbstractButton>(wizard, "monitorAllBut"));
        Type(OnPage(wizard, "protocol"), u"Gopher"_s);
        QTest::keyClick(&OnPage(wizard, "protocol"), Qt::Key_Return);
        Click(wizard, "next");
        EXPECT_EQ(Title(wizard), u"Setup Wizard - TCP/IP ports"_s);
        auto &protocols = OnPage<QListWidget>(wizard, "portProtocols");
        protocols.setCurrentRow(protocols.count() - 1);
        EXPECT_EQ(protocols.currentItem()->text(), u"Gopher"_s);
        Type(OnPage(wizard, "port"), u"70"_s);
        Click(OnPage<QPushButton>(wizard, "portsAdd"));
        GoTo(wizard, u"Setup Wizard - User binds"_s);
        Click(OnPage<QAbstractButton>(wizard, "byUserName"));
        Click(wizard, "back");
        EXPECT_EQ(Title(wizard), u"Setup Wizard - TCP/IP ports"_s);
        EXPECT_TRUE(Store().ReadText(values::kIdentMode) == std::nullopt);
        GoTo(wizard, u"Setup Wizard - Finish"_s);
        Click(wizard, "finish");
    }));
    EXPECT_EQ(Store().ReadText(values::kRangeNum), u"1"_s);
    EXPECT_EQ(Store().ReadNumber(values::kNet, 0), 0x0A000000U);
    EXPECT_EQ(Store().ReadNumber(values::kMask, 0), 0xFFFFFF00U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 1), std::nullopt);
    EXPECT_EQ(Store().ReadText(values::kMonitorProtMode), u"3"_s);
    EXPECT_EQ(Store().ReadText(values::kIdentMode), u"2"_s);
    EXPECT_EQ(RowsOf(kPortRows), QStringList(u"Gopher|70"_s));
}

TEST_F(SetupWizardWindow, TheKeyboardAloneIsEnough)
{
    EXPECT_TRUE(Run([](QDialog &wizard) {
        const auto next = [&wizard] {
            ExpectKeyboardReachesAll(wizard);
            PressButton(wizard, "next");
        };
        next();
        TypeInto(wizard, "network", u"10.0.0.0"_s);
        TypeInto(wizard, "mask", u"255.0.0.0"_s);
        PressButton(wizard, "rangesAdd");
        next();
        PressButton(wizard, "usesProxy");
        TypeInto(wizard, "exclusion", u"10.0.0.1"_s);
        PressButton(wizard, "exclusionsAdd");
        next();
        TabTo(wizard, "monitorAll");
        Press(Qt::Key_Down);
        Press(Qt::Key_Down);
        TypeInto(wizard, "protocol", u"Gopher"_s);
        PressButton(wizard, "protocolsAdd");
        next();
        TabTo(wizard, "portProtocols");
        Press(Qt::Key_End);
        TypeInto(wizard, "port", u"70"_s);
        PressButton(wizard, "portsAdd");
        next();
        TabTo(wizard, "byIpAddress");
        Press(Qt::Key_Down);
        next();
        EXPECT_EQ(Title(wizard), u"Setup Wizard - Finish"_s);
        PressButton(wizard, "finish");
    }));
    EXPECT_EQ(Store().ReadNumber(values::kMask, 0), 0xFF000000U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U);
    EXPECT_EQ(Store().ReadText(values::kMonitorProtMode), u"2"_s);
    EXPECT_EQ(Store().ReadText(values::kIdentMode), u"1"_s);
    EXPECT_EQ(RowsOf(kPortRows), QStringList(u"Gopher|70"_s));
}

TEST_F(SetupWizardWindow, NextAddsWhatStillStandsInTheFields)
{
    EXPECT_TRUE(Run([this](QDialog &wizard) {
        GoTo(wizard, u"Setup Wizard - Local IP Addresses"_s);
        TypeAddress(wizard, "network", u"10.0.0.0"_s);
        Click(wizard, "next");
        EXPECT_EQ(Message(), u"You entered incorrect IP addresses and/or subnet mask"_s);
        EXPECT_EQ(Title(wizard), u"Setup Wizard - Local IP Addresses"_s);
        TypeAddress(wizard, "mask", u"255.255.255.0"_s);
        Click(wizard, "next");
        Click(OnPage<QAbstractButton>(wizard, "usesProxy"));
        TypeAddress(wizard, "exclusion", u"10.0.0.1"_s);
        Click(wizard, "next");
        Click(OnPage<QAbstractButton>(wizard, "monitorSpecified"));
        Type(OnPage(wizard, "protocol"), u"Gopher"_s);
        Click(wizard, "next");
        auto &protocols = OnPage<QListWidget>(wizard, "portProtocols");
        protocols.setCurrentItem(protocols.findItems(u"Gopher"_s, Qt::MatchExactly).at(0));
        Type(OnPage(wizard, "port"), u"70"_s);
        GoTo(wizard, u"Setup Wizard - Finish"_s);
        Click(wizard, "finish");
    }));
    EXPECT_EQ(Store().ReadNumber(values::kMask, 0), 0xFFFFFF00U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U);
    EXPECT_EQ(RowsOf(kPortRows), QStringList(u"Gopher|70"_s));
}

TEST_F(SetupWizardWindow, FinishTwiceLeavesTheLatestPortsOnly)
{
    for (const auto &port : {u"70"_s, u"7070"_s}) {
        EXPECT_TRUE(Run([this, &port](QDialog &wizard) {
            GoTo(wizard, u"Setup Wizard - Monitored protocols"_s);
            Click(OnPage<QAbstractButton>(wizard, "monitorSpecified"));
            Type(OnPage(wizard, "protocol"), u"Gopher"_s);
            Click(OnPage<QPushButton>(wizard, "protocolsAdd"));
            prompt.TakeSaid().clear(); // the second time it is in the list
            Click(wizard, "next");
            auto &protocols = OnPage<QListWidget>(wizard, "portProtocols");
            protocols.setCurrentItem(protocols.findItems(u"Gopher"_s, Qt::MatchExactly).at(0));
            auto &ports = OnPage<QTreeWidget>(wizard, "ports");
            while (ports.topLevelItemCount() > 0) {
                ClickCell(ports, 0, 0);
                Click(OnPage<QPushButton>(wizard, "portsRemove"));
            }
            Type(OnPage(wizard, "port"), port);
            Click(OnPage<QPushButton>(wizard, "portsAdd"));
            GoTo(wizard, u"Setup Wizard - Finish"_s);
            Click(wizard, "finish");
        }));
        EXPECT_EQ(RowsOf(kPortRows), QStringList(u"Gopher|"_s + port));
    }
}

TEST_F(SetupWizardWindow, BackFromUserBindsSkipsThePortsWhenNoListIsUsed)
{
    const std::pair<const char *, const char16_t *> cases[] = {
        {"monitorAll", u"Setup Wizard - Monitored protocols"},
        {"monitorBasic", u"Setup Wizard - Monitored protocols"},
        {"monitorSpecified", u"Setup Wizard - TCP/IP ports"},
        {"monitorAllBut", u"Setup Wizard - TCP/IP ports"},
    };
    for (const auto &[mode, title] : cases) {
        EXPECT_FALSE(Run([mode = mode, title = title](QDialog &wizard) {
            GoTo(wizard, u"Setup Wizard - Monitored protocols"_s);
            Click(OnPage<QAbstractButton>(wizard, mode));
            Click(wizard, "next");
            EXPECT_EQ(Title(wizard), u"Setup Wizard - TCP/IP ports"_s) << "kept: Next shows it";
            Click(wizard, "next");
            Click(wizard, "back");
            EXPECT_EQ(Title(wizard), QStringView(title)) << mode;
            Click(wizard, "cancel");
        }));
    }
}

TEST_F(SetupWizardWindow, CancelWritesNothing)
{
    const QStringList rows = EveryRow();
    EXPECT_FALSE(Run([](QDialog &wizard) {
        GoTo(wizard, u"Setup Wizard - Monitored protocols"_s);
        Click(OnPage<QAbstractButton>(wizard, "monitorSpecified"));
        Type(OnPage(wizard, "protocol"), u"Gopher"_s);
        Click(OnPage<QPushButton>(wizard, "protocolsAdd"));
        GoTo(wizard, u"Setup Wizard - Finish"_s);
        QTest::keyClick(&wizard, Qt::Key_Escape);
    }));
    EXPECT_EQ(EveryRow(), rows);
    EXPECT_EQ(Store().ReadText(values::kMonitorProtMode), std::nullopt);
    EXPECT_EQ(Store().ReadText(values::kRangeNum), std::nullopt);
}

TEST_F(SetupWizardWindow, WithoutAProxyEveryOldExclusionGoes)
{
    for (int i = 0; i < 3; ++i) {
        Store().WriteNumber(values::kExclude, i, 0x0A000001U + static_cast<quint32>(i));
    }
    EXPECT_TRUE(Run([](QDialog &wizard) {
        GoTo(wizard, u"Setup Wizard - Proxy and gateway"_s);
        Click(OnPage<QAbstractButton>(wizard, "usesProxy"));
        EXPECT_FALSE(OnPage(wizard, "exclusionsAdd").isEnabled());
        GoTo(wizard, u"Setup Wizard - Finish"_s);
        Click(wizard, "finish");
    }));
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), std::nullopt);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 2), std::nullopt);
}

TEST_F(SetupWizardWindow, SuggestsTheMachinesNetworksWhileThereAreNone)
{
    const QList<Adapter> adapters {{u"eth0"_s, u"Ethernet adapter eth0"_s, false, 0xC0A80107U, 24}};
    NetworkSetup setup;
    setup.protocols.emplace();
    CSetupWizard wizard(prompt, setup, adapters, nullptr);
    wizard.show();
    Click(wizard, "next");
    auto &suggestion = OnPage<QPushButton>(wizard, "suggestion");
    EXPECT_EQ(WithoutMark(suggestion.text()), u"Add 192.168.1.0 / 255.255.255.0"_s);
    EXPECT_TRUE(setup.ranges.isEmpty()) << "only offered";
    Grab(wizard, u"wizard-ranges"_s);
    Click(suggestion);
    EXPECT_EQ(setup.ranges, (QList<AddressRange> {{0xC0A80100U, 0xFFFFFF00U}}));
    EXPECT_FALSE(suggestion.isEnabled());

    CSetupWizard again(prompt, setup, adapters, nullptr);
    EXPECT_EQ(again.findChild<QPushButton *>(u"suggestion"_s), nullptr);
}

TEST_F(SetupWizardWindow, FinishWithPortsThatCouldNotBeReadLeavesThemAll)
{
    const QStringList protocols = RowsOf(kEveryProtocol);
    const QStringList ports = RowsOf(kEveryPort);
    ASSERT_EQ(ports.size(), 18);
    for (const bool portsAway : {true, false}) {
        Execute(portsAway ? "ALTER TABLE Ports RENAME TO away"
                          : "ALTER TABLE Protocols RENAME TO away");
        EXPECT_TRUE(Run([&](QDialog &wizard) {
            const QString told = Message();
            EXPECT_TRUE(told.startsWith(u"The protocols could not be read."_s));
            EXPECT_TRUE(told.contains(u"no such table"_s)) << told.toStdString();
            Execute(portsAway ? "ALTER TABLE away RENAME TO Ports"
                              : "ALTER TABLE away RENAME TO Protocols");
            for (const auto &title :
                 {u"Setup Wizard - Monitored protocols"_s, u"Setup Wizard - TCP/IP ports"_s}) {
                GoTo(wizard, title);
                EXPECT_TRUE(OnPage(wizard, "unreadProtocols").isVisible());
            }
            EXPECT_FALSE(OnPage(wizard, "portsAdd").isEnabled());
            Click(wizard, "back");
            EXPECT_FALSE(OnPage(wizard, "monitorSpecified").isEnabled());
            EXPECT_FALSE(OnPage(wizard, "protocolsAdd").isEnabled());
            GoTo(wizard, u"Setup Wizard - User binds"_s);
            Click(OnPage<QAbstractButton>(wizard, "byMacAddress"));
            Click(wizard, "next");
            Click(wizard, "finish");
            EXPECT_EQ(prompt.TakeSaid(), QStringList());
        }));
        EXPECT_EQ(RowsOf(kEveryProtocol), protocols);
        EXPECT_EQ(RowsOf(kEveryPort), ports);
        EXPECT_EQ(Store().ReadText(values::kIdentMode), u"1"_s);
    }
}

TEST_F(SetupWizardWindow, AFailedFinishKeepsTheWizardAndTheNextOneWritesTheRest)
{
    const QStringList before = RowsOf("SELECT proto_id, port_number FROM Ports ORDER BY 1, 2");
    EXPECT_TRUE(Run([this](QDialog &wizard) {
        GoTo(wizard, u"Setup Wizard - Monitored protocols"_s);
        Click(OnPage<QAbstractButton>(wizard, "monitorSpecified"));
        Type(OnPage(wizard, "protocol"), u"Gopher"_s);
        Click(OnPage<QPushButton>(wizard, "protocolsAdd"));
        Click(wizard, "next");
        auto &protocols = OnPage<QListWidget>(wizard, "portProtocols");
        protocols.setCurrentRow(protocols.count() - 1);
        Type(OnPage(wizard, "port"), u"70"_s);
        Click(OnPage<QPushButton>(wizard, "portsAdd"));
        GoTo(wizard, u"Setup Wizard - Finish"_s);
        Execute("CREATE TRIGGER refuse BEFORE INSERT ON Ports WHEN NEW.port_number IN (70, 80) "
                "BEGIN SELECT RAISE(ABORT, 'no port today'); END");
        Click(wizard, "finish");
        const QString told = Message();
        EXPECT_TRUE(told.startsWith(u"Not all protocols and ports were stored."_s));
        EXPECT_TRUE(told.contains(u"no port today"_s)) << told.toStdString();
        EXPECT_TRUE(wizard.isVisible());
        EXPECT_EQ(Title(wizard), u"Setup Wizard - Finish"_s);
        EXPECT_EQ(RowsOf("SELECT port_id FROM Ports").size(), 18) << "HTTP kept its own";
        Execute("DROP TRIGGER refuse");
        Click(wizard, "finish");
        EXPECT_EQ(prompt.TakeSaid(), QStringList());
    }));
    EXPECT_EQ(RowsOf(kPortRows), QStringList(u"Gopher|70"_s));
    EXPECT_EQ(RowsOf("SELECT proto_id, port_number FROM Ports, Protocols WHERE proto_id = id AND "
                     "proto_name <> 'Gopher' ORDER BY 1, 2"),
              before);
}

TEST_F(SetupWizardWindow, ADamagedFileIsToldAndKeepsTheWizardOpen)
{
    const QByteArray damaged = "timer = 5 sec\n";
    WriteBaseFile(damaged);
    EXPECT_TRUE(Run([&](QDialog &wizard) {
        EXPECT_TRUE(Message().contains(u"Line 1 of the settings file"_s));
        GoTo(wizard, u"Setup Wizard - User binds"_s);
        Click(OnPage<QAbstractButton>(wizard, "byUserName"));
        Click(wizard, "next");
        Click(wizard, "finish");
        EXPECT_TRUE(Message().contains(Store().FileOf(ConfigKeyId::Base)));
        EXPECT_TRUE(wizard.isVisible());
        QFile file(Store().FileOf(ConfigKeyId::Base));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), damaged);
        WriteBaseFile("timer = \"5\"\n");
        Click(wizard, "finish");
    }));
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_EQ(Store().ReadText(values::kIdentMode), u"2"_s);
    EXPECT_EQ(Store().ReadText(values::kTimer), u"5"_s);
}
