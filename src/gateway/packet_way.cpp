#include "gateway/packet_way.h"

#include "base/function_ref.h"
#include "gateway/rule_writer.h"
#include "gateway/table_rules.h"

#include <netinet/in.h>
#include <utility>

namespace {

constexpr quint32 kPairSample = 64; // one packet in so many tells its hardware address

// The rules of one direction and family.
class Way
{
public:
    Way(NetlinkWriter &target, const NetworkRules &rules, Direction way, Family ofFamily)
        : writer(target)
        , network(rules)
        , direction(way)
        , family(ofFamily)
        , main(WayChain(way, ofFamily))
    { }

    void Make()
    {
        PassNear();
        Rule(main).Follow(IsFrom() ? SetId::From : SetId::To, family, direction);
        PassUncounted(main);
        if (IsFrom()) {
            Rule(main).OneIn(kPairSample).NotePair(family);
        }
        Count(main);
        FindUnknown();
        CountKnown();
        CheckPorts();
        IsFrom() ? CheckHardware() : CheckQuotas();
    }

private:
    [[nodiscard]] bool IsFrom() const { return direction == Direction::From; }
    [[nodiscard]] RuleWriter Rule(const QByteArray &chain) { return {writer, chain}; }
    [[nodiscard]] QByteArray Tail() const
    {
        return Numbered(IsFrom() ? "count_from" : "to_left", family);
    }
    [[nodiscard]] QByteArray ChainFor(PacketVerdict verdict) const
    {
        return ChainOf(verdict, IsFrom() ? SetId::From : SetId::To, family);
    }

    void PassNear()
    {
        Rule(main).AddressIn(SetId::Near, family, direction, End::Internet).Accept();
        if (family == Family::V4) {
            ForGappedMasks(End::Internet, [](RuleWriter &rule) { rule.Accept(); });
        } else if (IsFrom()) {
            for (const QString &name : network.lanInterfaces) {
                Rule(main).Interface(Side::Out, name).Accept();
            }
        }
    }

    void ForGappedMasks(End end, FunctionRef<void(RuleWriter &)> act)
    {
        for (const Ipv4Mask &mask : network.local) {
            if (!IsContiguous(mask.mask)) {
                RuleWriter rule(writer, main);
                act(rule.AddressMasked(direction, end, mask.mask, mask.network));
            }
        }
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

    void Count(const QByteArray &chain)
    {
        Rule(chain)
            .AddressIn(
                IsFrom() ? SetId::Sent : SetId::Received, family, direction, End::Workstation)
            .Accept();
    }

    void CountKnown()
    {
        if (IsFrom()) {
            PassUncounted(Tail());
            Count(Tail());
        }
    }

    void FindUnknown()
    {
        const QByteArray unknown = Numbered(IsFrom() ? "unknown_from" : "unknown_to", family);
        if (family == Family::V4) {
            Rule(main).AddressIn(SetId::Local, family, direction, End::Workstation).Goto(unknown);
            ForGappedMasks(End::Workstation, [&](RuleWriter &rule) { rule.Goto(unknown); });
        } else if (!network.lanInterfaces.isEmpty()) {
            Rule(main).Goto(unknown);
        }
        const bool refuse =
            family == Family::V4 ? network.refuseUnknown : network.refuseUnknownIpv6;
        if (IsFrom()) {
            Rule(unknown).NotePair(family);
        }
        if (refuse && IsFrom()) {
            Rule(unknown).Note(SetId::SeenRefused, family, direction).Goto("refuse");
        } else if (!refuse) {
            Rule(unknown)
                .Note(IsFrom() ? SetId::SeenSent : SetId::SeenReceived, family, direction)
                .Accept();
        }
        // This far come those of whom no more can be noted: nothing passes uncounted.
        IsFrom() ? Rule(unknown).Goto("refuse") : Rule(unknown).Drop();
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
            Rule(ChainFor(verdict)).NotePair(family);
            Rule(ChainFor(verdict)).HardwareDiffers(family).Goto("refuse");
            Rule(ChainFor(verdict)).Goto(next);
        }
    }

    void CheckQuotas()
    {
        PassUncounted(Tail());
        Rule(Tail()).DropOverQuota(SetId::Left, family);
        Rule(Tail()).DropOverQuota(SetId::GroupLeft, family);
        Count(Tail());
    }

    NetlinkWriter &writer;
    const NetworkRules &network;
    Direction direction;
    Family family;
    QByteArray main;
};

} // namespace

QByteArray WayChain(Direction direction, Family family)
{
    return Numbered(direction == Direction::From ? "from" : "to", family);
}

void MakeWay(NetlinkWriter &writer, const NetworkRules &network, Direction direction, Family family)
{
    Way(writer, network, direction, family).Make();
}
