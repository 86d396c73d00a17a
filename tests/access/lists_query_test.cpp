// What the lists read, and what their commands do, statement by statement.
#include "access/group_list.h"
#include "access/list_commands.h"
#include "access/user_list.h"
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
        EXPECT_EQ(ReadUserList(order, ascending, true).rows.size(), 0);
        EXPECT_EQ(recorder.Take(), QStringList(kSelect + clause));
    }
}

TEST_F(ListQueries, AGroupsNameIsLookedUpOnce)
{
    const GroupId sales = AddGroup(u"Sales"_s);
    AddUser(u"a"_s, sales);
    AddUser(u"b"_s, kEverybodyGroup);
    AddUser(u"c"_s, sales);
    AddUser(u"d"_s, GroupId {4711}); // a group that is not there
    StatementRecorder recorder;
    const UserList list = ReadUserList(0, true, true);
    EXPECT_EQ(
        recorder.Take(),
        QStringList({kSelect + u" ORDER BY username ASC"_s, kGroupName, kGroupName, kGroupName}));
    QStringList groups;
    for (const UserRow &row : list.rows) {
        groups << row.groupName;
    }
    EXPECT_EQ(groups, QStringList({u"Sales"_s, u"Everybody"_s, u"Sales"_s, QString()}));

    EXPECT_EQ(ReadUserList(0, true, false).rows.front().groupName, QString());
    EXPECT_EQ(recorder.Take().size(), 1);
}

TEST_F(ListQueries, OnlyMonitoredUsersWithAGroupAreListed)
{
    AddUser(u"shown"_s, kEverybodyGroup);
    AddUser(u"without group"_s, {});
    AddUser(u"unmonitored"_s, kEverybodyGroup, false);
    const UserList list = ReadUserList(0, true, true);
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
    const UserList list = ReadUserList(0, true, false);
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
    const UserList list = ReadUserList(0, true, true);
    EXPECT_EQ(list.rows.size(), 1000);
    EXPECT_EQ(list.rowUserIds.size(), 1000);
    EXPECT_EQ(CountListedUsers(), 1001U);
    Execute("DELETE FROM users WHERE user_id = 1001");
    EXPECT_EQ(ReadUserList(0, true, true).rows.size(), 1000);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users"),
              QStringList(u"1000"_s)); // no bound is left over

    for (int number = 1; number < 501; ++number) {
        Execute("INSERT INTO groups (name) VALUES (?)", u"group%1"_s.arg(number));
    }
    EXPECT_EQ(ReadGroupList().rows.size(), 500);
    EXPECT_EQ(ReadGroupNames().size(), 500);
    EXPECT_EQ(CountGroups(), 501U);
}

TEST_F(ListQueries, StrangeTextsComeBackWhole)
{
    const QString quoted = u"O'Brien \"x\"; DROP TABLE users; --"_s;
    AddUser(quoted, AddGroup(quoted));
    // 253 bytes, then a character of two: the driver's buffer cuts it in the middle.
    Execute("INSERT INTO users (username, group_id) VALUES ((?) || (?), 80)",
            QString(253, u'x'),
            u"\u00e9\u00e9\u00e9"_s);
    const UserList list = ReadUserList(0, true, true);
    EXPECT_EQ(NamesOf(list), QStringList({quoted, QString(253, u'x')}));
    EXPECT_EQ(list.rows[0].groupName, quoted);
}

