// Who may send what: read of everybody at once, as the rules say of each.
#include "metering/standing.h"

#include "access/user_rules.h"
#include "db/demo_data.h"
#include "metering/account.h"
#include "metering_fixture.h"

using namespace Qt::StringLiterals;

namespace {

const Moment kSaturdayNoon {{2026, 11, 21}, QTime(12, 0)};

class StandingsRead : public MeteringFixture
{
protected:
    static Standings ReadAllStandings(const QSet<UserId> &loggedIn = {},
                                      const Moment &moment = kSaturdayNoon)
    {
        const auto read = ReadStandings(moment, kPrices, loggedIn);
        EXPECT_TRUE(read) << (read ? "" : qPrintable(read.error().text));
        return read.value_or(Standings());
    }

    static Standing OfAnna(const Moment &moment = kSaturdayNoon)
    {
        const Standings all = ReadAllStandings({}, moment);
        EXPECT_EQ(all.users.size(), 3U);
        return all.users.empty() ? Standing() : all.users.front();
    }
};

} // namespace

TB_ON_EVERY_ENGINE(StandingsRead);

// Everybody of the demonstration at several moments, together and one by one.
TEST_P(StandingsRead, IsTheSameReadTogetherAndOneByOne)
{
    Run("DELETE FROM users");
    const auto problem = FillWithDemoData(Dsn(), {200, 6, 40}, [](const QString &) {});
    ASSERT_FALSE(problem) << qPrintable(*problem);
    QSet<FactKind> reasons;
    for (const Moment &moment : {kSaturdayNoon, Moment {{2026, 11, 23}, QTime(9, 30)}}) {
        const TodayOverride today(moment.day);
        const Standings all = ReadAllStandings({UserId {4}}, moment);
        EXPECT_GT(all.users.size(), 150U);
        for (const Standing &standing : all.users) {
            const auto one =
                ReadStanding(standing.user, moment, kPrices, standing.user == UserId {4});
            ASSERT_TRUE(one && *one);
            EXPECT_EQ((*one)->user, standing) << standing.user.value;
            if (standing.sharedGroup.IsSet()) {
                EXPECT_EQ((*one)->groupLeftBytes, all.groupLeftBytes.at(standing.sharedGroup));
            }
            reasons.insert(standing.why);
        }
    }
    EXPECT_GE(reasons.size(), 4);
}

TEST_P(StandingsRead, OfAnUnmonitoredUserIsNone)
{
    Set(kAnna, "monitored = false");
    EXPECT_EQ(ReadAllStandings().users.size(), 2U);
    const auto one = ReadStanding(kAnna, kSaturdayNoon, kPrices, false);
    ASSERT_TRUE(one);
    EXPECT_FALSE(*one);
}

