#include "gateway/packet_way.h"

#include "gateway/rule_writer.h"
#include "gateway/table_rules.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <net/if.h>
#include <netinet/in.h>
#include <utility>

namespace {

// Comparing with so many masks costs a packet less than looking them up.
constexpr qsizetype kMostCompared = 8;

// With so many names one rule holds them all.
constexpr qsizetype kMostInterfacesOfRule = 8;

Side SideOf(Direction direction)
{
    return direction == Direction::From ? Side::In : Side::Out;
}

// 0 of an interface that is not there.
quint32 NumberOf(const QString &interface)
{
    return if_nametoindex(interface.toUtf8().constData());
}

// The rules of one direction and family.
class Way
{
public:
    Way(NetlinkWriter &target, const TableRules &of, Direction way, Family ofFamily)
        : writer(target)
        , rules(of)
        , network(of.network)
        , direction(way)
        , family(ofFamily)
        , main(WayChain(way, ofFamily))
    { }

    void Make()
    {
        PassNear();
        if (rules.Looks(direction, family)) {
            Rule(main).Follow(IsFrom() ? SetId::From : SetId::To, family, direction);
        }
        PassUncounted(main);
        Count(main);
        if (family == Family::V4 || !network.lanInterfaces.isEmpty()) {
            Rule(main).Goto(Unknown());
        }
        NoteUnknown();
        CountKnown();
        CheckPorts();
        IsFrom() ? CheckHardware() : CheckQuotas();
    }

private:
    [[nodiscard]] bool IsFrom() const { return direction == Direction::From; }
    [[nodiscard]] RuleWriter Rule(const QByteArray &chain) { return {writer, chain}; }
    [[nodiscard]] QByteArray Tail() const
    {
        return Numbered(IsFrom() ? "count_from" : "to_left_group", family);
    }
    [[nodiscard]] QByteArray ChainFor(PacketVerdict verdict) const
    {
        return ChainOf(verdict, IsFrom() ? SetId::From : SetId::To, family);
    }

    [[nodiscard]] QByteArray Unknown() const
    {
        return Numbered(IsFrom() ? "unknown_from" : "unknown_to", family);
    }

    // What comes for an IPv4 workstation has no near source, as MakeEntry leads the packets.
    void PassNear()
    {
        if (family == Family::V4 && IsFrom()) {
            const NearRanges near = NearRangesOf(network);
            ForNear(writer, near, main, direction, End::Internet, [](RuleWriter &rule) {
                rule.Accept();
            });
            PassOtherInterfaces();
        }
        if (family == Family::V4) {
            return;
        }
        for (const QString &name : network.lanInterfaces) {
            if (IsFrom()) {
                Rule(main).Interface(Side::Out, name).Accept();
            }
        }
        if (!network.excluded.empty()) {
            Rule(main).AddressIn(SetId::Near, family, direction, End::Internet).Accept();
        }
    }

    void PassOtherInterfaces()
    {
        const QStringList &names = network.lanInterfaces;
        if (names.isEmpty() || names.size() > kMostInterfacesOfRule) {
            return;
        }
        RuleWriter rule(writer, main);
        for (const QString &name : names) {
            if (const quint32 number = NumberOf(name); number != 0) {
                rule.NotInterface(Side::In, number);
            }
        }
        for (const QString &name : names) {
            rule.NotInterface(Side::In, name);
        }
        rule.Accept();
    }

    void PassUncounted(const QByteArray &chain)
    {
        switch (network.counted) {
        case CountedPorts::All:
            return;
        case CountedPorts::Only:
            Rule(chain).NotTransport(IPPROTO_TCP).NotTransport(IPPROTO_UDP).Accept();
            Rule(chain).PortOf(kCountedPorts, direction, false).Accept();
            return;
        case CountedPorts::AllBut:
            for (const quint8 protocol : {IPPROTO_TCP, IPPROTO_UDP}) {
                Rule(chain).Transport(protocol).PortOf(kCountedPorts, direction, true).Accept();
            }
            return;
        }
    }

