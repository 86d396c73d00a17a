#include "gateway/table_fixture.h"
#include "support/lab/flow.h"

using namespace Qt::StringLiterals;

class Counting : public TableTest
{
protected:
    static void Pause() { std::this_thread::sleep_for(std::chrono::milliseconds(5)); }
};

TEST_F(Counting, EveryDatagramCountsWithItsHeaders)
{
    AddClient(1, {kHere, kHere6});
    const Began began = Begin();
    EXPECT_FALSE(began.takenOver);
    EXPECT_EQ(Send(kHere, kThere, 100, 10), 10);
    EXPECT_EQ(Receive(kHere, kThere, 1000, 7), 7);
    EXPECT_EQ(Send(kHere6, kThere6, 10, 3), 3);
    EXPECT_EQ(Receive(kHere6, kThere6, 1200, 4), 4);
    EXPECT_EQ(Counted(kHere),
              (AddressReading {Address(kHere), Ipv4Bytes(1000, 7), Ipv4Bytes(100, 10)}));
    EXPECT_EQ(Counted(kHere6),
              (AddressReading {Address(kHere6), Ipv6Bytes(1200, 4), Ipv6Bytes(10, 3)}));
    const std::vector<SentReading> sent = table->ReadSent().value();
    EXPECT_EQ(sent,
              (std::vector<SentReading> {{Address(kHere), Ipv4Bytes(100, 10)},
                                         {Address(kHere6), Ipv6Bytes(10, 3)}}));
}

// Large datagrams travel in fragments of 1480 and 1448 bytes of data, each with a header of its own.
TEST_F(Counting, PingsAndFragmentsCountAsTheyTravel)
{
    AddClient(1, {kHere, kHere6});
    Begin();
    EXPECT_TRUE(Ping(Lab(), Place::Workstations, kHere, kThere, 500));
    EXPECT_TRUE(Ping(Lab(), Place::Internet, kThere6, kHere6, 300));
    EXPECT_EQ(Counted(kHere), (AddressReading {Address(kHere), 528, 528}));
    EXPECT_EQ(Counted(kHere6), (AddressReading {Address(kHere6), 348, 348}));
    EXPECT_EQ(Send(kHere, kThere, 8000, 2), 2);
    EXPECT_EQ(Receive(kHere6, kThere6, 8000, 2), 2);
    EXPECT_EQ(Counted(kHere).sent, 528 + 2 * (8008 + 6 * 20U));
    EXPECT_EQ(Counted(kHere6).received, 348 + 2 * (8008 + 6 * 48U));
}

TEST_F(Counting, ConnectionsOfTwentyWorkstationsAreTheLinksBytes)
{
    constexpr int kClients = 20;
    for (int i = 1; i <= kClients; ++i) {
        AddClient(static_cast<quint32>(i), {u"10.77.1.%1"_s.arg(i), u"fd77::%1"_s.arg(i)});
    }
    Begin();
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1); // whose unknown packets also resolve the neighbours
    EXPECT_EQ(Send(u"fd77::1"_s, kThere6, 10, 1), 1);
    const LinkBytes before = LinkBytesOf(u"wan0"_s);
    const Reading first = Read();
    for (int i = 1; i <= kClients; ++i) {
        const bool ipv6 = i % 2 == 0;
        const QString there = ipv6 ? kThere6 : kThere;
        const QString here = (ipv6 ? u"fd77::%1"_s : u"10.77.1.%1"_s).arg(i);
        const auto port = static_cast<quint16>(5000 + i);
        const auto listener = Listen(Lab(), Place::Internet, {there, port});
        const Connected client = Connect(Lab(), Place::Workstations, {here, 0}, {there, port});
        ASSERT_EQ(client.error, 0);
        const OpenFile server = Accept(listener);
        EXPECT_EQ(Transfer(server, client.socket, 300000), 300000);
        EXPECT_EQ(Transfer(client.socket, server, 100000), 100000);
    }
    Pause();
    const LinkBytes after = LinkBytesOf(u"wan0"_s);
    quint64 received = 0;
    quint64 sent = 0;
    for (const AddressReading &client : Read().clients) {
        received += client.received;
        sent += client.sent;
    }
    for (const AddressReading &client : first.clients) {
        received -= client.received;
        sent -= client.sent;
    }
    EXPECT_EQ(static_cast<qint64>(received), after.in - before.in);
    EXPECT_EQ(static_cast<qint64>(sent), after.out - before.out);
}

