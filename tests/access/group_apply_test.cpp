#include "apply_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace {

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
    [[nodiscard]] static GroupRecord Record() { return LoadGroup(GroupId {81}).value().value(); }

    // The changing statements.
    [[nodiscard]] QStringList Apply(const GroupRecord &record)
    {
        return ChangesOf(GroupAction(record));
    }

    // The changing statements of mode, limit, credit and price alone: they come last.
    [[nodiscard]] QStringList ModeStep(const GroupRecord &record)
    {
        const QStringList all = Apply(record);
        return all.mid(all.lastIndexOf(QString::fromLatin1(kPortDelete)) + 1);
    }
};

} // namespace

TEST_F(GroupApply, EverythingChangedIsStoredInTheFixedOrder)
{
    GroupRecord record = Record();
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    record.draft.name = u"Front office"_s;
    record.draft.description = u"ground floor"_s;
    record.block.requested = true;
    record.protocols.allow = true;
    record.protocols.Select(u"HTTP"_s, true);
    record.times.Add({1, u"08.00"_s, u"09.00"_s});
    record.times.grant = true;
    record.draft.mode = AccountingMode::Traffic;
    record.limits.period = LimitPeriod::Day;
    record.limits.traffic = WholeMegabytes {700};

    const Texts expected = {
        "UPDATE users SET group_id = 80  WHERE user_id = (?)",
        "UPDATE users SET group_id = (?)  WHERE user_id = (?)",
        kGeneral,
        "UPDATE groups SET name_key = (?) WHERE group_id = (?)",
        "UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)",
        "UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)",
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)",
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)",
        "UPDATE Groups SET PortAccess = true WHERE Group_id = (?)",
        kPortDelete,
        kPortDelete,
        "INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))",
        kMode1,
        "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)",
        kWriteLimit,
    };
    EXPECT_THAT(Apply(record), ElementsAreArray(Strings(expected)));
    EXPECT_TRUE(ran.IsDone());
    EXPECT_THAT(ran.asked, IsEmpty());
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
        kGeneral,
        "UPDATE Groups SET PortAccess = false WHERE Group_id = (?)",
        "INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))",
        kPortDelete,
        "UPDATE groups SET mode = 0 WHERE group_id = (?)",
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
        Texts reads;
        Texts statements;
    };
    const Case cases[] = {
        {"no control",
         [](GroupRecord &record) { record.draft.mode = AccountingMode::NoControl; },
         {"SELECT blockreason FROM groups WHERE group_id = (?)"},
         {"UPDATE groups SET mode = 0 WHERE group_id = (?)"}},
        {"limit",
         [](GroupRecord &record) { record.draft.mode = AccountingMode::Traffic; },
         {kReadLimit},
         {kMode1, kWriteLimit}},
        {"raised limit",
         [](GroupRecord &record) {
             record.draft.mode = AccountingMode::Traffic;
             record.limits.traffic = WholeMegabytes {10};
         },
         {kReadLimit,
          "SELECT traflim FROM groups WHERE group_id = (?)",
          "SELECT trafperiod FROM groups WHERE group_id = (?) ",
          "SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2",
          "SELECT traflim, blockreason FROM groups WHERE group_id = (?)",
          "SELECT data FROM traffic_use WHERE traf_id = (?)",
          "SELECT data, usage FROM billing WHERE group_id = (?) AND mode=1 AND closed=0"},
         {kMode1, "UPDATE traffic_use SET blocked=false WHERE traf_id=(?)", kWriteLimit}},
        {"credit, global price",
         [](GroupRecord &record) { record.draft.mode = AccountingMode::Provider; },
         {kCredits},
         {"UPDATE Groups SET mode = 2 WHERE Group_id = (?)",
          "UPDATE Groups SET own_price = false WHERE Group_id = (?)"}},
        {"staged credit, own price",
         [](GroupRecord &record) {
             record.draft.mode = AccountingMode::Provider;
             record.account.credits.push_back({BaseUnits {12.5}, true, {}});
             record.limits.ownPrice = true;
             record.limits.price = 0.25;
         },
         {kCredits},
         {"UPDATE Groups SET mode = 2 WHERE Group_id = (?)",
          "UPDATE Groups SET credit = (?), creditvalue = (?) WHERE Group_id = (?)",
          "UPDATE Groups SET own_price = true WHERE Group_id = (?)",
          "UPDATE Groups SET trafprice = (?) WHERE Group_id = (?)"}},
    };
    const Texts always = {
        "SELECT blocked FROM groups WHERE group_id =(?)",
        "SELECT user_id FROM Port_blocked WHERE Group_id = (?) AND port_id = (?)"};
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("UPDATE groups SET traflim = 0 WHERE group_id = 81");
        GroupRecord record = Record();
        each.change(record);
        const QStringList all =
            StatementsOf([&] { ran = RunAnswering(GroupAction(record), false); });
        EXPECT_THAT(all, IsSupersetOf(Strings(always)));
        EXPECT_THAT(all, IsSupersetOf(Strings(each.reads)));
        Execute("UPDATE groups SET traflim = 0 WHERE group_id = 81");
        EXPECT_THAT(ModeStep(record), ElementsAreArray(Strings(each.statements)));
    }
    EXPECT_THAT(RowsOf("SELECT mode, credit, creditvalue, own_price, trafprice FROM groups "
                       "WHERE group_id = 81"),
                ElementsAre(u"2|2.0|12.5|1|0.25"_s));
}

