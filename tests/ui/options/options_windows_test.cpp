#include "options_window_fixture.h"
#include "support/core/fake_service.h"
#include "support/windows/dark_palette.h"
#include "support/windows/keyboard.h"
#include "ui/options/adapter_dialog.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

TEST_F(OptionsWindow, HasItsPagesInOrderAndOpensOnAnEmptyStore)
{
    const auto before = StoreBytes();
    EXPECT_FALSE(Run([this](QDialog &sheet) {
        EXPECT_EQ(sheet.windowTitle(), u"Options"_s);
        QStringList titles;
        auto &list = Find<QListWidget>(sheet, "pageList");
        for (int row = 0; row < list.count(); ++row) {
            EXPECT_FALSE(list.item(row)->icon().isNull());
            titles << list.item(row)->text();
        }
        EXPECT_EQ(titles.join(u", "_s),
                  u"General, Network, Adapter selection, Tariff, Protocols, Bind, Authentication, "
                  "Default user profile"_s);
        EXPECT_EQ(TextIn(sheet, "updatePeriod"), u"0"_s);
        EXPECT_EQ(TextIn(sheet, "authPort"), u"0"_s);
        EXPECT_EQ(TextIn(sheet, "trafficLimit"), u""_s);
        EXPECT_EQ(TextIn(sheet, "timeLimit"), u""_s);
        EXPECT_EQ(TextIn(sheet, "currentAdapter"), u""_s);
        EXPECT_EQ(TextIn(sheet, "price"), u"0.00"_s);
        EXPECT_EQ(TextIn(sheet, "usedCurrency"), u"UN"_s);
        EXPECT_EQ(Find<QComboBox>(sheet, "period").currentIndex(), -1);
        for (const auto *box : sheet.findChildren<QCheckBox *>()) {
            EXPECT_FALSE(box->isChecked()) << box->text().toStdString();
        }
        Click(sheet, "help");
        EXPECT_EQ(prompt.TakeSaid(), QStringList(u"The user guide is not installed"_s));
        Click(sheet, "cancel");
    }));
    EXPECT_EQ(StoreBytes(), before);
    EXPECT_EQ(refreshes, 0);
}

TEST_F(OptionsWindow, OkWritesWhatWasChosenOnEveryPage)
{
    Store().WriteText(values::kDefAuthReq, u"1"_s);
    EXPECT_TRUE(Run([this](QDialog &sheet) {
        Type(Find(sheet, "updatePeriod"), u"60"_s);
        TurnToPage(sheet, u"Network"_s);
        TypeAddress(sheet, "exclusion", u"10.0.0.1"_s);
        Click(sheet, "exclusionsAdd");
        ClickAnd(sheet, "rangesAdd", [](QDialog &range) {
            EXPECT_EQ(range.windowTitle(), u"Add IP addresses range"_s);
            TypeAddress(range, "network", u"10.0.0.0"_s);
            TypeAddress(range, "mask", u"255.0.255.0"_s);
            Grab(range, u"add-range"_s);
            Click(range, "ok");
        });
        TypeAddress(sheet, "exclusion", u"10.0.0.2"_s); // added as the page is left
        TurnToPage(sheet, u"Bind"_s);
        Click(sheet, "byMacAddress");
        Click(sheet, "controlMac");
        TurnToPage(sheet, u"Authentication"_s);
        Type(Find(sheet, "authPort"), u"8081"_s);
        Click(sheet, "allowNotLogged");
        TurnToPage(sheet, u"Default user profile"_s);
        Click(sheet, "corporate");
        Click(sheet, "trafficControl");
        Click(sheet, "timeControl");
        Choose(Find<QComboBox>(sheet, "period"), u"Month"_s);
        Type(Find(sheet, "trafficLimit"), u"500"_s);
        Type(Find(sheet, "timeLimit"), u"40"_s);
        Click(sheet, "blocked");
        Click(sheet, "ok");
        EXPECT_TRUE(prompt.TakeSaid().isEmpty());
    }));
    const std::pair<TextValue, const char *> written[] = {
        {values::kTimer, "60"},
        {values::kIdentMode, "1"},
        {values::kControlMac, "1"},
        {values::kAuthPort, "8081"},
        {values::kAllowNotLogged, "1"},
        {values::kAllowNonHost, "0"},
        {values::kAuthReqNew, "0"},
        {values::kDefMode, "5"},
        {values::kDefAccPeriod, "2"},
        {values::kDefTrafficLimit, "500"},
        {values::kDefTimeLimit, "40"},
        {values::kDefBlocked, "1"},
        {values::kDefAuthReq, "1"},
        {values::kRangeNum, "1"},
    };
    for (const auto &[value, text] : written) {
        EXPECT_EQ(Store().ReadText(value), QString::fromLatin1(text)) << value.name;
    }
    EXPECT_EQ(Store().ReadNumber(values::kNet, 0), 0x0A000000U);
    EXPECT_EQ(Store().ReadNumber(values::kMask, 0), 0xFF00FF00U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 1), 0x0A000002U);
    EXPECT_EQ(refreshes, 1);
}

