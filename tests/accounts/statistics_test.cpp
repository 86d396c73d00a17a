#include "accounts/statistics.h"

#include "accounts/account_fixture.h"
#include "db/direct_connection.h"
#include "db/value_codes.h"
#include "support/core/statement_hook.h"

using namespace Qt::StringLiterals;

namespace {

class UsageFigures : public AccountFixture
{
protected:
    static UsageStatistics Read(const Owner &owner)
    {
        const auto statistics = ReadStatistics(owner);
        EXPECT_TRUE(statistics && *statistics);
        return statistics ? statistics->value_or(UsageStatistics()) : UsageStatistics();
    }

    static TrafficRecordId
    AddTraffic(const Owner &owner, UsagePeriod period, QDate day, double received, double sent)
    {
        Execute(owner.IsUser() ? "INSERT INTO traffic_use (user_id, period, current_time, data, "
                                 "senddata) VALUES ((?), (?), (?), (?), (?))"
                               : "INSERT INTO traffic_use (group_id, period, current_time, data, "
                                 "senddata) VALUES ((?), (?), (?), (?), (?))",
                owner.Number(),
                period,
                DayOf(day),
                received,
                sent);
        return NewestId<TrafficRecordId>("SELECT traf_id FROM traffic_use ORDER BY traf_id");
    }

    static TimeRecordId AddTime(UserId userId, QDate day, double hours)
    {
        Execute("INSERT INTO time_use (user_id, period, current_time, data) "
                "VALUES ((?), 1, (?), (?))",
                userId,
                DayOf(day),
                hours);
        return NewestId<TimeRecordId>("SELECT time_id FROM time_use ORDER BY time_id");
    }
};

TB_ON_EVERY_ENGINE(UsageFigures);

const auto kUser = u"SELECT trafperiod, timeperiod, mode FROM users WHERE user_id = (?)"_s;
const QStringList kUserTraffic {
    u"SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id = (?) and period = 1"_s,
    u"SELECT data, senddata FROM traffic_use WHERE traf_id = (?)"_s,
    u"SELECT usage FROM billing WHERE trafid = (?)"_s,
};
const QStringList kUserTime {
    u"SELECT time_id FROM time_use WHERE current_time = (?) and user_id = (?) and period = 1"_s,
    u"SELECT data FROM time_use WHERE time_id = (?)"_s,
    u"SELECT usage FROM billing WHERE time_id = (?)"_s,
};
const auto kUserOverall =
    u"SELECT data, senddata FROM traffic_use WHERE user_id = (?) and period = 0"_s;

TEST_P(UsageFigures, OfAUserReadWhatTheModeLimits)
{
    const std::pair<AccountingMode, QStringList> cases[] = {
        {AccountingMode::NoControl, {}},
        {AccountingMode::Traffic, kUserTraffic},
        {AccountingMode::Provider, {}},
        {AccountingMode::Time, kUserTime},
        {AccountingMode::TrafficAndTime, kUserTraffic + kUserTime},
    };
    for (const auto &[ownerMode, periodStatements] : cases) {
        const UserId user = AddUser(ownerMode);
        AddTraffic(user, UsagePeriod::Day, Today(), 1, 1);
        AddTime(user, Today(), 1);
        StatementRecorder recorder;
        const auto period = Read(user).period;
        EXPECT_EQ(recorder.Take(),
                  QStringList(kUser) + periodStatements + QStringList(kUserOverall));
        EXPECT_EQ(period.limitsTraffic, periodStatements.contains(kUserTraffic.at(1)));
        EXPECT_EQ(period.limitsTime, periodStatements.contains(kUserTime.at(1)));
    }
}

TEST_P(UsageFigures, OfAUserAddUpPeriodCreditsAndDays)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    const TrafficRecordId traffic = AddTraffic(user, UsagePeriod::Day, Today(), 120.5, 30.25);
    const TimeRecordId time = AddTime(user, Today(), 4.75);
    AddTraffic(user, UsagePeriod::Day, Today().addDays(-1), 999, 999);
    AddTime(user, Today().addDays(-1), 999);
    AddTraffic(user, UsagePeriod::Statistics, Today(), 120.5, 30.25);
    AddTraffic(user, UsagePeriod::Statistics, {2024, 2, 29}, 1000, 500);
    Execute("INSERT INTO billing (mode, object_id, trafid, usage) VALUES (1, (?), (?), 12.5)",
            user,
            traffic);
    Execute(
        "INSERT INTO billing (mode, object_id, trafid, usage, closed) VALUES (1, (?), (?), 7, 1)",
        user,
        traffic);
    Execute("INSERT INTO billing (mode, object_id, time_id, usage) VALUES (4, (?), (?), 1.5)",
            user,
            time);
    const auto [period, received, sent] = Read(user);
    EXPECT_DOUBLE_EQ(period.received.value, 120.5);
    EXPECT_DOUBLE_EQ(period.sent.value, 30.25);
    EXPECT_DOUBLE_EQ(period.hours.value, 4.75);
    EXPECT_DOUBLE_EQ(period.creditMegabytes.value, 19.5);
    EXPECT_DOUBLE_EQ(period.creditHours.value, 1.5);
    EXPECT_DOUBLE_EQ(received.value, 1120.5);
    EXPECT_DOUBLE_EQ(sent.value, 530.25);
}

