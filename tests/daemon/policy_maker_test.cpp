#include "daemon/policy_maker.h"

#include <functional>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class PolicyMade : public testing::Test
{
protected:
    static NetAddress Address(const QString &text) { return NetAddress::From(text).value(); }

    Standing &Add(quint32 id, const QString &ip)
    {
        Standing standing;
        standing.user = UserId {id};
        standing.address = NetAddress::From(ip);
        standings.users.push_back(standing);
        return standings.users.back();
    }

    [[nodiscard]] MadePolicy Made() const
    {
        return MakePolicy(
            {settings, lan, standings, ports, companions, accounted, notices, timeEnded});
    }

    [[nodiscard]] ClientRules Rules(quint32 id) const { return Made().policy.clients.at(id); }

    ServiceSettings settings;
    QStringList lan {u"lan0"_s};
    Standings standings;
    MonitoredPorts ports;
    CompanionAddresses companions;
    QHash<NetAddress, quint64> accounted;
    QHash<UserId, Notice> notices;
    QSet<UserId> timeEnded;
};

// Who is refused, by the row, by word and by the end of the time.
TEST_F(PolicyMade, RefusesByTheRowTheNoticeAndTheTime)
{
    struct Case
    {
        const char *name;
        bool refused;
        FactKind why;
        bool ofGroup;
        std::optional<Notice> notice;
        bool timeEnded;
        bool expected;
    };
    using enum FactKind;
    const Case cases[] {
        {"nothing wrong", false, NothingWrong, false, {}, false, false},
        {"blocked", true, AdministratorBlock, false, {}, false, true},
        {"word of a block", false, NothingWrong, false, Notice::Blocked, false, true},
        {"word of an unblock", true, AdministratorBlock, false, Notice::Unblocked, false, false},
        {"which lifts not the group's",
         true,
         AdministratorBlock,
         true,
         Notice::Unblocked,
         false,
         true},
        {"nor a limit", true, TrafficLimit, false, Notice::Unblocked, false, true},
        {"nor the times", true, TimesOfWeek, false, Notice::Unblocked, false, true},
        {"nor the login", true, Login, false, Notice::Unblocked, false, true},
        {"time over", false, NothingWrong, false, {}, true, true},
        {"time over and unblocked", false, NothingWrong, false, Notice::Unblocked, true, true},
    };
    for (const Case &each : cases) {
        standings.users.clear();
        notices.clear();
        timeEnded.clear();
        Standing &standing = Add(1, u"10.0.0.1"_s);
        standing.refused = each.refused;
        standing.why = each.why;
        standing.whyOfGroup = each.ofGroup;
        if (each.notice) {
            notices.insert(UserId {1}, *each.notice);
        }
        if (each.timeEnded) {
            timeEnded.insert(UserId {1});
        }
        EXPECT_EQ(Rules(1).refused, each.expected) << each.name;
    }
}

TEST_F(PolicyMade, BoundsAreWhatIsLeftBehindWhatIsAccounted)
{
    accounted = {
        {Address(u"10.0.0.1"_s), 1000}, {Address(u"fd00::1"_s), 500}, {Address(u"10.0.0.2"_s), 70}};
    companions[HardwareAddress::From(u"02000000000a"_s).value()] = {Address(u"fd00::1"_s)};
    Standing &anna = Add(1, u"10.0.0.1"_s);
    anna.hardware = HardwareAddress::From(u"02000000000a");
    anna.leftBytes = 30;
    anna.sharedGroup = GroupId {80};
    Standing &bert = Add(2, u"10.0.0.2"_s);
    bert.sharedGroup = GroupId {80};
    Standing &carl = Add(3, u"10.0.0.3"_s);
    carl.sharedGroup = GroupId {81}; // which has no bound
    standings.groupLeftBytes = {{GroupId {80}, 9}};
    const Policy policy = Made().policy;
    EXPECT_THAT(policy.clients.at(1).addresses,
                UnorderedElementsAre(Address(u"10.0.0.1"_s), Address(u"fd00::1"_s)));
    EXPECT_EQ(policy.clients.at(1).receivedUntil, 1530U);
    EXPECT_EQ(policy.clients.at(1).group, 80U);
    EXPECT_FALSE(policy.clients.at(2).receivedUntil);
    EXPECT_EQ(policy.clients.at(3).group, 0U);
    EXPECT_EQ(policy.groupReceivedUntil, (std::map<quint32, quint64> {{80, 1579}}));
}

