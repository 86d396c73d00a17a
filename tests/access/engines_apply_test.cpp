// What the sheets leave in the rows, the same on every database engine.
#include "access/group_apply.h"
#include "access/many_users.h"
#include "access/user_apply.h"
#include "db/failure_log.h"
#include "db/value_codes.h"
#include "support/core/engine_fixture.h"
#include "support/core/scripted_prompt.h"

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

    ScriptedPrompt prompt;
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
    UserRecord record = LoadUser(UserId {1}).value();
    record.draft.fullName = u"Zoë Brøgger"_s;
    record.draft.groupId = kEverybodyGroup;
    record.draft.ipAddress = u"10.0.0.2"_s;
    record.draft.macAddress = u"ZZZZZZZZZZZZ"_s;
    record.times.Rebuild();
    record.times.Delete(0);
    record.times.Add({7, u"10:00:00"_s, u"11:30:00"_s});
    record.times.grant = true;
    record.protocols.allow = true;
    record.protocols.Select(u"FTP"_s, true);
    record.authRequired = true;
    record.mode = AccountingMode::TrafficAndTime;
    record.limits.traffic = WholeMegabytes {200};
    record.limits.trafficRaised = true;
    record.limits.time = WholeHours {8};
    record.limits.timeRaised = true;
    prompt.AnswerWith({true});
    EXPECT_TRUE(ApplyUser(record, nullptr, prompt));
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
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
    UserRecord record = LoadUser(UserId {1}).value();
    record.mode = AccountingMode::Provider;
    record.limits.ownPrice = true;
    record.limits.price = 2.25;
    EXPECT_TRUE(ApplyUser(record, nullptr, prompt));
    EXPECT_THAT(RowsOf("SELECT mode, own_price FROM users WHERE user_id = 1 AND trafprice = 2.25"),
                ElementsAre(u"2|1"_s));
    Execute("UPDATE users SET blocked = 1, blockreason = 2, group_id = 999 WHERE user_id = 1");
    record = LoadUser(UserId {1}).value();
    EXPECT_EQ(record.saved.userName, u"anna"_s);
    record.mode = AccountingMode::NoControl;
    EXPECT_TRUE(ApplyUser(record, nullptr, prompt));
    EXPECT_THAT(RowsOf("SELECT mode, blocked, group_id FROM users WHERE user_id = 1"),
                ElementsAre(u"0|0|999"_s));
    record = LoadUser(UserId {1}).value();
    record.mode = AccountingMode::Time;
    record.limits.time = WholeHours {3};
    record.block.requested = true;
    EXPECT_TRUE(ApplyUser(record, nullptr, prompt));
    EXPECT_THAT(RowsOf("SELECT mode, timelim, blocked, blockreason FROM users WHERE user_id = 1"),
                ElementsAre(u"4|3|1|3"_s));
}

TEST_P(SheetRows, OfAGroup)
{
    Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
            "WHERE group_id = 81");
    Execute("UPDATE users SET blocked = 1, blockreason = 1 WHERE group_id = 81");
    Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (81, 2, 150, 1)");
    GroupRecord record = LoadGroup(GroupId {81}).value();
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s}));
    record.name = u"Front office"_s;
    record.protocols.Select(u"SSH"_s, true);
    record.limits.traffic = WholeMegabytes {200};
    record.limits.trafficRaised = true;
    EXPECT_TRUE(ApplyGroup(record, nullptr, prompt));
    EXPECT_THAT(RowsOf("SELECT name, mode, traflim, blocked FROM groups WHERE group_id = 81"),
                ElementsAre(u"Front office|1|200|0"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, group_id, blocked FROM users ORDER BY user_id"),
                ElementsAre(u"1|80|1"_s, u"2|81|0"_s, u"9|81|0"_s));
    EXPECT_THAT(RowsOf("SELECT group_id FROM port_blocked"), ElementsAre(u"81"_s));
    EXPECT_THAT(RowsOf("SELECT user_id FROM time_blocked"), IsEmpty());

    record = LoadGroup(GroupId {81}).value();
    record.mode = AccountingMode::Provider;
    record.account.credits.push_back({BaseUnits {12.5}, true, {}});
    record.limits.ownPrice = true;
    record.limits.price = 0.25;
    record.block.requested = true;
    EXPECT_TRUE(ApplyGroup(record, nullptr, prompt));
    EXPECT_THAT(
        RowsOf("SELECT mode, own_price, blocked, blockreason FROM groups WHERE group_id = 81 "
               "AND credit = 2 AND creditvalue = 12.5 AND trafprice = 0.25"),
        ElementsAre(u"2|1|1|3"_s));
}

TEST_P(SheetRows, OfSeveralUsers)
{
    SetModeAndLimits({UserId {1}, UserId {9}},
                     {.mode = AccountingMode::Traffic,
                      .traffic = WholeMegabytes {2147483647},
                      .time = {},
                      .period = LimitPeriod::Day},
                     [](int) {});
    EXPECT_THAT(RowsOf("SELECT user_id, mode, traflim, timelim, trafperiod, timeperiod FROM users "
                       "WHERE mode <> 0 ORDER BY user_id"),
                ElementsAre(u"1|1|2147483647|0|1|1"_s, u"9|1|2147483647|0|1|1"_s));
}
