#include "gateway/table_fixture.h"
#include "gateway/table_writer.h"
#include "support/lab/ruleset.h"

#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

using namespace Qt::StringLiterals;

class TakeOver : public TableTest
{
protected:
    // What another program does to the tables.
    static GatewayResult<void> TryCommit(const NetlinkWriter &messages)
    {
        return NetlinkSocket::Open(NETLINK_NETFILTER).and_then([&](NetlinkSocket socket) {
            return socket.Commit(messages, u"Changing the tables"_s);
        });
    }

    static void Commit(const NetlinkWriter &messages)
    {
        const auto done = TryCommit(messages);
        ASSERT_TRUE(done) << TextOf(done);
    }

    static void Start(NetlinkWriter &writer, int message, quint8 family, int flags = 0)
    {
        writer.Begin(static_cast<quint16>(NFNL_SUBSYS_NFTABLES << 8 | message),
                     static_cast<quint16>(flags),
                     family);
    }

    // As `nft flush table inet tollbrook` does.
    void FlushTable()
    {
        NetlinkWriter messages;
        Start(messages, NFT_MSG_DELRULE, NFPROTO_INET);
        messages.PutText(NFTA_RULE_TABLE, kTableName);
        messages.End();
        Commit(messages);
    }

    void FlushSet(const QByteArray &name)
    {
        NetlinkWriter messages;
        Start(messages, NFT_MSG_DELSETELEM, NFPROTO_INET);
        messages.PutText(NFTA_SET_ELEM_LIST_TABLE, kTableName);
        messages.PutText(NFTA_SET_ELEM_LIST_SET, name);
        messages.End();
        Commit(messages);
    }

    [[nodiscard]] bool IsChanged()
    {
        const GatewayResult<GatewayEvents> events = table->TakeEvents();
        EXPECT_TRUE(events) << TextOf(events);
        return events && events->tableChanged;
    }
};

TEST_F(TakeOver, AKilledServicesTableGoesOn)
{
    AddClient(1, {kHere, kHere6}).receivedUntil = 5500;
    AddClient(2, {u"10.77.0.2"_s}).refused = true;
    AddClient(3, {u"10.77.0.3"_s}).group = 4;
    AddClient(5, {u"10.77.0.5"_s});
    policy.groupReceivedUntil[4] = 3500;
    policy.clients[3].ports = {99};
    const Began first = Begin();
    EXPECT_EQ(Receive(kHere, kThere, 972, 3), 3);
    EXPECT_EQ(Receive(u"10.77.0.3"_s, kThere, 972, 2), 2);
    EXPECT_EQ(Send(u"10.77.0.9"_s, kThere, 10, 1), 1);
    const Reading before = Read();

    table.reset(); // as a kill: nothing is removed
    EXPECT_EQ(Send(u"10.77.0.2"_s, kThere, 10, 1), 0);
    EXPECT_EQ(Receive(kHere, kThere, 972, 1), 1);
    Open();
    policy.clients.erase(5); // meanwhile deleted
    const Began second = Begin();
    EXPECT_TRUE(second.takenOver);
    EXPECT_EQ(second.generation, first.generation);
    const Reading after = Read();
    EXPECT_EQ(after.clients.size(), before.clients.size());
    EXPECT_EQ(after.unknown, before.unknown);
    EXPECT_EQ(In(after.clients, kHere).received, 4000U);
    EXPECT_EQ(Receive(kHere, kThere, 972, 3), 1); // where the quota stood
    EXPECT_EQ(Receive(u"10.77.0.3"_s, kThere, 972, 3), 1);
    EXPECT_EQ(Send(u"10.77.0.5"_s, kThere, 10, 1), 0); // retired
}

TEST_F(TakeOver, AQuotaThatWasUsedUpMeanwhileIsTold)
{
    AddClient(1, {kHere}).receivedUntil = 2500;
    Begin();
    table.reset();
    EXPECT_EQ(Receive(kHere, kThere, 972, 5), 2);
    Open();
    Begin();
    EXPECT_EQ(Read().usedUpClients, std::vector<quint32> {1});
    policy.clients[1].receivedUntil = 4500;
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 5), 2);
}

TEST_F(TakeOver, WhatWasLeftHalfDoneIsFinished)
{
    AddClient(1, {kHere}).receivedUntil = 5500;
    Begin();
    NetlinkWriter held; // killed while the packets to a quota's members were held back
    Start(held, NFT_MSG_DELSETELEM, NFPROTO_INET);
    held.PutText(NFTA_SET_ELEM_LIST_TABLE, kTableName);
    held.PutText(NFTA_SET_ELEM_LIST_SET, "to4");
    held.End();
    Commit(held);
    MessagePieces pieces;
    const Element silent {.address = Address(kHere),
                          .value = static_cast<quint32>(PacketVerdict::Silent)};
    ChangeElements(pieces, SetId::To, {{}, {silent}});
    Commit(pieces.front());
    table.reset();
    EXPECT_EQ(Receive(kHere, kThere, 972, 1), 0);
    Open();
    EXPECT_TRUE(Begin().takenOver);
    EXPECT_EQ(Receive(kHere, kThere, 972, 9), 5);
}

TEST_F(TakeOver, FlushedRulesAreNoticedAndNothingIsLost)
{
    AddClient(1, {kHere});
    Begin();
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1);
    EXPECT_FALSE(IsChanged());
    FlushTable();
    EXPECT_TRUE(IsChanged());
    EXPECT_FALSE(IsChanged());
    const Began again = Begin();
    EXPECT_TRUE(again.takenOver);
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1);
    EXPECT_EQ(Counted(kHere).sent, 76U);
}