TEST_F(OptionsWindow, AmountsAreShownAsTheyAreTypedInTheLanguage)
{
    const QLocale before;
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_TRUE(Run([](QDialog &sheet) {
        TurnToPage(sheet, u"Tariff"_s);
        ClickAnd(sheet, "setPrice", [](QDialog &dialog) {
            EXPECT_EQ(TextIn(dialog, "newPrice"), u"0,00"_s);
            Type(Find(dialog, "newPrice"), u"1234,5"_s);
            Click(dialog, "ok");
        });
        EXPECT_EQ(TextIn(sheet, "price"), u"1234,50"_s);
        ClickAnd(sheet, "setPrice", [](QDialog &dialog) {
            EXPECT_EQ(TextIn(dialog, "newPrice"), u"1234,50"_s);
            Click(dialog, "ok");
        });
        Click(sheet, "ok");
    }));
    QLocale::setDefault(before);
    EXPECT_EQ(Store().ReadText(values::kTrafPrice), u"1234.5"_s);
}

TEST_F(OptionsWindow, CancelAfterAnyChangeLeavesEveryByte)
{
    EXPECT_TRUE(Run([](QDialog &sheet) { Click(sheet, "ok"); }));
    const auto before = StoreBytes();
    const QStringList rows = EveryRow();
    for (const bool byKey : {true, false}) {
        EXPECT_FALSE(Run([&](QDialog &sheet) {
            Type(Find(sheet, "updatePeriod"), u"60"_s);
            TurnToPage(sheet, u"Network"_s);
            TypeAddress(sheet, "exclusion", u"10.0.0.1"_s);
            Click(sheet, "exclusionsAdd");
            TurnToPage(sheet, u"Protocols"_s);
            Click(sheet, "monitorSpecified");
            ClickCell(Find<QTreeWidget>(sheet, "protocols"), 0, 0);
            Click(sheet, "protocolsRemove");
            TurnToPage(sheet, u"Tariff"_s);
            ClickAnd(sheet, "setPrice", [](QDialog &dialog) {
                Type(Find(dialog, "newPrice"), u"1.25"_s);
                Click(dialog, "ok");
            });
            EXPECT_EQ(TextIn(sheet, "price"), u"1.25"_s);
            if (byKey) {
                QTest::keyClick(&sheet, Qt::Key_Escape);
            } else {
                Click(sheet, "cancel");
            }
        }));
    }
    EXPECT_EQ(StoreBytes(), before);
    EXPECT_EQ(EveryRow(), rows);
}

TEST_F(OptionsWindow, APageThatRefusesStaysAndStaysChosen)
{
    EXPECT_FALSE(Run([this](QDialog &sheet) {
        Find<QLineEdit>(sheet, "updatePeriod").clear();
        TurnToPage(sheet, u"Network"_s);
        EXPECT_EQ(ActivePage(sheet), u"General"_s);
        EXPECT_EQ(Find<QListWidget>(sheet, "pageList").currentItem()->text(), u"General"_s);
        EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Please enter an integer."_s));
        const std::pair<QString, QString> refused[] = {
            {u"12x"_s, u"Please enter an integer."_s},
            {u"2,5"_s, u"Please enter an integer."_s},
            {u"2147483648"_s, u"Please enter an integer between 0 and 2147483647."_s},
        };
        for (const auto &[typed, said] : refused) {
            Type(Find(sheet, "updatePeriod"), typed);
            Click(sheet, "ok");
            EXPECT_EQ(prompt.TakeSaid(), QStringList(said)) << qPrintable(typed);
            EXPECT_EQ(TextIn(sheet, "updatePeriod"), typed) << "all stays as it was typed";
            EXPECT_TRUE(Find(sheet, "updatePeriod").hasFocus());
        }
        Grab(sheet, u"options-refused"_s);
        Type(Find(sheet, "updatePeriod"), u"12"_s);

        TurnToPage(sheet, u"Authentication"_s);
        Type(Find(sheet, "authPort"), u"65536"_s);
        Click(sheet, "ok");
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"Please enter an integer between 0 and 65535."_s));
        Type(Find(sheet, "authPort"), u"65535"_s);

        TurnToPage(sheet, u"Default user profile"_s);
        for (const char *limit : {"trafficLimit", "timeLimit"}) {
            Type(Find(sheet, limit), u"1e3"_s);
            Click(sheet, "ok");
            EXPECT_EQ(prompt.TakeSaid(),
                      QStringList(u"Please enter an integer between 0 and 2147483647."_s));
            EXPECT_TRUE(Find(sheet, limit).hasFocus());
            Type(Find(sheet, limit), {}); // which may be left blank
        }
        Click(sheet, "corporate");
        TurnToPage(sheet, u"Bind"_s);
        EXPECT_EQ(ActivePage(sheet), u"Default user profile"_s);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"Please select one of the corporate type access options"_s));
        Click(sheet, "cancel");
    }));
}

