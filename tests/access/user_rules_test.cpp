// What access is decided by, as it is read from the database, the same on every engine.
#include "access/user_rules.h"

#include "base/day.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

const Moment kNow {{2026, 11, 22}, QTime(12, 0)};
constexpr double kPrice = 2.5;

class UserRulesRead : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name) VALUES (90, 'Office')");
        Execute("INSERT INTO users (user_id, username, group_id) VALUES (1, 'anna', 90)");
    }

    static UserRules Read(const Moment &now = kNow)
    {
        const auto read = ReadUserRules(UserId {1}, now, kPrice);
        EXPECT_TRUE(read && *read) << (read ? "gone" : qPrintable(read.error().text));
        return read && *read ? (*read)->rules : UserRules();
    }

    static Verdict Decided() { return DecideAccess(Read(), kNow).verdict; }
};

} // namespace

TB_ON_EVERY_ENGINE(UserRulesRead);

TEST_P(UserRulesRead, ANewUserMaySend)
{
    const UserRules user = Read();
    EXPECT_TRUE(user.monitored);
    EXPECT_TRUE(user.group);
    EXPECT_EQ(user.own.price, kPrice);
    EXPECT_EQ(Decided(), Verdict::MaySend);
}

TEST_P(UserRulesRead, TellsNameAndGroup)
{
    const auto read = ReadUserRules(UserId {1}, kNow, kPrice);
    ASSERT_TRUE(read && *read);
    EXPECT_EQ((*read)->name, u"anna"_s);
    EXPECT_EQ((*read)->groupId, GroupId {90});
}

TEST_P(UserRulesRead, TellsAUserThatIsGone)
{
    const auto read = ReadUserRules(UserId {77}, kNow, kPrice);
    ASSERT_TRUE(read);
    EXPECT_FALSE(*read);
}

TEST_P(UserRulesRead, EachFlagIsItsOwn)
{
    Execute("UPDATE users SET blocked = true, blockreason = 2, authreq = 1, portaccess = true, "
            "timeaccess = true, timeblocked = true, own_price = true, trafprice = 0.5 "
            "WHERE user_id = 1");
    Execute("UPDATE groups SET blocked = true, blockreason = 3, portaccess = true "
            "WHERE group_id = 90");
    Execute("INSERT INTO logins (login, userid) VALUES ('a', 1), ('b', 1), ('c', 2)");
    const UserRules user = Read();
    EXPECT_EQ(user.own.block, (StoredBlock {true, BlockReason::TimeUsedUp}));
    EXPECT_EQ(user.group->block, (StoredBlock {true, BlockReason::Administrator}));
    EXPECT_TRUE(user.authRequired);
    EXPECT_TRUE(user.own.ports.allowOnly);
    EXPECT_TRUE(user.own.times.grant);
    EXPECT_TRUE(user.timeBlocked);
    EXPECT_TRUE(user.group->ports.allowOnly);
    EXPECT_FALSE(user.group->times.grant);
    EXPECT_EQ(user.own.price, 0.5);
    EXPECT_EQ(user.group->price, kPrice);
    EXPECT_EQ(user.logins, 2);
}

TEST_P(UserRulesRead, OfAnUnmonitoredUserNothingElseIsRead)
{
    Execute("UPDATE users SET monitored = false WHERE user_id = 1");
    Execute("INSERT INTO logins (login, userid) VALUES ('a', 1)");
    const UserRules user = Read();
    EXPECT_FALSE(user.monitored);
    EXPECT_FALSE(user.group);
    EXPECT_EQ(user.logins, 0);
}

TEST_P(UserRulesRead, AMonthsLimitAndItsCredits)
{
    Execute("UPDATE users SET mode = 1, traflim = 500, trafperiod = 2 WHERE user_id = 1");
    Execute(
        "INSERT INTO traffic_use (traf_id, user_id, period, current_time, data, blocked) VALUES "
        "(1, 1, 2, (?), 512.5, 1), (2, 1, 1, (?), 7, 0), (3, 2, 2, (?), 8, 0)",
        DayOf(kNow.day.addDays(-20)),
        DayOf(kNow.day),
        DayOf(kNow.day));
    Execute(
        "INSERT INTO billing (mode, object_id, trafid, data, usage, closed, expiredday) VALUES "
        "(1, 1, 1, 100, 40, 0, '2026.12.01'), (1, 1, 0, 5, 0, 0, ''), (1, 1, 1, 200, 0, 1, ''), "
        "(1, 1, 2, 200, 0, 0, ''), (1, 2, 1, 200, 0, 0, ''), (4, 1, 1, 200, 0, 0, '')");
    const LimitRules<Megabytes> expected {
        Megabytes {500},
        LimitPeriod::Month,
        CountedUse<Megabytes> {Megabytes {512.5}, true, kNow.day.addDays(-20)},
        {{Megabytes {100}, Megabytes {40}, {false, u"2026.12.01"_s}},
         {Megabytes {5}, {}, {false, {}}}}};
    EXPECT_EQ(Read().own.traffic, expected);
    EXPECT_EQ(Decided(), Verdict::MaySend);
}

