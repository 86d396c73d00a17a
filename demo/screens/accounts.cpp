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

quint32 FirstId(const char *sqlText, quint32 mode)
{
    RunQuery(sqlText, FetchMode::One, mode);
    return queryResult.Integer(1);
}

quint32 UserInMode(quint32 mode)
{
    return FirstId("SELECT user_id FROM users WHERE mode = (?) ORDER BY user_id", mode);
}

// The user with most credits of a kind (billing.mode).
quint32 UserWithCredits(quint32 billingMode)
{
    return FirstId("SELECT object_id FROM billing WHERE mode = (?) and object_id > 0 "
                   "GROUP BY object_id ORDER BY COUNT(*) DESC",
                   billingMode);
}

quint32 GroupInMode(quint32 mode)
{
    return FirstId("SELECT group_id FROM groups WHERE mode = (?) ORDER BY group_id", mode);
}

void DrawAccountOf(Studio &studio,
                   const QString &name,
                   const FrameDialogs::ForOne &open,
                   quint32 id)
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
        u"account-credit"_s, [&] { BillingCreditDialog(&studio.Frame()).exec(); }, enter);
    studio.DrawDialog(
        u"account-limit-credit"_s,
        [&] { LimitCreditDialog(mode::kTrafficAndTime, &studio.Frame()).exec(); },
        enter);
}

} // namespace

void DrawAccounts(Studio &studio)
{
    const FrameDialogs &dialogs = studio.Frame().Dialogs();
    DrawAccountOf(
        studio, u"account"_s, dialogs.userAccount, UserWithCredits(billing_mode::kCredit));
    DrawAccountOf(
        studio, u"account-limits"_s, dialogs.userAccount, UserWithCredits(billing_mode::kTraffic));
    DrawAccountOf(studio, u"account-group"_s, dialogs.groupAccount, GroupInMode(mode::kProvider));
    DrawCreditDialogs(studio);
    DrawAccountOf(
        studio, u"statistics"_s, dialogs.userStatistics, UserInMode(mode::kTrafficAndTime));
    DrawAccountOf(
        studio, u"statistics-group"_s, dialogs.groupStatistics, GroupInMode(mode::kTraffic));
}