TEST_F(ListQueries, CommandsRunTheirStatementsInOrder)
{
    AddUser(u"a"_s, kEverybodyGroup);
    const struct
    {
        std::function<void()> run;
        QStringList statements;
    } commands[] = {
        {[] { EXPECT_FALSE(UserHasAccount(UserId {1})); },
         {u"SELECT mode FROM users WHERE user_id = (?)"_s}},
        {[] { EXPECT_FALSE(GroupHasAccount(kEverybodyGroup)); },
         {u"SELECT mode FROM groups WHERE group_id = (?)"_s}},
        {[] { MoveUserToGroup(UserId {1}, GroupId {81}); },
         {u"UPDATE users SET group_id = (?)  WHERE user_id = (?)"_s}},
        {[] { StopMonitoring(UserId {1}); },
         {u"UPDATE users SET monitored = false WHERE user_id = (?)"_s}},
        {[] { DeleteUser(UserId {1}); },
         {u"DELETE FROM users WHERE user_id = (?)"_s,
          u"DELETE FROM traffic_use WHERE user_id = (?)"_s,
          u"DELETE FROM time_use WHERE user_id = (?)"_s,
          u"DELETE FROM siteaccess WHERE user_id = (?)"_s,
          u"DELETE FROM billing WHERE object_id = (?)"_s,
          u"UPDATE logins SET userid=0 WHERE userid = (?)"_s}},
        {[] { EXPECT_EQ(AddGroup(u"New"_s), GroupId {81}); },
         {u"INSERT INTO groups (name) VALUES (?)"_s,
          u"SELECT group_id FROM groups WHERE name = (?)"_s}},
        {[] { RenameGroup(GroupId {81}, u"Newer"_s); },
         {u"UPDATE groups SET name=(?) WHERE group_id = (?)"_s}},
        {[] { DeleteGroupOfList(GroupId {81}); },
         {u"DELETE FROM groups WHERE group_id = (?)"_s,
          u"UPDATE users SET group_id = 80 WHERE group_id = (?)"_s}},
        {[] { DeleteGroupOfDialog(GroupId {81}); },
         {u"UPDATE users SET group_id = 80  WHERE group_id = (?)"_s,
          u"DELETE FROM groups WHERE group_id = (?)"_s}},
        {[] { EXPECT_EQ(ReadGroupList().rowGroupIds, QList {kEverybodyGroup}); },
         {u"SELECT name, descrip, blocked, group_id FROM groups"_s}},
        {[] { EXPECT_EQ(ReadGroupNames().front().name, u"Everybody"_s); },
         {u"SELECT name, group_id FROM groups"_s}},
    };
    StatementRecorder recorder;
    for (const auto &[run, statements] : commands) {
        run();
        EXPECT_EQ(recorder.Take(), statements);
    }
}

TEST_F(ListQueries, CommandsTouchTheirRowsOnly)
{
    for (const auto *name : {"a", "b"}) {
        AddUser(QString::fromLatin1(name), kEverybodyGroup);
    }
    for (const quint32 user : {1U, 2U}) {
        Execute("INSERT INTO traffic_use (user_id, period) VALUES ((?), 0)", user);
        Execute("INSERT INTO time_use (user_id, period) VALUES ((?), 0)", user);
        Execute("INSERT INTO SiteAccess (user_id, site_id, access_time) VALUES ((?), 1, '')", user);
        Execute("INSERT INTO billing (mode, object_id) VALUES (2, (?))", user);
        Execute("INSERT INTO Logins (login, userid) VALUES ((?), (?))", u"l%1"_s.arg(user), user);
    }
    DeleteUser(UserId {1});
    for (const auto *query : {"SELECT user_id FROM users",
                              "SELECT user_id FROM traffic_use",
                              "SELECT user_id FROM time_use",
                              "SELECT user_id FROM siteaccess",
                              "SELECT object_id FROM billing"}) {
        EXPECT_EQ(RowsOf(query), QStringList(u"2"_s)) << query;
    }
    EXPECT_EQ(RowsOf("SELECT login, userid FROM logins ORDER BY login"),
              QStringList({u"l1|0"_s, u"l2|2"_s}));

    const GroupId group = AddGroup(QString(300, u'\u00e9')); // cut to 254 bytes, whole characters
    EXPECT_EQ(ReadGroupNames().back().name, QString(127, u'\u00e9'));
    MoveUserToGroup(UserId {2}, group);
    DeleteGroupOfList(group);
    EXPECT_EQ(RowsOf("SELECT user_id, group_id FROM users"), QStringList(u"2|80"_s));
    EXPECT_EQ(CountGroups(), 1U);
}

TEST_F(ListQueries, AreEmptyWithoutADatabase)
{
    AddUser(u"a"_s, kEverybodyGroup);
    DisconnectDatabase();
    EXPECT_EQ(ReadUserList(0, true, true).rows.size(), 0);
    EXPECT_EQ(ReadGroupList().rows.size(), 0);
    EXPECT_FALSE(UserHasAccount(UserId {1}));
    DeleteUser(UserId {1});
    ASSERT_EQ(ConnectDatabase(qPrintable(Dsn())), 1);
    EXPECT_EQ(CountListedUsers(), 1U);
}
