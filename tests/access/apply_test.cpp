#include "apply_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

const char *const kCredits =
    "SELECT moneydata, moneyusage, data, usage FROM billing WHERE object_id = (?) AND mode=2 "
    "AND closed=0";
const char *const kGeneral = "UPDATE users SET fullname = (?), descrip = (?) WHERE user_id = (?)";
const char *const kUnblock = "UPDATE users SET blocked = false WHERE user_id = (?)";
const char *const kPortSelect =
    "SELECT group_id FROM Port_blocked WHERE user_id = (?) AND port_id = (?)";
const char *const kPortInsert = "INSERT INTO Port_blocked (user_id, port_id) VALUES ((?), (?))";
const char *const kPortDelete = "DELETE FROM Port_blocked WHERE user_id=(?) AND port_id=(?)";
const char *const kDailyTraffic = "SELECT traf_id FROM traffic_use WHERE current_time = (?) and "
                                  "user_id = (?) and period = 1";
const char *const kMonthlyTime = "SELECT time_id FROM time_use WHERE user_id = (?) and period = 2";
const char *const kWriteTraffic =
    "UPDATE users SET traflim = (?), trafperiod = (?) WHERE user_id = (?)";
const char *const kWriteTime =
    "UPDATE users SET timelim = (?), timeperiod = (?) WHERE user_id = (?)";

class UserApply : public ApplyFixture
{
protected:
    [[nodiscard]] static UserRecord Record() { return LoadUser(UserId {1}).value().value(); }

    // The changing statements.
    [[nodiscard]] QStringList Apply(const UserRecord &record, bool yes = false)
    {
        return ChangesOf(UserAction(record), yes);
    }

    // The changing statements of the access type and the limits alone.
    [[nodiscard]] QStringList ModeStep(const UserRecord &record)
    {
        const QStringList all = Apply(record);
        const auto last = record.block.editable ? all.size() - 1 : all.size();
        const auto first = all.indexOf(u"UPDATE users SET authreq = 0 WHERE user_id = (?)"_s) + 1;
        return all.mid(first, last - first);
    }
};

} // namespace

