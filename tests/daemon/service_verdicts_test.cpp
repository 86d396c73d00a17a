// Who may send: what a user's row, account, week, ports, hardware address, group and login say, in their
// combinations, each user asked with a packet either way. What is expected is written here from the
// rules that docs/service.md and docs/gateway.md tell.
#include "daemon/service_lab.h"
#include "db/translation.h"
#include "gateway/table_layout.h"
#include "support/lab/links.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <QTest>

#include <array>
#include <iostream>
#include <iterator>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 kHerePort = 4000;
constexpr quint16 kTherePort = 80; // HTTP, the port with id 1; id 3 is HTTPS
constexpr quint64 kHardware = 0x020000000001; // of all workstations
constexpr int kPayload = 10; // bytes
constexpr int kSentAtOnce = 500; // of what travels before it is looked for

// One of the things that a part of a user's rules may say. In the statements, parted by semicolons, {id} is the
// user's, {today} the number of this weekday, {next} of the one behind it, and {other} of one that is neither.
struct Value
{
    const char *name;
    QByteArray statements;
    bool refuses = false;
};

// The parts of a user's rules, in the order of the table.
enum Part { Reason, Account, Week, Ports, Hardware, Group, Login, PartCount };

const QByteArray kTraffic = "UPDATE users SET mode = 1, traflim = 1 WHERE user_id = {id};";
const QByteArray kTime = "UPDATE users SET mode = 4, timelim = 1 WHERE user_id = {id};";
const QByteArray kBoth =
    "UPDATE users SET mode = 5, traflim = 1, timelim = 1 WHERE user_id = {id};";
const QByteArray kPrePaid = "UPDATE users SET mode = 2 WHERE user_id = {id};";
const QByteArray kTrafficUsed =
    "INSERT INTO traffic_use (user_id, period, data) VALUES ({id}, 2, 1);";
const QByteArray kTimeUsed = "INSERT INTO time_use (user_id, period, data) VALUES ({id}, 2, 1);";
const QByteArray kNow = "INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
                        "({id}, {today}, '00:00', '23:59'), ({id}, {next}, '00.00', '23.59');";
const QByteArray kNotNow =
    "INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
    "({id}, {other}, '00:00:00', '23:59:00');";
const QByteArray kGrants = "UPDATE users SET timeaccess = 1 WHERE user_id = {id};";
const QByteArray kPickThis = "INSERT INTO port_blocked (user_id, port_id) VALUES ({id}, 1);";
const QByteArray kPickOther = "INSERT INTO port_blocked (user_id, port_id) VALUES ({id}, 3);";
const QByteArray kAllowsOnly = "UPDATE users SET portaccess = 1 WHERE user_id = {id};";
const QByteArray kNeedsLogin = "UPDATE users SET authreq = 1 WHERE user_id = {id};";

QByteArray Blocked(char reason)
{
    return QByteArray("UPDATE users SET blocked = 1, blockreason = ") + reason
        + " WHERE user_id = {id};";
}

QByteArray Credit(const QByteArray &lastDay)
{
    return "INSERT INTO billing (mode, object_id, data, expiredday) VALUES (2, {id}, 10, '"
        + lastDay + "');";
}

QByteArray HasHardware(quint64 hardware)
{
    return "UPDATE users SET mac_addr = '" + HardwareFrom(hardware).Text().toLatin1()
        + "' WHERE user_id = {id};";
}

QByteArray InGroup(int group)
{
    return "UPDATE users SET group_id = " + QByteArray::number(group) + " WHERE user_id = {id};";
}

// The groups with these numbers.
const QByteArray kGroups =
    "INSERT INTO groups (group_id, name, blocked, blockreason, mode, traflim, timeaccess) VALUES "
    "(101, 'blocked', 1, 3, 0, 0, 0), (102, 'limited', 0, 0, 1, 1, 0), (103, 'used up', 0, 0, 1, 1, 0), "
    "(104, 'paying', 0, 0, 2, 0, 0), (105, 'broke', 0, 0, 2, 0, 0), (106, 'closed', 0, 0, 0, 0, 1), "
    "(107, 'narrow', 0, 0, 0, 0, 0);"
    "INSERT INTO traffic_use (user_id, group_id, period, data) VALUES (0, 103, 2, 1);"
    "INSERT INTO billing (mode, group_id, data) VALUES (2, 104, 10);"
    "INSERT INTO time_blocked (group_id, dayofweek, timestart, timestop) VALUES "
    "(106, {other}, '08:00', '17:00');"
    "INSERT INTO port_blocked (group_id, port_id) VALUES (107, 1);";