// A table of what a row and its records leave.
TEST_P(StandingsRead, TellsWhatIsLeft)
{
    struct Case
    {
        const char *columns;
        const char *credit; // null: none
        bool refused;
        FactKind why;
        std::optional<quint64> bytes;
        std::optional<double> seconds;
    };
    constexpr quint64 kMb = 1 << 20;
    using enum FactKind;
    const Case cases[] = {
        {"mode = 0", nullptr, false, NothingWrong, {}, {}},
        {"mode = 1, traflim = 10, trafperiod = 1", nullptr, false, NothingWrong, 10 * kMb, {}},
        {"mode = 1, traflim = 0", nullptr, true, TrafficLimit, 0, {}},
        {"mode = 1, traflim = 1",
         "INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 0, 1, 2.5)",
         false,
         NothingWrong,
         7 * kMb / 2,
         {}},
        {"mode = 4, timelim = 2, timeperiod = 1", nullptr, false, NothingWrong, {}, 7200},
        {"mode = 5, traflim = 3, timelim = 0", nullptr, true, TimeLimit, 3 * kMb, 0},
        {"mode = 2", nullptr, true, PrePaid, 0, {}},
        {"mode = 2",
         "INSERT INTO billing (mode, object_id, data, usage, unlimited) VALUES (2, 1, 4, 1, 1)",
         false,
         NothingWrong,
         3 * kMb,
         {}},
        {"mode = 2",
         "INSERT INTO billing (mode, object_id, moneydata, moneyusage, unlimited) "
         "VALUES (2, 1, 4, 1, 1)",
         false,
         NothingWrong,
         6 * kMb,
         {}},
        {"mode = 2, own_price = true, trafprice = 0.25",
         "INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 1, 1)",
         false,
         NothingWrong,
         4 * kMb,
         {}},
        {"mode = 2, own_price = true, trafprice = 0",
         "INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 1, 1)",
         false,
         NothingWrong,
         {},
         {}},
        {"mode = 2",
         "INSERT INTO billing (mode, object_id, unlimited) VALUES (2, 1, 1)",
         false,
         NothingWrong,
         {},
         {}},
        {"mode = 2",
         "INSERT INTO billing (mode, object_id, data, unlimited, expiredday) "
         "VALUES (2, 1, 4, 0, '2026.11.20')",
         true,
         PrePaid,
         0,
         {}},
        {"mode = 2",
         "INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, 1, 0.0000005, 1)",
         true,
         PrePaid,
         0,
         {}}, // less than a byte
        {"blocked = true, blockreason = 3", nullptr, true, AdministratorBlock, {}, {}},
        {"blocked = true, blockreason = 1", nullptr, false, NothingWrong, {}, {}},
        {"blocked = true, blockreason = 2", nullptr, false, NothingWrong, {}, {}},
        {"blocked = true, blockreason = 4", nullptr, false, NothingWrong, {}, {}},
        {"blocked = true, blockreason = 0", nullptr, true, ServiceBlock, {}, {}},
        {"authreq = 1", nullptr, true, Login, {}, {}},
    };
    for (const Case &each : cases) {
        Run("DELETE FROM billing");
        Set(kAnna, "mode = 0, blocked = false, blockreason = 0, authreq = 0, own_price = false");
        Set(kAnna, each.columns);
        if (each.credit != nullptr) {
            Run(each.credit);
        }
        const Standing anna = OfAnna();
        EXPECT_EQ(anna.refused, each.refused) << each.columns;
        EXPECT_EQ(anna.why, each.why) << each.columns;
        EXPECT_EQ(anna.leftBytes, each.bytes) << each.columns;
        EXPECT_EQ(anna.leftSeconds, each.seconds) << each.columns;
    }
}

TEST_P(StandingsRead, WhoHasProvedWhoItIsMaySend)
{
    Set(kAnna, "authreq = 1");
    const Standings all = ReadAllStandings({kAnna});
    EXPECT_FALSE(all.users.front().refused);
    EXPECT_TRUE(all.users.front().authRequired);
}

TEST_P(StandingsRead, AGroupsBoundIsShared)
{
    SetGroup("mode = 1, traflim = 10, trafperiod = 1");
    CountFor(kBert, {4});
    Standings all = ReadAllStandings();
    EXPECT_EQ(all.groupLeftBytes.at(kEverybodyGroup), 6U << 20);
    EXPECT_EQ(all.users.front().sharedGroup, kEverybodyGroup);
    EXPECT_FALSE(all.users.front().leftBytes);
    CountFor(kBert, {6});
    all = ReadAllStandings();
    EXPECT_TRUE(all.users.front().refused && all.users.front().whyOfGroup);
    EXPECT_EQ(all.users.front().why, FactKind::TrafficLimit);
    EXPECT_TRUE(all.groups.at(kEverybodyGroup).usedUp);
    SetGroup("blockreason = 3");
    EXPECT_EQ(OfAnna().why, FactKind::GroupBlock);
}

TEST_P(StandingsRead, APrePaidGroupBindsMembersWithoutAnAccount)
{
    SetGroup("mode = 2");
    Run("INSERT INTO billing (mode, group_id, moneydata, unlimited) VALUES (2, 80, 1, 1)");
    Set(kBert, "mode = 1, traflim = 10");
    const Standings all = ReadAllStandings();
    EXPECT_EQ(all.groupLeftBytes.at(kEverybodyGroup), 2U << 20);
    EXPECT_EQ(all.users[0].sharedGroup, kEverybodyGroup);
    EXPECT_FALSE(all.users[1].sharedGroup.IsSet());
}

