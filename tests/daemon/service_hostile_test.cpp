// What others may do to the service: workstations, the name server, the bus, other programs on the gateway.
#include "daemon/service_lab.h"
#include "gateway/table_layout.h"
#include "service/service_link.h"
#include "support/lab/links.h"
#include "support/lab/name_server.h"
#include "support/lab/ruleset.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <iostream>
#include <sched.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kAtOnce = 100; // milliseconds
constexpr quint16 kPort = 4000;

// What the bus is told.
const QStringList kInterfaces {u"org.tollbrook.Accounting1"_s,
                               u"org.tollbrook.Status1"_s,
                               u"org.freedesktop.DBus.Properties"_s,
                               u"org.freedesktop.DBus.Introspectable"_s,
                               u"org.tollbrook.Nothing1"_s,
                               QString()};
const QStringList kMethods {u"BlockUser"_s,
                            u"UnblockUser"_s,
                            u"LogIn"_s,
                            u"LogOut"_s,
                            u"Refused"_s,
                            u"Rates"_s,
                            u"LoggedIn"_s,
                            u"Get"_s,
                            u"Set"_s,
                            u"GetAll"_s,
                            u"Introspect"_s,
                            u"deleteLater"_s,
                            u"NoSuch"_s};
const QVariantList kValues {1U,
                            0U,
                            ~0U,
                            -1,
                            qint64 {1} << 60,
                            0.5,
                            true,
                            QString(1 << 16, u'x'),
                            u"org.tollbrook.Status1"_s,
                            u"Problems"_s,
                            QStringList {u"a"_s, QString()},
                            QByteArray(1 << 16, '\xff'),
                            QVariant::fromValue(QDBusVariant(QVariantList {1, u"x"_s}))};

// The last number of the address that a name server is asked about: 9.0.77.10.in-addr.arpa
int NumberIn(const QByteArray &question)
{
    return question.split('.').value(0).toInt();
}

} // namespace

class ServiceHostile : public ServiceLab
{
protected:
    // A packet of a workstation that is nobody's yet.
    static void Appear(int number)
    {
        const auto socket = MakeSocket(
            Lab(), Place::Workstations, Transport::Udp, {u"10.77.0.%1"_s.arg(number), kPort});
        EXPECT_EQ(SendDatagrams(socket, {kThere, kPort}, 10, 1), 1);
    }

    void ExpectCounting(Probe &probe)
    {
        EXPECT_TRUE(probe.Passes());
        const BytesByUser expected {{1, {0, probe.PassedBytes()}}};
        BytesByUser accounted = AwaitAccounted(1, expected.at(1));
        EXPECT_EQ(accounted[1], expected.at(1));
    }

    // Of one user, when they have come to be so or the patience is over.
    [[nodiscard]] static BytesByUser AwaitAccounted(quint32 user,
                                                    const std::pair<quint64, quint64> &bytes)
    {
        const QDeadlineTimer patience(kPatience);
        BytesByUser accounted = Accounted();
        while (accounted[user] != bytes && !patience.hasExpired()) {
            QTest::qWait(20);
            accounted = Accounted();
        }
        return accounted;
    }

    // Kilobytes of the service's memory.
    [[nodiscard]] int Memory() const
    {
        QFile file(u"/proc/%1/status"_s.arg(service->processId()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("VmRSS:")) {
                return line.simplified().split(' ').value(1).toInt();
            }
        }
        return 0;
    }
};

class ServiceEdited : public ServiceHostile
{ };

INSTANTIATE_TEST_SUITE_P(Engines, ServiceHostile, testing::Values("sqlite"), EngineName);
TB_ON_EVERY_ENGINE(ServiceEdited);

