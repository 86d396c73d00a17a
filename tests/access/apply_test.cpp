#include "apply_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

const char *const kCheck = "SELECT blocked FROM users WHERE user_id = (?)";
const char *const kGeneral = "UPDATE users SET fullname = (?), descrip = (?) WHERE user_id = (?)";
const char *const kConflict =
    "SELECT username, user_id FROM users WHERE ip_addr =(?) and user_id <>(?)";
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
    [[nodiscard]] static UserRecord Record() { return LoadUser(UserId {1}).value(); }

    [[nodiscard]] QStringList Apply(const UserRecord &record)
    {
        return StatementsOf([&] { applied = ApplyUser(record, nullptr, prompt); });
    }

    // The statements of the access type and the limits alone.
    [[nodiscard]] QStringList ModeStep(const UserRecord &record)
    {
        const QStringList all = Apply(record);
        const auto last = record.block.editable ? all.size() - 1 : all.size();
        const auto first = all.indexOf(u"UPDATE users SET authreq = 0 WHERE user_id = (?)"_s) + 1;
        return all.mid(first, last - first);
    }

    bool applied = false;
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
    record.times.Rebuild();
    record.times.Delete(0);
    record.times.Add({7, u"10:00:00"_s, u"11:30:00"_s});
    record.times.grant = true;
    record.protocols.allow = true;
    record.protocols.Select(u"FTP"_s, true);
    record.authRequired = true;
    record.mode = AccountingMode::TrafficAndTime;
    record.limits.period = LimitPeriod::Day;
    record.limits.traffic = WholeMegabytes {500};
    record.limits.time = WholeHours {9};
    record.block.requested = true;

    const Texts expected = {
        kCheck,
        kGeneral,
        "UPDATE users SET group_id = (?)  WHERE user_id = (?)",
        kConflict,
        "UPDATE users SET ip_addr = (?)  WHERE user_id = (?)",
        kConflict,
        "UPDATE users SET mac_addr = (?)  WHERE user_id = (?)",
        "INSERT INTO Time_blocked (dayofweek, timestart, timestop, user_id) "
        "VALUES ((?),(?),(?),(?))",
        "DELETE FROM Time_blocked WHERE tb_id = (?)",
        "UPDATE users SET TimeAccess = true WHERE user_id = (?)",
        "UPDATE users SET PortAccess = true WHERE user_id = (?)",
        kPortSelect,
        kPortInsert,
        kPortSelect,
        kPortInsert,
        kPortDelete,
        "UPDATE users SET authreq = 1 WHERE user_id = (?)",
        "UPDATE users SET mode = 5 WHERE user_id = (?)",
        kWriteTraffic,
        kWriteTime,
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)",
    };
    EXPECT_THAT(Apply(record), ElementsAreArray(Strings(expected)));
    EXPECT_TRUE(applied);
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
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
        kCheck,
        kGeneral,
        "UPDATE users SET TimeAccess = false WHERE user_id = (?)",
        "UPDATE users SET PortAccess = false WHERE user_id = (?)",
        kPortDelete,
        kPortDelete,
        kPortDelete,
        "UPDATE users SET authreq = 0 WHERE user_id = (?)",
        "UPDATE users SET mode = 0 WHERE user_id = (?)",
        "SELECT blockreason FROM users WHERE user_id = (?)",
        kUnblock,
    };
    EXPECT_THAT(Apply(Record()), ElementsAreArray(Strings(expected)));
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(UserApply, EachModeRunsItsOwnStatements)
{
    const auto creditRead =
        "SELECT moneydata, moneyusage, data, usage FROM billing WHERE object_id = (?) AND mode=2 "
        "AND closed=0";
    struct Case
    {
        const char *name;
        AccountingMode mode;
        void (*change)(LimitsDraft &);
        Texts statements;
    };
    const Case cases[] = {
        {"no control",
         AccountingMode::NoControl,
         [](LimitsDraft &) {},
         {"UPDATE users SET mode = 0 WHERE user_id = (?)",
          "SELECT blockreason FROM users WHERE user_id = (?)"}},
        {"traffic",
         AccountingMode::Traffic,
         [](LimitsDraft &) {},
         {"UPDATE users SET mode = 1 WHERE user_id = (?)", kWriteTraffic}},
        {"traffic raised",
         AccountingMode::Traffic,
         [](LimitsDraft &limits) {
             limits.period = LimitPeriod::Day;
             limits.trafficRaised = true;
             limits.timeRaised = true;
         },
         {"UPDATE users SET mode = 1 WHERE user_id = (?)",
          kDailyTraffic,
          "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)",
          "SELECT traflim, trafperiod, blockreason FROM users WHERE user_id = (?)",
          "SELECT data FROM traffic_use WHERE traf_id = (?)",
          "SELECT closed FROM billing WHERE object_id = (?) AND mode=1",
          kWriteTraffic}},
        {"time",
         AccountingMode::Time,
         [](LimitsDraft &) {},
         {"UPDATE users SET mode = 4 WHERE user_id = (?)", kWriteTime}},
        {"time raised",
         AccountingMode::Time,
         [](LimitsDraft &limits) {
             limits.period = LimitPeriod::Month;
             limits.timeRaised = true;
         },
         {"UPDATE users SET mode = 4 WHERE user_id = (?)",
          kMonthlyTime,
          "UPDATE time_use SET blocked=false WHERE time_id=(?)",
          "SELECT timelim, trafperiod, blockreason FROM users WHERE user_id = (?)",
          "SELECT data FROM time_use WHERE time_id = (?)",
          "SELECT closed FROM billing WHERE object_id = (?) AND mode=4",
          kWriteTime}},
        {"both",
         AccountingMode::TrafficAndTime,
         [](LimitsDraft &) {},
         {"UPDATE users SET mode = 5 WHERE user_id = (?)", kWriteTraffic, kWriteTime}},
        {"provider, global price",
         AccountingMode::Provider,
         [](LimitsDraft &) {},
         {"UPDATE users SET mode = 2 WHERE user_id = (?)",
          creditRead,
          "UPDATE users SET own_price = false WHERE user_id = (?)"}},
        {"provider, own price",
         AccountingMode::Provider,
         [](LimitsDraft &limits) {
             limits.ownPrice = true;
             limits.price = 2.5;
         },
         {"UPDATE users SET mode = 2 WHERE user_id = (?)",
          creditRead,
          "UPDATE users SET own_price = true WHERE user_id = (?)",
          "UPDATE users SET trafprice = (?) WHERE user_id = (?)"}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        UserRecord record = Record();
        record.mode = each.mode;
        each.change(record.limits);
        EXPECT_THAT(ModeStep(record), ElementsAreArray(Strings(each.statements)));
    }
    EXPECT_THAT(RowsOf("SELECT mode, own_price, trafprice FROM users WHERE user_id = 1"),
                ElementsAre(u"2|1|2.5"_s));
}

// A raised limit lifts the service's block exactly when something is left to use.
TEST_F(UserApply, ARaisedLimitLiftsABlockWhenSomethingIsLeft)
{
    struct Case
    {
        const char *name;
        quint32 reason;
        bool raised;
        quint32 newLimit;
        bool openCredit;
        bool lifted;
    };
    const Case cases[] = {
        {"above what was used", 1, true, 200, false, true},
        {"reason 2 likewise", 2, true, 200, false, true},
        {"still used up", 1, true, 150, false, false},
        {"used up but extended by a credit", 1, true, 120, true, true},
        {"not raised", 1, false, 200, true, false},
        {"the administrator's own block", 3, true, 200, true, false},
    };
    for (const AccountingMode mode : {AccountingMode::Traffic, AccountingMode::Time}) {
        for (const Case &each : cases) {
            SCOPED_TRACE(std::string(each.name)
                         + (mode == AccountingMode::Traffic ? ", traffic" : ", time"));
            Execute("DELETE FROM traffic_use");
            Execute("DELETE FROM time_use");
            Execute("DELETE FROM billing");
            Execute("UPDATE users SET blocked = 1, blockreason = (?), mode = (?), traflim = 100, "
                    "timelim = 100 WHERE user_id = 1",
                    each.reason,
                    mode);
            Execute("INSERT INTO traffic_use (traf_id, user_id, period, data, blocked) "
                    "VALUES (11, 1, 2, 150, 1)");
            Execute("INSERT INTO time_use (time_id, user_id, period, data, blocked) "
                    "VALUES (12, 1, 2, 150, 1)");
            Execute("INSERT INTO billing (mode, object_id, closed) VALUES (1, 1, 1), (4, 1, 1)");
            if (each.openCredit) {
                Execute("INSERT INTO billing (mode, object_id) VALUES ((?), 1)", mode);
            }
            UserRecord record = Record();
            if (mode == AccountingMode::Traffic) {
                record.limits.traffic = WholeMegabytes {each.newLimit};
                record.limits.trafficRaised = each.raised;
            } else {
                record.limits.time = WholeHours {each.newLimit};
                record.limits.timeRaised = each.raised;
            }

            const QStringList run = Apply(record);
            EXPECT_EQ(run.contains(u"UPDATE users SET blocked = 0 WHERE user_id = (?)"_s),
                      each.lifted);
            EXPECT_EQ(run.contains(QString::fromLatin1(kUnblock)), each.lifted);
            EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM users WHERE user_id = 1"),
                        ElementsAre(u"%1|%2"_s.arg(each.lifted ? 0 : 1).arg(each.reason)));
            const auto recordOf = mode == AccountingMode::Traffic
                ? "SELECT blocked FROM traffic_use"
                : "SELECT blocked FROM time_use";
            EXPECT_THAT(RowsOf(recordOf), ElementsAre(each.raised ? u"0"_s : u"1"_s));
        }
    }
}