TEST_F(OptionsWindow, RangesAreRefusedInTheirDialogAndDeletedFromTheList)
{
    EXPECT_FALSE(Run([this](QDialog &sheet) {
        TurnToPage(sheet, u"Network"_s);
        Click(sheet, "rangesRemove");
        EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Select an item to delete"_s));
        const auto add = [&sheet](const QString &network, const QString &mask, bool fits) {
            ClickAnd(sheet, "rangesAdd", [&](QDialog &range) {
                TypeAddress(range, "network", network);
                TypeAddress(range, "mask", mask);
                Click(range, "ok");
                EXPECT_EQ(range.isVisible(), !fits);
                if (!fits) {
                    Click(range, "cancel");
                }
            });
        };
        add(u"10.0.0.0"_s, u"255.255.255.253"_s, false);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"You entered incorrect IP addresses and/or subnet mask"_s));
        add(u"10.0.0.0"_s, u"255.255.255.0"_s, true);
        add(u"10.0.0.128"_s, u"255.255.255.128"_s, false);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"You have already defined this range of IP addresses"_s));
        add(u"10.0.1.0"_s, u"255.255.255.0"_s, true);
        auto &list = Find<QTreeWidget>(sheet, "ranges");
        EXPECT_EQ(RowTexts(list),
                  (QStringList {u"10.0.0.0|255.255.255.0"_s, u"10.0.1.0|255.255.255.0"_s}));
        EXPECT_EQ(list.headerItem()->text(0), u"IP Address"_s);
        EXPECT_EQ(list.headerItem()->text(1), u"Subnet mask"_s);
        Grab(sheet, u"options-network"_s);
        ClickCell(list, 0, 0);
        QTest::keyClick(&list, Qt::Key_Delete);
        EXPECT_EQ(RowTexts(list), QStringList(u"10.0.1.0|255.255.255.0"_s));
        Click(sheet, "cancel");
    }));
}

TEST_F(OptionsWindow, A51stRangeIsRefusedBeforeItIsEntered)
{
    for (int i = 0; i < 50; ++i) {
        Store().WriteNumber(values::kNet, i, 0x0A000000U + (static_cast<quint32>(i) << 8U));
        Store().WriteNumber(values::kMask, i, 0xFFFFFF00U);
    }
    Store().WriteInteger(values::kRangeNum, 50);
    EXPECT_FALSE(Run([this](QDialog &sheet) {
        TurnToPage(sheet, u"Network"_s);
        Click(sheet, "rangesAdd");
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"You can not define more than 50 ranges of IP addresses"_s));
        Click(sheet, "cancel");
    }));
}

TEST_F(OptionsWindow, TenExclusionsAreAll)
{
    EXPECT_TRUE(Run([this](QDialog &sheet) {
        TurnToPage(sheet, u"Network"_s);
        EXPECT_FALSE(Find(sheet, "exclusionsRemove").isEnabled());
        Click(sheet, "exclusionsAdd");
        EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Enter IP address please"_s));
        for (int i = 1; i <= 10; ++i) {
            TypeAddress(sheet, "exclusion", u"10.0.0.%1"_s.arg(i));
            if (i == 2) { // Enter adds, and does not close the dialog
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            } else {
                Click(sheet, "exclusionsAdd");
            }
            EXPECT_TRUE(Find<IpAddressField>(sheet, "exclusion").IsBlank());
        }
        auto &list = Find<QTreeWidget>(sheet, "exclusions");
        EXPECT_EQ(RowTexts(list).size(), 10);
        EXPECT_FALSE(Find(sheet, "exclusion").isEnabled());
        EXPECT_FALSE(Find(sheet, "exclusionsAdd").isEnabled());
        ClickCell(list, 3, 0);
        Click(sheet, "exclusionsRemove");
        EXPECT_EQ(list.selectedItems().at(0)->text(0), u"10.0.0.10"_s) << "the new last line";
        EXPECT_TRUE(Find(sheet, "exclusionsAdd").isEnabled());
        TypeAddress(sheet, "exclusion", u"10.0.0.1"_s);
        Click(sheet, "exclusionsAdd");
        EXPECT_EQ(prompt.TakeSaid(), QStringList(u"This IP address has been already excluded"_s));
        Click(sheet, "ok");
    }));
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 3), 0x0A000005U);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 9), 0U);
}