// Quotes, letters that no host's name has, names as long as there can be, and what is no answer at all.
TEST_P(ServiceHostile, NamesOfWorkstationsBecomeNamesOrNothing)
{
    const QByteArrayList longest {
        QByteArray(63, 'x'), QByteArray(63, 'y'), QByteArray(63, 'z'), QByteArray(61, 'z')};
    const std::map<int, QByteArrayList> names {
        {101, {"desk", "example"}},
        {102, {"o'brien\"; DROP TABLE users; --", "example"}},
        {103, longest},
        {104, {"\xff\xfe\x01\n%s%n"}},
        {105, {}},
    };
    constexpr int kFirstGarbled = 120;
    constexpr int kLastGarbled = 160;
    const NameServer server(
        Lab(),
        [&names](const QByteArray &question) {
            const auto found = names.find(NumberIn(question));
            return found != names.end() ? found->second : QByteArrayList {"garbled", "example"};
        },
        [](const QByteArray &question) { return NumberIn(question) >= kFirstGarbled; });
    AddUser(1);
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    for (const auto &[number, labels] : names) {
        Appear(number);
    }
    const QStringList expected {
        u"10.77.0.101|desk|desk"_s,
        u"10.77.0.102|10.77.0.102|"_s,
        u"10.77.0.103|"_s + QString(63, u'x') + u'|' + QString(63, u'x'),
        u"10.77.0.104|10.77.0.104|"_s,
        u"10.77.0.105|10.77.0.105|"_s,
    };
    const char made[] =
        "SELECT ip_addr, username, stationname FROM users WHERE user_id > 1 ORDER BY ip_addr";
    EXPECT_EQ(AwaitRows(made, expected), expected);
    EXPECT_GE(server.Asked(), 5);
    ExpectCounting(probe);
    for (int number = kFirstGarbled; number < kLastGarbled; ++number) {
        Appear(number);
    }
    const QStringList all {QString::number(1 + 5 + kLastGarbled - kFirstGarbled)};
    EXPECT_EQ(AwaitRows("SELECT COUNT(*) FROM users", all), all);
    ExpectCounting(probe);
    EXPECT_TRUE(Problems().isEmpty()) << qPrintable(Problems().join(u' '));
}

// A workstation that takes on another address with every packet fills neither the database nor the memory, and
// who is known is counted as ever.
TEST_P(ServiceHostile, AFloodOfUnknownAddressesDisturbsNobody)
{
    const int addresses = IsLongRun() ? 65000 : 8000;
    const int pauseMs = IsLongRun() ? 90 : 20; // behind each hundred: a minute, or two seconds
    AddUser(1);
    AddUser(2);
    Start();
    const int before = Memory();
    QElapsedTimer time;
    time.start();
    Flow flow(Lab(), Workstation(1), kThere, 1ms);
    std::thread flood([&] {
        const auto source =
            MakeSocket(Lab(), Place::Workstations, Transport::Udp, {u"0.0.0.0"_s, kPort + 1});
        for (int i = 0; i < addresses; ++i) {
            SendFrom(source, kNetwork + 256 + static_cast<quint32>(i), {kThere, kPort + 1}, 10);
            if (i % 100 == 0) {
                std::this_thread::sleep_for(std::chrono::milliseconds(pauseMs));
            }
        }
    });
    Probe probe(Lab(), Workstation(2), kThere);
    const auto link = ServiceLink::Create(bus->Connection());
    qint64 slowest = 0;
    for (int i = 0; i < 5; ++i) {
        QTest::qWait(addresses / 100 * pauseMs / 10);
        EXPECT_TRUE(probe.Passes());
        link->BlockUser(UserId {2});
        slowest = std::max(slowest, probe.Await(false, kPatience).value_or(2 * kPatience));
        link->UnblockUser(UserId {2});
        EXPECT_TRUE(probe.Await(true, kPatience));
    }
    flood.join();
    flow.Stop();
    const std::pair expected {Ipv4Bytes(Flow::kPayload, flow.received),
                              Ipv4Bytes(Flow::kPayload, flow.sent)};
    EXPECT_EQ(AwaitAccounted(1, expected)[1], expected);
    const int made = RowsOf("SELECT COUNT(*) FROM users").value(0).toInt() - 2;
    const int grown = (Memory() - before) / 1024;
    std::cout << "a block took " << slowest << " ms at most; " << made
              << " users were made; the memory grew by " << grown << " MB\n";
    // Each reading of so many keeps the service from all else, for long where it is built without optimization.
    EXPECT_LE(slowest, IsLongRun() ? 10 * kAtOnce : kPatience);
    EXPECT_LE(made, 50 * (time.elapsed() / 2000 + 2)); // fifty in two seconds
    EXPECT_TRUE(!IsLongRun() || grown <= 100); // what a sanitizer keeps is not the service's
}

// A workstation takes on the address of another one.
class ServiceSpoofed : public ServiceHostile
{
protected:
    static constexpr quint64 kAnnas = 0x02000000000a; // hardware addresses
    static constexpr quint64 kBerts = 0x02000000000b;
    static inline const QString kAnnasIp = u"10.76.0.31"_s; // at the gateway's own link
    static inline const QString kBertsIp = u"10.76.0.32"_s;

