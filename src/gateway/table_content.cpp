#include "gateway/table_content.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

struct Owned
{
    NetAddress address;
    quint32 id;
    const ClientRules *rules;
};

// Every client's addresses, each once, without the excluded ones.
std::vector<Owned> OwnedAddresses(const Policy &policy, const std::vector<NetAddress> &excluded)
{
    std::vector<Owned> owned;
    owned.reserve(policy.clients.size());
    for (const auto &[id, rules] : policy.clients) {
        for (const NetAddress &address : rules.addresses) {
            if (!std::ranges::binary_search(excluded, address)) {
                owned.push_back({address, id, &rules});
            }
        }
    }
    std::ranges::sort(
        owned, {}, [](const Owned &each) { return std::pair(each.address, each.id); });
    const auto isSame = [](const Owned &a, const Owned &b) { return a.address == b.address; };
    owned.erase(std::unique(owned.begin(), owned.end(), isSame), owned.end());
    return owned;
}

std::optional<PacketVerdict> FromVerdict(const ClientRules &rules)
{
    if (rules.refused) {
        return PacketVerdict::Refuse;
    }
    if (rules.ports.empty()) {
        return rules.hardware ? std::optional(PacketVerdict::Hardware) : std::nullopt;
    }
    if (rules.portsAllowOnly) {
        return rules.hardware ? PacketVerdict::HardwareAllow : PacketVerdict::Allow;
    }
    return rules.hardware ? PacketVerdict::HardwareDeny : PacketVerdict::Deny;
}

std::optional<PacketVerdict> ToVerdict(const ClientRules &rules, bool hasGroup)
{
    if (rules.refused) {
        return PacketVerdict::Silent;
    }
    if (!rules.ports.empty()) {
        return rules.portsAllowOnly ? PacketVerdict::Allow : PacketVerdict::Deny;
    }
    if (hasGroup) {
        return PacketVerdict::LeftOfGroup;
    }
    return rules.receivedUntil ? std::optional(PacketVerdict::Left) : std::nullopt;
}

void AddVerdict(Elements &map, const NetAddress &address, std::optional<PacketVerdict> verdict)
{
    if (verdict) {
        map.push_back({.address = address, .value = static_cast<quint32>(*verdict)});
    }
}

// Adds what one known address needs.
void AddOwned(TableContent &content, const Owned &owned, const Policy &policy)
{
    const auto &[address, id, rules] = owned;
    const auto group = policy.groupReceivedUntil.find(rules->group);
    const bool hasGroup = rules->group != 0 && group != policy.groupReceivedUntil.end();
    content[SetId::Sent].push_back({.address = address});
    AddVerdict(content[SetId::From], address, FromVerdict(*rules));
    AddVerdict(content[SetId::To], address, ToVerdict(*rules, hasGroup));
    if (rules->refused) {
        content[SetId::Refused].push_back({.address = address});
    }
    if (rules->hardware) {
        content[SetId::Hardware].push_back(
            {.address = address, .detail = NumberOf(*rules->hardware)});
    }
    for (const quint16 port : rules->ports) {
        content[SetId::Ports].push_back({.address = address, .detail = port});
    }
    if (rules->receivedUntil) {
        content[SetId::Left].push_back({.address = address, .value = id});
        content.quotas[{QuotaId::Kind::User, id}].bound = *rules->receivedUntil;
    }
    if (hasGroup) {
        content[SetId::GroupLeft].push_back({.address = address, .value = rules->group});
        content.quotas[{QuotaId::Kind::Group, rules->group}].bound = group->second;
    }
}

void AddRetired(TableContent &content,
                const Elements &counted,
                const std::vector<NetAddress> &excluded)
{
    Elements retired;
    std::ranges::set_difference(counted, content[SetId::Sent], std::back_inserter(retired));
    for (const Element &element : retired) {
        content[SetId::Sent].push_back(element);
        if (!std::ranges::binary_search(excluded, element.address)) {
            AddVerdict(content[SetId::From], element.address, PacketVerdict::Silent);
            AddVerdict(content[SetId::To], element.address, PacketVerdict::Silent);
        }
    }
}

