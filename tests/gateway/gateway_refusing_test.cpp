#include "gateway/table_fixture.h"
#include "support/lab/links.h"

#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

class Refusing : public TableTest
{
protected:
    [[nodiscard]] int ConnectError(const QString &from, const QString &to, quint16 port = kPort)
    {
        const auto listener = Listen(Lab(), Place::Internet, {to, port});
        return Connect(Lab(), Place::Workstations, {from, 0}, {to, port}).error;
    }

    [[nodiscard]] bool Sends(const QString &from, quint16 port)
    {
        const auto target = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, port});
        const auto source = MakeSocket(Lab(), Place::Workstations, Transport::Udp, {from, kPort});
        SendDatagrams(source, {kThere, port}, 20, 1);
        return TakeDatagrams(target, 1) == 1;
    }

    [[nodiscard]] bool Receives(const QString &to, quint16 port)
    {
        const auto target = MakeSocket(Lab(), Place::Workstations, Transport::Udp, {to, kPort});
        const auto source = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, port});
        SendDatagrams(source, {to, kPort}, 20, 1);
        return TakeDatagrams(target, 1) == 1;
    }
};

TEST_F(Refusing, WorkstationsAreAnsweredAtOnceAndTheInternetIsNot)
{
    AddClient(1, {kHere, kHere6}).refused = true;
    Begin();
    for (const auto &[here, there] : {std::pair(kHere, kThere), std::pair(kHere6, kThere6)}) {
        EXPECT_EQ(ConnectError(here, there), ECONNREFUSED) << qPrintable(here);

        const auto source = MakeSocket(Lab(), Place::Workstations, Transport::Udp, {here, kPort});
        const int on = 1;
        setsockopt(source.Number(), IPPROTO_IP, IP_RECVERR, &on, sizeof on);
        setsockopt(source.Number(), IPPROTO_IPV6, IPV6_RECVERR, &on, sizeof on);
        SendDatagrams(source, {there, kPort}, 20, 1);
        EXPECT_EQ(WaitingError(source), here == kHere ? EHOSTUNREACH : EACCES);

        EXPECT_EQ(Receive(here, there, 20, 1), 0);
        EXPECT_FALSE(Ping(Lab(), Place::Internet, there, here, 20));
        EXPECT_EQ(Counted(here), (AddressReading {Address(here), 0, 0}));
    }
    policy.clients[1].refused = false;
    Apply();
    EXPECT_EQ(ConnectError(kHere, kThere), 0);
    EXPECT_EQ(ConnectError(kHere6, kThere6), 0);
}

TEST_F(Refusing, ARefusedClientReachesLittleOfTheGateway)
{
    AddClient(1, {kHere}).refused = true;
    policy.network.authPort = 8000;
    Begin();
    struct Case
    {
        quint16 port;
        int error;
    };
    // Nobody listens there: a reset says refused in any case, so the listener makes the difference.
    for (const auto &[port, error] : {Case {53, 0}, {8000, 0}, {22, ECONNREFUSED}}) {
        const auto listener = Listen(Lab(), Place::Gateway, {u"10.76.0.1"_s, port});
        const auto connected =
            Connect(Lab(), Place::Workstations, {kHere, 0}, {u"10.76.0.1"_s, port});
        EXPECT_EQ(connected.error, error) << port;
        const auto other =
            Connect(Lab(), Place::Workstations, {u"10.77.0.9"_s, 0}, {u"10.76.0.1"_s, port});
        EXPECT_EQ(other.error, 0) << port;
    }
    EXPECT_TRUE(Ping(Lab(), Place::Workstations, kHere, u"10.76.0.1"_s, 20));
}

TEST_F(Refusing, PortsOfTheInternetAreAllowedOrDenied)
{
    ClientRules &allowed = AddClient(1, {u"10.77.0.1"_s});
    allowed.portsAllowOnly = true;
    allowed.ports = {53, 4000};
    AddClient(2, {u"10.77.0.2"_s}).ports = {2048, 4000}; // 2048 is how an echo request begins
    AddClient(3, {u"10.77.0.3"_s});
    Begin();
    struct Case
    {
        QString client;
        quint16 port;
        bool passes;
    };
    const Case cases[] = {{u"10.77.0.1"_s, 53, true},
                          {u"10.77.0.1"_s, 4000, true},
                          {u"10.77.0.1"_s, 54, false},
                          {u"10.77.0.2"_s, 53, true},
                          {u"10.77.0.2"_s, 4000, false},
                          {u"10.77.0.3"_s, 4000, true}};
    for (const auto &[client, port, passes] : cases) {
        EXPECT_EQ(Sends(client, port), passes) << qPrintable(client) << ' ' << port;
        EXPECT_EQ(Receives(client, port), passes) << qPrintable(client) << ' ' << port;
    }
    for (const QString &client : {u"10.77.0.1"_s, u"10.77.0.2"_s}) {
        EXPECT_TRUE(Ping(Lab(), Place::Workstations, client, kThere, 20)) << qPrintable(client);
    }
    policy.clients[1].ports = {54};
    Apply();
    EXPECT_FALSE(Sends(u"10.77.0.1"_s, 53));
    EXPECT_TRUE(Sends(u"10.77.0.1"_s, 54));
}