    void Begin(const QByteArray &settings)
    {
        WriteSettings(settings);
        Write(store.FileOf(ConfigKeyId::LocalIp),
              "rangenum = \"1\"\nnet0 = 172752896\nmask0 = 4294836224\n"); // 10.76 and 10.77
        {
            const Visit visit(Lab(), Place::Workstations);
            Links links = Links::Open().value();
            for (const QString &address : {kAnnasIp, kBertsIp}) { // which stand since another test
                static_cast<void>(links.AddAddress(u"eth0"_s, address, 24));
            }
        }
        AddUser(1, Columns(kAnnasIp, kAnnas));
        AddUser(2, Columns(kBertsIp, kBerts));
        Become(kAnnas);
        Start();
    }

    static QByteArray Columns(const QString &ip, quint64 hardware)
    {
        return "ip_addr = '" + ip.toLatin1() + "', mac_addr = '"
            + HardwareFrom(hardware).Text().toLatin1() + '\'';
    }

    // The workstation at the link is the one with this hardware address from now on.
    static void Become(quint64 hardware)
    {
        {
            const Visit visit(Lab(), Place::Workstations);
            ASSERT_TRUE(Links::Open().value().SetHardware(u"eth0"_s, hardware));
        }
        EXPECT_TRUE(Ping(Lab(), Place::Workstations, u"10.76.0.2"_s, u"10.76.0.1"_s, 10));
    }

    static QString UserRow(quint32 id, const QString &ip, quint64 hardware)
    {
        return u"%1|%2|%3"_s.arg(id).arg(ip, HardwareFrom(hardware).Text());
    }

    static constexpr char kRows[] = "SELECT user_id, ip_addr, mac_addr FROM users ORDER BY user_id";
};

INSTANTIATE_TEST_SUITE_P(Engines, ServiceSpoofed, testing::Values("sqlite"), EngineName);

TEST_P(ServiceSpoofed, AddressesAreRefusedWhereNobodyMayChangeThem)
{
    Begin("ControlMAC = \"1\"\n");
    Probe annas(Lab(), kAnnasIp, kThere);
    Probe berts(Lab(), kBertsIp, kThere);
    ExpectCounting(annas);
    EXPECT_FALSE(berts.Passes()); // which she has taken on
    Become(kBerts);
    EXPECT_TRUE(berts.Passes());
    EXPECT_FALSE(annas.Passes());
    Become(kAnnas);
    ExpectCounting(annas);
    const BytesByUser expected {{1, {0, annas.PassedBytes()}}, {2, {0, berts.PassedBytes()}}};
    EXPECT_EQ(AwaitAccounted(2, expected.at(2)), expected);
    EXPECT_EQ(RowsOf(kRows),
              (QStringList {UserRow(1, kAnnasIp, kAnnas), UserRow(2, kBertsIp, kBerts)}));
}

TEST_P(ServiceSpoofed, AddressesFollowTheWorkstationWhereThatIsTheUser)
{
    Begin("IdentMode = \"1\"\n");
    Probe annas(Lab(), kAnnasIp, kThere);
    Probe taken(Lab(), kBertsIp, kThere);
    ExpectCounting(annas);
    EXPECT_TRUE(taken.Passes());
    const QStringList expected {UserRow(1, kBertsIp, kAnnas), UserRow(2, {}, kBerts)};
    EXPECT_EQ(AwaitRows(kRows, expected), expected);
    EXPECT_TRUE(taken.Await(true, kPatience));
    const std::pair<quint64, quint64> both {0, annas.PassedBytes() + taken.PassedBytes()};
    const BytesByUser accounted = AwaitAccounted(1, both);
    EXPECT_EQ(accounted, (BytesByUser {{1, both}}));
}

// `nft flush table inet tollbrook`: the counters stand.
TEST_P(ServiceHostile, RulesThatSomebodyRemovedAreThereAgainAtOnce)
{
    AddUser(1);
    AddUser(2, "blocked = true, blockreason = 3");
    Start();
    Probe counted(Lab(), Workstation(1), kThere);
    Probe refused(Lab(), Workstation(2), kThere);
    ExpectCounting(counted);
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(refused.Passes());
        ASSERT_TRUE(FlushRules());
        const auto back = refused.Await(false, 1000);
        ASSERT_TRUE(back);
        EXPECT_LE(*back, kAtOnce);
        AwaitLine(u"Nothing that was counted is lost"_s);
        ExpectCounting(counted);
    }
    EXPECT_TRUE(Problems().isEmpty()) << qPrintable(Problems().join(u' '));
}