constexpr size_t kBrokeGroup = 5; // which does not pay for members that have an account
constexpr size_t kNarrowGroup = 7; // which denies the one port that some of its members may use
constexpr size_t kOnlyThatPort = 1;
constexpr size_t kLoggedIn = 2;

// A block for what was used up is the service's own, and refuses by itself nobody who has something left.
const std::array<std::vector<Value>, PartCount> kParts {{
    {{"not blocked", ""},
     {"blocked for traffic", Blocked('1')},
     {"blocked for time", Blocked('2')},
     {"blocked by hand", Blocked('3'), true},
     {"marked and allowed", Blocked('4')}},
    {{"no control", ""},
     {"traffic left", kTraffic},
     {"traffic used up", kTraffic + kTrafficUsed, true},
     {"traffic used up, a credit left",
      kTraffic + kTrafficUsed
          + "INSERT INTO billing (mode, object_id, trafid, data) SELECT 1, {id}, traf_id, 10 FROM "
            "traffic_use WHERE user_id = {id};"},
     {"a credit left", kPrePaid + Credit("")},
     {"no credit", kPrePaid, true},
     {"an expired credit", kPrePaid + Credit("2020.01.31"), true},
     {"time left", kTime},
     {"time used up", kTime + kTimeUsed, true},
     {"traffic and time left", kBoth},
     {"of both traffic used up", kBoth + kTrafficUsed, true},
     {"of both time used up", kBoth + kTimeUsed, true}},
    {{"any time", ""},
     {"within granted time", kNow + kGrants},
     {"outside granted time", kNotNow + kGrants, true},
     {"within denied time", kNow, true},
     {"outside denied time", kNotNow}},
    {{"any port", ""},
     {"an allowed port", kPickThis + kAllowsOnly},
     {"a port beside allowed ones", kPickOther + kAllowsOnly, true},
     {"a denied port", kPickThis, true},
     {"a port beside denied ones", kPickOther}},
    {{"hardware not known", ""},
     {"the right hardware", HasHardware(kHardware)},
     {"other hardware", HasHardware(kHardware + 1), true}},
    {{"everybody", ""},
     {"blocked group", InGroup(101), true},
     {"limited group", InGroup(102)},
     {"used up group", InGroup(103), true},
     {"paying group", InGroup(104)},
     {"broke group", InGroup(105), true},
     {"group outside its time", InGroup(106), true},
     {"group denied the port", InGroup(107), true}},
    {{"no login needed", ""}, {"not logged in", kNeedsLogin, true}, {"logged in", kNeedsLogin}},
}};

// A user: which value each part has.
struct Row
{
    std::array<size_t, PartCount> values {};

    [[nodiscard]] const Value &Of(size_t part) const { return kParts[part][values[part]]; }

    [[nodiscard]] bool IsRefusedBy(size_t part) const
    {
        if (part == Group && values[Group] == kBrokeGroup && values[Account] != 0) {
            return false;
        }
        return Of(part).refuses;
    }

    [[nodiscard]] int Refusals() const
    {
        int refusals = 0;
        for (size_t part = 0; part < PartCount; ++part) {
            refusals += IsRefusedBy(part) ? 1 : 0;
        }
        return refusals;
    }

    // Whatever the packet: its port and its hardware address are its own.
    [[nodiscard]] bool IsRefusedAsAWhole() const
    {
        const bool isNarrow = values[Group] == kNarrowGroup;
        const bool nothingIsOpen = isNarrow && values[Ports] == kOnlyThatPort;
        return nothingIsOpen || IsRefusedBy(Reason) || IsRefusedBy(Account) || IsRefusedBy(Week)
            || (IsRefusedBy(Group) && !isNarrow) || IsRefusedBy(Login);
    }

    [[nodiscard]] std::string Name() const
    {
        std::string name;
        for (size_t part = 0; part < PartCount; ++part) {
            name += std::string(part == 0 ? "" : ", ") + Of(part).name;
        }
        return name;
    }
};

