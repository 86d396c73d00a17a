#include "access/user_mode_step.h"

#include "access/blocking.h"
#include "access/open_credit.h"
#include "access/usage_records.h"
#include "db/session.h"

namespace {

// The traffic part and the time part: the same steps with texts of their own.
struct LimitPart
{
    const char *clearRecord;
    const char *readStored; // the block reason in column 3
    const char *readUsed;
    const char *readCredits;
    const char *write;
};

constexpr LimitPart kTrafficPart = {
    .clearRecord = "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)",
    .readStored = "SELECT traflim, trafperiod, blockreason FROM users WHERE user_id = (?)",
    .readUsed = "SELECT data FROM traffic_use WHERE traf_id = (?)",
    .readCredits = "SELECT closed FROM billing WHERE object_id = (?) AND mode=1",
    .write = "UPDATE users SET traflim = (?), trafperiod = (?) WHERE user_id = (?)",
};

// Kept: the traffic period is read here too.
constexpr LimitPart kTimePart = {
    .clearRecord = "UPDATE time_use SET blocked=false WHERE time_id=(?)",
    .readStored = "SELECT timelim, trafperiod, blockreason FROM users WHERE user_id = (?)",
    .readUsed = "SELECT data FROM time_use WHERE time_id = (?)",
    .readCredits = "SELECT closed FROM billing WHERE object_id = (?) AND mode=4",
    .write = "UPDATE users SET timelim = (?), timeperiod = (?) WHERE user_id = (?)",
};

bool HasOpenCredit(const char *sqlText, UserId userId)
{
    bool open = false;
    RowCursor rows(sqlText, userId);
    while (rows.Next()) {
        open = open || !queryResult.Flag(1);
    }
    return open;
}

void LiftBlock(const UserRecord &record, const ServiceLink *link)
{
    Execute("UPDATE users SET blocked = 0 WHERE user_id = (?)", record.userId);
    UnblockUser(link, record.userId);
}

template <typename RecordId, typename Limit>
void ApplyRaisedLimit(const LimitPart &part,
                      const UserRecord &record,
                      RecordId usageRecord,
                      Limit limit,
                      const ServiceLink *link)
{
    Execute(part.clearRecord, usageRecord);
    RunQuery(part.readStored, FetchMode::All, record.userId);
    const auto reason = queryResult.Code<BlockReason>(3);
    RunQuery(part.readUsed, FetchMode::All, usageRecord);
    const decltype(AmountOf(limit)) used {queryResult.Amount(1)};
    const bool openCredit = HasOpenCredit(part.readCredits, record.userId);
    if (MayBeLifted(record.block, reason) && (used < AmountOf(limit) || openCredit)) {
        LiftBlock(record, link);
    }
}

void ApplyTrafficLimit(const UserRecord &record, const ServiceLink *link)
{
    const Limits limits = record.limits.Staged();
    if (record.limits.trafficRaised) {
        const auto usageRecord = FindUserTrafficRecord(record.userId, UsagePeriodOf(limits.period));
        ApplyRaisedLimit(kTrafficPart, record, usageRecord, limits.traffic, link);
    }
    Execute(kTrafficPart.write, limits.traffic, limits.period, record.userId);
}

void ApplyTimeLimit(const UserRecord &record, const ServiceLink *link)
{
    const Limits limits = record.limits.Staged();
    if (record.limits.timeRaised) {
        const auto usageRecord = FindUserTimeRecord(record.userId, UsagePeriodOf(limits.period));
        ApplyRaisedLimit(kTimePart, record, usageRecord, limits.time, link);
    }
    Execute(kTimePart.write, limits.time, limits.period, record.userId);
}

void ApplyNoControl(const UserRecord &record, const ServiceLink *link)
{
    Execute("UPDATE users SET mode = 0 WHERE user_id = (?)", record.userId);
    RunQuery("SELECT blockreason FROM users WHERE user_id = (?)", FetchMode::All, record.userId);
    if (MayBeLifted(record.block, queryResult.Code<BlockReason>(1))) {
        UnblockUser(link, record.userId);
    }
}

void ApplyCreditAccount(const UserRecord &record, const ServiceLink *link)
{
    Execute("UPDATE users SET mode = 2 WHERE user_id = (?)", record.userId);
    if (HasCreditLeft(record.userId) && MayBeLifted(record.block, record.block.reason)) {
        UnblockUser(link, record.userId);
    }
    const Limits limits = record.limits.Staged();
    if (limits.ownPrice) {
        Execute("UPDATE users SET own_price = true WHERE user_id = (?)", record.userId);
        Execute(
            "UPDATE users SET trafprice = (?) WHERE user_id = (?)", limits.price, record.userId);
    } else {
        Execute("UPDATE users SET own_price = false WHERE user_id = (?)", record.userId);
    }
}

} // namespace

void ApplyUserMode(const UserRecord &record, const ServiceLink *link)
{
    switch (record.mode) {
    case AccountingMode::NoControl:
        ApplyNoControl(record, link);
        break;
    case AccountingMode::Traffic:
        Execute("UPDATE users SET mode = 1 WHERE user_id = (?)", record.userId);
        ApplyTrafficLimit(record, link);
        break;
    case AccountingMode::TrafficAndTime:
        Execute("UPDATE users SET mode = 5 WHERE user_id = (?)", record.userId);
        ApplyTrafficLimit(record, link);
        ApplyTimeLimit(record, link);
        break;
    case AccountingMode::Provider:
        ApplyCreditAccount(record, link);
        break;
    case AccountingMode::Time:
        Execute("UPDATE users SET mode = 4 WHERE user_id = (?)", record.userId);
        ApplyTimeLimit(record, link);
        break;
    default:
        break;
    }
}
