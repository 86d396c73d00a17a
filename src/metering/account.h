// An account that is charged: the limits and credits of a user or of a group, with the rows that hold
// them.
#pragma once

#include "access/access_facts.h"
#include "db/ids.h"

#include <QDate>

#include <optional>
#include <vector>

// The rows of a limit's credits.
struct LimitCredits
{
    std::vector<BillId> open; // as many as the limit's rules have
    std::vector<BillId>
        adopted; // of them, those given before the record was there: to be tied to it
    std::vector<BillId> ended; // they extended the month before: to be closed
};

struct Account
{
    OwnerRules rules; // mode, price, limits, credits and block; nothing else of them
    TrafficRecordId trafficRecord; // of rules.traffic.use
    TimeRecordId timeRecord;
    bool hasNewMonthOfTraffic = false; // its record has just begun anew
    bool hasNewMonthOfTime = false;
    LimitCredits trafficCredits;
    LimitCredits timeCredits;
    std::vector<BillId> prePaidCredits; // as many as rules.credits has
};

// A limit that counts: one whose period has a meaning.
[[nodiscard]] bool CountsTraffic(const OwnerRules &rules);
[[nodiscard]] bool CountsTime(const OwnerRules &rules);

// What the limits and credits among the facts, the group's or the user's own, still allow; nothing
// where they set no bound. Money is worth what it pays for at `price`.
struct AccountLeft
{
    std::optional<Megabytes> traffic;
    std::optional<Hours> time;
};
[[nodiscard]] AccountLeft LeftOf(const std::vector<Fact> &facts, bool ofGroup, double price);

// Of the same facts: TrafficUsedUp or TimeUsedUp where one refuses, traffic before time; else None.
[[nodiscard]] BlockReason UsedUpIn(const std::vector<Fact> &facts, bool ofGroup);

// The facts of the limits and credits alone.
[[nodiscard]] AccessFindings AccountFindings(const OwnerRules &rules, QDate today);

// Why the owner may receive nothing more: TrafficUsedUp or TimeUsedUp; None for who has something left.
[[nodiscard]] BlockReason UsedUp(const OwnerRules &rules, QDate today);

// Whether what was counted belongs to a month before that of `day`.
[[nodiscard]] bool IsOfEarlierMonth(QDate countedOn, QDate day);