TEST_F(UserApply, OtherModesLiftTheServicesBlockWhenTheyLeaveSomethingToUse)
{
    struct Case
    {
        const char *name;
        AccountingMode mode;
        quint32 reason;
        const char *credit; // values of moneydata, moneyusage, data, usage; null for no credit
        const char *blocked;
    };
    const Case cases[] = {
        {"no control", AccountingMode::NoControl, 1, nullptr, "0"},
        {"no control, administrator's block", AccountingMode::NoControl, 3, nullptr, "1"},
        {"no credit", AccountingMode::Provider, 1, nullptr, "1"},
        {"money left", AccountingMode::Provider, 1, "10, 9.5, NULL, 0", "0"},
        {"money used up", AccountingMode::Provider, 1, "10, 10, NULL, 30", "1"},
        {"traffic left", AccountingMode::Provider, 2, "NULL, 0, 100, 99", "0"},
        {"traffic used up", AccountingMode::Provider, 2, "NULL, 0, 100, 100", "1"},
        {"no bound", AccountingMode::Provider, 1, "NULL, 0, NULL, 0", "0"},
        {"administrator's block", AccountingMode::Provider, 3, "10, 0, NULL, 0", "1"},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("DELETE FROM billing");
        Execute("UPDATE users SET blocked = 1, blockreason = (?) WHERE user_id = 1", each.reason);
        if (each.credit != nullptr) {
            const QByteArray text = QByteArray("INSERT INTO billing (mode, object_id, moneydata, "
                                               "moneyusage, data, usage) VALUES (2, 1, ")
                + each.credit + ")";
            Execute(text.constData());
        }
        UserRecord record = Record();
        record.mode = each.mode;
        (void)Apply(record);
        EXPECT_THAT(RowsOf("SELECT blocked FROM users WHERE user_id = 1"),
                    ElementsAre(QString::fromLatin1(each.blocked)));
    }
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

TEST_F(UserApply, AnAddressHeldByAnotherUserIsTakenOnlyAfterAYes)
{
    UserRecord record = Record();
    record.draft.ipAddress = u"10.0.0.2"_s;
    record.draft.fullName = u"Anna"_s;
    EXPECT_FALSE(Apply(record).contains(u"UPDATE users SET ip_addr = (?)  WHERE user_id = (?)"_s));
    EXPECT_THAT(prompt.TakeSaid(),
                ElementsAre(u"This IP address is bind to another user. This user will be removed. "
                            "Proceed?"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, ip_addr, fullname FROM users WHERE user_id < 3 "
                       "ORDER BY user_id"),
                ElementsAre(u"1|10.0.0.1|Anna"_s, u"2|10.0.0.2|"_s));

    prompt.AnswerWith({true});
    const QStringList run = Apply(record);
    EXPECT_THAT(run.mid(2, 3),
                ElementsAreArray(Strings({kConflict,
                                          "DELETE from users WHERE user_id=(?)",
                                          "UPDATE users SET ip_addr = (?)  WHERE user_id = (?)"})));
    EXPECT_THAT(RowsOf("SELECT user_id, ip_addr FROM users WHERE user_id < 3"),
                ElementsAre(u"1|10.0.0.2"_s));
}

TEST_F(UserApply, AMacAddressHeldByAnotherUserIsNeverNoticed)
{
    UserRecord record = Record();
    record.draft.macAddress = u"000000000002"_s;
    (void)Apply(record);
    EXPECT_THAT(prompt.TakeSaid(), IsEmpty());
    EXPECT_THAT(
        RowsOf("SELECT user_id FROM users WHERE mac_addr = '000000000002' ORDER BY user_id"),
        ElementsAre(u"1"_s, u"2"_s));

    // The text is compared with IP addresses, so one that reads like an address does find a holder.
    Execute("UPDATE users SET ip_addr = '192.168.10.1' WHERE user_id = 2");
    record.draft.macAddress = u"192.168.10.1"_s;
    (void)Apply(record);
    EXPECT_THAT(prompt.TakeSaid(),
                ElementsAre(u"This MAC address is bind to another user. This user will be removed. "
                            "Proceed?"_s));
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
    EXPECT_THAT(Apply(record), ElementsAre(QString::fromLatin1(kCheck)));
    EXPECT_FALSE(applied);
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
    EXPECT_EQ(EveryRow(), before);
    EXPECT_FALSE(LoadUser(UserId {1}));
}

TEST_F(UserApply, AUserWhoseGroupIsGoneKeepsItsTexts)
{
    Execute("UPDATE users SET group_id = 999, fullname = 'Anna A.', virtual = 1 WHERE user_id = 1");
    const UserRecord record = Record();
    EXPECT_EQ(record.saved.fullName, u"Anna A."_s);
    EXPECT_EQ(record.saved.groupName, QString());
    EXPECT_TRUE(record.saved.guest);
    const QStringList before = EveryRow();
    (void)Apply(record);
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
    record.limits.trafficRaised = true;
    ASSERT_TRUE(ApplyUser(record, link.get(), prompt));
    EXPECT_THAT(service.TakeCalls(), ElementsAre(u"UnblockUser 1, no reply"_s));

    record = Record();
    record.block.requested = true;
    ASSERT_TRUE(ApplyUser(record, link.get(), prompt));
    EXPECT_THAT(service.TakeCalls(), ElementsAre(u"BlockUser 1, no reply"_s));
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
