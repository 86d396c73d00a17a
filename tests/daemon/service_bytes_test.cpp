// What is written to the byte is what the links of the gateway carried and what the workstations' sockets
// sent: of every kind of packet, behind a translation of addresses, and while everything changes.
#include "daemon/service_lab.h"
#include "gateway/table_layout.h"
#include "support/lab/links.h"
#include "support/lab/ruleset.h"

#include <QDeadlineTimer>
#include <QTest>

#include <csignal>
#include <set>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr quint32 kUsers = 20;
constexpr quint32 kIpv6User = 21;
constexpr quint64 kHardware = 0x020000000001; // of all workstations
constexpr quint16 kPort = 4000;
constexpr int kFragmented = 8000; // bytes of a datagram that travels in six fragments
constexpr quint64 kHeadersOfWhole = 100; // bytes of headers on the link for it besides one
constexpr quint64 kHeadersOfHalf = 40; // and for one of half its size
constexpr int kDatagrams = 10;

} // namespace

class ServiceBytes : public ServiceLab
{
protected:
    static inline const QString kHere6 = u"fd77::1"_s;
    static inline const QString kThere6 = u"fd79::1"_s;

    // The gateway knows its neighbours, for whom it would have to ask, and they it.
    static void MeetNeighbours()
    {
        for (const auto &[own, other] : {std::pair(u"10.76.0.1"_s, u"10.76.0.2"_s),
                                         {u"10.78.0.1"_s, u"10.78.0.2"_s},
                                         {u"fd76::1"_s, u"fd76::2"_s},
                                         {u"fd78::1"_s, u"fd78::2"_s}}) {
            EXPECT_TRUE(Ping(Lab(), Place::Gateway, own, other, 10));
        }
    }

    // What a workstation sends is answered in kind, whatever the address that it comes from.
    static std::pair<quint64, quint64> Datagrams(quint32 user, int bytes)
    {
        const auto here =
            MakeSocket(Lab(), Place::Workstations, Transport::Udp, {Workstation(user), kPort});
        const auto there = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, kPort});
        EXPECT_EQ(SendDatagrams(here, {kThere, kPort}, bytes, kDatagrams), kDatagrams);
        const std::vector<Arrival> come = TakeArrivals(there);
        EXPECT_EQ(come.size(), size_t {kDatagrams});
        for (const Arrival &each : come) {
            SendDatagrams(
                there, {NetAddress::FromIpv4(each.from).Text(), each.fromPort}, bytes / 2, 1);
        }
        EXPECT_EQ(TakeDatagrams(here, kDatagrams), kDatagrams);
        return {Ipv4Bytes(bytes / 2, kDatagrams), Ipv4Bytes(bytes, kDatagrams)};
    }

    static std::pair<quint64, quint64> Echo(const QString &here, const QString &there, int headers)
    {
        EXPECT_TRUE(Ping(Lab(), Place::Workstations, here, there, 500));
        return {500 + headers, 500 + headers};
    }

    static void Connection(const QString &here, const QString &there, quint16 port)
    {
        const auto listener = Listen(Lab(), Place::Internet, {there, port});
        const Connected client = Connect(Lab(), Place::Workstations, {here, 0}, {there, port});
        ASSERT_EQ(client.error, 0);
        const OpenFile server = Accept(listener);
        EXPECT_EQ(Transfer(server, client.socket, 300000), 300000);
        EXPECT_EQ(Transfer(client.socket, server, 100000), 100000);
    }

    static BytesByUser::mapped_type Sum(const BytesByUser &bytes)
    {
        BytesByUser::mapped_type sum;
        for (const auto &[user, each] : bytes) {
            sum.first += each.first;
            sum.second += each.second;
        }
        return sum;
    }

    // Of users to whom a row belongs with this address, in the order of their ids.
    [[nodiscard]] static QList<quint32> UsersAt(const QString &address)
    {
        QList<quint32> users;
        for (const QString &row : RowsOf("SELECT user_id, ip_addr FROM users ORDER BY user_id")) {
            if (row.section(u'|', 1) == address) {
                users << row.section(u'|', 0, 0).toUInt();
            }
        }
        return users;
    }

    void ExpectEveryKind(bool translated);
};

class ServiceChanges : public ServiceBytes
{
protected:
    using Bytes = BytesByUser::mapped_type;

    static Bytes Both(const Bytes &first, const Bytes &second)
    {
        return {first.first + second.first, first.second + second.second};
    }

    // The workstation with this last number of its address sends and receives from now on.
    void StartFlow(quint32 number)
    {
        flows[number] = std::make_unique<Flow>(Lab(), Workstation(number), kThere, 5ms);
    }

    [[nodiscard]] Bytes FlownAt(quint32 number) const
    {
        const Flow &flow = *flows.at(number);
        return {Ipv4Bytes(Flow::kPayload, flow.received), Ipv4Bytes(Flow::kPayload, flow.sent)};
    }

    // The users 7 and 8 have one another's address, 9 is removed at times, and the rules are made anew.
    void ChangeEverything(int times) const
    {
        for (int i = 0; i < times; ++i) {
            QTest::qWait(300);
            Run("UPDATE users SET ip_addr = CASE ip_addr WHEN '10.77.0.7' THEN '10.77.0.8' "
                "ELSE '10.77.0.7' END WHERE user_id IN (7, 8)");
            if (i % 4 == 1) {
                Run("DELETE FROM users WHERE ip_addr = '10.77.0.9'");
            }
            WriteSettings("AuthPort = \"" + QByteArray::number(7000 + i) + "\"\n");
            Signal(SIGHUP);
        }
    }

