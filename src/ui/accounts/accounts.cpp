#include "ui/accounts/accounts.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/accounts/account_dialog.h"
#include "ui/accounts/currency_now.h"
#include "ui/accounts/owner_notice.h"
#include "ui/accounts/statistics_dialog.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Accounts)
};

} // namespace

void OpenAccount(const AppServices &services, const Owner &owner, QWidget *parent)
{
    const auto currency = CurrencyNow(services);
    if (!currency) {
        return;
    }
    auto account = Await(services, parent, Words::tr("Reading the account..."), [owner] {
        return ReadAccount(owner);
    });
    if (!account) {
        TellUnread(services, Words::tr("The account could not be read."), account.error());
    } else if (!*account) {
        TellOwnerIsGone(services.prompt, owner);
    } else {
        AccountDialog(services, owner, *std::move(*account), *currency, parent).exec();
    }
}

void OpenStatistics(const AppServices &services, const Owner &owner, QWidget *parent)
{
    auto usage = Await(services, parent, Words::tr("Reading the statistics..."), [owner] {
        return ReadOwnerUsage(owner);
    });
    if (!usage) {
        TellUnread(services, Words::tr("The statistics could not be read."), usage.error());
    } else if (!*usage) {
        TellOwnerIsGone(services.prompt, owner);
    } else {
        StatisticsDialog(owner, *std::move(*usage), parent).exec();
    }
}
