#include "ui/accounts/accounts.h"

#include "ui/accounts/account_dialog.h"
#include "ui/accounts/owner_notice.h"
#include "ui/accounts/statistics_dialog.h"

namespace {

void OpenAccount(const Owner &owner, QWidget *parent)
{
    if (const auto mode = ModeOf(owner)) {
        AccountDialog(owner, *mode, parent).exec();
    } else {
        TellOwnerIsGone(owner);
    }
}

void OpenStatistics(const Owner &owner, QWidget *parent)
{
    if (ModeOf(owner)) {
        StatisticsDialog(owner, parent).exec();
    } else {
        TellOwnerIsGone(owner);
    }
}

} // namespace

void OpenUserAccount(quint32 userId, QWidget *parent)
{
    OpenAccount(UserOwner(userId), parent);
}

void OpenGroupAccount(quint32 groupId, QWidget *parent)
{
    OpenAccount(GroupOwner(groupId), parent);
}

void OpenUserStatistics(quint32 userId, QWidget *parent)
{
    OpenStatistics(UserOwner(userId), parent);
}

void OpenGroupStatistics(quint32 groupId, QWidget *parent)
{
    OpenStatistics(GroupOwner(groupId), parent);
}
