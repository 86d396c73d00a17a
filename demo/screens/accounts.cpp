#include "accounts/currency.h"
#include "db/value_codes.h"
#include "demo/screens/studio.h"
#include "ui/accounts/credit_dialogs.h"
#include "ui/main/splitter_frame.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

UserId UserInMode(const Studio &studio, AccountingMode mode)
{
    return FirstId<UserId>(
        studio, "SELECT user_id FROM users WHERE mode = (?) ORDER BY user_id", mode);
}

// The user with most credits of a kind.
UserId UserWithCredits(const Studio &studio, BillingMode billingMode)
{
    return FirstId<UserId>(studio,
                           "SELECT object_id FROM billing WHERE mode = (?) and object_id > 0 "
                           "GROUP BY object_id ORDER BY COUNT(*) DESC",
                           billingMode);
}

GroupId GroupInMode(const Studio &studio, AccountingMode mode)
{
    return FirstId<GroupId>(
        studio, "SELECT group_id FROM groups WHERE mode = (?) ORDER BY group_id", mode);
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
    const AppServices &services = studio.Services();
    const Currency currency = CurrentCurrency(services.settings);
    const auto enter = [](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"amount"_s)->setText(u"250"_s);
        if (auto *money = dialog.findChild<QAbstractButton *>(u"money"_s)) {
            money->click();
            Press(dialog, u"noExpiry"_s);
        }
    };
    studio.DrawDialog(
        u"account-credit"_s,
        [&] { BillingCreditDialog(services.prompt, currency, &studio.Frame()).exec(); },
        enter);
    studio.DrawDialog(
        u"account-limit-credit"_s,
        [&] {
            LimitCreditDialog(
                services.prompt, currency, {CreditKind::Traffic, CreditKind::Time}, &studio.Frame())
                .exec();
        },
        enter);
}

} // namespace

void DrawAccounts(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    DrawAccountOf(
        studio, u"account"_s, dialogs.userAccount, UserWithCredits(studio, BillingMode::Credit));
    DrawAccountOf(studio,
                  u"account-limits"_s,
                  dialogs.userAccount,
                  UserWithCredits(studio, BillingMode::Traffic));
    DrawAccountOf(studio,
                  u"account-group"_s,
                  dialogs.groupAccount,
                  GroupInMode(studio, AccountingMode::Provider));
    DrawCreditDialogs(studio);
    DrawAccountOf(studio,
                  u"statistics"_s,
                  dialogs.userStatistics,
                  UserInMode(studio, AccountingMode::TrafficAndTime));
    DrawAccountOf(studio,
                  u"statistics-group"_s,
                  dialogs.groupStatistics,
                  GroupInMode(studio, AccountingMode::Traffic));
}
