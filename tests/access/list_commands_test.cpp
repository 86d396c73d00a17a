// What the commands of the lists do, the same on every database engine.
#include "access/list_commands.h"

#include "access/group_list.h"
#include "db/value_codes.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_recorder.h"

#include <algorithm>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr GroupId kOffice {81};
const std::vector<UserId> kBoth {UserId {2}, UserId {1}};

class ListCommands : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (name) VALUES ('Office')");
        Execute("INSERT INTO users (user_id, username, group_id) VALUES (1, 'anna', 80), "
                "(2, 'bert', 81), (3, 'carl', 81)");
    }

    // The changing statements of an action that is done.
    static QStringList Do(const Action &action)
    {
        StatementRecorder recorder;
        EXPECT_TRUE(RunAction(action, {}, nullptr).IsDone());
        return recorder.TakeChanging();
    }

    // What an action says that is refused and has changed nothing.
    static QString Refusal(const Action &action)
    {
        const QStringList before = EveryRow();
        const Outcome outcome = RunAction(action, {}, nullptr);
        EXPECT_EQ(outcome.state, Outcome::State::Refused);
        EXPECT_EQ(EveryRow(), before);
        return outcome.refusal;
    }

    static QStringList GroupsOfUsers()
    {
        return RowsOf("SELECT user_id, group_id FROM users ORDER BY user_id");
    }
};

void AddRecords(UserId user)
{
    Execute("INSERT INTO traffic_use (user_id, period) VALUES ((?), 0)", user);
    Execute("INSERT INTO time_use (user_id, period) VALUES ((?), 0)", user);
    Execute("INSERT INTO SiteAccess (user_id, site_id, access_time) VALUES ((?), 1, '')", user);
    Execute("INSERT INTO billing (mode, object_id) VALUES (2, (?))", user);
    Execute("INSERT INTO Logins (login, userid) VALUES ((?), (?))", u"l%1"_s.arg(user.value), user);
}

} // namespace

TB_ON_EVERY_ENGINE(ListCommands);

TEST_P(ListCommands, AnAccountNeedsAMode)
{
    Execute("UPDATE users SET mode = 2 WHERE user_id = 2");
    Execute("UPDATE groups SET mode = 1 WHERE group_id = 81");
    EXPECT_EQ(UserHasAccount(UserId {1}), false);
    EXPECT_EQ(UserHasAccount(UserId {2}), true);
    EXPECT_EQ(UserHasAccount(UserId {77}), false);
    EXPECT_EQ(GroupHasAccount(kEverybodyGroup), false);
    EXPECT_EQ(GroupHasAccount(kOffice), true);
}

TEST_P(ListCommands, UsersAreMovedInTheirOrder)
{
    const QString move = u"UPDATE users SET group_id = (?)  WHERE user_id = (?)"_s;
    EXPECT_EQ(Do(MoveUsersAction(kBoth, kOffice)), QStringList({move, move}));
    EXPECT_THAT(GroupsOfUsers(), ElementsAre(u"1|81"_s, u"2|81"_s, u"3|81"_s));
}

TEST_P(ListCommands, NobodyIsMovedIntoAGroupThatIsGone)
{
    EXPECT_EQ(Refusal(MoveUsersAction(kBoth, GroupId {82})),
              u"The chosen group has been deleted meanwhile. Nothing was changed."_s);
}

TEST_P(ListCommands, UsersThatAreGoneAreLeftOut)
{
    EXPECT_EQ(Do(MoveUsersAction({UserId {77}, UserId {1}}, kOffice)).size(), 1);
    EXPECT_EQ(Do(StopMonitoringAction({UserId {1}, UserId {77}})).size(), 1);
    EXPECT_EQ(Refusal(MoveUsersAction({UserId {77}}, kOffice)),
              u"This user has been deleted meanwhile. Nothing was changed."_s);
    EXPECT_EQ(Refusal(StopMonitoringAction({UserId {77}, UserId {78}})),
              u"These users have been deleted meanwhile. Nothing was changed."_s);
}