// One of so many rows: of those that nothing or one thing refuses, of those among them whose user logs in,
// and of the others.
struct Portion
{
    int ofClear = 0;
    int ofLogins = 0;
    int ofOthers = 0;
};

std::vector<Row> RowsIn(const Portion &portion)
{
    std::vector<Row> rows;
    Row row;
    std::map<int, int> passed; // by the portion
    for (size_t part = 0; part < PartCount;) {
        const int one = row.Refusals() > 1   ? portion.ofOthers
            : row.values[Login] == kLoggedIn ? portion.ofLogins
                                             : portion.ofClear;
        if (passed[one]++ % one == 0) {
            rows.push_back(row);
        }
        for (part = 0; part < PartCount && ++row.values[part] == kParts[part].size(); ++part) {
            row.values[part] = 0;
        }
    }
    return rows;
}

} // namespace

class ServiceVerdicts : public ServiceLab
{
protected:
    void SetUp() override
    {
        ServiceLab::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        WriteSettings("ControlMAC = \"1\"\n");
        const Visit visit(Lab(), Place::Workstations);
        ASSERT_TRUE(Links::Open().value().SetHardware(u"eth0"_s, kHardware));
    }

    // Users with ids from 1 on in one transaction.
    void AddUsers(const std::vector<Row> &table)
    {
        DirectConnection database;
        ASSERT_TRUE(database.Open(Dsn()) && database.Begin());
        const auto run = [&](const QByteArray &statements, quint32 id) {
            for (const QByteArray &each : Filled(statements, id).split(';')) {
                ASSERT_TRUE(each.isEmpty() || database.Run(Spelled(database, each)))
                    << each.constData() << ": " << qPrintable(database.Error());
            }
        };
        run(kGroups, 0);
        for (size_t i = 0; i < table.size(); ++i) {
            const auto id = static_cast<quint32>(i + 1);
            run("INSERT INTO users (user_id, username, ip_addr) VALUES ({id}, 'user {id}', '"
                    + Workstation(id).toLatin1() + "');",
                id);
            for (size_t part = 0; part < PartCount; ++part) {
                run(table[i].Of(part).statements, id);
            }
        }
        ASSERT_TRUE(database.Commit());
    }

    [[nodiscard]] static QString Spelled(DirectConnection &database, const QByteArray &statement)
    {
        return QString::fromStdString(Translate(database.Engine(), statement.toStdString()));
    }

    [[nodiscard]] static QByteArray Filled(QByteArray statements, quint32 id)
    {
        static const int today = QDate::currentDate().dayOfWeek();
        const auto day = [](int later) { return QByteArray::number((today - 1 + later) % 7 + 1); };
        return statements.replace("{id}", QByteArray::number(id))
            .replace("{today}", day(0))
            .replace("{next}", day(1))
            .replace("{other}", day(3));
    }

    [[nodiscard]] QDBusMessage Call(const QString &method, const QVariantList &arguments = {}) const
    {
        auto call = QDBusMessage::createMethodCall(u"org.tollbrook.Accounting"_s,
                                                   u"/org/tollbrook/Accounting"_s,
                                                   u"org.tollbrook.Status1"_s,
                                                   method);
        call.setArguments(arguments);
        // What the service tells meanwhile is read, or it would wait for that.
        const QDBusPendingCall answer = bus->Connection().asyncCall(call);
        static_cast<void>(QTest::qWaitFor([&answer] { return answer.isFinished(); }, kPatience));
        return answer.reply();
    }

    // Who is refused whatever the packet, as the service tells it.
    [[nodiscard]] std::set<uint> Refused() const
    {
        std::set<uint> users;
        const QDBusMessage answer = Call(u"Refused"_s);
        if (answer.type() != QDBusMessage::ReplyMessage) {
            return users; // it is busy
        }
        const auto argument = answer.arguments().value(0).value<QDBusArgument>();
        argument.beginArray();
        while (!argument.atEnd()) {
            uint user = 0;
            QString reason;
            argument.beginStructure();
            argument >> user >> reason;
            argument.endStructure();
            users.insert(user);
        }
        argument.endArray();
        return users;
    }

    // Which users' packets come, from them and to them.
    struct Passed
    {
        std::set<quint32> from;
        std::set<quint32> to;
    };

