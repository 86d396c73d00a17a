#include "deaf/console.h"

#include "db/row_writer.h"
#include "deaf/hand.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "ui/accounts/accounts.h"
#include "ui/main/administrator_view.h"
#include "ui/options/login_manager.h"
#include "ui/options/options_dialog.h"
#include "ui/props/properties.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 1100;
constexpr int kMembers = 900; // the users 1 to 900
constexpr GroupId kGroup {81};
constexpr UserId kUser {950};
constexpr UserId kUserWithAccount {951};
constexpr int kSeveral = 100; // users that one command is for

FrameDialogs WithoutOffers(FrameDialogs dialogs)
{
    dialogs.reconnect = {};
    dialogs.setupWizard = {};
    return dialogs;
}

void AddUsersToDelete(Console &console)
{
    DirectConnection connection;
    Must(connection.Open(console.Dsn()), connection);
    RowWriter users(connection, "users", "username, monitored, group_id");
    for (int user = 0; user < kSeveral; ++user) {
        Must(users.Add({u" leaves %1"_s.arg(user).toUtf8(), 1, 80}), connection);
    }
    Must(users.Finish(), connection);
    console.Frame().SortBy(0);
    console.Settle();
    CAdministratorView &list = console.Frame().Users();
    list.selectionModel()->select(
        QItemSelection(list.model()->index(0, 0), list.model()->index(kSeveral - 1, 0)),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void DeleteSeveral(Console &console)
{
    console.Frame().Users().DeleteSelected();
}

void EditUser(Console &console)
{
    if (!OpenUserSheet(console.Services(), kUser, user_page::kGeneral, &console.Frame())) {
        Fail(u"The user was not stored."_s);
    }
}

void EditGroup(Console &console)
{
    if (!OpenGroupSheet(console.Services(), kGroup, group_page::kGeneral, &console.Frame())) {
        Fail(u"The group was not stored."_s);
    }
}

void SetLimitsOfSeveral(Console &console)
{
    std::vector<UserId> users;
    for (quint32 user = 1; user <= kSeveral; ++user) {
        users.push_back(UserId {user});
    }
    if (!OpenAccessForUsers(console.Services(), users, &console.Frame())) {
        Fail(u"The limits were not stored."_s);
    }
}

void AddCredit(Console &console)
{
    OpenAccount(console.Services(), kUserWithAccount, &console.Frame());
}

void EditLogin(Console &console)
{
    OpenLoginManager(console.Services(), &console.Frame());
}

void ShowStatistics(Console &console)
{
    OpenStatistics(console.Services(), kGroup, &console.Frame());
}

void Refresh(Console &console)
{
    console.Frame().Refresh();
}

void SaveOptions(Console &console)
{
    if (!OpenOptions(console.Services(), &console.Frame(), {})) {
        Fail(u"The options were not stored."_s);
    }
}

void StartAgain(Console &console)
{
    console.Frame().FirstStart({});
}

template <typename Widget>
Widget &Find(QWidget &in, const char *name)
{
    auto *const widget = in.findChild<Widget *>(QLatin1StringView(name));
    if (widget == nullptr) {
        Fail(u"%1 has no %2"_s.arg(in.windowTitle(), QLatin1StringView(name)));
    }
    return *widget;
}

// Another text each time.
void Edit(QWidget &in, const char *name)
{
    static int edits = 0;
    Find<QLineEdit>(in, name).setText(u"edit %1"_s.arg(++edits));
}

} // namespace

QString DeafData(const QString &engine)
{
    const QString dsn = BenchDatabase(engine, kUsers);
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    Must(connection.Run(u"UPDATE users SET group_id = %1 WHERE user_id <= %2"_s.arg(kGroup.value)
                            .arg(kMembers)),
         connection);
    Must(connection.Run(
             u"UPDATE users SET mode = 2 WHERE user_id = %1"_s.arg(kUserWithAccount.value)),
         connection);
    return dsn;
}

Console::Console(const QString &dataSource)
    : dsn(dataSource)
    , bench(dsn)
    , frame(bench.Services(), WithoutOffers(StandardDialogs(bench.Services())))
{
    frame.show();
    frame.FirstStart({});
    Settle();
}

void Console::Settle()
{
    LoopUntil([this] { return !Services().database.IsBusy(); });
    QApplication::processEvents();
    QApplication::processEvents(); // what the first ones asked for
}

std::span<const Act> ActsOnRows()
{
    using Stores = Act::Stores;
    static constexpr Act kActs[] = {
        {"lists read anew", Stores::Never, nullptr, Refresh},
        {"user's sheet", Stores::OnOk, nullptr, EditUser},
        {"group's sheet", Stores::OnOk, nullptr, EditGroup},
        {"limits of 100 users", Stores::OnOk, nullptr, SetLimitsOfSeveral},
        {"100 users deleted", Stores::AtOnce, AddUsersToDelete, DeleteSeveral},
        {"account", Stores::OnOk, nullptr, AddCredit},
        {"statistics", Stores::Never, nullptr, ShowStatistics},
        {"login manager", Stores::OnOk, nullptr, EditLogin},
    };
    return kActs;
}

const Act kOptions {"options", Act::Stores::OnOk, nullptr, SaveOptions};
const Act kFirstStart {"start of the main window", Act::Stores::AtOnce, nullptr, StartAgain};

void TellEntries(Hand &hand)
{
    hand.Enter("Sheet", [](QDialog &sheet) { Edit(sheet, "description"); });
    hand.Enter("AccountDialog",
               [](QDialog &account) { Find<QPushButton>(account, "addCredit").click(); });
    hand.Enter("BillingCreditDialog",
               [](QDialog &credit) { Find<QLineEdit>(credit, "amount").setText(u"10"_s); });
    hand.Enter("LoginManager", [](QDialog &manager) {
        auto &logins = Find<QTreeWidget>(manager, "logins");
        logins.setCurrentItem(logins.topLevelItem(0));
        Find<QPushButton>(manager, "edit").click();
    });
    hand.Enter("CreateLoginDialog",
               [](QDialog &login) { Find<QCheckBox>(login, "allowStats").toggle(); });
}
