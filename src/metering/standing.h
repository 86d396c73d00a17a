// Who may send what at a moment, of everybody at once: what the gateway is to enforce.
#pragma once

#include "access/access_facts.h"
#include "base/net_address.h"
#include "db/failure.h"
#include "db/ids.h"
#include "metering/count.h"

#include <QSet>

#include <map>
#include <optional>
#include <vector>

struct Standing
{
    UserId user;
    std::optional<NetAddress> address; // nothing: not known yet, or none that anybody can have
    std::optional<HardwareAddress> hardware; // as well
    bool refused = false;
    FactKind why = FactKind::NothingWrong; // what decides; WhyAccess of the console says more
    bool whyOfGroup = false; // it is the group's
    // Received bytes that the own limit and credits still allow; nothing: no bound. Nothing is left of
    // less than a byte.
    std::optional<quint64> leftBytes;
    std::optional<double> leftSeconds; // on line; nothing: no bound
    GroupId sharedGroup; // whose bound in groupLeftBytes holds as well; not set: none
    bool authRequired = false;
    bool portsAllowOnly = false; // only these may pass; else these may not
    std::vector<quint16> ports; // sorted; empty: no restriction
    StoredBlock block; // as the row has it
    BlockReason usedUp = BlockReason::None; // 1 or 2 of who has nothing left of its own limits
    bool timeMark = false; // users.timeblocked as the row has it
    bool timeMarkNow = false; // as it is to be

    bool operator==(const Standing &) const = default;
};

// A group whose block is the service's own.
struct GroupStanding
{
    StoredBlock block; // as the row has it
    bool usedUp = false; // of a group with a traffic limit

    bool operator==(const GroupStanding &) const = default;
};

struct Standings
{
    std::vector<Standing> users; // monitored ones, by id
    std::map<GroupId, quint64> groupLeftBytes; // received bytes, of the groups with a bound
    std::map<GroupId, GroupStanding> groups; // of those with a traffic limit or a block
    QDateTime nextChange; // when a time of the week begins or ends, at the latest the next midnight
};

// Null when the user is not monitored.
[[nodiscard]] const Standing *StandingOf(const Standings &standings, UserId userId);

// As the rows say at `now`, in few statements however many users there are. A block by the service for
// what was used up is judged anew: it refuses nobody who has something left. `loggedIn`: those who have
// proved who they are.
[[nodiscard]] Result<Standings>
ReadStandings(const Moment &now, const Prices &prices, const QSet<UserId> &loggedIn);

// The same of one user, with its group's bound; nothing when the user is gone or not monitored.
struct OneStanding
{
    Standing user;
    std::optional<quint64> groupLeftBytes;
};
[[nodiscard]] Result<std::optional<OneStanding>>
ReadStanding(UserId userId, const Moment &now, const Prices &prices, bool loggedIn);
