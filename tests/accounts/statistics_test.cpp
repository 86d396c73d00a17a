#include "accounts/statistics.h"

#include "accounts/account_fixture.h"
#include "db/value_codes.h"

using namespace Qt::StringLiterals;

namespace {

class UsageFigures : public AccountFixture
{
protected:
    static quint32
    AddTraffic(const Owner &owner, quint32 usagePeriod, QDate day, double received, double sent)
    {
        Execute(owner.IsUser() ? "INSERT INTO traffic_use (user_id, period, current_time, data, "
                                 "senddata) VALUES ((?), (?), (?), (?), (?))"
                               : "INSERT INTO traffic_use (group_id, period, current_time, data, "
                                 "senddata) VALUES ((?), (?), (?), (?), (?))",
                owner.id,
                usagePeriod,
                DayOf(day),
                received,
                sent);
        return NewestId("SELECT traf_id FROM traffic_use ORDER BY traf_id");
    }

    static quint32 AddTime(quint32 userId, QDate day, double hours)
    {
        Execute("INSERT INTO time_use (user_id, period, current_time, data) "
                "VALUES ((?), 1, (?), (?))",
                userId,
                DayOf(day),
                hours);
        return NewestId("SELECT time_id FROM time_use ORDER BY time_id");
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
    const std::pair<quint32, QStringList> cases[] = {
        {mode::kNoControl, {}},
        {mode::kTraffic, kUserTraffic},
        {mode::kProvider, {}},
        {mode::kTime, kUserTime},
        {mode::kTrafficAndTime, kUserTraffic + kUserTime},
    };
    for (const auto &[ownerMode, periodStatements] : cases) {
        const Owner user = AddUser(ownerMode);
        AddTraffic(user, usage_period::kDay, Today(), 1, 1);
        AddTime(user.id, Today(), 1);
        StatementRecorder recorder;
        const auto period = ReadUserStatistics(user.id).period;
        EXPECT_EQ(recorder.Take(),
                  QStringList(kUser) + periodStatements + QStringList(kUserOverall));
        EXPECT_EQ(period.limitsTraffic, periodStatements.contains(kUserTraffic.at(1)));
        EXPECT_EQ(period.limitsTime, periodStatements.contains(kUserTime.at(1)));
    }
}

TEST_P(UsageFigures, OfAUserAddUpPeriodCreditsAndDays)
{
    const Owner user = AddUser(mode::kTrafficAndTime);
    const quint32 traffic = AddTraffic(user, usage_period::kDay, Today(), 120.5, 30.25);
    const quint32 time = AddTime(user.id, Today(), 4.75);
    AddTraffic(user, usage_period::kDay, Today().addDays(-1), 999, 999);
    AddTime(user.id, Today().addDays(-1), 999);
    AddTraffic(user, usage_period::kStatistics, Today(), 120.5, 30.25);
    AddTraffic(user, usage_period::kStatistics, {2024, 2, 29}, 1000, 500);
    Execute("INSERT INTO billing (mode, object_id, trafid, usage) VALUES (1, (?), (?), 12.5)",
            user.id,
            traffic);
    Execute(
        "INSERT INTO billing (mode, object_id, trafid, usage, closed) VALUES (1, (?), (?), 7, 1)",
        user.id,
        traffic);
    Execute("INSERT INTO billing (mode, object_id, time_id, usage) VALUES (4, (?), (?), 1.5)",
            user.id,
            time);
    const auto [period, received, sent] = ReadUserStatistics(user.id);
    EXPECT_DOUBLE_EQ(period.received, 120.5);
    EXPECT_DOUBLE_EQ(period.sent, 30.25);
    EXPECT_DOUBLE_EQ(period.hours, 4.75);
    EXPECT_DOUBLE_EQ(period.creditMegabytes, 19.5);
    EXPECT_DOUBLE_EQ(period.creditHours, 1.5);
    EXPECT_DOUBLE_EQ(received, 1120.5);
    EXPECT_DOUBLE_EQ(sent, 530.25);
}

TEST_P(UsageFigures, WithoutAPeriodRecordAreZero)
{
    const Owner user = AddUser(mode::kTrafficAndTime);
    AddCredit("mode, object_id, trafid, usage", "1, 4711, 0, 55");
    AddCredit("mode, object_id, time_id, usage", "4, 4711, 0, 55");
    const auto period = ReadUserStatistics(user.id).period;
    EXPECT_DOUBLE_EQ(period.received + period.sent + period.hours, 0.0);
    EXPECT_DOUBLE_EQ(period.creditMegabytes + period.creditHours, 0.0)
        << "credits of others that were given without a record";
    EXPECT_DOUBLE_EQ(ReadUserStatistics(4711).received, 0.0);
    EXPECT_DOUBLE_EQ(ReadGroupStatistics(4711).received, 0.0);
}

TEST_P(UsageFigures, OfAGroupAddUpEveryRecordOfItsMembers)
{
    const Owner group = AddGroup(mode::kTraffic);
    const Owner first = AddUser(mode::kTraffic);
    const Owner second = AddUser(mode::kTraffic);
    const Owner other = AddUser(mode::kTraffic);
    for (const auto &member : {first, second}) {
        Execute("UPDATE users SET group_id = (?) WHERE user_id = (?)", group.id, member.id);
        AddTraffic(member, usage_period::kStatistics, Today(), 10, 1);
        AddTraffic(member, usage_period::kDay, Today(), 10, 1);
    }
    AddTraffic(other, usage_period::kStatistics, Today(), 500, 500);
    const quint32 record = AddTraffic(group, usage_period::kMonth, Today(), 77, 66);
    Execute("INSERT INTO billing (mode, group_id, trafid, usage) VALUES (1, (?), (?), 5)",
            group.id,
            record);
    StatementRecorder recorder;
    const auto [period, received, sent] = ReadGroupStatistics(group.id);
    const auto member = u"SELECT data, senddata FROM traffic_use WHERE user_id = (?)"_s;
    EXPECT_EQ(
        recorder.Take(),
        (QStringList {u"SELECT user_id FROM users WHERE group_id = (?)"_s,
                      member,
                      member,
                      u"SELECT mode FROM groups WHERE group_id = (?)"_s,
                      u"SELECT trafperiod FROM groups WHERE group_id = (?) "_s,
                      u"SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2"_s,
                      u"SELECT data FROM traffic_use WHERE traf_id = (?)"_s,
                      u"SELECT usage FROM billing WHERE trafid = (?)"_s}));
    EXPECT_DOUBLE_EQ(received, 40.0) << "of every period";
    EXPECT_DOUBLE_EQ(sent, 4.0);
    EXPECT_DOUBLE_EQ(period.received, 77.0);
    EXPECT_DOUBLE_EQ(period.creditMegabytes, 5.0);

    Execute("UPDATE groups SET mode = 2 WHERE group_id = (?)", group.id);
    EXPECT_FALSE(ReadGroupStatistics(group.id).period.limitsTraffic);
}

TEST_P(UsageFigures, TipTellsWhatCreditsGave)
{
    PeriodUsage period;
    EXPECT_EQ(StatisticsTip(UserOwner(1), period),
              u"This user has no limit within an accounting period."_s);
    EXPECT_EQ(StatisticsTip(GroupOwner(1), period),
              u"This group has no limit within an accounting period."_s);
    period.limitsTraffic = true;
    period.limitsTime = true;
    period.creditMegabytes = 12.5;
    EXPECT_EQ(StatisticsTip(UserOwner(1), period),
              u"12.50 Mb of the data received in this accounting period were taken from credits. "
              "Nothing of the time on-line in this accounting period was taken from credits."_s);
}

TEST_P(UsageFigures, OfTheLastThirtyDaysLeaveNoDayOut)
{
    const Owner group = AddGroup(mode::kTraffic);
    const Owner first = AddUser(mode::kTraffic);
    const Owner second = AddUser(mode::kTraffic);
    for (const auto &member : {first, second}) {
        Execute("UPDATE users SET group_id = (?) WHERE user_id = (?)", group.id, member.id);
        AddTraffic(member, usage_period::kStatistics, Today(), 10, 1);
        AddTraffic(member, usage_period::kStatistics, Today().addDays(-29), 20, 2);
        AddTraffic(member, usage_period::kStatistics, Today().addDays(-30), 400, 400);
        AddTraffic(member, usage_period::kDay, Today(), 400, 400);
    }
    for (const auto &[owner, factor] : {std::pair(first, 1.0), std::pair(group, 2.0)}) {
        const auto days = ReadDailyTraffic(owner);
        ASSERT_EQ(days.size(), 30U);
        EXPECT_EQ(days.front().day, QDate(2026, 10, 23));
        EXPECT_EQ(days.back().day, Today());
        EXPECT_DOUBLE_EQ(days.front().received, 20 * factor);
        EXPECT_DOUBLE_EQ(days.back().sent, 1 * factor);
        EXPECT_DOUBLE_EQ(days[1].received + days[28].received, 0.0);
    }
}

} // namespace