TEST_P(UsageFigures, WithoutAPeriodRecordAreZero)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    AddCredit("mode, object_id, trafid, usage", "1, 4711, 0, 55");
    AddCredit("mode, object_id, time_id, usage", "4, 4711, 0, 55");
    const auto period = Read(user).period;
    EXPECT_DOUBLE_EQ(period.received.value + period.sent.value + period.hours.value, 0.0);
    EXPECT_DOUBLE_EQ(period.creditMegabytes.value + period.creditHours.value, 0.0)
        << "credits of others that were given without a record";
}

TEST_P(UsageFigures, OfAnOwnerThatIsGoneAreNone)
{
    for (const Owner &gone : {Owner(UserId {4711}), Owner(GroupId {4711})}) {
        const auto statistics = ReadStatistics(gone);
        ASSERT_TRUE(statistics);
        EXPECT_FALSE(*statistics);
    }
}

TEST_P(UsageFigures, OfAGroupCountEachDayOfItsMembersOnce)
{
    const GroupId group = AddGroup(AccountingMode::Traffic);
    const UserId first = AddUser(AccountingMode::Traffic);
    const UserId second = AddUser(AccountingMode::Traffic);
    const UserId other = AddUser(AccountingMode::Traffic);
    for (const auto &member : {first, second}) {
        Execute("UPDATE users SET group_id = (?) WHERE user_id = (?)", group, member);
        AddTraffic(member, UsagePeriod::Statistics, Today(), 10, 1);
        AddTraffic(member, UsagePeriod::Statistics, Today().addDays(-40), 0.5, 0.25);
        AddTraffic(member, UsagePeriod::Day, Today(), 10, 1);
        AddTraffic(member, UsagePeriod::Month, Today(), 100, 30);
    }
    for (const auto period : {UsagePeriod::Statistics, UsagePeriod::Day, UsagePeriod::Month}) {
        AddTraffic(other, period, Today(), 500, 500);
    }
    const TrafficRecordId record = AddTraffic(group, UsagePeriod::Month, Today(), 77, 66);
    Execute("INSERT INTO billing (mode, group_id, trafid, usage) VALUES (1, (?), (?), 5)",
            group,
            record);
    StatementRecorder recorder;
    const auto [period, received, sent] = Read(group);
    const auto member = u"SELECT data, senddata FROM traffic_use WHERE user_id = (?)"_s;
    EXPECT_EQ(
        recorder.Take(),
        (QStringList {u"SELECT user_id FROM users WHERE group_id = (?)"_s,
                      member,
                      member,
                      u"SELECT data, senddata FROM traffic_use WHERE user_id IN (SELECT user_id "
                      "FROM users WHERE group_id = (?)) and period <> 0"_s,
                      u"SELECT mode FROM groups WHERE group_id = (?)"_s,
                      u"SELECT trafperiod FROM groups WHERE group_id = (?) "_s,
                      u"SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2"_s,
                      u"SELECT data FROM traffic_use WHERE traf_id = (?)"_s,
                      u"SELECT usage FROM billing WHERE trafid = (?)"_s}));
    EXPECT_DOUBLE_EQ(received.value, 21.0);
    EXPECT_DOUBLE_EQ(sent.value, 2.5);
    EXPECT_DOUBLE_EQ(period.received.value, 77.0);
    EXPECT_DOUBLE_EQ(period.sent.value, 0.0);
    EXPECT_DOUBLE_EQ(period.creditMegabytes.value, 5.0);

    Execute("UPDATE groups SET mode = 2 WHERE group_id = (?)", group);
    EXPECT_FALSE(Read(group).period.limitsTraffic);
}

