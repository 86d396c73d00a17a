#include "gateway/table_update.h"

#include "gateway/table_reader.h"

#include <algorithm>

namespace {

// The elements of a quota map that must be taken out and put back although they stay the same,
// because the quota they name is made anew.
ElementChanges QuotaMapChanges(const Elements &standing,
                               const Elements &wanted,
                               QuotaId::Kind kind,
                               const Received &received)
{
    ElementChanges changes = Changes(standing, wanted);
    Elements stay;
    std::ranges::set_intersection(standing, wanted, std::back_inserter(stay));
    std::erase_if(stay, [&](const Element &element) {
        return !received.contains({kind, element.value});
    });
    for (Elements *list : {&changes.removed, &changes.added}) {
        list->insert(list->end(), stay.begin(), stay.end());
        std::ranges::sort(*list);
    }
    return changes;
}

void ChangeQuotas(MessagePieces &pieces,
                  const TableContent &standing,
                  const TableContent &wanted,
                  const Received &received)
{
    for (const auto &[id, quota] : standing.quotas) {
        if (!wanted.quotas.contains(id) || received.contains(id)) {
            RemoveQuota(pieces.emplace_back(), id);
        }
    }
    for (const auto &[id, quota] : wanted.quotas) {
        const auto anew = received.find(id);
        if (anew != received.end()) {
            PutQuota(pieces.emplace_back(), id, quota.bound, anew->second);
        } else if (quota.bound != standing.quotas.at(id).bound) {
            PutQuota(pieces.emplace_back(), id, quota.bound, std::nullopt);
        }
    }
}

std::optional<PacketVerdict> VerdictOf(const Elements &map, const NetAddress &address)
{
    const auto found = std::ranges::lower_bound(map, address, {}, &Element::address);
    if (found == map.end() || found->address != address) {
        return std::nullopt;
    }
    return static_cast<PacketVerdict>(found->value);
}

} // namespace

Elements
HeldFor(const std::set<QuotaId> &quotas, const TableContent &standing, const TableContent &wanted)
{
    std::set<NetAddress> members;
    for (const TableContent *content : {&standing, &wanted}) {
        for (const auto &[id, addresses] : MembersOf(*content)) {
            if (quotas.contains(id)) {
                members.insert(addresses.begin(), addresses.end());
            }
        }
    }
    Elements held;
    std::ranges::copy_if(
        standing[SetId::To], std::back_inserter(held), [&](const Element &element) {
            return !members.contains(element.address);
        });
    for (const NetAddress &address : members) {
        held.push_back({.address = address, .value = static_cast<quint32>(PacketVerdict::Silent)});
    }
    std::ranges::sort(held);
    return held;
}

GatewayResult<Received>
ReceivedBy(NetlinkSocket &socket, const std::set<QuotaId> &quotas, const TableContent &wanted)
{
    Received received;
    if (quotas.empty()) {
        return received;
    }
    const GatewayResult<ReadElements> counters = ReadSet(socket, SetId::Received);
    if (!counters) {
        return tl::unexpected(counters.error());
    }
    const QuotaMembers members = MembersOf(wanted);
    for (const QuotaId &id : quotas) {
        quint64 &sum = received[id];
        for (const NetAddress &address : members.at(id)) {
            const Element key {.address = address};
            const auto found = std::ranges::lower_bound(*counters, key, {}, &ReadElement::element);
            const bool isCounted = found != counters->end() && found->element == key;
            sum += isCounted ? found->bytes : 0;
        }
    }
    return received;
}

MessagePieces
PiecesFor(const TableContent &standing, const TableContent &wanted, const Received &received)
{
    MessagePieces pieces;
    const auto change = [&](SetId set) { return Changes(standing[set], wanted[set]); };
    const ElementChanges ports = change(SetId::Ports);
    const ElementChanges hardware = change(SetId::Hardware);
    const ElementChanges left =
        QuotaMapChanges(standing[SetId::Left], wanted[SetId::Left], QuotaId::Kind::User, received);
    const ElementChanges groupLeft = QuotaMapChanges(
        standing[SetId::GroupLeft], wanted[SetId::GroupLeft], QuotaId::Kind::Group, received);

    ChangeElements(pieces, SetId::Ports, {{}, ports.added});
    ChangeElements(pieces, SetId::Hardware, {{}, hardware.added});
    ChangeElements(pieces, SetId::Left, {left.removed, {}});
    ChangeElements(pieces, SetId::GroupLeft, {groupLeft.removed, {}});
    ChangeQuotas(pieces, standing, wanted, received);
    ChangeElements(pieces, SetId::Left, {{}, left.added});
    ChangeElements(pieces, SetId::GroupLeft, {{}, groupLeft.added});
    for (const SetId set : {SetId::Refused, SetId::From, SetId::To, SetId::Sent}) {
        ChangeElements(pieces, set, change(set));
    }
    ChangeElements(pieces, SetId::Ports, {ports.removed, {}});
    ChangeElements(pieces, SetId::Hardware, {hardware.removed, {}});
    return pieces;
}

void SetDepleted(TableContent &wanted, const TableContent &standing, const Received &received)
{
    for (auto &[id, quota] : wanted.quotas) {
        const auto anew = received.find(id);
        quota.depleted =
            anew != received.end() ? anew->second >= quota.bound : standing.quotas.at(id).depleted;
    }
}

bool RetiresAny(const TableContent &standing, const TableContent &wanted)
{
    const Elements added = Changes(standing[SetId::From], wanted[SetId::From]).added;
    return std::ranges::any_of(added, [](const Element &element) {
        return element.value == static_cast<quint32>(PacketVerdict::Silent);
    });
}

MessagePieces PiecesToForget(TableContent &content, const std::vector<NetAddress> &addresses)
{
    TableContent kept = content;
    std::set<NetAddress> gone;
    for (const NetAddress &address : addresses) {
        const auto from = VerdictOf(content[SetId::From], address);
        if (from == PacketVerdict::Silent || from == PacketVerdict::Pass) {
            gone.insert(address);
        }
    }
    std::erase_if(kept[SetId::Sent],
                  [&](const Element &element) { return gone.contains(element.address); });
    for (const SetId map : {SetId::From, SetId::To}) {
        std::erase_if(kept[map], [&](const Element &element) {
            return gone.contains(element.address)
                && element.value == static_cast<quint32>(PacketVerdict::Silent);
        });
    }
    MessagePieces pieces;
    // The counters go first: meanwhile the packets are still dropped.
    for (const SetId set : {SetId::Sent, SetId::From, SetId::To}) {
        ChangeElements(pieces, set, Changes(content[set], kept[set]));
    }
    content = std::move(kept);
    return pieces;
}