TEST_F(Counting, NothingIsLostWhileClientsComeMoveAndGo)
{
    AddClient(1, {kHere});
    Begin();
    Flow flow(Lab(), kHere, kThere);
    for (int i = 0; i < 30; ++i) {
        ClientRules &other = policy.clients[2];
        policy.clients[1].addresses.swap(other.addresses); // the address moves
        policy.network.excluded = {Address(u"10.79.9.%1"_s.arg(i))}; // and the rules are made anew
        AddClient(100 + static_cast<quint32>(i), {u"10.77.5.%1"_s.arg(i)});
        policy.clients.erase(100 + static_cast<quint32>(i) - 3);
        Apply();
        Pause();
    }
    flow.Stop();
    const AddressReading counted = Counted(kHere);
    EXPECT_EQ(counted.sent, Ipv4Bytes(100, flow.sent));
    EXPECT_EQ(counted.received, Ipv4Bytes(100, flow.received));
}

// While nobody's packets need more than the counter they are looked up nowhere else.
TEST_F(Counting, NothingIsLostWhileExceptionsComeAndGo)
{
    AddClient(1, {kHere});
    ClientRules &other = AddClient(2, {u"10.77.0.2"_s, u"fd77::2"_s});
    Begin();
    Flow flow(Lab(), kHere, kThere);
    for (int i = 0; i < 10; ++i) {
        other.refused = !other.refused;
        Apply();
        EXPECT_EQ(Send(u"10.77.0.2"_s, u"10.79.0.2"_s, 10, 1), other.refused ? 0 : 1);
        other.receivedUntil = other.receivedUntil ? std::nullopt : std::optional<quint64>(100);
        Apply();
    }
    flow.Stop();
    const AddressReading counted = Counted(kHere);
    EXPECT_EQ(counted.sent, Ipv4Bytes(100, flow.sent));
    EXPECT_EQ(counted.received, Ipv4Bytes(100, flow.received));
}

// Neither end of these packets is local.
TEST_F(Counting, AKnownAddressOutsideTheLocalRangesCountsNothing)
{
    const QString outside = u"10.76.0.2"_s;
    AddClient(1, {kHere});
    Begin();
    AddClient(2, {outside});
    Apply();
    EXPECT_EQ(Receive(outside, kThere, 50, 1), 1);
    EXPECT_EQ(Receive(kHere, kThere, 50, 1), 1);
    EXPECT_EQ(Counted(outside), (AddressReading {Address(outside)}));
    EXPECT_EQ(Counted(kHere).received, Ipv4Bytes(50, 1));
    policy.network.local.push_back({0x0A4C0000, 0xFFFF0000});
    Apply();
    EXPECT_EQ(Receive(outside, kThere, 50, 1), 1);
    EXPECT_EQ(Counted(outside).received, Ipv4Bytes(50, 1));
}

// By one rule or several, by the interface's number or its name, in one local range or one of many,
// and whether or not somebody else has a limit.
TEST_F(Counting, WhatPassesOneOfTheInterfacesCounts)
{
    QStringList many;
    for (int i = 0; i < 12; ++i) {
        many << u"vlan%1"_s.arg(i);
    }
    struct
    {
        QStringList interfaces;
        bool counts;
        Place madeIn = Place::Gateway; // elsewhere the interfaces have other numbers, or none
    } const cases[] {{{u"lan0"_s}, true},
                     {{u"wan0"_s}, false},
                     {{u"wan0"_s, u"lan0"_s}, true},
                     {{u"lan0"_s}, true, Place::Internet},
                     {{u"lan0"_s, u"eth0"_s}, true, Place::Internet},
                     {many, false},
                     {many + QStringList(u"lan0"_s), true}};
    AddClient(1, {kHere});
    ClientRules &other = AddClient(2, {u"10.77.0.2"_s});
    for (const auto &[interfaces, counts, madeIn] : cases) {
        for (const size_t ranges : {1, 3, 12}) {
            policy.network.lanInterfaces = interfaces;
            policy.network.local.resize(1);
            while (policy.network.local.size() < ranges) {
                const auto net = static_cast<Ipv4>(policy.network.local.size());
                policy.network.local.push_back({0x0AC80000 + 2 * (net << 8), 0xFFFFFF00});
            }
            for (const auto limit : {std::optional<quint64>(), std::optional<quint64>(1)}) {
                other.receivedUntil = limit;
                ASSERT_TRUE(table->Remove());
                {
                    const Visit visit(Lab(), madeIn);
                    Begin();
                }
                EXPECT_EQ(Send(kHere, kThere, 100, 2), 2);
                EXPECT_EQ(Receive(kHere, kThere, 50, 1), 1);
                EXPECT_EQ(Counted(kHere),
                          (AddressReading {Address(kHere),
                                           counts ? Ipv4Bytes(50, 1) : 0,
                                           counts ? Ipv4Bytes(100, 2) : 0}))
                    << qPrintable(interfaces.join(u' ')) << ", ranges " << ranges << ", limit "
                    << limit.has_value();
            }
        }
    }
}

