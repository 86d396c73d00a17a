// What the sheets leave in the rows, the same on every database engine.
#include "access/many_users.h"
#include "db/failure_log.h"
#include "db/value_codes.h"
#include "running.h"
#include "support/core/engine_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SheetRows : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name) VALUES (81, 'Office')");
        Execute("INSERT INTO users (user_id, username, group_id, ip_addr, mac_addr) VALUES "
                "(1, 'anna', 81, '10.0.0.1', '000000000001'), "
                "(2, 'bert', 81, '10.0.0.2', '000000000002'), "
                "(9, 'zoe', 80, '10.0.0.9', '000000000009')");
        failures = FailureLog::Instance().Count();
    }

    void TearDown() override
    {
        EXPECT_EQ(FailureLog::Instance().Count(), failures) << "a statement failed";
        EngineFixture::TearDown();
    }

    // Says Yes to what is asked, `questions` of them.
    static void Store(const Action &action, qsizetype questions = 0)
    {
        const Ran ran = RunAnswering(action, true);
        EXPECT_TRUE(ran.IsDone()) << qPrintable(InWords(action.id, ran.outcome));
        EXPECT_EQ(ran.asked.size(), questions);
    }

    static UserRecord User() { return LoadUser(UserId {1}).value().value(); }
    static GroupRecord Group() { return LoadGroup(GroupId {81}).value().value(); }

    qsizetype failures = 0;
};

} // namespace

TB_ON_EVERY_ENGINE(SheetRows);