TEST_P(StandingsRead, PortsOfUserAndGroupBothHold)
{
    const auto pick = [](const char *owner, quint32 port) {
        const QByteArray insert = QByteArray("INSERT INTO port_blocked (") + owner
            + ", port_id) SELECT (?), port_id FROM ports WHERE port_number = (?)";
        Execute(insert.constData(), owner[0] == 'u' ? 1U : 80U, port);
    };
    EXPECT_TRUE(OfAnna().ports.empty());
    pick("user_id", 443);
    pick("user_id", 80);
    Standing anna = OfAnna();
    EXPECT_FALSE(anna.portsAllowOnly);
    EXPECT_EQ(anna.ports, (std::vector<quint16> {80, 443}));
    pick("group_id", 80);
    pick("group_id", 25);
    EXPECT_EQ(OfAnna().ports, (std::vector<quint16> {25, 80, 443}));
    Set(kAnna, "portaccess = true"); // these alone, less what the group may not
    anna = OfAnna();
    EXPECT_TRUE(anna.portsAllowOnly);
    EXPECT_EQ(anna.ports, std::vector<quint16> {443});
    SetGroup("portaccess = true"); // what both may
    EXPECT_EQ(OfAnna().ports, std::vector<quint16> {80});
    Set(kAnna, "portaccess = false");
    EXPECT_EQ(OfAnna().ports, std::vector<quint16> {25});
    Run("DELETE FROM port_blocked WHERE user_id = 1");
    Set(kAnna, "portaccess = true");
    pick("user_id", 22);
    anna = OfAnna();
    EXPECT_TRUE(anna.refused) << "nothing is open";
    EXPECT_EQ(anna.why, FactKind::Protocols);
}

TEST_P(StandingsRead, TellsWhenATimeOfTheWeekChanges)
{
    EXPECT_EQ(ReadAllStandings().nextChange, QDateTime(QDate(2026, 11, 22), QTime(0, 0)));
    Run("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) "
        "VALUES (1, 6, '08.30', '23:00:00')");
    EXPECT_EQ(ReadAllStandings().nextChange, QDateTime(QDate(2026, 11, 21), QTime(23, 0)));
    Run("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) "
        "VALUES (2, 6, '08.30', '21:00:00')");
    EXPECT_EQ(ReadAllStandings().nextChange, QDateTime(QDate(2026, 11, 21), QTime(21, 0)));
    Run("INSERT INTO time_blocked (group_id, dayofweek, timestart, timestop) "
        "VALUES (80, 6, '08.30', '20:15:00')");
    const Standings all = ReadAllStandings();
    EXPECT_EQ(all.nextChange, QDateTime(QDate(2026, 11, 21), QTime(20, 15)));
    EXPECT_TRUE(all.users.front().refused);
    EXPECT_EQ(all.users.front().why, FactKind::TimesOfWeek);
    EXPECT_FALSE(all.users.front().whyOfGroup);
    EXPECT_TRUE(all.users.back().refused && all.users.back().whyOfGroup);
}

TEST_P(StandingsRead, FailsWhereATableCannotBeRead)
{
    for (const char *table : {"users",
                              "groups",
                              "traffic_use",
                              "time_use",
                              "billing",
                              "time_blocked",
                              "port_blocked"}) {
        if (Engine() != u"sqlite"_s) {
            break; // the tables of the servers are used again
        }
        const QByteArray name(table);
        Run("ALTER TABLE \"" + name + "\" RENAME TO away");
        EXPECT_FALSE(ReadStandings(kSaturdayNoon, kPrices, {})) << table;
        Run("ALTER TABLE away RENAME TO \"" + name + "\"");
        EXPECT_TRUE(ReadStandings(kSaturdayNoon, kPrices, {})) << table;
    }
}