TEST_F(GroupApply, NothingIsWrittenForAGroupThatIsGone)
{
    GroupRecord record = Record();
    record.members.Remove(0);
    record.protocols.Select(u"HTTP"_s, true);
    record.block.requested = true;
    Execute("DELETE FROM groups WHERE group_id = 81");
    const QStringList before = EveryRow();
    EXPECT_THAT(Apply(record), IsEmpty());
    EXPECT_EQ(ran.outcome.state, Outcome::State::Refused);
    EXPECT_EQ(ran.outcome.refusal,
              u"This group has been deleted meanwhile. Nothing was changed."_s);
    EXPECT_EQ(EveryRow(), before);
    EXPECT_EQ(LoadGroup(GroupId {81}).value(), std::nullopt);
}

TEST_F(GroupApply, NobodyIsMovedToEverybodyWhenThatIsGone)
{
    Execute("DELETE FROM groups WHERE group_id = 80");
    GroupRecord record = Record();
    EXPECT_FALSE(Apply(record).isEmpty());
    record.members.Remove(0);
    EXPECT_THAT(Apply(record), IsEmpty());
    EXPECT_EQ(ran.outcome.state, Outcome::State::Refused);
    EXPECT_THAT(RowsOf("SELECT group_id FROM users WHERE user_id = 1"), ElementsAre(u"81"_s));
}

TEST_F(GroupApply, TheOutcomeTellsTheRowsThatChanged)
{
    GroupRecord record = Record();
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    record.protocols.Select(u"HTTP"_s, true);
    (void)Apply(record);
    ASSERT_EQ(ran.outcome.changes.size(), 3);
    EXPECT_EQ(ran.outcome.changes[0],
              (Change {u"users"_s, u"1"_s, {u"group_id=81"_s}, {u"group_id=80"_s}}));
    EXPECT_EQ(ran.outcome.changes[1],
              (Change {u"users"_s, u"9"_s, {u"group_id=80"_s}, {u"group_id=81"_s}}));
    EXPECT_EQ(ran.outcome.changes[2].table, u"port_blocked"_s);

    record = Record();
    record.block.requested = true;
    (void)Apply(record);
    EXPECT_EQ(ran.outcome.changes.size(), 3) << "the group and its two members";
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
        "SELECT Port_id FROM Ports WHERE Proto_id = (?)",
        "SELECT user_id FROM Port_blocked WHERE group_id = (?) AND port_id = (?)",
    };
    EXPECT_THAT(StatementsOf([] { (void)LoadGroup(GroupId {81}); }).mid(0, 10),
                ElementsAreArray(Strings(expected)));
}
