// "user list": the users that the find bar would find.
#include "cli/user_listing.h"

#include "access/account_use.h"
#include "access/user_search.h"
#include "cli/owners.h"
#include "cli/work.h"

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"id", "Number", true},
                              {"name", "User name"},
                              {"workstation", "Workstation"},
                              {"fullName", "Full name"},
                              {"ip", "IP address"},
                              {"mac", "MAC address"},
                              {"group", "Group"},
                              {"access", "Access"}};

const QList<Column> kUseColumns {{"used", "Used", true}, {"left", "Left", true}, {"unit", "Unit"}};

struct ListedUser
{
    UserId userId;
    UserRow row;
};

QString AccessWord(AccessState access)
{
    switch (access) {
    case AccessState::Allowed:
        return u"allowed"_s;
    case AccessState::Blocked:
        return u"blocked"_s;
    case AccessState::OutsideAllowedTime:
        return u"outside allowed time"_s;
    }
    Q_UNREACHABLE();
}

Cells CellsOf(const ListedUser &user)
{
    const UserRow &row = user.row;
    return {user.userId.value,
            row.userName,
            row.stationName,
            row.fullName,
            row.ipAddress,
            row.macAddress,
            row.groupName,
            AccessWord(row.access)};
}

Result<std::vector<ListedUser>> FindAll(const UserFilter &filter)
{
    std::vector<ListedUser> users;
    const auto failure = ForEachFoundUser(
        filter,
        {},
        [&users] { users.clear(); },
        [&users](const UserRow &row, UserId userId) {
            users.push_back({userId, row});
            return true;
        });
    if (failure) {
        return tl::unexpected(*failure);
    }
    return users;
}

std::vector<ListedUser> WithUses(std::vector<ListedUser> users, const AccountUses &uses)
{
    for (ListedUser &user : users) {
        const auto use = uses.constFind(user.userId);
        if (use != uses.constEnd()) {
            user.row.use = *use;
        }
    }
    return users;
}

Result<std::vector<ListedUser>> FindAllWithUses(const UserFilter &filter, AccountMoment moment)
{
    return FindAll(filter).and_then([&moment](std::vector<ListedUser> users) {
        return ReadAllAccountUses(moment).map(
            [&users](const AccountUses &uses) { return WithUses(std::move(users), uses); });
    });
}

} // namespace

Or<void> ListUsers(Work &work, const Given &given)
{
    const auto filter = UserFilterFrom(given.Words().join(u' '));
    if (!filter) {
        return StopWith(ExitStatus::WrongUse, filter.error());
    }
    const bool withUses = given.Has(u"accounts"_s);
    const auto currency = withUses ? work.CurrencyNow() : Currency {};
    if (!currency) {
        return tl::unexpected(currency.error());
    }
    const auto users = work.Read([filter = *filter, withUses, moment = work.AccountsNow()] {
        return withUses ? FindAllWithUses(filter, moment) : FindAll(filter);
    });
    if (!users) {
        return tl::unexpected(users.error());
    }
    Table table {withUses ? kColumns + kUseColumns : kColumns, {}};
    for (const ListedUser &user : *users) {
        table.rows << CellsOf(user);
        if (withUses) {
            table.rows.back() += UseCells(user.row.use, *currency);
        }
    }
    work.Print(table);
    return {};
}