TEST_F(Counting, ARetiredAddressKeepsItsCountersUntilForgotten)
{
    AddClient(1, {kHere});
    Begin();
    Flow flow(Lab(), kHere, kThere);
    Pause();
    policy.clients.clear();
    Apply();
    const AddressReading retired = Counted(kHere);
    EXPECT_GT(retired.sent, 0U);
    Pause();
    flow.Stop();
    EXPECT_EQ(Counted(kHere), retired);
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 0);

    AddClient(2, {kHere});
    Apply();
    EXPECT_TRUE(table->Forget({Address(kHere)})); // somebody's again: stays
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1);
    EXPECT_EQ(Counted(kHere).sent, retired.sent + 38);

    policy.clients.clear();
    Apply();
    EXPECT_TRUE(table->Forget({Address(kHere), Address(kHere6)}));
    EXPECT_TRUE(Read().clients.empty());
    EXPECT_EQ(Send(kHere, kThere, 10, 1), 1); // unknown now
    EXPECT_EQ(CountedUnknown(kHere).sent, 38U);
}

TEST_F(Counting, UnknownWorkstationsCountFromTheirFirstPacket)
{
    Begin();
    EXPECT_EQ(Send(kHere, kThere, 100, 3), 3);
    EXPECT_EQ(Receive(kHere, kThere, 50, 2), 2);
    EXPECT_EQ(Receive(kHere6, kThere6, 50, 2), 2);
    UnknownReading unknown = CountedUnknown(kHere);
    EXPECT_EQ(unknown.sent, Ipv4Bytes(100, 3));
    EXPECT_EQ(unknown.received, Ipv4Bytes(50, 2));
    EXPECT_TRUE(unknown.hardware);
    EXPECT_EQ(CountedUnknown(kHere6).received, Ipv6Bytes(50, 2));

    AddClient(1, {kHere, kHere6});
    Apply();
    EXPECT_EQ(Send(kHere, kThere, 100, 1), 1);
    EXPECT_EQ(Counted(kHere).sent, Ipv4Bytes(100, 1));
    EXPECT_EQ(CountedUnknown(kHere), unknown); // as it stood
    EXPECT_TRUE(table->ForgetUnknown({Address(kHere), Address(u"10.77.0.9"_s)}));
    EXPECT_EQ(CountedUnknown(kHere).sent, 0U);
    EXPECT_EQ(CountedUnknown(kHere6).received, Ipv6Bytes(50, 2));
}

TEST_F(Counting, WithoutANamedInterfaceTheAddressesTellTheSide)
{
    policy.network.lanInterfaces.clear();
    AddClient(1, {kHere, kHere6});
    Begin();
    EXPECT_EQ(Send(kHere, kThere, 100, 2), 2);
    EXPECT_EQ(Receive(kHere6, kThere6, 100, 2), 2);
    EXPECT_EQ(Send(u"10.77.0.2"_s, kThere, 100, 2), 2);
    EXPECT_EQ(Counted(kHere).sent, Ipv4Bytes(100, 2));
    EXPECT_EQ(Counted(kHere6).received, Ipv6Bytes(100, 2));
    EXPECT_EQ(CountedUnknown(u"10.77.0.2"_s).sent, Ipv4Bytes(100, 2));
}
