#include "access/everybody.h"

#include "access/owner.h"
#include "access/user_rules.h"
#include "db/query.h"

#include <algorithm>
#include <utility>

namespace {

// Of users or groups.
template <typename OwnerId>
struct Picked
{
    QHash<OwnerId, QStringList> protocols;
    QHash<OwnerId, PortNumbers> ports;
};

// What all rules are put together from, beside the users' rows.
struct Tables
{
    AccountRules accounts;
    GroupRules groups;
    QHash<UserId, std::vector<TimeRange>> times;
    Picked<UserId> picked;
    Picked<GroupId> pickedByGroups;
};

struct RangeRow
{
    UserId user;
    GroupId group;
    TimeRange range;
};

Result<bool> ReadRanges(Tables &tables)
{
    return ReadAll("SELECT user_id, group_id, dayofweek, timestart, timestop FROM time_blocked "
                   "ORDER BY dayofweek ASC, timestart ASC",
                   [](const Row &row) {
                       return RangeRow {row.Id<UserId>(1),
                                        row.Id<GroupId>(2),
                                        {row.Integer(3), row.Text(4), row.Text(5)}};
                   })
        .map([&tables](const std::vector<RangeRow> &rows) {
            for (const RangeRow &each : rows) {
                if (each.user.IsSet()) {
                    tables.times[each.user].push_back(each.range);
                } else if (const auto group = tables.groups.find(each.group);
                           group != tables.groups.end()) {
                    group->times.ranges.push_back(each.range);
                }
            }
            return true;
        });
}

struct PickedPort
{
    UserId user;
    GroupId group;
    QString protocol;
    quint32 port = 0;
};

void AddPort(PortNumbers &ports, quint32 port)
{
    constexpr quint32 kMostPort = 65535;
    if (port > kMostPort) {
        return;
    }
    const auto place = std::ranges::lower_bound(ports, port);
    if (place == ports.end() || *place != port) {
        ports.insert(place, static_cast<quint16>(port));
    }
}

template <typename OwnerId>
void AddPicked(Picked<OwnerId> &picked, OwnerId owner, const PickedPort &port)
{
    QStringList &protocols = picked.protocols[owner];
    if (!protocols.contains(port.protocol)) {
        protocols << port.protocol;
    }
    AddPort(picked.ports[owner], port.port);
}

Result<bool> ReadPicked(Tables &tables)
{
    return ReadAll("SELECT port_blocked.user_id, port_blocked.group_id, protocols.proto_name, "
                   "ports.port_number FROM protocols, ports, port_blocked WHERE "
                   "port_blocked.port_id = ports.port_id and ports.proto_id = protocols.id",
                   [](const Row &row) {
                       return PickedPort {
                           row.Id<UserId>(1), row.Id<GroupId>(2), row.Text(3), row.Integer(4)};
                   })
        .map([&tables](const std::vector<PickedPort> &rows) {
            for (const PickedPort &each : rows) {
                if (each.user.IsSet()) {
                    AddPicked(tables.picked, each.user, each);
                } else {
                    AddPicked(tables.pickedByGroups, each.group, each);
                }
            }
            return true;
        });
}

void TakePickedByGroups(Tables &tables)
{
    for (auto group = tables.groups.begin(); group != tables.groups.end(); ++group) {
        group->ports.picked = tables.pickedByGroups.protocols.value(group.key());
    }
}

Result<bool> ReadTables(AccountMoment moment, Tables &tables)
{
    return ReadAllAccountRules(moment, LimitsRead::Both)
        .and_then([&](AccountRules accounts) {
            tables.accounts = std::move(accounts);
            return ReadAllGroupRules(moment);
        })
        .and_then([&](GroupRules groups) {
            tables.groups = std::move(groups);
            return ReadRanges(tables);
        })
        .and_then([&](bool) { return ReadPicked(tables); })
        .map([&](bool) {
            TakePickedByGroups(tables);
            return true;
        });
}

// A row of user_id, group_id, ip_addr, mac_addr, mode, blocked, blockreason, authreq, portaccess,
// timeaccess and timeblocked.
KnownUser UserIn(const Row &row, const Tables &tables, const QSet<UserId> &loggedIn)
{
    KnownUser user;
    user.userId = row.Id<UserId>(1);
    user.groupId = row.Id<GroupId>(2);
    user.ip = row.Text(3);
    user.mac = row.Text(4);
    UserRules &rules = user.rules;
    if (const auto account = tables.accounts.constFind(user.userId);
        account != tables.accounts.constEnd()) {
        rules.own = *account;
    }
    rules.own.mode = row.Code<AccountingMode>(5);
    rules.own.block = {row.Flag(6), row.Code<BlockReason>(7)};
    rules.authRequired = row.Integer(8) != 0;
    rules.own.ports.allowOnly = row.Flag(9);
    rules.own.times.grant = row.Flag(10);
    rules.timeBlocked = row.Flag(11);
    rules.loggedIn = loggedIn.contains(user.userId);
    rules.own.times.ranges = tables.times.value(user.userId);
    rules.own.ports.picked = tables.picked.protocols.value(user.userId);
    user.ports = tables.picked.ports.value(user.userId);
    if (const auto group = tables.groups.constFind(user.groupId);
        group != tables.groups.constEnd()) {
        rules.group = *group;
        user.groupPorts = tables.pickedByGroups.ports.value(user.groupId);
    }
    return user;
}

Result<PortNumbers> ReadPorts(const Owner &owner)
{
    static constexpr OwnerText kPorts {
        "SELECT ports.port_number FROM port_blocked, ports WHERE port_blocked.user_id = (?) and "
        "port_blocked.port_id = ports.port_id",
        "SELECT ports.port_number FROM port_blocked, ports WHERE port_blocked.group_id = (?) and "
        "port_blocked.port_id = ports.port_id"};
    return ReadAll(
               kPorts.For(owner), [](const Row &row) { return row.Integer(1); }, owner.Number())
        .map([](const std::vector<quint32> &numbers) {
            PortNumbers ports;
            for (const quint32 number : numbers) {
                AddPort(ports, number);
            }
            return ports;
        });
}

Result<bool> ReadAddresses(KnownUser &user)
{
    using Addresses = std::pair<QString, QString>;
    return ReadOne(
               "SELECT ip_addr, mac_addr FROM users WHERE user_id = (?)",
               [](const Row &row) {
                   return Addresses {row.Text(1), row.Text(2)};
               },
               user.userId)
        .map([&user](const std::optional<Addresses> &read) {
            std::tie(user.ip, user.mac) = read.value_or(Addresses());
            return true;
        });
}

Result<bool> ReadRest(KnownUser &user)
{
    return ReadAddresses(user)
        .and_then([&](bool) { return ReadPorts(user.userId); })
        .and_then([&](PortNumbers ports) {
            user.ports = std::move(ports);
            return ReadPorts(user.groupId);
        })
        .map([&](PortNumbers ports) {
            user.groupPorts = std::move(ports);
            return true;
        });
}

} // namespace