    // Of the two users, when they have come to be so together or the patience is over.
    static BytesByUser AwaitTogether(quint32 one, quint32 other, const Bytes &bytes)
    {
        const QDeadlineTimer patience(kPatience);
        BytesByUser accounted;
        do {
            QTest::qWait(100);
            accounted = Accounted();
        } while (Both(accounted[one], accounted[other]) != bytes && !patience.hasExpired());
        return accounted;
    }

    std::map<quint32, std::unique_ptr<Flow>> flows;
};

INSTANTIATE_TEST_SUITE_P(Engines, ServiceBytes, testing::Values("sqlite"), EngineName);
TB_ON_EVERY_ENGINE(ServiceChanges);

void ServiceBytes::ExpectEveryKind(bool translated)
{
    for (quint32 user = 1; user <= kUsers; ++user) {
        AddUser(user);
    }
    AddUser(kIpv6User, "mac_addr = '" + HardwareFrom(kHardware).Text().toLatin1() + '\'');
    {
        const Visit visit(Lab(), Place::Workstations);
        ASSERT_TRUE(Links::Open().value().SetHardware(u"eth0"_s, kHardware));
    }
    ASSERT_TRUE(!translated || Masquerade(u"wan0"_s));
    MeetNeighbours();
    Start();
    const LinkBytes before = LinkBytesOf(u"wan0"_s);
    BytesByUser known; // of a connection only the link knows them
    std::pair<quint64, quint64> headers; // that the link carries of what is counted as a whole
    for (quint32 user = 1; user <= kUsers; ++user) {
        switch (user % 4) {
        case 0:
            Connection(Workstation(user), kThere, static_cast<quint16>(5000 + user));
            break;
        case 1:
            known[user] = Datagrams(user, 1000);
            break;
        case 2:
            known[user] = Echo(Workstation(user), kThere, 28);
            break;
        default:
            known[user] = Datagrams(user, kFragmented);
            (translated ? headers : known[user]).first += kDatagrams * kHeadersOfHalf;
            (translated ? headers : known[user]).second += kDatagrams * kHeadersOfWhole;
        }
    }
    Connection(kHere6, kThere6, 5000);
    EXPECT_EQ(Echo(kHere6, kThere6, 48).first, 548U);
    QTest::qWait(50); // the last acknowledgements of connections
    const LinkBytes after = LinkBytesOf(u"wan0"_s);
    const BytesByUser::mapped_type carried {
        static_cast<quint64>(after.in - before.in) - headers.first,
        static_cast<quint64>(after.out - before.out) - headers.second};
    const QDeadlineTimer patience(kPatience);
    while (Sum(Accounted()) != carried && !patience.hasExpired()) {
        QTest::qWait(50);
    }
    const BytesByUser accounted = Accounted();
    EXPECT_EQ(Sum(accounted), carried);
    EXPECT_EQ(accounted.size(), kUsers + 1);
    for (const auto &[user, bytes] : known) {
        EXPECT_EQ(accounted.at(user), bytes) << user;
    }
    EXPECT_EQ(Stop(), 0);
    EXPECT_TRUE(!translated || FlushRuleset());
}

TEST_P(ServiceBytes, OfEveryKindAreThoseOfTheLink)
{
    ExpectEveryKind(false);
}

// The translation puts fragments together before they are counted.
TEST_P(ServiceBytes, OfEveryKindAreThoseOfTheLinkBehindATranslation)
{
    ExpectEveryKind(true);
}

// Users whose packets never stop: some stay, two change their addresses with one another, one is removed and
// comes again, two are new to the network; and the rules are made anew.
TEST_P(ServiceChanges, OfUsersAndRulesLoseAndDoubleNothing)
{
    constexpr quint32 kLeaving = 9;
    for (quint32 user = 1; user <= kLeaving; ++user) { // the database numbers them so itself
        const QByteArray number = QByteArray::number(user);
        Run("INSERT INTO users (username, ip_addr) VALUES ('user " + number + "', '10.77.0."
            + number + "')");
    }
    Start();
    for (quint32 user = 1; user <= kLeaving; ++user) {
        StartFlow(user);
    }
    StartFlow(40);
    StartFlow(41);
    ChangeEverything(IsLongRun() ? 200 : 8);
    for (const auto &[number, flow] : flows) {
        flow->Stop();
    }
    EXPECT_EQ(AwaitRows("SELECT COUNT(*) FROM users WHERE ip_addr IN ('10.77.0.40', '10.77.0.41')",
                        {u"2"_s}),
              QStringList {u"2"_s});
    const Bytes moved = Both(FlownAt(7), FlownAt(8));
    BytesByUser accounted = AwaitTogether(7, 8, moved);
    EXPECT_EQ(Both(accounted[7], accounted[8]), moved);
    std::set<quint32> others {7, 8}; // than who leaves
    for (const quint32 number : {1U, 2U, 3U, 4U, 5U, 6U, 40U, 41U}) {
        const QList<quint32> users = UsersAt(Workstation(number));
        ASSERT_EQ(users.size(), 1) << number;
        EXPECT_EQ(accounted[users.first()], FlownAt(number)) << number;
        others.insert(users.first());
    }
    // Whoever is removed takes along what was not accounted yet, and is somebody new from then on.
    Bytes ofLeaving;
    for (const auto &[user, bytes] : accounted) {
        ofLeaving = others.contains(user) ? ofLeaving : Both(ofLeaving, bytes);
    }
    EXPECT_LE(ofLeaving.first, FlownAt(kLeaving).first);
    EXPECT_LE(ofLeaving.second, FlownAt(kLeaving).second);
    EXPECT_GT(ofLeaving.second, 0U);
    EXPECT_TRUE(Problems().isEmpty()) << qPrintable(Problems().join(u' '));
    EXPECT_EQ(Stop(), 0);
}