TEST_F(PolicyMade, AnAddressBelongsToTheFirstWhoStoresIt)
{
    companions[HardwareAddress::From(u"02000000000a"_s).value()] = {Address(u"10.0.0.2"_s),
                                                                    Address(u"10.0.0.9"_s)};
    Add(1, u"10.0.0.1"_s).hardware = HardwareAddress::From(u"02000000000a");
    Add(2, u"10.0.0.2"_s); // stored goes before what hardware has besides
    Add(3, u"10.0.0.1"_s);
    Add(4, u"nowhere"_s);
    Add(5, {});
    const MadePolicy made = Made();
    EXPECT_THAT(made.policy.clients.at(1).addresses,
                ElementsAre(Address(u"10.0.0.1"_s), Address(u"10.0.0.9"_s)));
    EXPECT_THAT(made.policy.clients.at(2).addresses, ElementsAre(Address(u"10.0.0.2"_s)));
    EXPECT_THAT(made.withoutAddress, ElementsAre(UserId {3}, UserId {4}, UserId {5}));
    EXPECT_EQ(made.owners.value(Address(u"10.0.0.9"_s)), UserId {1});
}

TEST_F(PolicyMade, NetworkRulesFollowTheSettings)
{
    struct Case
    {
        const char *name;
        std::function<void(ServiceSettings &)> change;
        std::function<void(NetworkRules &)> expect;
    };
    ports.marked = {80, 443};
    const Case cases[] {
        {"usual", [](auto &) {}, [](auto &) {}},
        {"ranges and exclusions",
         [](ServiceSettings &to) {
             to.local = {{0x0A000005, 0xFF0000FF}};
             to.excluded = {0x0A000009};
         },
         [](NetworkRules &to) {
             to.local = {{0x0A000005, 0xFF0000FF}};
             to.excluded = {Address(u"10.0.0.9"_s)};
         }},
        {"marked ports",
         [](ServiceSettings &to) { to.protocols = MonitoredProtocols::Marked; },
         [](NetworkRules &to) {
             to.counted = CountedPorts::Only;
             to.ports = {80, 443};
         }},
        {"all but marked ones",
         [](ServiceSettings &to) { to.protocols = MonitoredProtocols::AllButMarked; },
         [](NetworkRules &to) {
             to.counted = CountedPorts::AllBut;
             to.ports = {80, 443};
         }},
        {"new users blocked",
         [](ServiceSettings &to) { to.newUser.blocked = true; },
         [](NetworkRules &to) { to.refuseUnknown = true; }},
        {"new users log in",
         [](ServiceSettings &to) { to.newUser.authRequired = true; },
         [](NetworkRules &to) { to.refuseUnknown = true; }},
        {"new users pay before",
         [](ServiceSettings &to) { to.newUser.mode = AccountingMode::Provider; },
         [](NetworkRules &to) { to.refuseUnknown = true; }},
        {"a port for logins",
         [](ServiceSettings &to) { to.authPort = 7001; },
         [](NetworkRules &to) { to.authPort = 7001; }},
    };
    for (const Case &each : cases) {
        settings = {};
        each.change(settings);
        NetworkRules expected;
        expected.lanInterfaces = lan;
        each.expect(expected);
        EXPECT_TRUE(Made().policy.network == expected) << each.name;
    }
}

TEST_F(PolicyMade, UnknownIpv6IsRefusedWithAnyLimitInUse)
{
    EXPECT_FALSE(Made().policy.network.refuseUnknownIpv6);
    Add(1, u"10.0.0.1"_s).leftSeconds = 5;
    EXPECT_TRUE(Made().policy.network.refuseUnknownIpv6);
    settings.passesUnknownIpv6 = true;
    EXPECT_FALSE(Made().policy.network.refuseUnknownIpv6);
}

TEST_F(PolicyMade, PortsAndHardwareAreHandedOn)
{
    Standing &anna = Add(1, u"10.0.0.1"_s);
    anna.hardware = HardwareAddress::From(u"02000000000a");
    anna.portsAllowOnly = true;
    anna.ports = {80};
    EXPECT_FALSE(Rules(1).hardware);
    settings.bindsHardware = true;
    const ClientRules rules = Rules(1);
    EXPECT_EQ(rules.hardware, HardwareAddress::From(u"02000000000a"_s));
    EXPECT_TRUE(rules.portsAllowOnly);
    EXPECT_THAT(rules.ports, ElementsAre(80));
}
