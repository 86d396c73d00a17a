#include "apply_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

const char *const kCheck = "SELECT blocked FROM groups WHERE group_id =(?)";
const char *const kGeneral = "UPDATE groups SET name = (?), descrip = (?) WHERE group_id = (?)";
const char *const kPortDelete = "DELETE FROM Port_blocked WHERE Group_id=(?) AND port_id=(?)";
const char *const kMode1 = "UPDATE groups SET mode = 1 WHERE group_id = (?)";
const char *const kReadLimit = "SELECT traflim FROM Groups WHERE Group_id = (?)";
const char *const kWriteLimit =
    "UPDATE groups SET mode = 1, traflim = (?), trafperiod = (?) WHERE group_id = (?)";
const char *const kCredits = "SELECT moneydata, moneyusage, data, usage FROM billing WHERE "
                             "group_id = (?) AND mode=2 AND closed=0";

class GroupApply : public ApplyFixture
{
protected:
    [[nodiscard]] static GroupRecord Record() { return LoadGroup(GroupId {81}).value(); }

    [[nodiscard]] QStringList Apply(const GroupRecord &record)
    {
        return StatementsOf([&] { applied = ApplyGroup(record, nullptr, prompt); });
    }

    // The statements of mode, limit, credit and price alone: they come last.
    [[nodiscard]] QStringList ModeStep(const GroupRecord &record)
    {
        const QStringList all = Apply(record);
        return all.mid(all.lastIndexOf(QString::fromLatin1(kPortDelete)) + 1);
    }

    bool applied = false;
};

} // namespace

TEST_F(GroupApply, EverythingChangedIsStoredInTheFixedOrder)
{
    GroupRecord record = Record();
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s}));
    record.name = u"Front office"_s;
    record.description = u"ground floor"_s;
    record.block.requested = true;
    record.protocols.allow = true;
    record.protocols.Select(u"HTTP"_s, true);
    record.times.Add({1, u"08.00"_s, u"09.00"_s});
    record.times.grant = true;
    record.mode = AccountingMode::Traffic;
    record.limits.period = LimitPeriod::Day;
    record.limits.traffic = WholeMegabytes {700};

    const Texts expected = {
        kCheck,
        "UPDATE users SET group_id = 80  WHERE user_id = (?)",
        "UPDATE users SET group_id = (?)  WHERE user_id = (?)",
        kGeneral,
        "UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)",
        "UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)",
        "SELECT user_id FROM users WHERE group_id = (?)",
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)",
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)",
        "UPDATE Groups SET PortAccess = true WHERE Group_id = (?)",
        kPortDelete,
        kPortDelete,
        "SELECT user_id FROM Port_blocked WHERE Group_id = (?) AND port_id = (?)",
        "INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))",
        kMode1,
        kReadLimit,
        kWriteLimit,
    };
    EXPECT_THAT(Apply(record), ElementsAreArray(Strings(expected)));
    EXPECT_TRUE(applied);
    EXPECT_THAT(RowsOf("SELECT name, descrip, mode, traflim, trafperiod, blocked, blockreason, "
                       "portaccess, timeaccess FROM groups WHERE group_id = 81"),
                ElementsAre(u"Front office|ground floor|1|700|1|1|3|1|0"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, group_id, blocked FROM users ORDER BY user_id"),
                ElementsAre(u"1|80|0"_s, u"2|81|1"_s, u"9|81|1"_s));
    EXPECT_THAT(RowsOf("SELECT group_id, port_id FROM port_blocked"), ElementsAre(u"81|80"_s));
    EXPECT_THAT(RowsOf("SELECT tb_id FROM time_blocked"), IsEmpty());
}

TEST_F(GroupApply, AnUntouchedSheetStoresWhatItReadAndTheHiddenPagesState)
{
    Execute("INSERT INTO port_blocked (group_id, port_id) VALUES (81, 20)");
    const Texts expected = {
        kCheck,
        kGeneral,
        kCheck,
        "UPDATE Groups SET PortAccess = false WHERE Group_id = (?)",
        "SELECT user_id FROM Port_blocked WHERE Group_id = (?) AND port_id = (?)",
        "SELECT user_id FROM Port_blocked WHERE Group_id = (?) AND port_id = (?)",
        "INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))",
        kPortDelete,
        "UPDATE groups SET mode = 0 WHERE group_id = (?)",
        "SELECT blockreason FROM groups WHERE group_id = (?)",
    };
    EXPECT_THAT(Apply(Record()), ElementsAreArray(Strings(expected)));
    EXPECT_THAT(RowsOf("SELECT port_id FROM port_blocked ORDER BY port_id"),
                ElementsAre(u"20"_s, u"21"_s));
}