TEST_F(OptionsWindow, ProtocolsAndPortsAreEditedAndSaved)
{
    EXPECT_TRUE(Run([this](QDialog &sheet) {
        TurnToPage(sheet, u"Protocols"_s);
        for (const char *mode : {"monitorAll", "monitorBasic"}) {
            Click(sheet, mode);
            EXPECT_FALSE(Find(sheet, "protocolsAdd").isEnabled());
            EXPECT_FALSE(Find(sheet, "setUpMonitored").isEnabled());
        }
        Click(sheet, "monitorSpecified");
        EXPECT_FALSE(Find(sheet, "portsAdd").isEnabled()) << "no protocol is selected";
        ClickAnd(sheet, "protocolsAdd", [this](QDialog &dialog) {
            Type(Find(dialog, "protocol"), u"http"_s);
            Click(dialog, "ok");
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"This protocol is already in the list!"_s));
            Type(Find(dialog, "protocol"), u"Gopher"_s);
            Click(dialog, "ok");
        });
        EXPECT_EQ(Find<QLabel>(sheet, "portsOwner").text(), u"Gopher"_s);
        ClickAnd(sheet, "portsAdd", [this](QDialog &dialog) {
            for (const auto &refused : {u"0"_s, u"65536"_s, u"-1"_s, u"seventy"_s}) {
                Type(Find(dialog, "port"), refused);
                Click(dialog, "ok");
                EXPECT_EQ(prompt.TakeSaid(),
                          QStringList(u"Enter a port number between 1 and 65535 please"_s))
                    << refused.toStdString();
            }
            Type(Find(dialog, "port"), u"70"_s);
            Click(dialog, "ok");
        });
        ClickAnd(sheet, "portsAdd", [this](QDialog &dialog) {
            Type(Find(dialog, "port"), u"70"_s);
            Click(dialog, "ok");
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"This port is already in list!"_s));
            Click(dialog, "cancel");
        });
        Grab(sheet, u"options-protocols"_s);
        Click(sheet, "ok");
    }));
    EXPECT_EQ(Store().ReadText(values::kMonitorProtMode), u"2"_s);
    EXPECT_EQ(RowsOf("SELECT proto_name, port_number FROM protocols, ports WHERE proto_id = id AND "
                     "proto_name = 'Gopher'"),
              QStringList(u"Gopher|70"_s));
}

TEST_F(OptionsWindow, MonitoredProtocolsAskOnlyWhenNothingWouldBeCounted)
{
    for (const bool specifiedOnly : {true, false}) {
        Execute("UPDATE Protocols SET mon = 1");
        EXPECT_TRUE(Run([this, specifiedOnly](QDialog &sheet) {
            TurnToPage(sheet, u"Protocols"_s);
            Click(sheet, specifiedOnly ? "monitorSpecified" : "monitorAllBut");
            ClickAnd(sheet, "setUpMonitored", [&](QDialog &dialog) {
                EXPECT_EQ(dialog.windowTitle(), u"Monitored protocols"_s);
                auto &list = Find<QListWidget>(dialog, "monitored");
                Grab(dialog, u"monitored-protocols"_s);
                for (int row = 0; row < list.count(); ++row) {
                    list.setCurrentRow(row);
                    QTest::keyClick(&list, Qt::Key_Space);
                }
                if (specifiedOnly) {
                    Click(dialog, "ok");
                    EXPECT_TRUE(dialog.isVisible()) << "No keeps it open";
                    EXPECT_EQ(prompt.TakeSaid().size(), 1);
                    prompt.AnswerWith({true});
                }
                Click(dialog, "ok");
                EXPECT_EQ(prompt.TakeSaid().size(), specifiedOnly ? 1 : 0);
            });
            Click(sheet, "ok");
        }));
        EXPECT_TRUE(RowsOf("SELECT id FROM protocols WHERE mon = 1").isEmpty());
    }
}

