// What the lists read, statement by statement.
#include "access/group_list.h"
#include "access/group_record.h"
#include "access/list_commands.h"
#include "access/many_users.h"
#include "access/user_list.h"
#include "access/user_record.h"
#include "db/value_codes.h"
#include "support/core/database_fixture.h"
#include "support/core/statement_recorder.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSelect =
    u"SELECT username, stationname, fullname, ip_addr, blocked, user_id, blockreason, mac_addr, "
    "group_id, timeaccess, timeblocked FROM users WHERE monitored = true AND group_id<>0"_s;
const QString kGroupName = u"SELECT name FROM groups WHERE group_id = (?)"_s;

class ListQueries : public DatabaseFixture
{
protected:
    static void AddUser(const QString &name, GroupId group, bool monitored = true)
    {
        Execute("INSERT INTO users (username, group_id, monitored) VALUES ((?), (?), (?))",
                name,
                group,
                quint32 {monitored});
    }

    static void AddUsers(quint32 count)
    {
        Execute("INSERT INTO users (username, group_id) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                "SELECT i + 1 FROM n WHERE i < (?)) SELECT 'user' || i, 80 FROM n",
                count);
    }

    static QStringList NamesOf(const UserList &list)
    {
        QStringList names;
        for (const UserRow &row : list.rows) {
            names << row.userName;
        }
        return names;
    }
};

} // namespace

TEST_F(ListQueries, EveryOrderHasItsOwnStatement)
{
    const std::tuple<int, bool, QString> orders[] = {
        {0, true, u" ORDER BY username ASC"_s},
        {0, false, u" ORDER BY username DESC"_s},
        {1, true, u" ORDER BY stationname ASC"_s},
        {1, false, u" ORDER BY stationname DESC"_s},
        {2, true, u" ORDER BY fullname ASC"_s},
        {2, false, u" ORDER BY fullname DESC"_s},
        {3, true, u" ORDER BY ip_addr ASC"_s},
        {3, false, u" ORDER BY ip_addr DESC"_s},
        {4, true, u" ORDER BY mac_addr ASC"_s},
        {4, false, u" ORDER BY mac_addr DESC"_s},
        {5, true, u" ORDER BY blocked ASC"_s},
        {5, false, u" ORDER BY blocked DESC"_s},
        {6, true, QString()},
        {-1, false, QString()},
    };
    StatementRecorder recorder;
    for (const auto &[order, ascending, clause] : orders) {
        EXPECT_EQ(ReadUserList(order, ascending, true)->rows.size(), 0);
        EXPECT_EQ(recorder.Take(), QStringList(kSelect + clause));
    }
}

TEST_F(ListQueries, AGroupsNameIsLookedUpOnce)
{
    const GroupId sales {81};
    Execute("INSERT INTO groups (group_id, name) VALUES (81, 'Sales')");
    AddUser(u"a"_s, sales);
    AddUser(u"b"_s, kEverybodyGroup);
    AddUser(u"c"_s, sales);
    AddUser(u"d"_s, GroupId {4711}); // a group that is not there
    StatementRecorder recorder;
    const UserList list = ReadUserList(0, true, true).value();
    EXPECT_EQ(
        recorder.Take(),
        QStringList({kSelect + u" ORDER BY username ASC"_s, kGroupName, kGroupName, kGroupName}));
    QStringList groups;
    for (const UserRow &row : list.rows) {
        groups << row.groupName;
    }
    EXPECT_EQ(groups, QStringList({u"Sales"_s, u"Everybody"_s, u"Sales"_s, QString()}));

    EXPECT_EQ(ReadUserList(0, true, false)->rows.front().groupName, QString());
    EXPECT_EQ(recorder.Take().size(), 1);
}

TEST_F(ListQueries, OnlyMonitoredUsersWithAGroupAreListed)
{
    AddUser(u"shown"_s, kEverybodyGroup);
    AddUser(u"without group"_s, {});
    AddUser(u"unmonitored"_s, kEverybodyGroup, false);
    const UserList list = ReadUserList(0, true, true).value();
    EXPECT_EQ(NamesOf(list), QStringList(u"shown"_s));
    EXPECT_EQ(list.rowUserIds, QList {UserId {1}});
    EXPECT_EQ(CountListedUsers(), 1U);
}

TEST_F(ListQueries, AccessFollowsFourColumns)
{
    struct Case
    {
        quint32 blocked, reason, timeAccess, timeBlocked;
        AccessState access;
    };
    using enum AccessState;
    const Case cases[] = {
        {0, 0, 0, 0, Allowed},
        {1, 3, 0, 0, Blocked},
        {1, 4, 0, 0, Allowed},
        {1, 1, 1, 1, Blocked},
        {0, 0, 1, 1, Allowed},
        {1, 3, 1, 0, OutsideAllowedTime},
        {0, 0, 0, 1, OutsideAllowedTime},
        {0, 3, 0, 0, Allowed},
        {1, 4, 1, 0, OutsideAllowedTime},
    };
    int number = 0;
    for (const Case &row : cases) {
        Execute(
            "INSERT INTO users (username, group_id, blocked, blockreason, TimeAccess, timeblocked) "
            "VALUES ((?), 80, (?), (?), (?), (?))",
            u"user%1"_s.arg(++number),
            row.blocked,
            row.reason,
            row.timeAccess,
            row.timeBlocked);
    }
    const UserList list = ReadUserList(0, true, false).value();
    for (size_t at = 0; at < std::size(cases); ++at) {
        EXPECT_EQ(list.rows[static_cast<qsizetype>(at)].access, cases[at].access) << at;
    }
}

