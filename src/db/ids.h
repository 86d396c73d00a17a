// The numbers under which the shared tables know their rows, each table's with a type of its own, so
// that a user's cannot be handed over where a group's is wanted.
#pragma once

#include <QHashFunctions>

#include <compare>

template <typename Tag>
struct Id
{
    quint32 value = 0; // 0 names no row

    constexpr Id() = default;
    explicit constexpr Id(quint32 number) : value(number) { }

    [[nodiscard]] constexpr bool IsSet() const { return value != 0; }
    constexpr bool operator==(const Id &) const = default;
    constexpr auto operator<=>(const Id &other) const { return value <=> other.value; }
};

template <typename Tag>
[[nodiscard]] size_t qHash(Id<Tag> id, size_t seed = 0) // NOLINT: the name that QHash looks for
{
    return qHash(id.value, seed);
}

using UserId = Id<struct UserTag>; // users.user_id
using GroupId = Id<struct GroupTag>; // groups.group_id
using BillId = Id<struct BillTag>; // billing.bill_id
using ProtocolId = Id<struct ProtocolTag>; // protocols.id
using PortId = Id<struct PortTag>; // ports.port_id, which is not the port's number
using RangeId = Id<struct RangeTag>; // time_blocked.tb_id
using TrafficRecordId = Id<struct TrafficRecordTag>; // traffic_use.traf_id
using TimeRecordId = Id<struct TimeRecordTag>; // time_use.time_id
