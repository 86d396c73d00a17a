#include "gateway/table_fixture.h"

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kMegabyte = 1 << 20;
constexpr quint64 kOffloaded = 64 << 10; // the largest packet there is

} // namespace

class ClientQuotas : public TableTest
{
protected:
    // Bytes of a TCP connection from the Internet to a workstation, until nothing more comes.
    qint64 Download(const QString &to, qint64 bytes)
    {
        const auto listener = Listen(Lab(), Place::Internet, {kThere, kPort + 1});
        const Connected client = Connect(Lab(), Place::Workstations, {to, 0}, {kThere, kPort + 1});
        return client.error == 0 ? Transfer(Accept(listener), client.socket, bytes) : 0;
    }

    [[nodiscard]] std::vector<quint32> UsedUp()
    {
        const GatewayResult<GatewayEvents> events = table->TakeEvents();
        EXPECT_TRUE(events) << TextOf(events);
        return events ? events->usedUpClients : std::vector<quint32>();
    }

    void ExpectWithin(quint64 received, quint64 limit)
    {
        EXPECT_LE(received, limit);
        EXPECT_GE(received + kOffloaded, limit);
    }
};

TEST_F(ClientQuotas, TheKernelEndsALimitAtItsByte)
{
    for (const quint64 limit : {5 * kMegabyte, 50 * kMegabyte}) {
        AddClient(1, {kHere}).receivedUntil = limit;
        Begin();
        Download(kHere, 2 * static_cast<qint64>(limit));
        ExpectWithin(Counted(kHere).received, limit);
        EXPECT_EQ(UsedUp(), std::vector<quint32> {1});
        EXPECT_EQ(Read().usedUpClients, std::vector<quint32> {1});
        EXPECT_TRUE(UsedUp().empty());
        EXPECT_EQ(Receive(kHere, kThere, 20, 1), 0);
        EXPECT_TRUE(table->Remove());
        policy.clients.clear();
    }
}

TEST_F(ClientQuotas, AllAddressesOfAClientShareOne)
{
    AddClient(1, {kHere, u"10.77.0.2"_s, kHere6}).receivedUntil = 10500;
    Begin();
    EXPECT_EQ(Receive(kHere, kThere, 972, 4), 4);
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 972, 4), 4);
    EXPECT_EQ(Receive(kHere6, kThere6, 952, 4), 2);
    EXPECT_EQ(UsedUp(), std::vector<quint32> {1});
}

TEST_F(ClientQuotas, ARaisedBoundHoldsFromWhereTheCountersStand)
{
    AddClient(1, {kHere}).receivedUntil = 10500;
    Begin();
    EXPECT_EQ(Receive(kHere, kThere, 972, 5), 5);
    policy.clients[1].receivedUntil = 7500; // not used up: lowered and raised in place
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 5), 2);
    policy.clients[1].receivedUntil = 11500; // used up, and what was refused was counted by it
    Apply();
    EXPECT_TRUE(Read().usedUpClients.empty());
    EXPECT_TRUE(UsedUp().empty());
    EXPECT_EQ(Receive(kHere, kThere, 972, 10), 4);
    EXPECT_EQ(Counted(kHere).received, 11000U);
    policy.clients[1].receivedUntil.reset();
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 10), 10);
    policy.clients[1].receivedUntil = 23500;
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 10), 2);
}

TEST_F(ClientQuotas, MembersThatComeAndGoTakeTheirCountersAlong)
{
    AddClient(1, {kHere}).receivedUntil = 10500;
    AddClient(2, {u"10.77.0.2"_s});
    Begin();
    EXPECT_EQ(Receive(kHere, kThere, 972, 3), 3);
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 972, 5), 5);
    policy.clients[1].addresses.push_back(Address(u"10.77.0.2"_s));
    policy.clients.erase(2);
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 5), 2); // 3000 and 5000 of 10500 were used
    policy.clients[1].addresses.pop_back();
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 9), 5); // 5000 of its own
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 20, 1), 0); // retired
}