TEST_P(UserRulesRead, ADaysLimitIsOfTheDayThatIsHandedIn)
{
    Execute("UPDATE users SET mode = 5, traflim = 5, trafperiod = 1, timelim = 2, timeperiod = 1 "
            "WHERE user_id = 1");
    Execute("INSERT INTO traffic_use (user_id, period, current_time, data) VALUES "
            "(1, 1, (?), 6), (1, 1, (?), 1)",
            DayOf(kNow.day.addDays(-1)),
            DayOf(kNow.day));
    Execute("INSERT INTO time_use (time_id, user_id, period, current_time, data, blocked) VALUES "
            "(4, 1, 1, (?), 1.5, 0)",
            DayOf(kNow.day));
    Execute("INSERT INTO billing (mode, object_id, time_id, data) VALUES (4, 1, 4, 3)");
    EXPECT_EQ(Read().own.traffic.use->used, Megabytes {1});
    EXPECT_EQ(Read({kNow.day.addDays(-1), QTime(23, 59)}).own.traffic.use->used, Megabytes {6});
    EXPECT_FALSE(Read({kNow.day.addDays(1), QTime(0, 0)}).own.traffic.use);
    EXPECT_EQ(Read().own.time.use, (CountedUse<Hours> {Hours {1.5}, false, kNow.day}));
    EXPECT_EQ(Read().own.time.credits.size(), 1U);
    EXPECT_EQ(Decided(), Verdict::MaySend);
}

TEST_P(UserRulesRead, PrePaidCreditsThatAreOpen)
{
    Execute("UPDATE users SET mode = 2 WHERE user_id = 1");
    Execute("INSERT INTO billing (mode, object_id, data, usage, moneydata, moneyusage, unlimited, "
            "expiredday, closed) VALUES (2, 1, 10, 4, NULL, 0, 0, '2026.11.21', 0), "
            "(2, 1, NULL, 1, 8, 3, 1, '', 0), (2, 1, 99, 0, NULL, 0, 1, '', 1)");
    EXPECT_EQ(Read().own.credits.size(), 2U);
    const auto findings = DecideAccess(Read(), kNow);
    EXPECT_EQ(std::get<PrePaidFact>(findings.facts.front().values),
              (PrePaidFact {false, {}, BaseUnits {5}, {1, kNow.day.addDays(-1)}, {}}));
}

TEST_P(UserRulesRead, TheGroupsLimitAndCredits)
{
    Execute("UPDATE groups SET mode = 1, traflim = 1000, trafperiod = 0 WHERE group_id = 90");
    Execute("INSERT INTO traffic_use (traf_id, group_id, period, current_time, data) VALUES "
            "(1, 90, 2, (?), 1000)",
            DayOf(kNow.day));
    EXPECT_EQ(Decided(), Verdict::MayNotSend);
    Execute("UPDATE groups SET trafperiod = 1 WHERE group_id = 90");
    EXPECT_EQ(Decided(), Verdict::MaySend) << "nothing was used today";
    Execute("UPDATE groups SET trafperiod = 0 WHERE group_id = 90");
    Execute("INSERT INTO billing (mode, group_id, trafid, data) VALUES (1, 90, 1, 3)");
    EXPECT_EQ(Decided(), Verdict::MaySend);
    Execute("UPDATE groups SET mode = 2 WHERE group_id = 90");
    EXPECT_EQ(Decided(), Verdict::MayNotSend);
    Execute("INSERT INTO billing (mode, group_id, data) VALUES (2, 90, 3)");
    EXPECT_EQ(Decided(), Verdict::MaySend);
}

TEST_P(UserRulesRead, TimesAndProtocolsOfUserAndGroup)
{
    Execute("INSERT INTO time_blocked (user_id, group_id, dayofweek, timestart, timestop) VALUES "
            "(1, NULL, 7, '08:00:00', '13:00:00'), (NULL, 90, 7, '09.00', '10.00'), "
            "(2, NULL, 7, '00:00', '23:59')");
    Execute("INSERT INTO port_blocked (user_id, group_id, port_id) VALUES (1, NULL, 1), "
            "(1, NULL, 2), (1, NULL, 4), (NULL, 90, 18), (2, NULL, 6)");
    const UserRules user = Read();
    ASSERT_EQ(user.own.times.ranges.size(), 1U);
    EXPECT_EQ(user.own.times.ranges.front(), (TimeRange {7, u"08:00:00"_s, u"13:00:00"_s}));
    ASSERT_EQ(user.group->times.ranges.size(), 1U);
    EXPECT_EQ(user.own.ports.picked, QStringList({u"FTP"_s, u"HTTP"_s}));
    EXPECT_EQ(user.group->ports.picked, QStringList({u"Remote Desktop"_s}));
    EXPECT_EQ(Decided(), Verdict::MayNotSend);
}

TEST_P(UserRulesRead, AUserWhoseGroupIsGone)
{
    Execute("UPDATE users SET group_id = 91 WHERE user_id = 1");
    EXPECT_FALSE(Read().group);
    EXPECT_EQ(Decided(), Verdict::MaySend);
}

// Nothing that could not be read is taken for nothing there.
TEST_P(UserRulesRead, FailsWhenAnythingCannotBeRead)
{
    Execute("UPDATE users SET mode = 5 WHERE user_id = 1");
    Execute("UPDATE groups SET mode = 2 WHERE group_id = 90");
    for (const char *table : {"users",
                              "groups",
                              "traffic_use",
                              "time_use",
                              "billing",
                              "time_blocked",
                              "port_blocked",
                              "logins"}) {
        const QByteArray name = table;
        const QByteArray hide = "ALTER TABLE " + name + " RENAME TO away";
        const QByteArray bring = "ALTER TABLE away RENAME TO " + name;
        RunBeside(hide.constData());
        EXPECT_FALSE(ReadUserRules(UserId {1}, kNow, kPrice)) << table;
        RunBeside(bring.constData());
    }
    EXPECT_TRUE(ReadUserRules(UserId {1}, kNow, kPrice));
}