TEST_F(UserApply, EverythingChangedIsStoredInTheFixedOrder)
{
    Execute("INSERT INTO time_blocked (tb_id, user_id, dayofweek, timestart, timestop) VALUES "
            "(5, 1, 2, '08:00:00', '09:00:00')");
    UserRecord record = Record();
    record.draft.fullName = u"Anna A."_s;
    record.draft.description = u"desk"_s;
    record.draft.groupId = kEverybodyGroup;
    record.draft.ipAddress = u"10.0.0.7"_s;
    record.draft.macAddress = u"ZZZZZZZZZZZZ"_s;
    record.times.Rebuild(ReadTimeRanges(record.Self()).value());
    record.times.Delete(0);
    record.times.Add({7, u"10:00:00"_s, u"11:30:00"_s});
    record.times.grant = true;
    record.protocols.allow = true;
    record.protocols.Select(u"FTP"_s, true);
    record.draft.authRequired = true;
    record.draft.mode = AccountingMode::TrafficAndTime;
    record.limits.period = LimitPeriod::Day;
    record.limits.traffic = WholeMegabytes {500};
    record.limits.time = WholeHours {9};
    record.block.requested = true;

    const Texts expected = {
        kGeneral,
        "UPDATE users SET group_id = (?)  WHERE user_id = (?)",
        "UPDATE users SET ip_addr = (?)  WHERE user_id = (?)",
        "UPDATE users SET mac_addr = (?)  WHERE user_id = (?)",
        "INSERT INTO Time_blocked (dayofweek, timestart, timestop, user_id) "
        "VALUES ((?),(?),(?),(?))",
        "DELETE FROM Time_blocked WHERE tb_id = (?)",
        "UPDATE users SET TimeAccess = true WHERE user_id = (?)",
        "UPDATE users SET PortAccess = true WHERE user_id = (?)",
        kPortInsert,
        kPortInsert,
        kPortDelete,
        "UPDATE users SET authreq = 1 WHERE user_id = (?)",
        "UPDATE users SET mode = 5 WHERE user_id = (?)",
        "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)",
        kWriteTraffic,
        "UPDATE time_use SET blocked=false WHERE time_id=(?)",
        kWriteTime,
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)",
    };
    EXPECT_THAT(Apply(record), ElementsAreArray(Strings(expected)));
    EXPECT_TRUE(ran.IsDone());
    EXPECT_THAT(ran.asked, IsEmpty());
    EXPECT_THAT(
        RowsOf("SELECT fullname, descrip, group_id, ip_addr, mac_addr, timeaccess, portaccess, "
               "authreq, mode, traflim, trafperiod, timelim, timeperiod, blocked, blockreason "
               "FROM users WHERE user_id = 1"),
        ElementsAre(u"Anna A.|desk|80|10.0.0.7|ZZZZZZZZZZZZ|1|1|1|5|500|1|9|1|1|3"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, dayofweek, timestart, timestop FROM time_blocked"),
                ElementsAre(u"1|7|10:00:00|11:30:00"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, port_id FROM port_blocked ORDER BY port_id"),
                ElementsAre(u"1|20"_s, u"1|21"_s));
}

TEST_F(UserApply, AnUntouchedSheetStoresWhatItRead)
{
    const QStringList before = EveryRow();
    const Texts expected = {
        kGeneral,
        "UPDATE users SET TimeAccess = false WHERE user_id = (?)",
        "UPDATE users SET PortAccess = false WHERE user_id = (?)",
        kPortDelete,
        kPortDelete,
        kPortDelete,
        "UPDATE users SET authreq = 0 WHERE user_id = (?)",
        "UPDATE users SET mode = 0 WHERE user_id = (?)",
        kUnblock,
    };
    EXPECT_THAT(Apply(Record()), ElementsAreArray(Strings(expected)));
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(UserApply, EachModeRunsItsOwnStatements)
{
    struct Case
    {
        const char *name;
        AccountingMode mode;
        void (*change)(LimitsDraft &);
        Texts reads;
        Texts statements;
    };
    const Case cases[] = {
        {"no control",
         AccountingMode::NoControl,
         [](LimitsDraft &) {},
         {"SELECT blockreason FROM users WHERE user_id = (?)"},
         {"UPDATE users SET mode = 0 WHERE user_id = (?)"}},
        {"traffic",
         AccountingMode::Traffic,
         [](LimitsDraft &) {},
         {},
         {"UPDATE users SET mode = 1 WHERE user_id = (?)", kWriteTraffic}},
        {"traffic raised",
         AccountingMode::Traffic,
         [](LimitsDraft &limits) {
             limits.period = LimitPeriod::Day;
             limits.traffic = WholeMegabytes {1};
             limits.time = WholeHours {1};
         },
         {"SELECT traflim, timelim FROM users WHERE user_id = (?) ",
          kDailyTraffic,
          "SELECT traflim, trafperiod, blockreason FROM users WHERE user_id = (?)",
          "SELECT data FROM traffic_use WHERE traf_id = (?)",
          "SELECT closed FROM billing WHERE object_id = (?) AND mode=1"},
         {"UPDATE users SET mode = 1 WHERE user_id = (?)",
          "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)",
          kWriteTraffic}},
        {"time",
         AccountingMode::Time,
         [](LimitsDraft &) {},
         {},
         {"UPDATE users SET mode = 4 WHERE user_id = (?)", kWriteTime}},
        {"time raised",
         AccountingMode::Time,
         [](LimitsDraft &limits) {
             limits.period = LimitPeriod::Month;
             limits.time = WholeHours {1};
         },
         {"SELECT traflim, timelim FROM users WHERE user_id = (?) ",
          kMonthlyTime,
          "SELECT timelim, trafperiod, blockreason FROM users WHERE user_id = (?)",
          "SELECT data FROM time_use WHERE time_id = (?)",
          "SELECT closed FROM billing WHERE object_id = (?) AND mode=4"},
         {"UPDATE users SET mode = 4 WHERE user_id = (?)",
          "UPDATE time_use SET blocked=false WHERE time_id=(?)",
          kWriteTime}},
        {"both",
         AccountingMode::TrafficAndTime,
         [](LimitsDraft &) {},
         {},
         {"UPDATE users SET mode = 5 WHERE user_id = (?)", kWriteTraffic, kWriteTime}},
        {"provider, global price",
         AccountingMode::Provider,
         [](LimitsDraft &) {},
         {kCredits},
         {"UPDATE users SET mode = 2 WHERE user_id = (?)",
          "UPDATE users SET own_price = false WHERE user_id = (?)"}},
        {"provider, own price",
         AccountingMode::Provider,
         [](LimitsDraft &limits) {
             limits.ownPrice = true;
             limits.price = 2.5;
         },
         {kCredits},
         {"UPDATE users SET mode = 2 WHERE user_id = (?)",
          "UPDATE users SET own_price = true WHERE user_id = (?)",
          "UPDATE users SET trafprice = (?) WHERE user_id = (?)"}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("UPDATE users SET traflim = 0, timelim = 0 WHERE user_id = 1");
        UserRecord record = Record();
        record.draft.mode = each.mode;
        each.change(record.limits);
        const QStringList all =
            StatementsOf([&] { ran = RunAnswering(UserAction(record), false); });
        EXPECT_THAT(all, IsSupersetOf(Strings(each.reads)));
        Execute("UPDATE users SET traflim = 0, timelim = 0 WHERE user_id = 1");
        EXPECT_THAT(ModeStep(record), ElementsAreArray(Strings(each.statements)));
    }
    EXPECT_THAT(RowsOf("SELECT mode, own_price, trafprice FROM users WHERE user_id = 1"),
                ElementsAre(u"2|1|2.5"_s));
}

TEST_F(UserApply, TheBlockBoxDecidesOnlyWhereItWasOpen)
{
    struct Case
    {
        bool blocked;
        quint32 reason;
        std::optional<bool> click; // what the administrator leaves in an open box
        const char *row;
    };
    const Case cases[] = {
        {false, 0, true, "1|3"},
        {false, 0, {}, "0|0"},
        {true, 3, {}, "1|3"},
        {true, 3, false, "0|3"},
        {true, 1, {}, "1|1"},
        {true, 2, {}, "1|2"},
        {true, 4, {}, "0|4"},
        {true, 4, true, "1|3"},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.row);
        Execute("UPDATE users SET mode = 1, blocked = (?), blockreason = (?) WHERE user_id = 1",
                quint32 {each.blocked},
                each.reason);
        UserRecord record = Record();
        record.block.requested = each.click.value_or(record.block.requested);
        (void)Apply(record);
        EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM users WHERE user_id = 1"),
                    ElementsAre(QString::fromLatin1(each.row)));
    }
}

TEST_F(UserApply, NothingIsWrittenForAUserThatIsGone)
{
    UserRecord record = Record();
    record.draft.groupId = kEverybodyGroup;
    record.times.Add({1, u"01:00:00"_s, u"02:00:00"_s});
    record.protocols.Select(u"HTTP"_s, true);
    record.block.requested = true;
    Execute("DELETE FROM users WHERE user_id = 1");
    const QStringList before = EveryRow();
    EXPECT_THAT(Apply(record), IsEmpty());
    EXPECT_EQ(ran.outcome.state, Outcome::State::Refused);
    EXPECT_EQ(ran.outcome.refusal, u"This user has been deleted meanwhile. Nothing was changed."_s);
    EXPECT_EQ(EveryRow(), before);
    EXPECT_EQ(LoadUser(UserId {1}).value(), std::nullopt);
}

TEST_F(UserApply, AUserWhoseGroupIsGoneKeepsItsTexts)
{
    Execute("UPDATE users SET group_id = 999, fullname = 'Anna A.', virtual = 1 WHERE user_id = 1");
    const UserRecord record = Record();
    EXPECT_EQ(record.base.fullName, u"Anna A."_s);
    EXPECT_EQ(record.base.groupName, QString());
    EXPECT_TRUE(record.base.guest);
    const QStringList before = EveryRow();
    (void)Apply(record);
    EXPECT_TRUE(ran.IsDone());
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(UserApply, NobodyIsMovedIntoAGroupThatIsGone)
{
    UserRecord record = Record();
    record.draft.groupId = GroupId {82};
    record.draft.fullName = u"Anna A."_s;
    const QStringList before = EveryRow();
    EXPECT_THAT(Apply(record), IsEmpty());
    EXPECT_EQ(ran.outcome.refusal,
              u"The chosen group has been deleted meanwhile. Nothing was changed."_s);
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(UserApply, TheServiceHearsOfBlocksAndOfLiftedOnes)
{
    PrivateBus bus;
    FakeService service(bus);
    service.OfferAccounting();
    const auto link = ServiceLink::Create(bus.Connection());
    ASSERT_TRUE(link);
    Execute("UPDATE users SET blocked = 1, blockreason = 1, mode = 1 WHERE user_id = 1");
    Execute("INSERT INTO traffic_use (traf_id, user_id, period, data) VALUES (11, 1, 2, 150)");
    UserRecord record = Record();
    record.limits.traffic = WholeMegabytes {200};
    ran = RunAnswering(UserAction(record), false, link.get());
    EXPECT_TRUE(ran.outcome.serviceTold);
    EXPECT_THAT(service.TakeCalls(), ElementsAre(u"UnblockUser 1"_s));

    record = Record();
    record.block.requested = true;
    ran = RunAnswering(UserAction(record), false, link.get());
    EXPECT_TRUE(ran.outcome.serviceTold);
    EXPECT_THAT(service.TakeCalls(), ElementsAre(u"BlockUser 1"_s));
}

// What the sheet changes beyond the user's own row is told too, and settles a commit of which the
// answer was lost.
TEST_F(UserApply, TheOutcomeTellsTheRowsThatChanged)
{
    UserRecord record = Record();
    record.draft.description = u"desk"_s;
    record.times.Add({1, u"01:00:00"_s, u"02:00:00"_s});
    record.protocols.Select(u"HTTP"_s, true);
    (void)Apply(record);
    const Change user {u"users"_s, u"1"_s, {u"descrip="_s}, {u"descrip=desk"_s}};
    ASSERT_EQ(ran.outcome.changes.size(), 3);
    EXPECT_EQ(ran.outcome.changes[0], user);
    EXPECT_EQ(ran.outcome.changes[1].table, u"time_blocked"_s);
    EXPECT_EQ(ran.outcome.changes[2].table, u"port_blocked"_s);
}

TEST_F(UserApply, LoadingRunsItsStatementsInOrder)
{
    const Texts expected = {
        "SELECT users.fullname, users.descrip, users.username, users.ip_addr, users.mac_addr, "
        "users.stationname, users.mode, users.group_id, groups.name, users.virtual FROM users, "
        "groups WHERE user_id = (?) and users.group_id = groups.group_id",
        "SELECT login FROM logins WHERE userid = (?)",
        "SELECT blocked FROM users WHERE user_id = (?)",
        "SELECT blocked, trafperiod, timeperiod, blockreason, authreq FROM users "
        "WHERE user_id = (?) ",
        "SELECT trafperiod, traflim, timelim, own_price, trafprice FROM users WHERE user_id = (?) ",
        "SELECT timeperiod FROM users WHERE user_id = (?)",
        "SELECT TimeAccess FROM users WHERE user_id = (?) ",
        "SELECT PortAccess FROM users WHERE user_id = (?) ",
        "SELECT id, Proto_name FROM Protocols ORDER BY Proto_name ASC",
        "SELECT Port_id FROM Ports WHERE Proto_id = (?)",
        kPortSelect,
        kPortSelect,
        "SELECT Port_id FROM Ports WHERE Proto_id = (?)",
        kPortSelect,
    };
    EXPECT_THAT(StatementsOf([] { (void)LoadUser(UserId {1}); }),
                ElementsAreArray(Strings(expected)));
}
