#include "gateway/neighbours.h"
#include "gateway/table_fixture.h"

using namespace Qt::StringLiterals;

class Load : public TableTest
{
protected:
    static constexpr quint32 kClients = 20000;

    void AddClients()
    {
        for (quint32 id = 1; id <= kClients; ++id) {
            ClientRules &client = policy.clients[id];
            client.addresses = {NetAddress::FromIpv4(0x0A4D0000 + id)};
            if (id % 4 == 0) {
                client.receivedUntil = 1000000 + id;
            }
            client.refused = id % 16 == 1;
        }
    }
};

TEST_F(Load, TwentyThousandClientsComeChangeAndAreTakenOver)
{
    AddClients();
    Begin();
    EXPECT_EQ(Read().clients.size(), kClients);
    EXPECT_EQ(Send(u"10.77.0.2"_s, kThere, 10, 1), 1);
    EXPECT_EQ(Send(u"10.77.0.1"_s, kThere, 10, 1), 0);
    for (auto &[id, client] : policy.clients) {
        client.refused = id % 16 == 2;
    }
    Apply();
    EXPECT_EQ(Send(u"10.77.0.2"_s, kThere, 10, 1), 0);
    EXPECT_EQ(Send(u"10.77.0.1"_s, kThere, 10, 1), 1);
    table.reset();
    Open();
    EXPECT_TRUE(Begin().takenOver);
    const Reading reading = Read();
    EXPECT_EQ(reading.clients.size(), kClients);
    EXPECT_EQ(In(reading.clients, u"10.77.0.2"_s).sent, 38U);

    policy.clients.clear();
    Apply();
    std::vector<NetAddress> retired;
    for (const AddressReading &client : reading.clients) {
        retired.push_back(client.address);
    }
    EXPECT_TRUE(table->Forget(retired));
    EXPECT_TRUE(Read().clients.empty());
}

TEST_F(Load, UnknownWorkstationsBeyondTheMostThatCanBeNotedAreRefused)
{
    policy.network.local = {{0x0A4C0000, 0xFFFE0000}};
    Begin();
    const auto source =
        MakeSocket(Lab(), Place::Workstations, Transport::Udp, {u"0.0.0.0"_s, kPort});
    const auto target = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, kPort});
    constexpr int kMost = 65535;
    int come = 0;
    for (int i = 0; i < kMost; ++i) {
        ASSERT_TRUE(SendFrom(source, 0x0A4D0000 + static_cast<Ipv4>(i), {kThere, kPort}, 10));
        come += TakeDatagrams(target, 1);
    }
    EXPECT_EQ(come, kMost);
    SendFrom(source, 0x0A4DFFFF, {kThere, kPort}, 10);
    SendFrom(source, 0x0A4C0002, {kThere, kPort}, 10);
    EXPECT_EQ(TakeDatagrams(target, 1), 0);
    const std::vector<UnknownReading> unknown = Read().unknown;
    EXPECT_EQ(unknown.size(), size_t {kMost});
    EXPECT_TRUE(std::ranges::all_of(unknown, [](const UnknownReading &one) {
        return one.sent == 38 && one.received == 0 && one.hardware;
    }));
    EXPECT_TRUE(table->ForgetUnknown({Address(kHere)}));
    SendFrom(source, 0x0A4DFFFF, {kThere, kPort}, 10);
    EXPECT_EQ(TakeDatagrams(target, 1), 1);
}

TEST_F(Load, TheNeighbourTableTellsHardwareAddresses)
{
    Begin();
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1);
    EXPECT_EQ(Receive(kHere6, kThere6, 10, 1), 1);
    const GatewayResult<std::vector<Neighbour>> read = ReadNeighbours();
    ASSERT_TRUE(read) << TextOf(read);
    const std::vector<AddressPair> pairs = Read().pairs;
    ASSERT_FALSE(pairs.empty());
    const auto found = std::ranges::find(*read, Address(u"fd76::2"_s), &Neighbour::address);
    ASSERT_NE(found, read->end());
    EXPECT_EQ(found->hardware, pairs.front().hardware);
    EXPECT_EQ(found->interface, u"lan0"_s);
}
