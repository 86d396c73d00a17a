#include "db/session.h"
#include "db/value_codes.h"
#include "demo/screens/studio.h"
#include "ui/accounts/credit_dialogs.h"
#include "ui/main/splitter_frame.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

template <typename IdType, typename Mode>
IdType FirstId(const char *sqlText, Mode mode)
{
    RunQuery(sqlText, FetchMode::One, mode);
    return queryResult.Id<IdType>(1);
}

UserId UserInMode(AccountingMode mode)
{
    return FirstId<UserId>("SELECT user_id FROM users WHERE mode = (?) ORDER BY user_id", mode);
}

// The user with most credits of a kind.
UserId UserWithCredits(BillingMode billingMode)
{
    return FirstId<UserId>("SELECT object_id FROM billing WHERE mode = (?) and object_id > 0 "
                           "GROUP BY object_id ORDER BY COUNT(*) DESC",
                           billingMode);
}

GroupId GroupInMode(AccountingMode mode)
{
    return FirstId<GroupId>("SELECT group_id FROM groups WHERE mode = (?) ORDER BY group_id", mode);
}

template <typename IdType>
void DrawAccountOf(Studio &studio,
                   const QString &name,
                   const std::function<void(IdType, QWidget *)> &open,
                   IdType id)
{
    studio.DrawDialog(name, [&] { open(id, &studio.Frame()); });
}

void DrawCreditDialogs(Studio &studio)
{
    const auto enter = [](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"amount"_s)->setText(u"250"_s);
        if (auto *money = dialog.findChild<QAbstractButton *>(u"money"_s)) {
            money->click();
            Press(dialog, u"noExpiry"_s);
        }
    };
    studio.DrawDialog(
        u"account-credit"_s,
        [&] { BillingCreditDialog(studio.Services(), &studio.Frame()).exec(); },
        enter);
    studio.DrawDialog(
        u"account-limit-credit"_s,
        [&] {
            LimitCreditDialog(studio.Services(), AccountingMode::TrafficAndTime, &studio.Frame())
                .exec();
        },
        enter);
}

} // namespace

void DrawAccounts(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    DrawAccountOf(studio, u"account"_s, dialogs.userAccount, UserWithCredits(BillingMode::Credit));
    DrawAccountOf(
        studio, u"account-limits"_s, dialogs.userAccount, UserWithCredits(BillingMode::Traffic));
    DrawAccountOf(
        studio, u"account-group"_s, dialogs.groupAccount, GroupInMode(AccountingMode::Provider));
    DrawCreditDialogs(studio);
    DrawAccountOf(studio,
                  u"statistics"_s,
                  dialogs.userStatistics,
                  UserInMode(AccountingMode::TrafficAndTime));
    DrawAccountOf(studio,
                  u"statistics-group"_s,
                  dialogs.groupStatistics,
                  GroupInMode(AccountingMode::Traffic));
}