    [[nodiscard]] static Passed SendOneEach(quint32 users)
    {
        const auto here =
            MakeSocket(Lab(), Place::Workstations, Transport::Udp, {u"0.0.0.0"_s, kHerePort});
        const auto there = MakeSocket(Lab(), Place::Internet, Transport::Udp, {kThere, kTherePort});
        Passed passed;
        for (quint32 id = 1; id <= users; ++id) {
            EXPECT_TRUE(SendFrom(here, kNetwork + id, {kThere, kTherePort}, kPayload));
            EXPECT_EQ(SendDatagrams(there, {Workstation(id), kHerePort}, kPayload, 1), 1);
            if (id % kSentAtOnce == 0 || id == users) {
                for (const Arrival &each : TakeArrivals(there)) {
                    passed.from.insert(each.from - kNetwork);
                }
                for (const Arrival &each : TakeArrivals(here)) {
                    passed.to.insert(each.to - kNetwork);
                }
            }
        }
        return passed;
    }

    // Tells the users in which the two differ.
    static void ExpectSame(const std::set<quint32> &present,
                           const std::set<quint32> &expected,
                           const std::vector<Row> &table,
                           const char *what,
                           const char *is,
                           const char *isNot)
    {
        std::vector<quint32> wrong;
        std::ranges::set_symmetric_difference(present, expected, std::back_inserter(wrong));
        EXPECT_TRUE(wrong.empty()) << wrong.size() << ' ' << what;
        for (size_t i = 0; i < std::min<size_t>(wrong.size(), 10); ++i) {
            ADD_FAILURE() << "user " << wrong[i] << ' ' << what << ' '
                          << (present.contains(wrong[i]) ? is : isNot) << ": "
                          << table[wrong[i] - 1].Name();
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Engines, ServiceVerdicts, testing::Values("sqlite"), EngineName);

TEST_P(ServiceVerdicts, AreAsTheRulesSayForEachCombination)
{
    const std::vector<Row> table = RowsIn(IsLongRun() ? Portion {3, 7, 23} : Portion {17, 67, 389});
    const auto users = static_cast<quint32>(table.size());
    AddUsers(table);
    Passed expected;
    std::set<uint> refused;
    BytesByUser bytes;
    for (quint32 id = 1; id <= users; ++id) {
        const Row &row = table[id - 1];
        const bool receives = row.Refusals() - (row.IsRefusedBy(Hardware) ? 1 : 0) == 0;
        const bool sends = row.Refusals() == 0;
        if (sends) {
            expected.from.insert(id);
        }
        if (receives) { // whatever hardware it has, which a packet to it does not tell
            expected.to.insert(id);
            bytes[id] = {Ipv4Bytes(kPayload, 1), sends ? Ipv4Bytes(kPayload, 1) : 0};
        }
        if (row.IsRefusedAsAWhole()) {
            refused.insert(id);
        }
    }
    std::cout << users << " users, of whom " << expected.from.size() << " may send\n";
    // The neighbours are known before the packets come.
    EXPECT_TRUE(Ping(Lab(), Place::Gateway, u"10.76.0.1"_s, u"10.76.0.2"_s, 10));
    EXPECT_TRUE(Ping(Lab(), Place::Gateway, u"10.78.0.1"_s, u"10.78.0.2"_s, 10));
    Start();
    for (quint32 id = 1; id <= users; ++id) {
        if (table[id - 1].values[Login] == kLoggedIn) {
            EXPECT_EQ(Call(u"LogIn"_s, {id}).type(), QDBusMessage::ReplyMessage);
        }
    }
    const QDeadlineTimer patience(IsLongRun() ? 60 * kPatience : 3 * kPatience);
    while (Refused() != refused && !patience.hasExpired()) {
        QTest::qWait(50);
    }
    ExpectSame(Refused(), refused, table, "whatever the packet", "is refused", "is not");
    const Passed passed = SendOneEach(users);
    ExpectSame(passed.from, expected.from, table, "out", "passes", "does not");
    ExpectSame(passed.to, expected.to, table, "in", "passes", "does not");
    EXPECT_EQ(AwaitAccounted(bytes), bytes);
    EXPECT_EQ(Stop(), 0);
}