TEST_F(Refusing, OnlyTheRightHardwareAddressPasses)
{
    const auto setHardware = [&](quint64 hardware) {
        const Visit visit(Lab(), Place::Workstations);
        ASSERT_TRUE(Links::Open().value().SetHardware(u"eth0"_s, hardware));
    };
    setHardware(0x020000000001);
    AddClient(1, {kHere, kHere6}).hardware = HardwareAddress::From(u"02:00:00:00:00:01"_s);
    AddClient(2, {u"10.77.0.2"_s}).hardware = HardwareAddress::From(u"020000000002"_s);
    policy.clients[2].ports = {53};
    Begin();
    EXPECT_TRUE(Sends(kHere, 54));
    EXPECT_EQ(Send(kHere6, kThere6, 20, 1), 1);
    EXPECT_FALSE(Sends(u"10.77.0.2"_s, 54));
    setHardware(0x020000000002);
    EXPECT_FALSE(Sends(kHere, 54));
    EXPECT_EQ(Send(kHere6, kThere6, 20, 1), 0);
    EXPECT_TRUE(Sends(u"10.77.0.2"_s, 54));
    EXPECT_FALSE(Sends(u"10.77.0.2"_s, 53));
    // Whose hardware address is checked is noted with a wrong one.
    const std::vector<AddressPair> expected {
        {Address(kHere), HardwareFrom(0x020000000002)},
        {Address(u"10.77.0.2"_s), HardwareFrom(0x020000000001)},
        {Address(kHere6), HardwareFrom(0x020000000002)}};
    EXPECT_EQ(std::set(expected.begin(), expected.end()), [&] {
        const std::vector<AddressPair> pairs = Read().pairs;
        return std::set(pairs.begin(), pairs.end());
    }());
}

TEST_F(Refusing, UnknownWorkstationsAreFoundAlsoWhenTheyAreRefused)
{
    policy.network.refuseUnknown = true;
    policy.network.refuseUnknownIpv6 = true;
    Begin();
    EXPECT_EQ(ConnectError(kHere, kThere), ECONNREFUSED);
    EXPECT_EQ(ConnectError(kHere6, kThere6), ECONNREFUSED);
    EXPECT_EQ(Receive(u"10.77.0.2"_s, kThere, 20, 1), 0);
    const Reading reading = Read();
    ASSERT_EQ(reading.unknown.size(), 2U); // what nobody sent from is nobody
    for (const UnknownReading &unknown : reading.unknown) {
        EXPECT_EQ(unknown.sent, 0U);
        EXPECT_TRUE(unknown.hardware);
    }
    AddClient(1, {kHere});
    Apply();
    EXPECT_EQ(ConnectError(kHere, kThere), 0);
    EXPECT_TRUE(table->ForgetUnknown({Address(kHere), Address(kHere6)}));
    EXPECT_TRUE(Read().unknown.empty());
}

TEST_F(Refusing, WhatIsNearOrExcludedIsNeitherCountedNorRefused)
{
    policy.network.local.push_back({0x0A4F0005, 0xFFFF00FF}); // 10.79.x.5: a mask with a gap
    policy.network.excluded = {Address(u"10.77.0.7"_s), Address(u"10.79.0.8"_s), Address(kThere6)};
    AddClient(1, {kHere, kHere6, u"10.77.0.7"_s}).refused = true;
    // Few ranges are compared with one by one, many are looked up.
    for (const int more : {0, 20}) {
        for (int i = 0; i < more; ++i) {
            policy.network.local.push_back({0xC0A80000U + static_cast<Ipv4>(i) * 512, 0xFFFFFF00});
        }
        Begin();
        EXPECT_EQ(Send(kHere, u"10.79.3.5"_s, 20, 1), 1); // between local addresses
        EXPECT_EQ(Send(kHere, u"10.79.0.8"_s, 20, 1), 1);
        EXPECT_EQ(Send(u"10.77.0.7"_s, kThere, 20, 1), 1);
        EXPECT_EQ(Send(kHere6, kThere6, 20, 1), 1);
        EXPECT_EQ(Receive(u"10.77.0.7"_s, kThere, 20, 1), 1);
        EXPECT_EQ(Send(kHere, kThere, 20, 1), 0);
        const Reading reading = Read();
        EXPECT_EQ(reading.clients.size(), 2U);
        EXPECT_EQ(In(reading.clients, kHere), (AddressReading {Address(kHere), 0, 0}));
        EXPECT_TRUE(reading.unknown.empty());
    }
}

TEST_F(Refusing, OnlyCountedPortsAreCounted)
{
    policy.network.counted = CountedPorts::Only;
    policy.network.ports = {53};
    AddClient(1, {kHere}).receivedUntil = 1000000;
    Begin();
    EXPECT_TRUE(Sends(kHere, 53));
    EXPECT_TRUE(Receives(kHere, 53));
    EXPECT_TRUE(Sends(kHere, 54));
    EXPECT_TRUE(Receives(kHere, 54));
    EXPECT_TRUE(Ping(Lab(), Place::Workstations, kHere, kThere, 20));
    EXPECT_TRUE(Sends(u"10.77.0.2"_s, 54));
    const Reading reading = Read();
    EXPECT_EQ(In(reading.clients, kHere), (AddressReading {Address(kHere), 48, 48}));
    EXPECT_TRUE(reading.unknown.empty());
}
