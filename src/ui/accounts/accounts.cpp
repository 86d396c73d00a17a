#include "ui/accounts/accounts.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/accounts/account_dialog.h"
#include "ui/accounts/currency_now.h"
#include "ui/accounts/owner_notice.h"
#include "ui/accounts/statistics_dialog.h"

#include <utility>

using namespace Qt::StringLiterals;

void OpenAccount(const AppServices &services, const Owner &owner, QWidget *parent)
{
    const auto currency = CurrencyNow(services);
    if (!currency) {
        return;
    }
    auto account = Await(
        services, parent, u"Reading the account..."_s, [owner] { return ReadAccount(owner); });
    if (!account) {
        TellUnread(services, u"The account could not be read."_s, account.error());
    } else if (!*account) {
        TellOwnerIsGone(services.prompt, owner);
    } else {
        AccountDialog(services, owner, *std::move(*account), *currency, parent).exec();
    }
}

void OpenStatistics(const AppServices &services, const Owner &owner, QWidget *parent)
{
    auto usage = Await(services, parent, u"Reading the statistics..."_s, [owner] {
        return ReadOwnerUsage(owner);
    });
    if (!usage) {
        TellUnread(services, u"The statistics could not be read."_s, usage.error());
    } else if (!*usage) {
        TellOwnerIsGone(services.prompt, owner);
    } else {
        StatisticsDialog(owner, *std::move(*usage), parent).exec();
    }
}