TEST_F(OptionsWindow, ACurrencyIsAddedUsedChangedAndDeleted)
{
    EXPECT_TRUE(Run([this](QDialog &sheet) {
        TurnToPage(sheet, u"Tariff"_s);
        auto &list = Find<QTreeWidget>(sheet, "currencies");
        Click(sheet, "currencyConfigure");
        Click(sheet, "currencySet");
        EXPECT_EQ(prompt.TakeSaid(),
                  (QStringList {u"Select currency to edit"_s, u"Select currency to set"_s}));
        ClickAnd(sheet, "currencyAdd", [this](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Add currency"_s);
            EXPECT_EQ(Find<QLineEdit>(dialog, "rate").text().toDouble(), 1.0);
            Click(dialog, "ok");
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Enter the currency symbol please"_s));
            Type(Find(dialog, "symbol"), u"usd"_s);
            Type(Find(dialog, "title"), u"Dollar"_s);
            Type(Find(dialog, "rate"), u"0.034"_s);
            Grab(dialog, u"add-currency"_s);
            Click(dialog, "ok");
        });
        EXPECT_EQ(RowTexts(list), (QStringList {u"units|UN|1"_s, u"Dollar|USD|0.03"_s}));
        EXPECT_FALSE(Find(sheet, "currencyAdd").isEnabled()) << "there is one already";
        ClickCell(list, 0, 0);
        EXPECT_FALSE(Find(sheet, "currencyAdd").isEnabled());
        Click(sheet, "currencyRemove");
        Click(sheet, "currencyConfigure");
        EXPECT_EQ(prompt.TakeSaid(),
                  (QStringList {u"You can not delete base currency"_s,
                                u"You can not edit base currency"_s}));
        ClickCell(list, 1, 0);
        Click(sheet, "currencySet");
        EXPECT_EQ(TextIn(sheet, "usedCurrency"), u"USD"_s);
        Grab(sheet, u"options-tariff"_s);
        list.clearSelection();
        for (const char *name :
             {"currencyAdd", "currencyRemove", "currencyConfigure", "currencySet"}) {
            EXPECT_FALSE(Find(sheet, name).isEnabled()) << name;
        }
        Click(sheet, "ok");
    }));
    EXPECT_EQ(Store().ReadText(values::kCurUse), u"2"_s);
    EXPECT_EQ(Store().ReadText(values::kCurrencyRate), u"0.034"_s);
    EXPECT_TRUE(Run([](QDialog &sheet) {
        TurnToPage(sheet, u"Tariff"_s);
        ClickCell(Find<QTreeWidget>(sheet, "currencies"), 1, 0);
        Click(sheet, "currencyRemove");
        EXPECT_EQ(TextIn(sheet, "usedCurrency"), u"UN"_s);
        EXPECT_TRUE(Find(sheet, "currencyAdd").isEnabled());
        Click(sheet, "ok");
    }));
    EXPECT_EQ(Store().ReadText(values::kCurUse), u"0"_s);
}

TEST_F(OptionsWindow, AnAdapterTooLongToShowIsAnError)
{
    const DarkPalette dark;
    Store().WriteText(values::kNic, QString(1024, u'x'));
    EXPECT_FALSE(Run([](QDialog &sheet) {
        EXPECT_EQ(TextIn(sheet, "currentAdapter"), u"Error!"_s);
        TurnToPage(sheet, u"Protocols"_s);
        Grab(sheet, u"options-dark"_s);
        Click(sheet, "cancel");
    }));
}

TEST_F(OptionsWindow, EveryControlIsReachedByTheKeyboardAndNamed)
{
    EXPECT_FALSE(Run([](QDialog &sheet) {
        auto &list = Find<QListWidget>(sheet, "pageList");
        list.setFocus();
        for (int page = 0; page < list.count(); ++page) {
            EXPECT_EQ(ActivePage(sheet), list.item(page)->text());
            Grab(sheet, u"options-page-%1"_s.arg(page));
            ExpectKeyboardReachesAll(*Find<QTabWidget>(sheet, "pages").currentWidget());
            list.setFocus();
            QTest::keyClick(&list, Qt::Key_Down);
        }
        QTest::keyClick(&sheet, Qt::Key_Escape);
    }));
}

namespace {

// The entry that is marked, the entry that the keys go on from and the page that shows, which are one.
QString OnePage(const QDialog &sheet)
{
    auto &list = Find<QListWidget>(sheet, "pageList");
    QStringList marked;
    for (const auto *entry : list.selectedItems()) {
        marked << entry->text();
    }
    const QStringList all {marked.join(u'+'), list.currentItem()->text(), ActivePage(sheet)};
    return all.count(all.first()) == all.size() ? all.first() : all.join(u'|');
}

void PressInList(const QDialog &sheet, Qt::Key key, const QString &expected)
{
    Find(sheet, "pageList").setFocus();
    Press(key);
    EXPECT_EQ(OnePage(sheet), expected) << key;
}

} // namespace

TEST_F(OptionsWindow, KeysInThePageListTurnThePages)
{
    EXPECT_FALSE(Run([this](QDialog &sheet) {
        const QStringList titles {u"General"_s,
                                  u"Network"_s,
                                  u"Adapter selection"_s,
                                  u"Tariff"_s,
                                  u"Protocols"_s,
                                  u"Bind"_s,
                                  u"Authentication"_s,
                                  u"Default user profile"_s};
        EXPECT_EQ(OnePage(sheet), titles.first());
        for (qsizetype page = 1; page < titles.size(); ++page) {
            PressInList(sheet, Qt::Key_Down, titles[page]);
        }
        PressInList(sheet, Qt::Key_Down, titles.last());
        for (qsizetype page = titles.size() - 2; page >= 0; --page) {
            PressInList(sheet, Qt::Key_Up, titles[page]);
        }
        PressInList(sheet, Qt::Key_End, titles.last());
        PressInList(sheet, Qt::Key_Home, titles.first());
        PressInList(sheet, Qt::Key_T, u"Tariff"_s);

        TurnToPage(sheet, u"General"_s);
        Type(Find(sheet, "updatePeriod"), u"12x"_s);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End}) {
            PressInList(sheet, key, u"General"_s);
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Please enter an integer."_s)) << key;
        }
        TurnToPage(sheet, u"Network"_s);
        EXPECT_EQ(OnePage(sheet), u"General"_s);
        Click(sheet, "cancel");
    }));
}

