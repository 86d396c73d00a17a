#include "access/address_holder.h"

#include "access/present_users.h"
#include "base/names_line.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(AddressHolder)
};

struct Holder
{
    UserId userId;
    QString name;
};

// The first other holder; not the one that is removed anyway.
std::optional<Holder>
FindHolder(ActionRun &run, const QString &address, UserId userId, std::optional<UserId> removed)
{
    const auto holders = run.Take(ReadAll(
        "SELECT username, user_id FROM users WHERE ip_addr =(?) and user_id <>(?)",
        [](const Row &row) {
            return Holder {row.Id<UserId>(2), row.Text(1)};
        },
        address,
        userId));
    const auto found =
        std::ranges::find_if(holders, [&](const Holder &each) { return each.userId != removed; });
    return found == holders.end() ? std::nullopt : std::optional(*found);
}

struct TakeOver
{
    std::optional<QString> &address; // becomes empty when it must stay as it is
    std::optional<UserId> removed; // by a take-over before this one
    QString question;
};

std::optional<UserId> AskFor(ActionRun &run, UserId userId, const TakeOver &takeOver)
{
    if (!takeOver.address) {
        return std::nullopt;
    }
    const auto holder = FindHolder(run, *takeOver.address, userId, takeOver.removed);
    if (!holder) {
        return std::nullopt;
    }
    const QString key =
        u"address %1 of user %2"_s.arg(*takeOver.address, QString::number(holder->userId.value));
    if (!run.Ask({key, takeOver.question, true, NamesLine({holder->name})})) {
        takeOver.address.reset();
        return std::nullopt;
    }
    LockUsers(run, {holder->userId});
    return holder->userId;
}

} // namespace

AddressHolders FindHolders(ActionRun &run, UserPlan &plan)
{
    AddressHolders holders;
    holders.ofIpAddress = AskFor(
        run,
        plan.userId,
        {plan.ipAddress,
         std::nullopt,
         Words::tr(
             "This IP address is bind to another user. This user will be removed. Proceed?")});
    if (run.IsStopped()) { // the same user may hold both, and is asked about once
        return holders;
    }
    holders.ofMacAddress = AskFor(
        run,
        plan.userId,
        {plan.macAddress,
         holders.ofIpAddress,
         Words::tr(
             "This MAC address is bind to another user. This user will be removed. Proceed?")});
    return holders;
}