TEST_F(ListQueries, HardwareAddressesAreShownInPairs)
{
    EXPECT_EQ(MacAddressText(u"0011AABBCCDD"_s), u"00-11-AA-BB-CC-DD"_s);
    EXPECT_EQ(MacAddressText({}), QString());
    EXPECT_EQ(MacAddressText(u"0011A"_s), u"00-11-A"_s);
    EXPECT_EQ(MacAddressText(u"0011AABBCCDDEEFF"_s), u"00-11-AA-BB-CC-DD"_s);
}

TEST_F(ListQueries, TheListsStopAtTheirCapacity)
{
    AddUsers(1001);
    const UserList list = ReadUserList(0, true, true).value();
    EXPECT_EQ(list.rows.size(), 1000);
    EXPECT_EQ(list.rowUserIds.size(), 1000);
    EXPECT_EQ(CountListedUsers(), 1001U);
    Execute("DELETE FROM users WHERE user_id = 1001");
    EXPECT_EQ(ReadUserList(0, true, true)->rows.size(), 1000);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users"),
              QStringList(u"1000"_s)); // no bound is left over

    for (int number = 1; number < 501; ++number) {
        Execute("INSERT INTO groups (name) VALUES (?)", u"group%1"_s.arg(number));
    }
    EXPECT_EQ(ReadGroupList()->rows.size(), 500);
    EXPECT_EQ(ReadGroupNames()->size(), 500);
    EXPECT_EQ(CountGroups(), 501U);
}

TEST_F(ListQueries, StrangeTextsComeBackWhole)
{
    const QString quoted = u"O'Brien \"x\"; DROP TABLE users; --"_s;
    Execute("INSERT INTO groups (group_id, name) VALUES (81, (?))", quoted);
    AddUser(quoted, GroupId {81});
    // 253 bytes, then a character of two: the driver's buffer cuts it in the middle.
    Execute("INSERT INTO users (username, group_id) VALUES ((?) || (?), 80)",
            QString(253, u'x'),
            u"\u00e9\u00e9\u00e9"_s);
    const UserList list = ReadUserList(0, true, true).value();
    EXPECT_EQ(NamesOf(list), QStringList({quoted, QString(253, u'x')}));
    EXPECT_EQ(list.rows[0].groupName, quoted);
}

TEST_F(ListQueries, GroupsAreReadByTwoStatements)
{
    StatementRecorder recorder;
    EXPECT_EQ(ReadGroupList()->rowGroupIds, QList {kEverybodyGroup});
    EXPECT_EQ(ReadGroupNames()->front().name, u"Everybody"_s);
    EXPECT_EQ(recorder.Take(),
              QStringList({u"SELECT name, descrip, blocked, group_id FROM groups"_s,
                           u"SELECT name, group_id FROM groups"_s}));
}

TEST_F(ListQueries, WithoutADatabaseTheyAreNotEmptyButUnread)
{
    AddUser(u"a"_s, kEverybodyGroup);
    DisconnectDatabase();
    EXPECT_FALSE(ReadUserList(0, true, true).has_value());
    EXPECT_FALSE(CountListedUsers().has_value());
    EXPECT_FALSE(ReadGroupList().has_value());
    EXPECT_FALSE(ReadGroupNames().has_value());
    EXPECT_FALSE(CountGroups().has_value());
    EXPECT_FALSE(LoadUser(UserId {1}).has_value());
    EXPECT_FALSE(LoadGroup(kEverybodyGroup).has_value());
    EXPECT_FALSE(UserHasAccount(UserId {1}).has_value());
    EXPECT_FALSE(NamesOfUsers({UserId {1}}).has_value());
    ASSERT_EQ(ConnectDatabase(qPrintable(Dsn())), 1);
    EXPECT_EQ(CountListedUsers(), 1U);
}

// A name that could not be read is not an empty name.
TEST_F(ListQueries, AFailedLookUpOfAGroupsNameFailsTheList)
{
    AddUser(u"a"_s, kEverybodyGroup);
    Execute("ALTER TABLE groups RENAME TO hidden");
    const auto list = ReadUserList(0, true, true);
    ASSERT_FALSE(list.has_value());
    EXPECT_EQ(list.error().statement, kGroupName);
    EXPECT_EQ(ReadUserList(0, true, false)->rows.size(), 1);
}
