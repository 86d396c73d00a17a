#include "base/function_ref.h"
#include "gateway/table_content.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const NetAddress kOne = NetAddress::FromIpv4(0x0A000001);
const NetAddress kTwo = NetAddress::FromIpv4(0x0A000002);

std::optional<PacketVerdict> VerdictIn(const Elements &map, const NetAddress &address)
{
    const auto found = std::ranges::find(map, address, &Element::address);
    return found == map.end() ? std::nullopt
                              : std::optional(static_cast<PacketVerdict>(found->value));
}

ClientRules Client(const std::vector<NetAddress> &addresses)
{
    ClientRules client;
    client.addresses = addresses;
    return client;
}

ClientRules Limited(const std::vector<NetAddress> &addresses, quint64 until, quint32 group = 0)
{
    ClientRules client = Client(addresses);
    client.receivedUntil = until;
    client.group = group;
    return client;
}

} // namespace

TEST(Content, AClientsRulesAreItsAddressesVerdicts)
{
    struct Case
    {
        bool refused;
        bool hardware;
        bool ports;
        bool allowOnly;
        bool limit;
        bool group;
        std::optional<PacketVerdict> from;
        std::optional<PacketVerdict> to;
    };
    const Case cases[] = {{0, 0, 0, 0, 0, 0, {}, {}},
                          {0, 0, 0, 1, 0, 0, {}, {}}, // no ports: no restriction
                          {1, 1, 1, 1, 1, 1, PacketVerdict::Refuse, PacketVerdict::Silent},
                          {0, 1, 0, 0, 0, 0, PacketVerdict::Hardware, {}},
                          {0, 0, 1, 0, 0, 0, PacketVerdict::Deny, PacketVerdict::Deny},
                          {0, 0, 1, 1, 1, 0, PacketVerdict::Allow, PacketVerdict::Allow},
                          {0, 1, 1, 0, 0, 1, PacketVerdict::HardwareDeny, PacketVerdict::Deny},
                          {0, 1, 1, 1, 0, 0, PacketVerdict::HardwareAllow, PacketVerdict::Allow},
                          {0, 0, 0, 0, 1, 0, {}, PacketVerdict::Left},
                          {0, 0, 0, 0, 0, 1, {}, PacketVerdict::LeftOfGroup},
                          {0, 0, 0, 0, 1, 1, {}, PacketVerdict::LeftOfGroup}};
    int number = 0;
    for (const Case &one : cases) {
        Policy policy;
        ClientRules &client = policy.clients[1] = Client({kOne});
        client.refused = one.refused;
        client.hardware = one.hardware ? std::optional(HardwareAddress()) : std::nullopt;
        client.ports = one.ports ? std::vector<quint16> {80} : std::vector<quint16>();
        client.portsAllowOnly = one.allowOnly;
        client.receivedUntil = one.limit ? std::optional<quint64>(5) : std::nullopt;
        client.group = 7;
        if (one.group) {
            policy.groupReceivedUntil[7] = 9;
        }
        const TableContent content = ContentFor(policy, {});
        EXPECT_EQ(VerdictIn(content[SetId::From], kOne), one.from) << number;
        EXPECT_EQ(VerdictIn(content[SetId::To], kOne), one.to) << number;
        EXPECT_EQ(content[SetId::Sent].size(), 1U) << number;
        EXPECT_EQ(content[SetId::Refused].size(), one.refused ? 1U : 0U) << number;
        EXPECT_EQ(content.quotas.size(), size_t {one.limit} + size_t {one.group}) << number;
        ++number;
    }
}

