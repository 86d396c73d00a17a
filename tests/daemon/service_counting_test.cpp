// What workstations send and receive is in the database to the byte, whatever happens to the service
// and to the database meanwhile.
#include "daemon/service_lab.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ServiceCounting : public ServiceLab
{
protected:
    static BytesByUser BytesOf(const Flow &first, const Flow &second)
    {
        const auto of = [](const Flow &flow) {
            return std::pair(Ipv4Bytes(Flow::kPayload, flow.received),
                             Ipv4Bytes(Flow::kPayload, flow.sent));
        };
        return {{1, of(first)}, {2, of(second)}};
    }
};

TB_ON_EVERY_ENGINE(ServiceCounting);

TEST_P(ServiceCounting, EveryByteOfSeveralWorkstationsIsWritten)
{
    constexpr quint32 kUsers = 6;
    for (quint32 id = 1; id <= kUsers; ++id) {
        AddUser(id);
    }
    // The neighbours' addresses are asked for now, which a link counts too.
    EXPECT_TRUE(Probe(Lab(), Workstation(1), kThere).Passes());
    Start();
    const LinkBytes before = LinkBytesOf(u"wan0"_s);
    BytesByUser expected;
    quint64 datagramBytes = 0;
    for (quint32 id = 1; id < kUsers; ++id) {
        const int count = static_cast<int>(10 * id);
        const auto here =
            MakeSocket(Lab(), Place::Workstations, Transport::Udp, {Workstation(id), 4000});
        const auto there = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, 4000});
        SendDatagrams(here, {kThere, 4000}, 1000, count);
        SendDatagrams(there, {Workstation(id), 4000}, 500, 3 * count);
        EXPECT_EQ(TakeDatagrams(there, count), count);
        EXPECT_EQ(TakeDatagrams(here, 3 * count), 3 * count);
        expected[id] = {Ipv4Bytes(500, 3 * count), Ipv4Bytes(1000, count)};
        datagramBytes += expected[id].first + expected[id].second;
    }
    // A connection's bytes are what the link has carried besides.
    EXPECT_EQ(Download(kUsers, 3 << 20), 3 << 20);
    QTest::qWait(50); // its last acknowledgements
    const LinkBytes after = LinkBytesOf(u"wan0"_s);
    quint64 received = 0;
    quint64 sent = 0;
    for (const auto &[id, bytes] : expected) {
        received += bytes.first;
        sent += bytes.second;
    }
    expected[kUsers] = {static_cast<quint64>(after.in - before.in) - received,
                        static_cast<quint64>(after.out - before.out) - sent};
    EXPECT_EQ(AwaitAccounted(expected), expected);
}

TEST_P(ServiceCounting, KillsAtRandomMomentsLoseAndDoubleNothing)
{
    AddUser(1);
    AddUser(2);
    Start();
    Flow first(Lab(), Workstation(1), kThere, 500us);
    Flow second(Lab(), Workstation(2), kThere, 2ms);
    for (int i = 0; i < (IsLongRun() ? 200 : 10); ++i) {
        QTest::qWait(QRandomGenerator::global()->bounded(20, 500));
        Kill();
        service = Spawn();
    }
    first.Stop();
    second.Stop();
    const BytesByUser expected = BytesOf(first, second);
    EXPECT_EQ(AwaitAccounted(expected), expected);
    EXPECT_EQ(Stop(), 0);
    EXPECT_EQ(Accounted(), expected);
}

// TB_OUTAGES in the environment: how many in the long run, each a minute long.
TEST_P(ServiceCounting, OutagesOfTheDatabaseLoseAndDoubleNothing)
{
    const int number =
        qEnvironmentVariableIsSet("TB_OUTAGES") ? qEnvironmentVariableIntValue("TB_OUTAGES") : 20;
    const int length = IsLongRun() ? 60000 : 2000; // milliseconds
    AddUser(1);
    AddUser(2);
    Start();
    Flow first(Lab(), Workstation(1), kThere, 500us);
    Flow second(Lab(), Workstation(2), kThere, 2ms);
    for (int i = 0; i < (IsLongRun() ? number : 3); ++i) {
        QTest::qWait(200);
        BeginOutage();
        if (Engine() != u"sqlite"_s) { // which is waited for
            AwaitLine(u"The database cannot be used"_s);
            EXPECT_EQ(Problems().size(), 1);
        }
        QTest::qWait(length);
        const bool isKilled = i % 3 == 1; // nor does a kill meanwhile lose anything
        if (isKilled) {
            Kill();
        }
        EndOutage();
        if (isKilled) {
            Start();
        } else if (Engine() != u"sqlite"_s) {
            AwaitLine(u"Over: The database cannot be used"_s);
        }
    }
    first.Stop();
    second.Stop();
    const BytesByUser expected = BytesOf(first, second);
    EXPECT_EQ(AwaitAccounted(expected), expected);
    EXPECT_TRUE(Problems().isEmpty());
}
