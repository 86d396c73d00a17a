#include "daemon/policy_maker.h"

#include <algorithm>
#include <array>

namespace {

// "Basic Internet protocols": the web, file transfer, mail and names.
constexpr std::array<quint16, 14> kBasicPorts {
    20, 21, 25, 53, 80, 110, 143, 443, 465, 587, 853, 993, 995, 8080};

std::vector<Ipv4Mask> LocalOf(const QList<AddressRange> &ranges)
{
    std::vector<Ipv4Mask> local;
    for (const AddressRange &range : ranges) {
        local.push_back({range.network & range.mask, range.mask});
    }
    return local;
}

void SetCountedPorts(const PolicySources &sources, NetworkRules &rules)
{
    switch (sources.settings.protocols) {
    case MonitoredProtocols::All:
        return;
    case MonitoredProtocols::Basic:
        rules.counted = CountedPorts::Only;
        rules.ports.assign(kBasicPorts.begin(), kBasicPorts.end());
        return;
    case MonitoredProtocols::Marked:
        rules.counted = CountedPorts::Only;
        rules.ports = sources.ports.marked;
        return;
    case MonitoredProtocols::AllButMarked:
        rules.counted = CountedPorts::AllBut;
        rules.ports = sources.ports.marked;
        return;
    }
}

bool HasLimit(const Standing &standing)
{
    return standing.refused || standing.leftBytes || standing.leftSeconds
        || standing.sharedGroup.IsSet();
}

NetworkRules NetworkOf(const PolicySources &sources)
{
    const ServiceSettings &settings = sources.settings;
    NetworkRules rules;
    rules.lanInterfaces = sources.lanInterfaces;
    rules.local = LocalOf(settings.local);
    for (const Ipv4 address : settings.excluded) {
        rules.excluded.push_back(NetAddress::FromIpv4(address));
    }
    SetCountedPorts(sources, rules);
    rules.refuseUnknown = settings.newUser.blocked || settings.newUser.authRequired
        || settings.newUser.mode == AccountingMode::Provider;
    rules.refuseUnknownIpv6 =
        !settings.passesUnknownIpv6 && std::ranges::any_of(sources.standings.users, HasLimit);
    if (settings.authPort != 0) {
        rules.authPort = settings.authPort;
    }
    return rules;
}

// Makes the clients one after the other.
class ClientMaker
{
public:
    ClientMaker(const PolicySources &from, MadePolicy &result) : sources(from), made(result) { }

    // What is stored goes before what hardware has besides.
    void AddAll(const std::vector<Standing> &users)
    {
        made.owners.reserve(static_cast<qsizetype>(users.size()));
        for (const Standing &standing : users) {
            if (standing.address && !made.owners.contains(*standing.address)) {
                made.owners.insert(*standing.address, standing.user);
            }
        }
        std::ranges::for_each(users, [this](const Standing &standing) { Add(standing); });
    }

private:
    void Add(const Standing &standing)
    {
        ClientRules rules;
        rules.addresses = Own(standing);
        if (rules.addresses.empty()) {
            made.withoutAddress.push_back(standing.user);
            return;
        }
        rules.refused = IsRefused(standing);
        rules.portsAllowOnly = standing.portsAllowOnly;
        rules.ports = standing.ports;
        if (sources.settings.bindsHardware) {
            rules.hardware = standing.hardware;
        }
        if (standing.leftBytes) {
            rules.receivedUntil = Accounted(rules.addresses) + *standing.leftBytes;
        }
        if (sources.standings.groupLeftBytes.contains(standing.sharedGroup)) {
            rules.group = standing.sharedGroup.value;
            AddToGroup(standing.sharedGroup, rules.addresses);
        }
        // Users come by their ids.
        made.policy.clients.emplace_hint(
            made.policy.clients.end(), standing.user.value, std::move(rules));
    }

    // Its stored address, and those that its hardware has besides, as far as nobody else has them.
    std::vector<NetAddress> Own(const Standing &standing)
    {
        std::vector<NetAddress> addresses;
        if (standing.address && made.owners.value(*standing.address) == standing.user) {
            addresses.push_back(*standing.address);
        }
        for (const NetAddress &address : CompanionsOf(standing)) {
            if (!made.owners.contains(address)) {
                made.owners.insert(address, standing.user);
                addresses.push_back(address);
            }
        }
        std::ranges::sort(addresses);
        return addresses;
    }

    [[nodiscard]] std::vector<NetAddress> CompanionsOf(const Standing &standing) const
    {
        const auto found = standing.hardware ? sources.companions.find(*standing.hardware)
                                             : sources.companions.end();
        return found == sources.companions.end() ? std::vector<NetAddress>() : found->second;
    }

    [[nodiscard]] bool IsRefused(const Standing &standing) const
    {
        const auto notice = sources.notices.constFind(standing.user);
        if (notice != sources.notices.constEnd() && *notice == Notice::Blocked) {
            return true;
        }
        // Word of an unblocked user lifts the administrator's block alone; all else is judged anew.
        const bool isLifted = notice != sources.notices.constEnd()
            && standing.why == FactKind::AdministratorBlock && !standing.whyOfGroup;
        return (standing.refused && !isLifted) || sources.timeEnded.contains(standing.user);
    }

    [[nodiscard]] quint64 Accounted(const std::vector<NetAddress> &addresses) const
    {
        quint64 sum = 0;
        for (const NetAddress &address : addresses) {
            sum += sources.accounted.value(address);
        }
        return sum;
    }

    void AddToGroup(GroupId group, const std::vector<NetAddress> &addresses)
    {
        const auto [bound, isNew] = made.policy.groupReceivedUntil.try_emplace(
            group.value, sources.standings.groupLeftBytes.at(group));
        bound->second += Accounted(addresses);
    }

    const PolicySources &sources;
    MadePolicy &made;
};

} // namespace

MadePolicy MakePolicy(const PolicySources &sources)
{
    MadePolicy made;
    made.policy.network = NetworkOf(sources);
    ClientMaker(sources, made).AddAll(sources.standings.users);
    return made;
}
