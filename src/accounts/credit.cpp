#include "accounts/credit.h"

#include "access/access_mode.h"
#include "access/blocking.h"
#include "access/usage_records.h"
#include "db/session.h"
#include "db/value_codes.h"

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
quint32 CurrentTrafficRecord(const Owner &owner)
{
    if (!owner.IsUser()) {
        return FindGroupTrafficRecord(owner.id);
    }
    RunQuery("SELECT trafperiod FROM users WHERE user_id = (?)", FetchMode::One, owner.id);
    return FindUserTrafficRecord(owner.id, queryResult.Integer(1));
}

quint32 CurrentTimeRecord(quint32 userId)
{
    RunQuery("SELECT timeperiod FROM users WHERE user_id = (?)", FetchMode::One, userId);
    return FindUserTimeRecord(userId, queryResult.Integer(1));
}

void WriteLimitCredit(const Owner &owner, const StagedCredit &credit, const CreditStatements &texts)
{
    if (credit.kind == CreditKind::Time) {
        const quint32 record = CurrentTimeRecord(owner.id);
        Execute("INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, (?), (?), (?))",
                record,
                owner.id,
                credit.amount);
        return;
    }
    const quint32 record = CurrentTrafficRecord(owner);
    Execute(texts.limitTraffic, record, owner.id, credit.amount);
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
    if (credit.kind == CreditKind::Unlimited) {
        WriteWithExpiry(texts.unlimited, credit, owner.id);
        return;
    }
    const auto &pair = credit.kind == CreditKind::Money ? texts.money : texts.traffic;
    WriteWithExpiry(pair, credit, owner.id, credit.amount, rate);
}

void Unblock(const Owner &owner, const ServiceLink *link)
{
    if (owner.IsUser()) {
        UnblockUser(link, owner.id);
    } else {
        UnblockGroup(link, owner.id);
    }
}

} // namespace

void WriteCredit(const Owner &owner,
                 quint32 ownerMode,
                 const StagedCredit &credit,
                 double rate,
                 const ServiceLink *link)
{
    const auto &texts = owner.IsUser() ? kUserStatements : kGroupStatements;
    RunQuery(texts.blockReason, FetchMode::One, owner.id);
    const quint32 reason = queryResult.Integer(1);
    if (IsLimitMode(ownerMode)) {
        WriteLimitCredit(owner, credit, texts);
    } else {
        WritePrepaidCredit(owner, credit, rate, texts);
    }
    if (credit.kind != CreditKind::Unlimited && reason != block_reason::kAdministrator) {
        Unblock(owner, link);
    }
}

void CloseCredit(quint32 billId)
{
    Execute("UPDATE billing SET closed = 1 WHERE bill_id = (?)", billId);
}

bool ApplyStagedAccount(const Owner &owner,
                        quint32 ownerMode,
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
    for (const quint32 billId : staged.closed) {
        CloseCredit(billId);
    }
    return true;
}
