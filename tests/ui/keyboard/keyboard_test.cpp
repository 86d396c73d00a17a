// What every window promises to the keyboard, tried in each window and on each of its pages.
#include "support/windows/keyboard.h"

#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/accounts/accounts.h"
#include "ui/accounts/credit_dialogs.h"
#include "ui/common/sheet.h"
#include "ui/main/failures_dialog.h"
#include "ui/main/refresh_period_dialog.h"
#include "ui/options/adapter_dialog.h"
#include "ui/options/browse_user_dialog.h"
#include "ui/options/create_login_dialog.h"
#include "ui/options/currency_editor.h"
#include "ui/options/entry_dialog.h"
#include "ui/options/global_options_sheet.h"
#include "ui/options/login_manager.h"
#include "ui/options/monitored_dialog.h"
#include "ui/options/options_dialog.h"
#include "ui/options/purge_dialog.h"
#include "ui/options/range_editor.h"
#include "ui/options/unmonitored_dialog.h"
#include "ui/props/add_member_dialog.h"
#include "ui/props/address_dialogs.h"
#include "ui/props/change_group_dialog.h"
#include "ui/props/limit_dialogs.h"
#include "ui/props/many_users_dialog.h"
#include "ui/props/name_dialog.h"
#include "ui/props/properties.h"
#include "ui/props/time_range_dialog.h"
#include "ui/reports/filter_dialog.h"
#include "ui/reports/reports_dialog.h"
#include "ui/service/reconnect_dialog.h"
#include "ui/service/service_control_dialog.h"
#include "ui/wizard/setup_wizard.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

const Owner kUser(UserId {1});
const Owner kGroup(GroupId {81});

class Keyboard : public WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        Execute(
            "INSERT INTO groups (group_id, name, mode, trafperiod) VALUES (81, 'Office', 1, 2)");
        Execute(
            "INSERT INTO users (user_id, username, group_id, mode, trafperiod, timeperiod) "
            "VALUES (1, 'anna', 81, 5, 1, 1), (2, 'bert', 81, 2, 1, 1), (3, 'carl', 80, 0, 1, 1)");
        Execute("INSERT INTO users (user_id, username, monitored) VALUES (9, 'zoe', false)");
        Settings().WriteInteger(values::kMonitorProtMode, 2); // so that the lists can be used
        Settings().WriteInteger(values::kIdentMode, 0);
        Settings().WriteInteger(values::kTimer, 60);
    }

    static void TryAndClose(QDialog &dialog)
    {
        ExpectWorksByKeyboard(dialog);
        dialog.reject();
    }

    static void Try(QDialog &dialog)
    {
        const WhileModal opened([](QDialog &shown) { TryAndClose(shown); });
        dialog.exec();
    }

    // On each page of the sheet that `open` shows, turned to by Ctrl+Tab from the first.
    static void TryPages(const std::function<void()> &open, int expectedPages)
    {
        const WhileModal opened([expectedPages](QDialog &sheet) {
            auto &pages = Find<QTabWidget>(sheet, "pages");
            ASSERT_EQ(pages.count(), expectedPages);
            for (int page = 0; page < pages.count(); ++page) {
                SCOPED_TRACE(qPrintable(pages.tabText(page)));
                ASSERT_EQ(pages.currentIndex(), page);
                ExpectWorksByKeyboard(sheet);
                Press(Qt::Key_Tab, Qt::ControlModifier);
            }
            sheet.reject();
        });
        open();
    }

    void TryOpened(const std::function<void()> &open)
    {
        const WhileModal opened([](QDialog &shown) { TryAndClose(shown); });
        open();
    }
};

} // namespace

TEST_F(Keyboard, SheetsOfUsersAndGroups)
{
    for (const quint32 userId : {1U, 2U, 3U}) { // of limits, of credits, of neither
        TryPages([&] { OpenUserSheet(Services(), UserId {userId}, 0, nullptr); }, 5);
    }
    TryPages([&] { OpenGroupSheet(Services(), GroupId {81}, 0, nullptr); }, 3);
}

TEST_F(Keyboard, Options)
{
    TryPages([&] { OpenOptions(Services(), nullptr, {}); }, 8);
    TryPages([&] { OpenGlobalOptions(Services(), nullptr, {}); }, 5);
}

// Something has the focus at first, and the page that is chosen in the list is the one that shows.
TEST_F(Keyboard, TheOptionsBeginInTheirListOfPages)
{
    const WhileModal opened([](QDialog &sheet) {
        auto &list = Find<QListWidget>(sheet, "pageList");
        auto &pages = Find<QTabWidget>(sheet, "pages");
        EXPECT_TRUE(list.hasFocus());
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Up, Qt::Key_Home}) {
            Press(key);
            EXPECT_EQ(list.currentRow(), pages.currentIndex());
            EXPECT_TRUE(list.item(pages.currentIndex())->isSelected());
        }
        Press(Qt::Key_Space, Qt::ControlModifier); // would unmark the entry
        EXPECT_TRUE(list.item(pages.currentIndex())->isSelected());
        QTest::mouseClick(list.viewport(),
                          Qt::LeftButton,
                          Qt::ControlModifier,
                          list.visualItemRect(list.currentItem()).center());
        EXPECT_TRUE(list.item(pages.currentIndex())->isSelected());
        QTest::mouseClick(list.viewport(),
                          Qt::LeftButton,
                          {},
                          QPoint(5, list.viewport()->height() - 3)); // below the last entry
        EXPECT_EQ(list.currentRow(), pages.currentIndex());
        EXPECT_TRUE(list.item(pages.currentIndex())->isSelected());
        sheet.reject();
    });
    OpenOptions(Services(), nullptr, {});
}