TEST_P(ListCommands, MonitoringStops)
{
    EXPECT_EQ(Do(StopMonitoringAction({UserId {2}})),
              QStringList(u"UPDATE users SET monitored = false WHERE user_id = (?)"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, monitored FROM users ORDER BY user_id"),
                ElementsAre(u"1|1"_s, u"2|0"_s, u"3|1"_s));
}

TEST_P(ListCommands, ADeletionTakesTheUsersRowsOnly)
{
    for (const quint32 user : {1U, 2U, 3U}) {
        AddRecords(UserId {user});
    }
    const QStringList one {u"DELETE FROM users WHERE user_id = (?)"_s,
                           u"DELETE FROM traffic_use WHERE user_id = (?)"_s,
                           u"DELETE FROM time_use WHERE user_id = (?)"_s,
                           u"DELETE FROM siteaccess WHERE user_id = (?)"_s,
                           u"DELETE FROM billing WHERE object_id = (?)"_s,
                           u"UPDATE logins SET userid=0 WHERE userid = (?)"_s};
    EXPECT_EQ(Do(DeleteUsersAction(kBoth)), one + one);
    for (const auto *query : {"SELECT user_id FROM users",
                              "SELECT user_id FROM traffic_use",
                              "SELECT user_id FROM time_use",
                              "SELECT user_id FROM siteaccess",
                              "SELECT object_id FROM billing"}) {
        EXPECT_EQ(RowsOf(query), QStringList(u"3"_s)) << query;
    }
    EXPECT_THAT(RowsOf("SELECT login, userid FROM logins ORDER BY login"),
                ElementsAre(u"l1|0"_s, u"l2|0"_s, u"l3|3"_s));
}

TEST_P(ListCommands, ADeletionThatFailsLeavesEveryUser)
{
    for (const quint32 user : {1U, 2U}) {
        AddRecords(UserId {user});
    }
    const auto users = [] { return RowsOf("SELECT user_id FROM users ORDER BY user_id"); };
    const auto used = [] { return RowsOf("SELECT user_id FROM traffic_use ORDER BY user_id"); };
    Execute("ALTER TABLE siteaccess RENAME TO hidden");
    const Outcome outcome = RunAction(DeleteUsersAction(kBoth), {}, nullptr);
    Execute("ALTER TABLE hidden RENAME TO siteaccess");
    EXPECT_EQ(outcome.state, Outcome::State::NotDone);
    ASSERT_FALSE(outcome.failures.isEmpty());
    EXPECT_EQ(outcome.failures.front().statement, u"DELETE FROM siteaccess WHERE user_id = (?)"_s);
    EXPECT_THAT(outcome.changes, IsEmpty());
    EXPECT_THAT(users(), ElementsAre(u"1"_s, u"2"_s, u"3"_s));
    EXPECT_THAT(used(), ElementsAre(u"1"_s, u"2"_s));
}

// Keeps the name from any other group.
const QString kClaim = u"UPDATE groups SET name_key = (?) WHERE group_id = (?)"_s;

TEST_P(ListCommands, AGroupIsAddedAndFound)
{
    const auto added = std::make_shared<GroupId>();
    EXPECT_EQ(Do(AddGroupAction(u"New"_s, added)),
              (QStringList {u"INSERT INTO groups (name) VALUES (?)"_s, kClaim}));
    EXPECT_THAT(RowsOf("SELECT group_id FROM groups WHERE name = 'New'"),
                ElementsAre(QString::number(added->value)));

    const QString longName(300, u'\u00e9'); // cut to 254 bytes, whole characters
    (void)Do(AddGroupAction(longName, added));
    const auto groups = ReadGroupNames().value();
    const auto found = std::find_if(groups.begin(), groups.end(), [&](const NamedGroup &group) {
        return group.groupId == *added;
    });
    ASSERT_NE(found, groups.end());
    EXPECT_EQ(found->name, QString(127, u'\u00e9'));
}

TEST_P(ListCommands, AGroupIsRenamed)
{
    EXPECT_EQ(Do(RenameGroupAction(kOffice, u"O'Brien \"x\""_s)),
              (QStringList {u"UPDATE groups SET name=(?) WHERE group_id = (?)"_s, kClaim}));
    EXPECT_THAT(RowsOf("SELECT name FROM groups WHERE group_id = 81"),
                ElementsAre(u"O'Brien \"x\""_s));
    EXPECT_EQ(Refusal(RenameGroupAction(GroupId {82}, u"x"_s)),
              u"This group has been deleted meanwhile. Nothing was changed."_s);
}

TEST_P(ListCommands, TheGroupsListDeletesTheGroupFirst)
{
    EXPECT_EQ(Do(DeleteGroupOfListAction(kOffice)),
              QStringList({u"DELETE FROM groups WHERE group_id = (?)"_s,
                           u"UPDATE users SET group_id = 80 WHERE group_id = (?)"_s}));
    EXPECT_THAT(GroupsOfUsers(), ElementsAre(u"1|80"_s, u"2|80"_s, u"3|80"_s));
    EXPECT_EQ(CountGroups(), 1U);
}

TEST_P(ListCommands, TheDialogMovesTheMembersFirst)
{
    EXPECT_EQ(Do(DeleteGroupOfDialogAction(kOffice)),
              QStringList({u"UPDATE users SET group_id = 80  WHERE group_id = (?)"_s,
                           u"DELETE FROM groups WHERE group_id = (?)"_s}));
    EXPECT_THAT(GroupsOfUsers(), ElementsAre(u"1|80"_s, u"2|80"_s, u"3|80"_s));
    EXPECT_EQ(CountGroups(), 1U);
}

// Kept: the dialog deletes "Everybody" when it is told to. From then on there is nowhere to move to.
TEST_P(ListCommands, WithoutEverybodyOnlyEmptyGroupsAreDeleted)
{
    Execute("INSERT INTO groups (group_id, name) VALUES (82, 'Empty')");
    EXPECT_EQ(Do(DeleteGroupOfDialogAction(kEverybodyGroup)).size(), 2);
    EXPECT_EQ(Do(DeleteGroupOfDialogAction(kEverybodyGroup)).size(), 2) << "it stays in the list";
    EXPECT_THAT(GroupsOfUsers(), ElementsAre(u"1|80"_s, u"2|81"_s, u"3|81"_s));
    const QString gone = u"The group \"Everybody\", into which users would be moved, has been "
                         "deleted. Nothing was changed."_s;
    EXPECT_EQ(Refusal(DeleteGroupOfListAction(kOffice)), gone);
    EXPECT_EQ(Refusal(DeleteGroupOfDialogAction(kOffice)), gone);
    EXPECT_EQ(Do(DeleteGroupOfListAction(GroupId {82})).size(), 2);
    EXPECT_EQ(CountGroups(), 1U);
}

TEST_P(ListCommands, TheOutcomeTellsWhoWasMoved)
{
    const Outcome outcome = RunAction(DeleteGroupOfListAction(kOffice), {}, nullptr);
    QStringList rows;
    for (const Change &change : outcome.changes) {
        rows << change.table + u' ' + change.key + u' ' + change.after.join(u',');
    }
    EXPECT_THAT(rows,
                ElementsAre(u"groups 81 "_s, u"users 2 group_id=80"_s, u"users 3 group_id=80"_s));
}