TEST_F(TakeOver, AFlushedRulesetIsANewGeneration)
{
    AddClient(1, {kHere});
    const Began first = Begin();
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1);
    ASSERT_TRUE(FlushRuleset());
    EXPECT_TRUE(IsChanged());
    EXPECT_EQ(table->Read().error().kind, GatewayFailure::Kind::TableLost);
    EXPECT_EQ(table->Apply(policy).error().kind, GatewayFailure::Kind::TableLost);
    const Began second = Begin();
    EXPECT_FALSE(second.takenOver);
    EXPECT_NE(second.generation, first.generation);
    EXPECT_EQ(Counted(kHere).sent, 0U);
}

// Counters that begin again at zero within one generation would be taken for traffic or for none.
TEST_F(TakeOver, FlushedCountersAreANewGeneration)
{
    AddClient(1, {kHere});
    const Began first = Begin();
    FlushSet("sent4");
    EXPECT_EQ(table->Read().error().kind, GatewayFailure::Kind::TableLost);
    const Began second = Begin();
    EXPECT_FALSE(second.takenOver);
    EXPECT_NE(second.generation, first.generation);
    EXPECT_EQ(Read().clients.size(), 1U);
}

TEST_F(TakeOver, AnotherTableOfTheNameIsReplaced)
{
    NetlinkWriter foreign;
    Start(foreign, NFT_MSG_NEWTABLE, NFPROTO_INET, NLM_F_CREATE);
    foreign.PutText(NFTA_TABLE_NAME, kTableName);
    foreign.End();
    Commit(foreign);
    AddClient(1, {kHere});
    EXPECT_FALSE(Begin().takenOver);
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1);
    EXPECT_EQ(Counted(kHere).sent, 38U);
}

TEST_F(TakeOver, OtherTablesStayAndFlowtablesAreTold)
{
    NetlinkWriter foreign;
    Start(foreign, NFT_MSG_NEWTABLE, NFPROTO_INET, NLM_F_CREATE);
    foreign.PutText(NFTA_TABLE_NAME, "other");
    foreign.End();
    Begin();
    Commit(foreign);
    EXPECT_FALSE(IsChanged());
    EXPECT_TRUE(table->Remove());
    NetlinkWriter removed;
    Start(removed, NFT_MSG_DELTABLE, NFPROTO_INET);
    removed.PutText(NFTA_TABLE_NAME, "other");
    removed.End();
    Commit(removed); // it stood
}

TEST_F(TakeOver, FlowtablesAreTold)
{
    NetlinkWriter foreign;
    Start(foreign, NFT_MSG_NEWTABLE, NFPROTO_INET, NLM_F_CREATE);
    foreign.PutText(NFTA_TABLE_NAME, "other");
    foreign.End();
    Start(foreign, NFT_MSG_NEWFLOWTABLE, NFPROTO_INET, NLM_F_CREATE);
    foreign.PutText(NFTA_FLOWTABLE_TABLE, "other");
    foreign.PutText(NFTA_FLOWTABLE_NAME, "fast");
    const size_t hook = foreign.Nest(NFTA_FLOWTABLE_HOOK);
    foreign.PutU32(NFTA_FLOWTABLE_HOOK_NUM, NF_NETDEV_INGRESS);
    foreign.PutU32(NFTA_FLOWTABLE_HOOK_PRIORITY, 0);
    foreign.EndNest(hook);
    foreign.End();
    Begin();
    if (const auto made = TryCommit(foreign); !made) {
        GTEST_SKIP() << "NOT TESTED: this kernel makes no flowtable: " << TextOf(made);
    }
    EXPECT_EQ(table->TakeEvents().value().newFlowtables, QStringList(u"other fast"_s));
    EXPECT_TRUE(table->TakeEvents().value().newFlowtables.isEmpty());
    ASSERT_TRUE(FlushRuleset());
}

// Whoever sends them and whatever becomes of them: where the mark stays, no counter has changed.
TEST_F(TakeOver, EachPacketChangesTheMark)
{
    AddClient(1, {kHere});
    AddClient(2, {u"10.77.0.2"_s}).refused = true;
    Begin();
    const auto mark = [this] {
        const auto read = table->ReadPackets();
        EXPECT_TRUE(read) << TextOf(read);
        EXPECT_TRUE(read && *read);
        return read ? read->value_or(PacketMark()) : PacketMark();
    };
    PacketMark last = mark();
    EXPECT_EQ(mark(), last);
    const std::function<void()> traffic[] = {[this] { Send(kHere, kThere, 100, 1); },
                                             [this] { Receive(kHere, kThere, 100, 1); },
                                             [this] { Send(u"10.77.0.2"_s, kThere, 100, 1); },
                                             [this] { Send(u"10.77.0.3"_s, kThere, 100, 1); },
                                             [this] { Send(kHere6, kThere6, 100, 1); }};
    for (const auto &pass : traffic) {
        pass();
        const PacketMark now = mark();
        EXPECT_NE(now, last) << "traffic " << &pass - traffic;
        last = now;
        EXPECT_EQ(mark(), last);
    }
    policy.network.refuseUnknown = true; // other rules
    Apply();
    EXPECT_NE(mark(), last);
    FlushTable();
    const auto flushed = table->ReadPackets();
    ASSERT_TRUE(flushed) << TextOf(flushed);
    EXPECT_EQ(*flushed, std::nullopt);
}