TEST_F(OptionsWindow, APortTypedBehindTheKeysOfTheListIsThePort)
{
    EXPECT_TRUE(Run([](QDialog &sheet) {
        Find(sheet, "pageList").setFocus();
        for (int times = 0; times < 6; ++times) {
            Press(Qt::Key_Down);
        }
        TypeInto(sheet, "authPort", u"1234"_s);
        Press(Qt::Key_Return);
    }));
    EXPECT_EQ(Store().ReadText(values::kAuthPort), u"1234"_s);
    EXPECT_EQ(Store().ReadText(values::kTimer), u"0"_s);
}

TEST_F(OptionsWindow, AClickThatWouldUnmarkLeavesThePageMarked)
{
    EXPECT_FALSE(Run([](QDialog &sheet) {
        auto &list = Find<QListWidget>(sheet, "pageList");
        const QRect entry = list.visualItemRect(list.currentItem());
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, entry.center());
        EXPECT_EQ(OnePage(sheet), u"General"_s);
        const QPoint below(entry.center().x(), list.viewport()->height() - 2);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, below);
        EXPECT_EQ(OnePage(sheet), u"General"_s);
        Click(sheet, "cancel");
    }));
}

class GlobalOptionsWindow : public OptionsWindow
{ };

TEST_F(GlobalOptionsWindow, KeysInTheTabBarTurnThePages)
{
    Store().WriteText(values::kTimer, u"60"_s);
    EXPECT_FALSE(RunGlobal([this](QDialog &sheet) {
        auto &bar = *Find<QTabWidget>(sheet, "pages").tabBar();
        const std::pair<Qt::Key, QString> keys[] = {
            {Qt::Key_Right, u"Bind"_s},
            {Qt::Key_Right, u"Miscellaneous"_s},
            {Qt::Key_Right, u"Network"_s},
            {Qt::Key_Right, u"Protocols"_s},
            {Qt::Key_Right, u"Protocols"_s},
            {Qt::Key_Left, u"Network"_s},
            {Qt::Key_Home, u"Rate"_s},
            {Qt::Key_End, u"Protocols"_s},
        };
        for (const auto &[key, title] : keys) {
            bar.setFocus();
            Press(key);
            EXPECT_EQ(ActivePage(sheet), title);
            EXPECT_EQ(bar.tabText(bar.currentIndex()), title);
        }
        bar.setFocus();
        Press(Qt::Key_Home);
        TurnTo(Find<QTabWidget>(sheet, "pages"), u"Miscellaneous"_s);
        Find<QLineEdit>(sheet, "updatePeriod").clear();
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End}) {
            bar.setFocus();
            Press(key);
            EXPECT_EQ(ActivePage(sheet), u"Miscellaneous"_s) << key;
            EXPECT_EQ(prompt.TakeSaid().size(), 1) << key;
        }
        Click(sheet, "cancel");
    }));
}

TEST_F(OptionsWindow, EachWayOfTellingUsersApartSaysWhatItNeeds)
{
    (void)Run([](QDialog &sheet) {
        TurnToPage(sheet, u"Bind"_s);
        Grab(sheet, u"options-bind"_s);
        int lowest = 0;
        for (const char *way : {"byIpAddress", "byMacAddress", "byUserName"}) {
            const auto &button = Find<QRadioButton>(sheet, way);
            const auto &needs = Find<QLabel>(sheet, qPrintable(QLatin1String(way) + u"Needs"_s));
            EXPECT_TRUE(needs.isVisible());
            EXPECT_EQ(button.accessibleDescription(), needs.text());
            EXPECT_GT(needs.mapTo(&sheet, QPoint()).y(), button.mapTo(&sheet, QPoint()).y());
            EXPECT_GT(button.mapTo(&sheet, QPoint()).y(), lowest) << "below the one before";
            lowest = needs.mapTo(&sheet, QPoint()).y();
        }
        Click(sheet, "cancel");
    });
}

