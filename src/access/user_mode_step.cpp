#include "access/user_mode_step.h"

#include "access/blocking.h"
#include "access/open_credit.h"
#include "access/usage_records.h"
#include "db/session.h"
#include "db/value_codes.h"

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

bool HasOpenCredit(const char *sqlText, quint32 userId)
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

void ApplyRaisedLimit(const LimitPart &part,
                      const UserRecord &record,
                      quint32 usageRecord,
                      quint32 limit,
                      const ServiceLink *link)
{
    Execute(part.clearRecord, usageRecord);
    RunQuery(part.readStored, FetchMode::All, record.userId);
    const quint32 reason = queryResult.Integer(3);
    RunQuery(part.readUsed, FetchMode::All, usageRecord);
    const double used = queryResult.Amount(1);
    const bool openCredit = HasOpenCredit(part.readCredits, record.userId);
    if (MayBeLifted(record.block, reason) && (used < limit || openCredit)) {
        LiftBlock(record, link);
    }
}

void ApplyTrafficLimit(const UserRecord &record, const ServiceLink *link)
{
    const Limits limits = record.limits.Staged();
    if (record.limits.trafficRaised) {
        const quint32 usageRecord = FindUserTrafficRecord(record.userId, limits.period);
        ApplyRaisedLimit(kTrafficPart, record, usageRecord, limits.traffic, link);
    }
    Execute(kTrafficPart.write, limits.traffic, limits.period, record.userId);
}

void ApplyTimeLimit(const UserRecord &record, const ServiceLink *link)
{
    const Limits limits = record.limits.Staged();
    if (record.limits.timeRaised) {
        const quint32 usageRecord = FindUserTimeRecord(record.userId, limits.period);
        ApplyRaisedLimit(kTimePart, record, usageRecord, limits.time, link);
    }
    Execute(kTimePart.write, limits.time, limits.period, record.userId);
}

void ApplyNoControl(const UserRecord &record, const ServiceLink *link)
{
    Execute("UPDATE users SET mode = 0 WHERE user_id = (?)", record.userId);
    RunQuery("SELECT blockreason FROM users WHERE user_id = (?)", FetchMode::All, record.userId);
    if (MayBeLifted(record.block, queryResult.Integer(1))) {
        UnblockUser(link, record.userId);
    }
}

void ApplyCreditAccount(const UserRecord &record, const ServiceLink *link)
{
    Execute("UPDATE users SET mode = 2 WHERE user_id = (?)", record.userId);
    const bool creditLeft = HasCreditLeft(
        "SELECT moneydata, moneyusage, data, usage FROM billing WHERE object_id = (?) AND mode=2 "
        "AND closed=0",
        record.userId);
    if (creditLeft && MayBeLifted(record.block, record.block.reason)) {
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
    case mode::kNoControl:
        ApplyNoControl(record, link);
        break;
    case mode::kTraffic:
        Execute("UPDATE users SET mode = 1 WHERE user_id = (?)", record.userId);
        ApplyTrafficLimit(record, link);
        break;
    case mode::kTrafficAndTime:
        Execute("UPDATE users SET mode = 5 WHERE user_id = (?)", record.userId);
        ApplyTrafficLimit(record, link);
        ApplyTimeLimit(record, link);
        break;
    case mode::kProvider:
        ApplyCreditAccount(record, link);
        break;
    case mode::kTime:
        Execute("UPDATE users SET mode = 4 WHERE user_id = (?)", record.userId);
        ApplyTimeLimit(record, link);
        break;
    default:
        break;
    }
}