    // The element of a known address says accept.
    void Count(const QByteArray &chain)
    {
        Rule(chain).Follow(IsFrom() ? SetId::Sent : SetId::Received, family, direction);
    }

    void CountKnown()
    {
        if (IsFrom()) {
            PassUncounted(Tail());
            Count(Tail());
        }
    }

    void NoteUnknown()
    {
        const bool refuse =
            family == Family::V4 ? network.refuseUnknown : network.refuseUnknownIpv6;
        if (IsFrom()) {
            Rule(Unknown()).NotePair(family);
        }
        if (refuse && IsFrom()) {
            Rule(Unknown()).Note(SetId::SeenRefused, family, direction).Goto("refuse");
        } else if (!refuse) {
            Rule(Unknown())
                .Note(IsFrom() ? SetId::SeenSent : SetId::SeenReceived, family, direction)
                .Accept();
        }
        // This far come those of whom no more can be noted: nothing passes uncounted.
        IsFrom() ? Rule(Unknown()).Goto("refuse") : Rule(Unknown()).Drop();
    }

    void CheckPorts()
    {
        const int icmp = family == Family::V4 ? int {IPPROTO_ICMP} : int {IPPROTO_ICMPV6};
        const QByteArray allow = ChainFor(PacketVerdict::Allow);
        Rule(allow).Transport(static_cast<quint8>(icmp)).Goto(Tail());
        Refuse(Rule(allow).NotTransport(IPPROTO_TCP).NotTransport(IPPROTO_UDP));
        // A later fragment has no port: it passes here, and the first of them is refused.
        Refuse(Rule(allow).PortPicked(family, direction, false));
        Rule(allow).Goto(Tail());

        const QByteArray deny = ChainFor(PacketVerdict::Deny);
        Rule(deny).NotTransport(IPPROTO_TCP).NotTransport(IPPROTO_UDP).Goto(Tail());
        Refuse(Rule(deny).PortPicked(family, direction, true));
        Rule(deny).Goto(Tail());
    }

    void Refuse(RuleWriter &rule) { IsFrom() ? rule.Goto("refuse") : rule.Drop(); }
    void Refuse(RuleWriter &&rule) { Refuse(rule); }

    void CheckHardware()
    {
        const std::pair<PacketVerdict, QByteArray> chains[] = {
            {PacketVerdict::Hardware, Tail()},
            {PacketVerdict::HardwareAllow, ChainFor(PacketVerdict::Allow)},
            {PacketVerdict::HardwareDeny, ChainFor(PacketVerdict::Deny)}};
        for (const auto &[verdict, next] : chains) {
            Rule(ChainFor(verdict)).HardwareDiffers(family).NotePair(family).Goto("refuse");
            Rule(ChainFor(verdict)).Goto(next);
        }
    }

    void CheckQuotas()
    {
        for (const PacketVerdict verdict : {PacketVerdict::Left, PacketVerdict::LeftOfGroup}) {
            const QByteArray chain = ChainFor(verdict);
            PassUncounted(chain);
            Rule(chain).DropOverQuota(SetId::Left, family);
            if (verdict == PacketVerdict::LeftOfGroup) {
                Rule(chain).DropOverQuota(SetId::GroupLeft, family);
            }
            Count(chain);
        }
    }