TEST_F(GlobalOptionsWindow, HasItsFivePagesAndLabels)
{
    Store().WriteText(values::kTimer, u"60"_s);
    EXPECT_FALSE(RunGlobal([](QDialog &sheet) {
        EXPECT_EQ(sheet.windowTitle(), u"Options"_s);
        QStringList titles;
        QStringList classes;
        auto &pages = Find<QTabWidget>(sheet, "pages");
        for (int page = 0; page < pages.count(); ++page) {
            TurnTo(pages, pages.tabText(page));
            Grab(sheet, u"global-options-%1"_s.arg(page));
            titles << pages.tabText(page);
            classes << QString::fromLatin1(pages.widget(page)->metaObject()->className());
        }
        EXPECT_EQ(titles, u"Rate Bind Miscellaneous Network Protocols"_s.split(u' '));
        EXPECT_EQ(classes,
                  u"CAdministratorGenOpt1st CAdministratorGenOptBind CAdministratorGenOptMisc "
                  "CAdministratorGenOptNetwork CAdministratorGenOptProtocols"_s.split(u' '));
        const std::pair<const char *, const char16_t *> labels[] = {
            {"setPrice", u"Set new rate"},
            {"currencyAdd", u"Add"},
            {"currencyRemove", u"Delete"},
            {"currencyConfigure", u"Configure"},
            {"currencySet", u"Set"},
            {"controlMac", u"Enable IP-MAC addresses correspondence control"},
            {"rangesRemove", u"Delete range"},
            {"exclusionsAdd", u"Add address"},
            {"exclusionsRemove", u"Delete address"},
        };
        for (const auto &[name, text] : labels) {
            EXPECT_EQ(WithoutMark(Find<QAbstractButton>(sheet, name).text()), QStringView(text))
                << name;
        }
        Click(sheet, "cancel");
    }));
}

TEST_F(GlobalOptionsWindow, MiscellaneousRefusesAPeriodAndPasswordsThatDiffer)
{
    EXPECT_TRUE(RunGlobal([this](QDialog &sheet) {
        auto &pages = Find<QTabWidget>(sheet, "pages");
        TurnTo(pages, u"Miscellaneous"_s);
        for (const auto &period : {u"0"_s, u"1001"_s}) {
            Type(Find(sheet, "updatePeriod"), period);
            TurnTo(pages, u"Network"_s);
            EXPECT_EQ(prompt.TakeSaid(),
                      QStringList(u"Please enter an integer between 1 and 1000."_s));
        }
        Type(Find(sheet, "updatePeriod"), u"1000"_s);
        Type(Find(sheet, "password"), u"secret"_s);
        Type(Find(sheet, "retyped"), u"Secret"_s);
        for (const bool byOk : {true, false}) {
            if (byOk) {
                Click(sheet, "ok");
            } else {
                TurnTo(pages, u"Rate"_s);
            }
            EXPECT_EQ(prompt.TakeSaid(),
                      QStringList(u"You entered different passwords. Please re-enter"_s));
            EXPECT_EQ(pages.tabText(pages.currentIndex()), u"Miscellaneous"_s);
        }
        EXPECT_EQ(Find<QLineEdit>(sheet, "password").echoMode(), QLineEdit::Password);
        Type(Find(sheet, "retyped"), u"secret"_s);
        Click(sheet, "domainLogon");
        Click(sheet, "ok");
    }));
    EXPECT_EQ(Store().ReadText(values::kTimer), u"1000"_s);
    EXPECT_EQ(Store().ReadText(values::kClientPwd), u"secret"_s);
    EXPECT_EQ(Store().ReadText(values::kUserviewEnabled), u"1"_s);
    EXPECT_EQ(refreshes, 1);
}

TEST_F(GlobalOptionsWindow, EveryControlIsReachedByTheKeyboardAndNamed)
{
    Store().WriteText(values::kTimer, u"60"_s); // 0 could not be left
    EXPECT_FALSE(RunGlobal([](QDialog &sheet) {
        auto &pages = Find<QTabWidget>(sheet, "pages");
        for (int page = 0; page < pages.count(); ++page) {
            EXPECT_EQ(pages.currentIndex(), page);
            ExpectKeyboardReachesAll(sheet);
            Press(Qt::Key_Tab, Qt::ControlModifier);
        }
        Press(Qt::Key_Escape);
    }));
}

TEST_F(GlobalOptionsWindow, IsFilledInByTheKeyboard)
{
    EXPECT_TRUE(RunGlobal([](QDialog &sheet) {
        Press(Qt::Key_Tab, Qt::ControlModifier);
        TabTo(sheet, "byIpAddress");
        Press(Qt::Key_Down);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        TypeInto(sheet, "updatePeriod", u"45"_s);
        TypeInto(sheet, "password", u"pass"_s);
        TypeInto(sheet, "retyped", u"pass"_s);
        Press(Qt::Key_Tab, Qt::ControlModifier);
        TypeInto(sheet, "exclusion", u"10.0.0.1"_s);
        PressButton(sheet, "exclusionsAdd");
        PressButton(sheet, "ok");
    }));
    EXPECT_EQ(Store().ReadText(values::kIdentMode), u"1"_s);
    EXPECT_EQ(Store().ReadText(values::kTimer), u"45"_s);
    EXPECT_EQ(Store().ReadText(values::kClientPwd), u"pass"_s);
    EXPECT_EQ(Store().ReadNumber(values::kExclude, 0), 0x0A000001U);
}