// Another machine, for which the other end of the laboratory stands, with the same id and the same database.
TEST_P(ServiceHostile, ASecondGatewayOfTheSameIdDoesNotStart)
{
    WriteSettings("GatewayId = \"house\"\n");
    AddUser(1);
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    ExpectCounting(probe);
    auto otherBus = std::make_unique<PrivateBus>();
    std::swap(bus, otherBus);
    const auto second = Spawn({}, [] { setns(Lab().NamespaceOf(Place::Internet), CLONE_NEWNET); });
    std::swap(bus, otherBus);
    AwaitLine(*second, u"Another gateway counts under the id \"house\""_s);
    EXPECT_TRUE(second->waitForFinished(kPatience));
    EXPECT_EQ(second->exitCode(), 5);
    ExpectCounting(probe);
    EXPECT_TRUE(Problems().isEmpty()) << qPrintable(Problems().join(u' '));
}

// Arguments of all kinds for each operation, and operations that there are not.
TEST_P(ServiceHostile, TheBusMayBeToldAnything)
{
    AddUser(1);
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    QRandomGenerator random(11);
    const auto one = [&random](const auto &of) { return of[random.bounded(of.size())]; };
    QDBusConnection caller = bus->Connection();
    for (int i = 0; i < 600; ++i) {
        auto call = QDBusMessage::createMethodCall(u"org.tollbrook.Accounting"_s,
                                                   u"/org/tollbrook/Accounting"_s,
                                                   one(kInterfaces),
                                                   one(kMethods));
        QVariantList arguments;
        for (int number = random.bounded(4); number > 0; --number) {
            arguments << one(kValues);
        }
        call.setArguments(arguments);
        const QDBusMessage answer = caller.call(call, QDBus::Block, kPatience);
        ASSERT_NE(answer.errorName(), u"org.freedesktop.DBus.Error.NoReply"_s) << i;
        ASSERT_EQ(service->state(), QProcess::Running) << i;
    }
    for (const quint32 user : {0U, 1U, ~0U}) { // what was told of them is over
        const auto link = ServiceLink::Create(bus->Connection());
        link->UnblockUser(UserId {user});
    }
    EXPECT_TRUE(probe.Await(true, kPatience));
    ExpectCounting(probe);
    EXPECT_EQ(Stop(), 0);
}

// The console changes rows at the moments at which the service reads and writes them: each keeps what it wrote.
TEST_P(ServiceEdited, RowsKeepWhatBothWrite)
{
    AddUser(1, "mode = 1, traflim = 1000");
    Start();
    const auto link = ServiceLink::Create(bus->Connection());
    Flow flow(Lab(), Workstation(1), kThere, 2ms);
    const int edits = IsLongRun() ? 2000 : 150;
    for (int i = 1; i <= edits; ++i) {
        const QByteArray number = QByteArray::number(i);
        Run("UPDATE users SET fullname = 'name " + number + "', traflim = 1000 + " + number
            + " WHERE user_id = 1");
        Run("UPDATE traffic_use SET blocked = false WHERE user_id = 1 AND period = 2");
        link->UnblockUser(UserId {1}); // which has the service read the row again, three times
        QTest::qWait(QRandomGenerator::global()->bounded(1, 30));
        EXPECT_EQ(RowsOf("SELECT fullname, traflim, blocked FROM users WHERE user_id = 1"),
                  (QStringList {u"name %1|%2|0"_s.arg(i).arg(1000 + i)}));
    }
    flow.Stop();
    const std::pair expected {Ipv4Bytes(Flow::kPayload, flow.received),
                              Ipv4Bytes(Flow::kPayload, flow.sent)};
    EXPECT_EQ(AwaitAccounted(1, expected)[1], expected);
    const QStringList limit = RowsOf("SELECT data * 1048576 FROM traffic_use WHERE user_id = 1 "
                                     "AND period = 2");
    EXPECT_EQ(static_cast<quint64>(limit.value(0).toDouble()), expected.first);
    EXPECT_TRUE(Problems().isEmpty()) << qPrintable(Problems().join(u' '));
}