Result<bool> ReadEverybody(const ReadAt &at,
                           const QSet<UserId> &loggedIn,
                           FunctionRef<void()> restart,
                           FunctionRef<void(const KnownUser &)> take)
{
    Tables tables;
    return ReadTables({at.now.day, at.price}, tables).and_then([&](bool) -> Result<bool> {
        auto failure = query::Read(
            "SELECT user_id, group_id, ip_addr, mac_addr, mode, blocked, blockreason, authreq, "
            "portaccess, timeaccess, timeblocked FROM users SCANNED WHERE monitored = true",
            0,
            [] {},
            restart,
            [&](const Row &row) {
                take(UserIn(row, tables, loggedIn));
                return query::Then::GoOn;
            });
        if (failure) {
            return tl::unexpected(*std::move(failure));
        }
        return true;
    });
}

Result<std::optional<KnownUser>> ReadKnownUser(UserId userId, const ReadAt &at, bool loggedIn)
{
    const auto stored = ReadUserRules(userId, at.now, at.price);
    if (!stored) {
        return tl::unexpected(stored.error());
    }
    if (!*stored || !(*stored)->rules.monitored) {
        return std::nullopt;
    }
    KnownUser user {userId, (*stored)->groupId, {}, {}, (*stored)->rules, {}, {}};
    user.rules.loggedIn = loggedIn;
    return ReadRest(user).map([&user](bool) { return std::optional(std::move(user)); });
}