// What the service counts between the two reads is taken off without having been added.
TEST_P(UsageFigures, OfAGroupAreNeverBelowNothing)
{
    const GroupId group = AddGroup(AccountingMode::NoControl);
    const UserId member = AddUser(AccountingMode::Traffic);
    Execute("UPDATE users SET group_id = (?)", group);
    AddTraffic(member, UsagePeriod::Day, Today(), 10, 1);
    DirectConnection service;
    ASSERT_TRUE(service.Open(Dsn()));
    const StatementHook hook([&](const QString &statement) {
        if (statement.contains(u"period <> 0"_s)) {
            EXPECT_TRUE(service.Run(u"UPDATE traffic_use SET data = 12, senddata = 3"_s));
        }
    });
    const auto statistics = Read(group);
    EXPECT_DOUBLE_EQ(statistics.received.value, 0.0);
    EXPECT_DOUBLE_EQ(statistics.sent.value, 0.0);
}

TEST_P(UsageFigures, ThatCannotBeReadAreNotZero)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    const GroupId group = AddGroup(AccountingMode::Traffic);
    Execute("UPDATE users SET group_id = (?)", group);
    AddTraffic(user, UsagePeriod::Day, Today(), 1, 1);
    AddTraffic(group, UsagePeriod::Month, Today(), 1, 1);
    AddTime(user, Today(), 1);
    for (const Owner &owner : {Owner(user), Owner(group)}) {
        EXPECT_EQ(UntoldFailures(Dsn(), [&] { return ReadStatistics(owner).has_value(); }),
                  QStringList());
        EXPECT_EQ(UntoldFailures(Dsn(), [&] { return ReadDailyTraffic(owner).has_value(); }),
                  QStringList());
    }
}

TEST_P(UsageFigures, TipTellsWhatCreditsGave)
{
    PeriodUsage period;
    EXPECT_EQ(StatisticsTip(UserId {1}, period),
              u"This user has no limit within an accounting period."_s);
    EXPECT_EQ(StatisticsTip(GroupId {1}, period),
              u"This group has no limit within an accounting period."_s);
    period.limitsTraffic = true;
    period.limitsTime = true;
    period.creditMegabytes = Megabytes {12.5};
    EXPECT_EQ(StatisticsTip(UserId {1}, period),
              u"12.50 Mb of the data received in this accounting period were taken from credits. "
              "Nothing of the time on-line in this accounting period was taken from credits."_s);
}

TEST_P(UsageFigures, OfTheLastThirtyDaysLeaveNoDayOut)
{
    const GroupId group = AddGroup(AccountingMode::Traffic);
    const UserId first = AddUser(AccountingMode::Traffic);
    const UserId second = AddUser(AccountingMode::Traffic);
    for (const auto &member : {first, second}) {
        Execute("UPDATE users SET group_id = (?) WHERE user_id = (?)", group, member);
        AddTraffic(member, UsagePeriod::Statistics, Today(), 10, 1);
        AddTraffic(member, UsagePeriod::Statistics, Today().addDays(-29), 20, 2);
        AddTraffic(member, UsagePeriod::Statistics, Today().addDays(-30), 400, 400);
        AddTraffic(member, UsagePeriod::Day, Today(), 400, 400);
    }
    for (const auto &[owner, factor] :
         {std::pair(Owner(first), 1.0), std::pair(Owner(group), 2.0)}) {
        const auto read = ReadDailyTraffic(owner);
        ASSERT_TRUE(read);
        const auto &days = *read;
        ASSERT_EQ(days.size(), 30U);
        EXPECT_EQ(days.front().day, QDate(2026, 10, 23));
        EXPECT_EQ(days.back().day, Today());
        EXPECT_DOUBLE_EQ(days.front().received.value, 20 * factor);
        EXPECT_DOUBLE_EQ(days.back().sent.value, 1 * factor);
        EXPECT_DOUBLE_EQ(days[1].received.value + days[28].received.value, 0.0);
    }
}

} // namespace