void MakeUnique(Elements &elements)
{
    std::ranges::sort(elements);
    elements.erase(std::unique(elements.begin(), elements.end()), elements.end());
}

void AddMembers(QuotaMembers &members, QuotaId::Kind kind, const Elements &map)
{
    for (const Element &element : map) {
        members[{kind, element.value}].push_back(element.address);
    }
}

void AddOwnQuotas(std::set<QuotaId> &align,
                  const TableContent &wanted,
                  const std::vector<NetAddress> &addresses)
{
    for (const Element &element : wanted[SetId::Left]) {
        if (std::ranges::binary_search(addresses, element.address)) {
            align.insert({QuotaId::Kind::User, element.value});
        }
    }
}

} // namespace

TableContent ContentFor(const Policy &policy, const TableContent &standing)
{
    std::vector<NetAddress> excluded = policy.network.excluded;
    std::ranges::sort(excluded);
    excluded.erase(std::unique(excluded.begin(), excluded.end()), excluded.end());

    TableContent content;
    const std::vector<Owned> owned = OwnedAddresses(policy, excluded);
    content[SetId::Sent].reserve(owned.size());
    for (const Owned &each : owned) {
        AddOwned(content, each, policy);
    }
    AddRetired(content, standing[SetId::Sent], excluded);
    for (const NetAddress &address : excluded) {
        AddVerdict(content[SetId::From], address, PacketVerdict::Pass);
        AddVerdict(content[SetId::To], address, PacketVerdict::Pass);
    }
    for (Elements &elements : content.sets) {
        MakeUnique(elements);
        elements.shrink_to_fit(); // they are kept for long
    }
    return content;
}

bool HasAny(const TableContent &content, SetId set, Family family)
{
    return std::ranges::any_of(content[set], [family](const Element &element) {
        return FamilyOf(element.address) == family;
    });
}

QuotaMembers MembersOf(const TableContent &content)
{
    QuotaMembers members;
    AddMembers(members, QuotaId::Kind::User, content[SetId::Left]);
    AddMembers(members, QuotaId::Kind::Group, content[SetId::GroupLeft]);
    return members;
}

std::set<QuotaId> QuotasToAlign(const TableContent &standing, const TableContent &wanted)
{
    std::set<QuotaId> align;
    const QuotaMembers before = MembersOf(standing);
    const QuotaMembers after = MembersOf(wanted);
    for (const auto &[id, quota] : wanted.quotas) {
        const auto stood = standing.quotas.find(id);
        const auto members = before.find(id);
        const bool stays = stood != standing.quotas.end() && members != before.end()
            && members->second == after.at(id);
        if (!stays || stood->second.drifted
            || (stood->second.depleted && stood->second.bound != quota.bound)) {
            align.insert(id);
        }
    }
    // What a group's quota refused was counted by its members' own before.
    for (const auto &[id, quota] : standing.quotas) {
        const bool changes = align.contains(id) || !wanted.quotas.contains(id);
        if (id.kind == QuotaId::Kind::Group && quota.depleted && changes && before.contains(id)) {
            AddOwnQuotas(align, wanted, before.at(id));
        }
    }
    return align;
}

bool IsRefusedByGroup(const TableContent &standing, quint32 user)
{
    return std::ranges::any_of(standing[SetId::Left], [&](const Element &own) {
        if (own.value != user) {
            return false;
        }
        const auto group = std::ranges::lower_bound(
            standing[SetId::GroupLeft], own.address, {}, &Element::address);
        if (group == standing[SetId::GroupLeft].end() || group->address != own.address) {
            return false;
        }
        const auto quota = standing.quotas.find({QuotaId::Kind::Group, group->value});
        return quota != standing.quotas.end() && quota->second.depleted;
    });
}

ElementChanges Changes(const Elements &standing, const Elements &wanted)
{
    ElementChanges changes;
    std::ranges::set_difference(standing, wanted, std::back_inserter(changes.removed));
    std::ranges::set_difference(wanted, standing, std::back_inserter(changes.added));
    return changes;
}