    NetlinkWriter &writer;
    const TableRules &rules;
    const NetworkRules &network;
    Direction direction;
    Family family;
    QByteArray main;
};

using Passes = FunctionRef<void(RuleWriter &)>; // adds a test of the interface, or none

// Calls `act` for each interface to the workstations that has a number now, or once where none is named.
void ForNumberedInterfaces(const NetworkRules &network,
                           Direction direction,
                           FunctionRef<void(Passes)> act)
{
    for (const QString &name : network.lanInterfaces) {
        if (const quint32 number = NumberOf(name); number != 0) {
            act([&](RuleWriter &rule) { rule.Interface(SideOf(direction), number); });
        }
    }
    if (network.lanInterfaces.isEmpty()) {
        act([](RuleWriter &) {});
    }
}

void EnterFrom(NetlinkWriter &writer, const NearRanges &near, const NetworkRules &network)
{
    const auto enter = [&](FunctionRef<void(RuleWriter &)> act) {
        ForNear(writer, near, kForwardChain, Direction::From, End::Workstation, act);
    };
    const QByteArray chain = WayChain(Direction::From, Family::V4);
    if (network.lanInterfaces.size() <= kMostInterfacesOfRule) {
        enter([&](RuleWriter &rule) { rule.Goto(chain); });
        return;
    }
    ForInterfaces(network, Direction::From, [&](Passes passes) {
        enter([&](RuleWriter &rule) {
            passes(rule);
            rule.Goto(chain);
        });
    });
    enter([](RuleWriter &rule) { rule.Accept(); });
}

// Where nothing but the counter is to be looked up, that is done at once: another chain costs a packet
// a quarter of a lookup, and so does a range which the counted addresses are in anyway.
void EnterTo(NetlinkWriter &writer, const NearRanges &near, const TableRules &rules)
{
    const auto enter = [&](Passes passes, FunctionRef<void(RuleWriter &)> act) {
        const auto end = [&](RuleWriter &rule) {
            passes(rule);
            act(rule);
        };
        ForNear(writer, near, kForwardChain, Direction::To, End::Workstation, end);
    };
    if (rules.network.counted == CountedPorts::All && !rules.Looks(Direction::To, Family::V4)) {
        const auto count = [](RuleWriter &rule) {
            rule.Follow(SetId::Received, Family::V4, Direction::To);
        };
        ForNumberedInterfaces(rules.network, Direction::To, [&](Passes passes) {
            if (!rules.knowsNearOnly) {
                enter(passes, count);
                return;
            }
            RuleWriter rule(writer, kForwardChain);
            passes(rule);
            count(rule);
        });
    }
    ForInterfaces(rules.network, Direction::To, [&](Passes passes) {
        enter(passes, [](RuleWriter &rule) { rule.Goto(WayChain(Direction::To, Family::V4)); });
    });
}

} // namespace

QByteArray WayChain(Direction direction, Family family)
{
    return Numbered(direction == Direction::From ? "from" : "to", family);
}

NearRanges NearRangesOf(const NetworkRules &network)
{
    std::vector<Ipv4Mask> all = network.local;
    for (const NetAddress &address : network.excluded) {
        if (address.IsIpv4()) {
            all.push_back({address.ToIpv4(), std::numeric_limits<Ipv4>::max()});
        }
    }
    const auto isContiguous = [](const Ipv4Mask &range) { return IsContiguous(range.mask); };
    NearRanges near;
    if (std::ranges::count_if(all, isContiguous) > kMostCompared) {
        std::ranges::copy_if(all, std::back_inserter(near.lookedUp), isContiguous);
        std::erase_if(all, isContiguous);
    }
    near.compared = std::move(all);
    return near;
}

void ForNear(NetlinkWriter &writer,
             const NearRanges &near,
             const QByteArray &chain,
             Direction direction,
             End end,
             FunctionRef<void(RuleWriter &)> act)
{
    if (!near.lookedUp.empty()) {
        RuleWriter rule(writer, chain);
        act(rule.AddressIn(SetId::Near, Family::V4, direction, end));
    }
    for (const Ipv4Mask &range : near.compared) {
        RuleWriter rule(writer, chain);
        act(rule.AddressMasked(direction, end, range.mask, range.network & range.mask));
    }
}

void ForInterfaces(const NetworkRules &network, Direction direction, FunctionRef<void(Passes)> act)
{
    ForNumberedInterfaces(network, direction, act);
    for (const QString &name : network.lanInterfaces) {
        act([&](RuleWriter &rule) { rule.Interface(SideOf(direction), name); });
    }
}

void MakeEntry(NetlinkWriter &writer, const TableRules &rules)
{
    const NearRanges near = NearRangesOf(rules.network);
    EnterFrom(writer, near, rules.network);
    EnterTo(writer, near, rules);
}

void MakeWay(NetlinkWriter &writer, const TableRules &rules, Direction direction, Family family)
{
    Way(writer, rules, direction, family).Make();
}