TEST(Content, WhoLeavesIsRetiredAndWhoIsExcludedPasses)
{
    Policy policy;
    policy.clients[1] = Client({kOne, kTwo});
    const TableContent first = ContentFor(policy, {});
    policy.clients[1] = Client({kOne});
    const TableContent retired = ContentFor(policy, first);
    EXPECT_EQ(retired[SetId::Sent], first[SetId::Sent]);
    EXPECT_EQ(VerdictIn(retired[SetId::From], kTwo), PacketVerdict::Silent);
    EXPECT_EQ(VerdictIn(retired[SetId::To], kTwo), PacketVerdict::Silent);
    policy.network.excluded = {kTwo, kOne, kTwo};
    const TableContent excluded = ContentFor(policy, retired);
    EXPECT_EQ(excluded[SetId::Sent], first[SetId::Sent]); // with what they had counted
    EXPECT_EQ(VerdictIn(excluded[SetId::From], kOne), PacketVerdict::Pass);
    EXPECT_EQ(VerdictIn(excluded[SetId::To], kTwo), PacketVerdict::Pass);
}

TEST(Content, AnAddressOfTwoClientsIsTheFirstOnes)
{
    Policy policy;
    policy.clients[2] = Limited({kOne}, 2);
    policy.clients[1] = Limited({kOne}, 1);
    const TableContent content = ContentFor(policy, {});
    ASSERT_EQ(content[SetId::Left].size(), 1U);
    EXPECT_EQ(content[SetId::Left].front().value, 1U);
    EXPECT_EQ(content.quotas.size(), 1U);
}

TEST(Content, QuotasAreAlignedWhenTheirCountersDoNotFitThem)
{
    const QuotaId user {QuotaId::Kind::User, 1};
    const QuotaId group {QuotaId::Kind::Group, 7};
    Policy before;
    before.clients[1] = Limited({kOne}, 100, 7);
    before.groupReceivedUntil[7] = 500;
    const auto align = [&](bool userUsedUp, bool groupUsedUp, FunctionRef<void(Policy &)> change) {
        TableContent standing = ContentFor(before, {});
        standing.quotas[user].depleted = userUsedUp;
        standing.quotas[group].depleted = groupUsedUp;
        Policy after = before;
        change(after);
        return QuotasToAlign(standing, ContentFor(after, standing));
    };
    const auto raiseUser = [](Policy &policy) { policy.clients[1].receivedUntil = 200; };
    const auto raiseGroup = [](Policy &policy) { policy.groupReceivedUntil[7] = 600; };
    const auto addMember = [](Policy &policy) { policy.clients[1].addresses.push_back(kTwo); };
    const auto freeGroup = [](Policy &policy) { policy.groupReceivedUntil.clear(); };
    using Ids = std::set<QuotaId>;
    EXPECT_EQ(align(false, false, [](Policy &) {}), Ids());
    EXPECT_EQ(align(true, true, [](Policy &) {}), Ids());
    EXPECT_EQ(align(false, false, raiseUser), Ids());
    EXPECT_EQ(align(true, false, raiseUser), Ids({user}));
    EXPECT_EQ(align(false, false, raiseGroup), Ids());
    EXPECT_EQ(align(false, true, raiseGroup), Ids({user, group})); // the user's counted the refused
    EXPECT_EQ(align(false, true, freeGroup), Ids({user}));
    EXPECT_EQ(align(false, false, freeGroup), Ids());
    EXPECT_EQ(align(false, false, addMember), Ids({user, group}));
    TableContent drifted = ContentFor(before, {});
    drifted.quotas[group].drifted = true;
    EXPECT_EQ(QuotasToAlign(drifted, ContentFor(before, drifted)), Ids({group}));
    EXPECT_EQ(QuotasToAlign({}, ContentFor(before, {})), Ids({user, group}));
}

TEST(Content, OnlyAGroupThatIsUsedUpRefusesItsMembers)
{
    Policy policy;
    policy.clients[1] = Limited({kOne}, 100, 7);
    policy.clients[2] = Limited({kTwo}, 100);
    policy.groupReceivedUntil[7] = 500;
    TableContent content = ContentFor(policy, {});
    EXPECT_FALSE(IsRefusedByGroup(content, 1));
    content.quotas[{QuotaId::Kind::Group, 7}].depleted = true;
    EXPECT_TRUE(IsRefusedByGroup(content, 1));
    EXPECT_FALSE(IsRefusedByGroup(content, 2));
}
