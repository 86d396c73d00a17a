#include "metering/account.h"

namespace {

bool HasMeaning(LimitPeriod period)
{
    return period == LimitPeriod::Day || period == LimitPeriod::Month;
}

} // namespace

bool CountsTraffic(const OwnerRules &rules)
{
    return (rules.mode == AccountingMode::Traffic || rules.mode == AccountingMode::TrafficAndTime)
        && HasMeaning(rules.traffic.period);
}

bool CountsTime(const OwnerRules &rules)
{
    return (rules.mode == AccountingMode::Time || rules.mode == AccountingMode::TrafficAndTime)
        && HasMeaning(rules.time.period);
}

AccountLeft LeftOf(const std::vector<Fact> &facts, bool ofGroup, double price)
{
    AccountLeft left;
    for (const Fact &fact : facts) {
        if (fact.ofGroup != ofGroup) {
            continue;
        }
        if (fact.kind == FactKind::TrafficLimit) {
            left.traffic = std::get<LimitFact<Megabytes>>(fact.values).left;
        } else if (fact.kind == FactKind::TimeLimit) {
            left.time = std::get<LimitFact<Hours>>(fact.values).left;
        } else if (fact.kind == FactKind::PrePaid) {
            const auto &credit = std::get<PrePaidFact>(fact.values);
            if (!credit.unbounded) { // so that money has a price
                const double paid = price > 0 ? credit.money.value / price : 0;
                left.traffic = credit.traffic + Megabytes {paid};
            }
        }
    }
    return left;
}

AccessFindings AccountFindings(const OwnerRules &rules, QDate today)
{
    UserRules user;
    user.own = rules;
    user.own.block = {};
    user.own.times = {};
    user.own.ports = {};
    return DecideAccess(user, {today, QTime(0, 0)});
}

BlockReason UsedUpIn(const std::vector<Fact> &facts, bool ofGroup)
{
    BlockReason reason = BlockReason::None;
    for (const Fact &fact : facts) {
        if (fact.ofGroup != ofGroup || fact.effect != FactEffect::Refuses) {
            continue;
        }
        if (fact.kind == FactKind::TrafficLimit || fact.kind == FactKind::PrePaid) {
            return BlockReason::TrafficUsedUp;
        }
        if (fact.kind == FactKind::TimeLimit) {
            reason = BlockReason::TimeUsedUp;
        }
    }
    return reason;
}

BlockReason UsedUp(const OwnerRules &rules, QDate today)
{
    return UsedUpIn(AccountFindings(rules, today).facts, false);
}

bool IsOfEarlierMonth(QDate countedOn, QDate day)
{
    return countedOn < QDate(day.year(), day.month(), 1);
}