class AdapterWindow : public WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        Settings().WriteText(values::kBoundNic, u"Ethernet adapter eth0"_s);
        Settings().WriteText(values::kCaptureExport, u"\\Device\\Packet_eth0"_s);
    }

    // Picks the entry as the keyboard does.
    static void Pick(QComboBox &box, int row)
    {
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Down);
        ASSERT_TRUE(box.view()->isVisible()) << "the list opens, and nothing is chosen yet";
        for (int from = box.view()->currentIndex().row(); from < row; ++from) {
            QTest::keyClick(box.view(), Qt::Key_Down);
        }
        QTest::keyClick(box.view(), Qt::Key_Return);
    }

    QList<Adapter> adapters {{u"lo"_s, u"Network adapter lo"_s, true, 0x7F000001U, 8},
                             {u"eth0"_s, u"Ethernet adapter eth0"_s, false, 0xC0A80107U, 24},
                             {u"eth1"_s, u"Ethernet adapter eth1"_s, false, {}, 0}};
};

TEST_F(AdapterWindow, BindsAnotherOnYesOnly)
{
    AdapterDialog dialog(Services(), adapters, true, nullptr);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), u"Select network card Tollbrook will work with"_s);
    EXPECT_EQ(TextIn(dialog, "currentAdapter"), u"Ethernet adapter eth0"_s);
    EXPECT_EQ(TextIn(dialog, "boundAddress"), u"192.168.1.7"_s);
    Grab(dialog, u"adapter"_s);
    auto &box = Find<QComboBox>(dialog, "newAdapter");
    EXPECT_EQ(box.count(), 2) << "the loopback is hidden";
    Pick(box, 1);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"You are about to bind Tollbrook service to another network card. "
                          "Continue?"_s));
    EXPECT_EQ(Settings().ReadText(values::kBoundNic), u"Ethernet adapter eth0"_s);
    EXPECT_EQ(box.currentIndex(), 0) << "No leaves everything as it was";
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_E, Qt::Key_PageDown}) {
        QTest::keyClick(&box, key); // and is not asked about again on the way
        QTest::keyClick(box.view(), Qt::Key_Down);
        QTest::keyClick(box.view(), Qt::Key_Escape);
        EXPECT_EQ(box.currentIndex(), 0) << key;
    }
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    prompt.AnswerWith({true});
    Pick(box, 1);
    EXPECT_EQ(Settings().ReadText(values::kBoundNic), u"Ethernet adapter eth1"_s);
    EXPECT_EQ(Settings().ReadText(values::kNic), std::nullopt);
    EXPECT_EQ(TextIn(dialog, "boundAddress"), u""_s);
}

TEST_F(AdapterWindow, MayChangeOnlyWhileTheServiceIsStopped)
{
    PrivateBus bus;
    FakeService service(bus);
    const QString refusal =
        u"To make any changes in NIC options you have to stop the service before"_s;
    const std::pair<QString, bool> cases[] = {
        {u"active"_s, false}, {u"activating"_s, false}, {u"inactive"_s, true}};
    for (const auto &[state, mayChange] : cases) {
        service.SetStates({state});
        UseBus(bus.Connection());
        const WhileModal watch([mayChange = mayChange](QDialog &dialog) {
            EXPECT_EQ(Find(dialog, "newAdapter").isEnabled(), mayChange);
            ExpectKeyboardReachesAll(dialog);
            Press(Qt::Key_Escape);
        });
        OpenAdapterBinding(Services(), nullptr);
        EXPECT_EQ(prompt.TakeSaid(), mayChange ? QStringList() : QStringList(refusal))
            << qPrintable(state);
    }
    service.ForgetUnit();
    OpenAdapterBinding(Services(), nullptr);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This command may be executed only on a server machine"_s));
    UseBus(QDBusConnection(u"nobody"_s));
}

TEST_F(AdapterWindow, AnAdapterThatIsNotListedIsNotTheCurrentOne)
{
    Settings().WriteText(values::kBoundNic, u"ethernet adapter ETH0"_s);
    const AdapterDialog dialog(Services(), adapters, true, nullptr);
    EXPECT_EQ(TextIn(dialog, "currentAdapter"), u""_s);
    EXPECT_EQ(TextIn(dialog, "boundAddress"), u""_s);
    EXPECT_EQ(Find<QComboBox>(dialog, "newAdapter").currentIndex(), -1);
}

TEST_F(AdapterWindow, WithoutACaptureDriverOrAStoppedServiceItOnlyShows)
{
    const AdapterDialog fixed(Services(), adapters, false, nullptr);
    EXPECT_FALSE(Find(fixed, "newAdapter").isEnabled());
    Settings().CreateKey(ConfigKeyId::CaptureDriver);
    QFile::remove(Settings().FileOf(ConfigKeyId::CaptureDriver));
    const AdapterDialog unbound(Services(), adapters, true, nullptr);
    EXPECT_EQ(TextIn(unbound, "currentAdapter"), u""_s);
    EXPECT_EQ(Find<QComboBox>(unbound, "newAdapter").count(), 2);

    OpenAdapterBinding(Services(), nullptr);
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList(u"This command may be executed only on a server machine"_s));
}