TEST_F(GroupApply, EachModeRunsItsOwnStatements)
{
    struct Case
    {
        const char *name;
        void (*change)(GroupRecord &);
        Texts statements;
    };
    const Case cases[] = {
        {"no control",
         [](GroupRecord &record) { record.mode = AccountingMode::NoControl; },
         {"UPDATE groups SET mode = 0 WHERE group_id = (?)",
          "SELECT blockreason FROM groups WHERE group_id = (?)"}},
        {"limit",
         [](GroupRecord &record) { record.mode = AccountingMode::Traffic; },
         {kMode1, kReadLimit, kWriteLimit}},
        {"raised limit",
         [](GroupRecord &record) {
             record.mode = AccountingMode::Traffic;
             record.limits.traffic = WholeMegabytes {10};
             record.limits.trafficRaised = true;
         },
         {kMode1,
          kReadLimit,
          "SELECT trafperiod FROM groups WHERE group_id = (?) ",
          "SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2",
          "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)",
          kWriteLimit,
          "SELECT traflim, blockreason FROM groups WHERE group_id = (?)",
          "SELECT data FROM traffic_use WHERE traf_id = (?)",
          "SELECT data, usage FROM billing WHERE group_id = (?) AND mode=1 AND closed=0"}},
        {"credit, global price",
         [](GroupRecord &record) { record.mode = AccountingMode::Provider; },
         {"UPDATE Groups SET mode = 2 WHERE Group_id = (?)",
          kCredits,
          "UPDATE Groups SET own_price = false WHERE Group_id = (?)"}},
        {"staged credit, own price",
         [](GroupRecord &record) {
             record.mode = AccountingMode::Provider;
             record.account.credits.push_back({BaseUnits {12.5}, true, {}});
             record.limits.ownPrice = true;
             record.limits.price = 0.25;
         },
         {"UPDATE Groups SET mode = 2 WHERE Group_id = (?)",
          "UPDATE Groups SET credit = (?), creditvalue = (?) WHERE Group_id = (?)",
          kCredits,
          "UPDATE Groups SET own_price = true WHERE Group_id = (?)",
          "UPDATE Groups SET trafprice = (?) WHERE Group_id = (?)"}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        GroupRecord record = Record();
        each.change(record);
        EXPECT_THAT(ModeStep(record), ElementsAreArray(Strings(each.statements)));
    }
    EXPECT_THAT(
        RowsOf("SELECT mode, credit, creditvalue, own_price, trafprice, traflim FROM groups "
               "WHERE group_id = 81"),
        ElementsAre(u"2|2.0|12.5|1|0.25|10"_s));
}

TEST_F(GroupApply, BlocksFollowTheBoxAndTheLimitsRules)
{
    struct Case
    {
        const char *name;
        bool blocked;
        quint32 reason;
        std::optional<bool> click;
        quint32 newLimit; // 0: not raised
        const char *group;
        const char *member;
    };
    const Case cases[] = {
        {"blocked by the box", false, 0, true, 0, "1|3", "1"},
        {"released by the box", true, 3, false, 0, "0|3", "0"},
        {"the service's block stays", true, 1, {}, 0, "1|1", "1"},
        {"reason 4 is no box either", true, 4, {}, 0, "1|4", "1"},
        {"lifted by a raised limit", true, 1, {}, 200, "0|1", "0"},
        {"still used up", true, 1, {}, 150, "1|1", "1"},
        {"not above the stored limit", true, 1, {}, 90, "1|1", "1"},
        {"the administrator's block is never lifted", true, 3, {}, 200, "1|3", "1"},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("DELETE FROM traffic_use");
        Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = (?), blockreason = (?) "
                "WHERE group_id = 81",
                quint32 {each.blocked},
                each.reason);
        Execute("UPDATE users SET blocked = (?) WHERE group_id = 81", quint32 {each.blocked});
        Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (81, 2, 150, 1)");
        GroupRecord record = Record();
        record.block.requested = each.click.value_or(record.block.requested);
        if (each.newLimit != 0) {
            record.limits.traffic = WholeMegabytes {each.newLimit};
            record.limits.trafficRaised = true;
        }
        (void)Apply(record);
        EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM groups WHERE group_id = 81"),
                    ElementsAre(QString::fromLatin1(each.group)));
        EXPECT_THAT(RowsOf("SELECT blocked FROM users WHERE user_id = 1"),
                    ElementsAre(QString::fromLatin1(each.member)));
        EXPECT_THAT(RowsOf("SELECT blocked FROM traffic_use"),
                    ElementsAre(each.newLimit > 100 ? u"0"_s : u"1"_s));
    }
}

TEST_F(GroupApply, NothingIsWrittenForAGroupThatIsGone)
{
    GroupRecord record = Record();
    record.members.Remove(0);
    record.protocols.Select(u"HTTP"_s, true);
    record.block.requested = true;
    Execute("DELETE FROM groups WHERE group_id = 81");
    const QStringList before = EveryRow();
    EXPECT_THAT(Apply(record), ElementsAre(QString::fromLatin1(kCheck)));
    EXPECT_FALSE(applied);
    EXPECT_EQ(prompt.TakeSaid().size(), 1);
    EXPECT_EQ(EveryRow(), before);
    EXPECT_FALSE(LoadGroup(GroupId {81}));
}

TEST_F(GroupApply, LoadingRunsItsStatementsInOrder)
{
    const Texts expected = {
        "SELECT name, descrip, mode FROM groups WHERE group_id = (?)",
        "SELECT username, user_id FROM users WHERE group_id = (?) and monitored = true",
        "SELECT blocked, blockreason FROM groups WHERE group_id = (?) ",
        "SELECT trafperiod, traflim FROM groups WHERE group_id = (?)",
        "SELECT own_price, trafprice FROM groups WHERE group_id = (?)",
        "SELECT TimeAccess FROM groups WHERE group_id = (?)",
        "SELECT PortAccess FROM groups WHERE group_id = (?)",
        "SELECT id, Proto_name FROM Protocols ORDER BY Proto_name ASC",
    };
    EXPECT_THAT(StatementsOf([] { (void)LoadGroup(GroupId {81}); }).mid(0, 8),
                ElementsAreArray(Strings(expected)));
}
