#include "accounts/credit.h"

#include "access/access_mode.h"
#include "access/blocking.h"
#include "access/usage_records.h"
#include "db/session.h"

namespace {

// A pre-paid credit without and with an expiry day.
struct ExpiryPair
{
    const char *never;
    const char *onDay;
};

struct CreditStatements
{
    const char *blockReason;
    const char *limitTraffic;
    ExpiryPair traffic;
    ExpiryPair money;
    ExpiryPair unlimited;
};

constexpr CreditStatements kUserStatements {
    "SELECT blockreason FROM users WHERE user_id = (?) ",
    "INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), (?), (?))",
    {"INSERT INTO billing (mode, object_id, data, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, object_id, data, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, object_id, moneydata, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, object_id, moneydata, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, object_id, unlimited) VALUES (2, (?), 1)",
     "INSERT  INTO billing (mode, object_id, unlimited, expiredday) VALUES (2, (?), 0, (?))"},
};

constexpr CreditStatements kGroupStatements {
    "SELECT blockreason FROM groups WHERE group_id = (?) ",
    "INSERT INTO billing (mode, trafid, group_id, data) VALUES (1, (?), (?), (?))",
    {"INSERT INTO billing (mode, group_id, data, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, group_id, data, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, group_id, moneydata, currencydata, unlimited) "
     "VALUES (2, (?), (?), (?), 1)",
     "INSERT  INTO billing (mode, group_id, moneydata, currencydata, unlimited, expiredday) "
     "VALUES (2, (?), (?), (?), 0, (?))"},
    {"INSERT  INTO billing (mode, group_id, unlimited) VALUES (2, (?), 1)",
     "INSERT  INTO billing (mode, group_id, unlimited, expiredday) VALUES (2, (?), 0, (?))"},
};

// The traffic record that the owner's current accounting period counts into.
TrafficRecordId CurrentTrafficRecord(const Owner &owner)
{
    if (!owner.IsUser()) {
        return FindGroupTrafficRecord(owner.Group());
    }
    RunQuery("SELECT trafperiod FROM users WHERE user_id = (?)", FetchMode::One, owner.User());
    return FindUserTrafficRecord(owner.User(), UsagePeriodOf(queryResult.Code<LimitPeriod>(1)));
}

TimeRecordId CurrentTimeRecord(UserId userId)
{
    RunQuery("SELECT timeperiod FROM users WHERE user_id = (?)", FetchMode::One, userId);
    return FindUserTimeRecord(userId, UsagePeriodOf(queryResult.Code<LimitPeriod>(1)));
}

void WriteLimitCredit(const Owner &owner, const StagedCredit &credit, const CreditStatements &texts)
{
    if (credit.Kind() == CreditKind::Time) {
        const TimeRecordId record = CurrentTimeRecord(owner.User());
        Execute("INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, (?), (?), (?))",
                record,
                owner.User(),
                NumberOf(credit.amount));
        return;
    }
    const TrafficRecordId record = CurrentTrafficRecord(owner);
    Execute(texts.limitTraffic, record, owner.Number(), NumberOf(credit.amount));
}

template <typename... Values>
void WriteWithExpiry(const ExpiryPair &texts, const StagedCredit &credit, const Values &...values)
{
    if (credit.neverExpires) {
        Execute(texts.never, values...);
    } else {
        Execute(texts.onDay, values..., credit.expiryDay);
    }
}

void WritePrepaidCredit(const Owner &owner,
                        const StagedCredit &credit,
                        double rate,
                        const CreditStatements &texts)
{
    if (credit.Kind() == CreditKind::Unlimited) {
        WriteWithExpiry(texts.unlimited, credit, owner.Number());
        return;
    }
    const auto &pair = credit.Kind() == CreditKind::Money ? texts.money : texts.traffic;
    WriteWithExpiry(pair, credit, owner.Number(), NumberOf(credit.amount), rate);
}

void Unblock(const Owner &owner, const ServiceLink *link)
{
    if (owner.IsUser()) {
        UnblockUser(link, owner.User());
    } else {
        UnblockGroup(link, owner.Group());
    }
}

} // namespace

void WriteCredit(const Owner &owner,
                 AccountingMode ownerMode,
                 const StagedCredit &credit,
                 double rate,
                 const ServiceLink *link)
{
    const auto &texts = owner.IsUser() ? kUserStatements : kGroupStatements;
    RunQuery(texts.blockReason, FetchMode::One, owner.Number());
    const auto reason = queryResult.Code<BlockReason>(1);
    if (IsLimitMode(ownerMode)) {
        WriteLimitCredit(owner, credit, texts);
    } else {
        WritePrepaidCredit(owner, credit, rate, texts);
    }
    if (credit.Kind() != CreditKind::Unlimited && reason != BlockReason::Administrator) {
        Unblock(owner, link);
    }
}

void CloseCredit(BillId billId)
{
    Execute("UPDATE billing SET closed = 1 WHERE bill_id = (?)", billId);
}

bool ApplyStagedAccount(const Owner &owner,
                        AccountingMode ownerMode,
                        const StagedAccount &staged,
                        double rate,
                        const ServiceLink *link)
{
    if (staged.IsEmpty()) {
        return true;
    }
    if (!ModeOf(owner)) {
        return false;
    }
    for (const StagedCredit &credit : staged.credits) {
        WriteCredit(owner, ownerMode, credit, rate, link);
    }
    for (const BillId billId : staged.closed) {
        CloseCredit(billId);
    }
    return true;
}
