#include "ui/accounts/accounts.h"

#include "ui/accounts/account_dialog.h"
#include "ui/accounts/owner_notice.h"
#include "ui/accounts/statistics_dialog.h"

void OpenAccount(const AppServices &services, const Owner &owner, QWidget *parent)
{
    if (const auto mode = ModeOf(owner)) {
        AccountDialog(services, owner, *mode, parent).exec();
    } else {
        TellOwnerIsGone(services.prompt, owner);
    }
}

void OpenStatistics(const AppServices &services, const Owner &owner, QWidget *parent)
{
    if (ModeOf(owner)) {
        StatisticsDialog(owner, parent).exec();
    } else {
        TellOwnerIsGone(services.prompt, owner);
    }
}