TEST_F(Keyboard, Accounts)
{
    for (const Owner &owner : {kUser, Owner(UserId {2}), kGroup}) {
        TryOpened([&] { OpenAccount(Services(), owner, nullptr); });
        TryOpened([&] { OpenStatistics(Services(), owner, nullptr); });
    }
    LimitCreditDialog limit(prompt, {}, {CreditKind::Traffic, CreditKind::Time}, nullptr);
    Try(limit);
    BillingCreditDialog billing(prompt, {}, nullptr);
    Try(billing);
}

TEST_F(Keyboard, DialogsOfTheSheets)
{
    PeriodDialog period(prompt, LimitPeriod::Day);
    Try(period);
    LimitDialog limit(prompt, u"Traffic limit, Mb"_s, 5);
    Try(limit);
    RateDialog rate(prompt, 1.0);
    Try(rate);
    ChangeIpDialog ip(prompt, u"10.0.0.1"_s);
    Try(ip);
    ChangeMacDialog mac(prompt, u"000000000001"_s);
    Try(mac);
    TimeRangeDialog range(prompt);
    Try(range);
    NameDialog name(u"Add group"_s, u"Enter the name of the group:"_s, nullptr);
    Try(name);
    AddMemberDialog members({{UserId {3}, u"carl"_s, GroupId {80}}});
    Try(members);
    TryOpened([&] { OpenAccessForUsers(Services(), {UserId {1}, UserId {2}}, nullptr); });
    TryOpened([&] { (void)ChooseGroupFor(Services(), {UserId {1}}, nullptr); });
    TryOpened([&] { (void)ChooseGroupInSheet(Services(), GroupId {81}, nullptr); });
}

TEST_F(Keyboard, DialogsOfTheOptions)
{
    CurrencyDialog currency(prompt, {}, nullptr);
    Try(currency);
    EntryDialog entry(
        u"Rate"_s, u"units per Mb"_s, new QLineEdit, [] { return true; }, nullptr);
    Try(entry);
    AddRangeDialog range(prompt, {}, nullptr);
    Try(range);
    ProtocolTable table;
    (void)table.Add(u"FTP"_s);
    MonitoredDialog monitored(prompt, table, 2, nullptr);
    Try(monitored);
    TryOpened([&] { OpenUnmonitored(Services(), nullptr); });
    AdapterDialog adapter(Services(),
                          {{u"eth0"_s, u"Ethernet adapter eth0"_s, false, 0xC0A80107U, 24}},
                          true,
                          nullptr);
    Try(adapter);
}

TEST_F(Keyboard, Logins)
{
    Execute("INSERT INTO Logins (login, Pwd, userid) VALUES ('anna', 'x', 1)");
    auto content = LoginManager::Read().value();
    BrowseUserDialog browse(
        Services(), content.groups, [](UserId, const QStringList &) { return false; }, {}, nullptr);
    Try(browse);
    for (const auto &index : {std::optional<size_t>(), std::optional<size_t>(0)}) {
        CreateLoginDialog login(Services(), content.table, index, nullptr);
        Try(login);
    }
    LoginManager logins(Services(), std::move(content), nullptr);
    Try(logins);
}

TEST_F(Keyboard, WindowsOfTheMenus)
{
    PurgeDialog purge(Services(), nullptr);
    Try(purge);
    FailuresDialog failures(nullptr);
    Try(failures);
    RefreshPeriodDialog period(prompt, 3, nullptr);
    Try(period);
    ReportsDialog reports(Services());
    Try(reports);
    ReportFilterDialog filter(ReportFilterDialog::Of::Users, nullptr);
    filter.Offer<UserId>({{UserId {1}, u"anna"_s}}, {});
    Try(filter);
    ServiceControlDialog control(Services().control);
    Try(control);
    ReconnectDialog reconnect(Services().control, [] { return 0; });
    Try(reconnect);
}

TEST_F(Keyboard, SetupWizard)
{
    NetworkSetup setup;
    setup.monitorMode = 2;
    setup.usesProxy = true;
    setup.protocols.emplace();
    (void)setup.protocols->Add(u"FTP"_s);
    CSetupWizard wizard(
        prompt, setup, {{u"eth0"_s, u"Ethernet adapter eth0"_s, false, 0xC0A80107U, 24}}, nullptr);
    wizard.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&wizard));
    for (const int page : wizard.pageIds()) {
        SCOPED_TRACE(qPrintable(wizard.page(page)->title()));
        ASSERT_EQ(wizard.currentId(), page);
        ExpectWorksByKeyboard(wizard);
        wizard.next();
    }
}
