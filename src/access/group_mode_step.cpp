#include "access/group_mode_step.h"

#include "access/blocking.h"
#include "access/open_credit.h"
#include "access/usage_records.h"
#include "db/session.h"

namespace {

void ApplyNoControl(const GroupRecord &record, const ServiceLink *link)
{
    Execute("UPDATE groups SET mode = 0 WHERE group_id = (?)", record.groupId);
    RunQuery("SELECT blockreason FROM groups WHERE group_id = (?)", FetchMode::All, record.groupId);
    if (MayBeLifted(record.block, queryResult.Code<BlockReason>(1))) {
        UnblockGroup(link, record.groupId);
    }
}

bool HasOpenCredit(GroupId groupId)
{
    bool open = false;
    RowCursor rows("SELECT data, usage FROM billing WHERE group_id = (?) AND mode=1 AND closed=0",
                   groupId);
    while (rows.Next()) {
        open = true;
    }
    return open;
}

void LiftByRaisedLimit(const GroupRecord &record,
                       TrafficRecordId usageRecord,
                       const ServiceLink *link)
{
    RunQuery("SELECT traflim, blockreason FROM groups WHERE group_id = (?)",
             FetchMode::All,
             record.groupId);
    const WholeMegabytes limit {queryResult.Integer(1)};
    const auto reason = queryResult.Code<BlockReason>(2);
    RunQuery("SELECT data FROM traffic_use WHERE traf_id = (?)", FetchMode::All, usageRecord);
    const Megabytes used {queryResult.Amount(1)};
    const bool openCredit = HasOpenCredit(record.groupId);
    if (MayBeLifted(record.block, reason) && (used < AmountOf(limit) || openCredit)) {
        Execute("UPDATE groups SET blocked = 0 WHERE group_id = (?)", record.groupId);
        UnblockGroup(link, record.groupId);
    }
}

void ApplyTrafficLimit(const GroupRecord &record, const ServiceLink *link)
{
    const Limits limits = record.limits.Staged();
    Execute("UPDATE groups SET mode = 1 WHERE group_id = (?)", record.groupId);
    RunQuery("SELECT traflim FROM Groups WHERE Group_id = (?)", FetchMode::All, record.groupId);
    const bool raised =
        record.limits.trafficRaised && limits.traffic > WholeMegabytes {queryResult.Integer(1)};
    TrafficRecordId usageRecord;
    if (raised) {
        usageRecord = FindGroupTrafficRecord(record.groupId);
        Execute("UPDATE traffic_use SET blocked=false WHERE traf_id=(?)", usageRecord);
    }
    Execute("UPDATE groups SET mode = 1, traflim = (?), trafperiod = (?) WHERE group_id = (?)",
            limits.traffic,
            limits.period,
            record.groupId);
    if (raised) {
        LiftByRaisedLimit(record, usageRecord, link);
    }
}

void ApplyCredit(const GroupRecord &record, const ServiceLink *link)
{
    Execute("UPDATE Groups SET mode = 2 WHERE Group_id = (?)", record.groupId);
    if (!record.account.credits.empty()) {
        const StagedCredit &credit = record.account.credits.front();
        Execute("UPDATE Groups SET credit = (?), creditvalue = (?) WHERE Group_id = (?)",
                credit.Kind(),
                NumberOf(credit.amount),
                record.groupId);
    }
    if (HasCreditLeft(record.groupId) && MayBeLifted(record.block, record.block.reason)) {
        UnblockGroup(link, record.groupId);
    }
}

void ApplyPrice(const GroupRecord &record)
{
    const Limits limits = record.limits.Staged();
    if (limits.ownPrice) {
        Execute("UPDATE Groups SET own_price = true WHERE Group_id = (?)", record.groupId);
        Execute(
            "UPDATE Groups SET trafprice = (?) WHERE Group_id = (?)", limits.price, record.groupId);
    } else {
        Execute("UPDATE Groups SET own_price = false WHERE Group_id = (?)", record.groupId);
    }
}

} // namespace

void ApplyGroupMode(const GroupRecord &record, const ServiceLink *link)
{
    switch (record.mode) {
    case AccountingMode::NoControl:
        ApplyNoControl(record, link);
        break;
    case AccountingMode::Traffic:
        ApplyTrafficLimit(record, link);
        break;
    case AccountingMode::Provider:
        ApplyCredit(record, link);
        ApplyPrice(record);
        break;
    default:
        break;
    }
}