TEST_F(ClientQuotas, AGroupsMembersShareOneBesidesTheirOwn)
{
    AddClient(1, {kHere}).group = 7;
    AddClient(2, {u"10.77.0.2"_s}).group = 7;
    policy.clients[2].receivedUntil = 3500;
    policy.groupReceivedUntil[7] = 10500;
    Begin();
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 972, 5), 3); // its own
    EXPECT_EQ(Receive(kHere, kThere, 972, 20), 7);
    const GatewayEvents events = table->TakeEvents().value();
    EXPECT_EQ(events.usedUpGroups, std::vector<quint32> {7});
    EXPECT_EQ(events.usedUpClients, std::vector<quint32> {2});
    EXPECT_EQ(Read().usedUpGroups, std::vector<quint32> {7});

    policy.clients[2].receivedUntil = 20000;
    Apply();
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 972, 4), 0); // the group's
    policy.groupReceivedUntil[7] = 12500;
    Apply();
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 972, 4), 2);
    policy.groupReceivedUntil.clear();
    policy.clients[2].receivedUntil = 6500; // what the group refused is not the client's
    Apply();
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 972, 4), 1);
}

TEST_F(ClientQuotas, ABoundThatIsReachedAlreadyRefusesTheFirstByte)
{
    AddClient(1, {kHere}).receivedUntil = 0;
    Begin();
    EXPECT_EQ(Receive(kHere, kThere, 20, 1), 0);
    EXPECT_EQ(Read().usedUpClients, std::vector<quint32> {1});
    policy.clients[1].receivedUntil.reset();
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 3), 3);
    policy.clients[1].receivedUntil = 2000; // less than was received
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 20, 1), 0);
    EXPECT_EQ(Read().usedUpClients, std::vector<quint32> {1});
    policy.clients[1].receivedUntil = 4500;
    Apply();
    EXPECT_EQ(Receive(kHere, kThere, 972, 3), 1);
}

// Whatever the moment of a rise is, neither more nor less passes than the last bound.
TEST_F(ClientQuotas, ABoundIsRaisedWhileTrafficFlows)
{
    AddClient(1, {kHere}).receivedUntil = kMegabyte;
    Begin();
    const auto listener = Listen(Lab(), Place::Internet, {kThere, kPort});
    const Connected client = Connect(Lab(), Place::Workstations, {kHere, 0}, {kThere, kPort});
    ASSERT_EQ(client.error, 0);
    const OpenFile server = Accept(listener);
    std::thread traffic([&] { Transfer(server, client.socket, 200 * kMegabyte); });
    quint64 limit = kMegabyte;
    for (int i = 0; i < 40; ++i) {
        limit += kMegabyte;
        policy.clients[1].receivedUntil = limit;
        Apply();
        EXPECT_LE(Counted(kHere).received, limit);
        std::this_thread::sleep_for(std::chrono::milliseconds(i % 4 * 5));
    }
    traffic.join();
    Download(kHere, 2 * static_cast<qint64>(limit)); // what the connection's pauses left
    ExpectWithin(Counted(kHere).received, limit);
}

// The quota is made anew, raised in place, raised while it is being used up: it ends within one of
// these packets of its bound, and never beyond.
TEST_F(ClientQuotas, QuotasAreMadeAndRaisedAmidManySmallPackets)
{
    constexpr int kPayload = 100;
    AddClient(1, {kHere});
    AddClient(2, {u"10.77.0.2"_s});
    Begin();
    const auto target = MakeSocket(Lab(), Place::Workstations, Transport::Udp, {kHere, kPort});
    const auto source = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, kPort});
    std::atomic<bool> stop = false;
    std::thread traffic([&] {
        while (!stop) {
            SendDatagrams(source, {kHere, kPort}, kPayload, 10);
        }
    });
    for (int i = 0; i < 30; ++i) {
        // Far enough that a busy machine makes the quota before the packets have come there.
        const quint64 start = Counted(kHere).received;
        policy.clients[1].receivedUntil = start + 500'000;
        Apply();
        policy.clients[1].receivedUntil = start + 500'000 + static_cast<quint64>(i) * 4000;
        Apply();
        const quint64 limit = start + 2'000'000;
        policy.clients[1].receivedUntil = limit;
        Apply();
        for (int wait = 0; Read().usedUpClients.empty() && wait < 1000; ++wait) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        const quint64 received = Counted(kHere).received;
        EXPECT_LE(received, limit) << i;
        EXPECT_GE(received + Ipv4Bytes(kPayload, 1), limit) << i;
        policy.clients[1].receivedUntil.reset();
        Apply();
    }
    stop = true;
    traffic.join();
}