TEST_P(SheetRows, OfAUserWithEverythingChanged)
{
    Execute("UPDATE users SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
            "WHERE user_id = 1");
    Execute("INSERT INTO traffic_use (user_id, period, data, blocked) VALUES (1, 2, 150.5, 1)");
    Execute("INSERT INTO time_use (user_id, period, data, blocked) VALUES (1, 2, 7.5, 1)");
    Execute("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
            "(1, 2, '08:00:00', '09:00:00')");
    UserRecord record = User();
    record.draft.fullName = u"Zoë Brøgger"_s;
    record.draft.groupId = kEverybodyGroup;
    record.draft.ipAddress = u"10.0.0.2"_s;
    record.draft.macAddress = u"ZZZZZZZZZZZZ"_s;
    record.times.Rebuild(ReadTimeRanges(record.Self()).value());
    record.times.Delete(0);
    record.times.Add({7, u"10:00:00"_s, u"11:30:00"_s});
    record.times.grant = true;
    record.protocols.allow = true;
    record.protocols.Select(u"FTP"_s, true);
    record.draft.authRequired = true;
    record.draft.mode = AccountingMode::TrafficAndTime;
    record.limits.traffic = WholeMegabytes {200};
    record.limits.time = WholeHours {8};
    Store(UserAction(record), 1);
    EXPECT_THAT(RowsOf("SELECT user_id, fullname, group_id, ip_addr, mac_addr, timeaccess, "
                       "portaccess, authreq, mode, traflim, timelim, blocked FROM users "
                       "WHERE user_id <> 9"),
                ElementsAre(u"1|Zoë Brøgger|80|10.0.0.2|ZZZZZZZZZZZZ|1|1|1|5|200|8|0"_s));
    EXPECT_THAT(RowsOf("SELECT blocked FROM traffic_use"), ElementsAre(u"0"_s));
    EXPECT_THAT(RowsOf("SELECT blocked FROM time_use"), ElementsAre(u"0"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, dayofweek, timestart, timestop FROM time_blocked"),
                ElementsAre(u"1|7|10:00:00|11:30:00"_s));
    EXPECT_THAT(RowsOf("SELECT p.port_number FROM port_blocked b, ports p "
                       "WHERE b.port_id = p.port_id AND b.user_id = 1 ORDER BY p.port_number"),
                ElementsAre(u"20"_s, u"21"_s));
}

TEST_P(SheetRows, OfAUserInTheOtherModes)
{
    UserRecord record = User();
    record.draft.mode = AccountingMode::Provider;
    record.limits.ownPrice = true;
    record.limits.price = 2.25;
    Store(UserAction(record));
    EXPECT_THAT(RowsOf("SELECT mode, own_price FROM users WHERE user_id = 1 AND trafprice = 2.25"),
                ElementsAre(u"2|1"_s));
    Execute("UPDATE users SET blocked = 1, blockreason = 2, group_id = 999 WHERE user_id = 1");
    record = User();
    EXPECT_EQ(record.base.userName, u"anna"_s);
    record.draft.mode = AccountingMode::NoControl;
    Store(UserAction(record));
    EXPECT_THAT(RowsOf("SELECT mode, blocked, group_id FROM users WHERE user_id = 1"),
                ElementsAre(u"0|0|999"_s));
    record = User();
    record.draft.mode = AccountingMode::Time;
    record.limits.time = WholeHours {3};
    record.block.requested = true;
    Store(UserAction(record));
    EXPECT_THAT(RowsOf("SELECT mode, timelim, blocked, blockreason FROM users WHERE user_id = 1"),
                ElementsAre(u"4|3|1|3"_s));
}

// Each limit has a period of its own, and a sheet changes those that its mode has.
TEST_P(SheetRows, OfTheAccountingPeriods)
{
    struct Case
    {
        const char *name;
        AccountingMode mode;
        std::optional<LimitPeriod> chosen;
        const char *row; // trafperiod, timeperiod
    };
    using enum AccountingMode;
    const Case cases[] = {
        {"time, untouched", Time, {}, "1|2"},
        {"time, chosen", Time, LimitPeriod::Day, "1|1"},
        {"traffic, untouched", Traffic, {}, "1|2"},
        {"traffic, chosen", Traffic, LimitPeriod::Month, "2|2"},
        {"both, untouched", TrafficAndTime, {}, "1|2"},
        {"both, day", TrafficAndTime, LimitPeriod::Day, "1|1"},
        {"both, month", TrafficAndTime, LimitPeriod::Month, "2|2"},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("UPDATE users SET mode = (?), trafperiod = 1, timeperiod = 2 WHERE user_id = 1",
                each.mode);
        UserRecord record = User();
        EXPECT_EQ(PeriodIn(each.mode, record.limits.Staged()),
                  each.mode == Time ? LimitPeriod::Month : LimitPeriod::Day);
        record.limits.period = each.chosen;
        Store(UserAction(record));
        EXPECT_THAT(RowsOf("SELECT trafperiod, timeperiod FROM users WHERE user_id = 1"),
                    ElementsAre(QString::fromLatin1(each.row)));
    }
}

TEST_P(SheetRows, OfAGroup)
{
    Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
            "WHERE group_id = 81");
    Execute("UPDATE users SET blocked = 1, blockreason = 1 WHERE group_id = 81");
    Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (81, 2, 150, 1)");
    GroupRecord record = Group();
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    record.draft.name = u"Front office"_s;
    record.protocols.Select(u"SSH"_s, true);
    record.limits.traffic = WholeMegabytes {200};
    Store(GroupAction(record));
    EXPECT_THAT(RowsOf("SELECT name, mode, traflim, blocked FROM groups WHERE group_id = 81"),
                ElementsAre(u"Front office|1|200|0"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, group_id, blocked FROM users ORDER BY user_id"),
                ElementsAre(u"1|80|1"_s, u"2|81|0"_s, u"9|81|0"_s));
    EXPECT_THAT(RowsOf("SELECT group_id FROM port_blocked"), ElementsAre(u"81"_s));
    EXPECT_THAT(RowsOf("SELECT user_id FROM time_blocked"), IsEmpty());

    record = Group();
    record.draft.mode = AccountingMode::Provider;
    record.account.credits.push_back({BaseUnits {12.5}, true, {}});
    record.limits.ownPrice = true;
    record.limits.price = 0.25;
    record.block.requested = true;
    Store(GroupAction(record));
    EXPECT_THAT(
        RowsOf("SELECT mode, own_price, blocked, blockreason FROM groups WHERE group_id = 81 "
               "AND credit = 2 AND creditvalue = 12.5 AND trafprice = 0.25"),
        ElementsAre(u"2|1|1|3"_s));
}

TEST_P(SheetRows, OfSeveralUsers)
{
    struct Case
    {
        const char *name;
        ModeAndLimits values;
        const char *anna; // mode, traflim, timelim, trafperiod, timeperiod
        const char *zoe;
    };
    using enum AccountingMode;
    const auto values = [](AccountingMode mode) {
        return ModeAndLimits {.mode = mode,
                              .traffic = WholeMegabytes {2147483647},
                              .time = WholeHours {8},
                              .period = LimitPeriod::Day};
    };
    const Case cases[] = {
        {"no control keeps all", values(NoControl), "0|10|20|1|2", "0|30|40|2|1"},
        {"traffic", values(Traffic), "1|2147483647|20|1|1", "1|2147483647|40|1|1"},
        {"provider keeps all", values(Provider), "2|10|20|1|2", "2|30|40|2|1"},
        {"time", values(Time), "4|10|8|1|1", "4|30|8|1|1"},
        {"both", values(TrafficAndTime), "5|2147483647|8|1|1", "5|2147483647|8|1|1"},
        {"both, nothing entered", {.mode = TrafficAndTime}, "5|10|20|1|2", "5|30|40|2|1"},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("UPDATE users SET traflim = 10, timelim = 20, trafperiod = 1, timeperiod = 2 "
                "WHERE user_id = 1");
        Execute("UPDATE users SET traflim = 30, timelim = 40, trafperiod = 2, timeperiod = 1 "
                "WHERE user_id = 9");
        Store(SetModeAndLimitsAction({UserId {9}, UserId {77}, UserId {1}}, each.values));
        EXPECT_THAT(RowsOf("SELECT mode, traflim, timelim, trafperiod, timeperiod FROM users "
                           "WHERE user_id <> 2 ORDER BY user_id"),
                    ElementsAre(QString::fromLatin1(each.anna), QString::fromLatin1(each.zoe)));
    }
    EXPECT_THAT(RowsOf("SELECT mode FROM users WHERE user_id = 2"), ElementsAre(u"0"_s));
}
