#include "admin/login_table.h"

#include "admin/password_digest.h"
#include "admin/unmonitored.h"
#include "db/value_codes.h"
#include "support/core/engine_fixture.h"
#include "support/core/scripted_prompt.h"
#include "support/core/statement_recorder.h"

using namespace Qt::StringLiterals;

TEST(PasswordDigest, IsTheKnownTextOfEachPassword)
{
    const std::pair<QString, const char *> known[] = {
        {u""_s, "5b85554da1606b2582ebe938a45dd3bd"},
        {u"secret"_s, "b 6d1c2fee12fde2cf6fd690a11b24c3"}, // a byte below 0x10: digit and blank
        {QString(255, u'a'), "d 94a8dcb83df7172f0 98a 8094b662"},
        {QString(256, u'b'), "91bfe9a0d83cfafac19af2adcffeec7a"},
        {u"\u043f\u0430\u0440\u043e\u043b\u044c"_s, "92d85 97459e5daa79143e42a91c6f1d"},
    };
    for (const auto &[password, digest] : known) {
        EXPECT_EQ(PasswordDigest(password), QString::fromLatin1(digest)) << qPrintable(password);
        EXPECT_EQ(PasswordDigest(password)->size(), 32);
    }
    EXPECT_FALSE(PasswordDigest(QString(257, u'c')));
    EXPECT_FALSE(PasswordDigest(QString(129, QChar(0x43f)))); // 258 bytes
}

class LoginTableTest : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO users (username, group_id, monitored) VALUES ('ann', 80, true)");
        Execute("INSERT INTO users (username, group_id, monitored) VALUES ('bob', 80, true)");
        ann = FindUserByName(u"ann"_s)->userId;
        bob = FindUserByName(u"bob"_s)->userId;
        Execute("INSERT INTO Logins (login, Pwd, userid, LimitPC, LimitPCMode, LimitIP) VALUES "
                "('ann1', 'digest of ann', (?), 1, 0, '10.0.0.7')",
                ann);
        Execute("INSERT INTO Logins (login, Pwd, userid, Virtual) VALUES ('guest', 'g', 0, 1)");
        table.Load();
    }

    static LoginEntry Entry(const QString &name, const QString &password = u"pw"_s)
    {
        LoginEntry entry;
        entry.login.name = name;
        entry.password = password;
        entry.retyped = password;
        return entry;
    }

    void Add(LoginEntry entry)
    {
        ASSERT_EQ(table.Check(entry, {}), std::nullopt);
        table.Put(entry, {});
    }

    LoginTable table;
    ScriptedPrompt prompt;
    UserId ann;
    UserId bob;
};

TB_ON_EVERY_ENGINE(LoginTableTest);

TEST_P(LoginTableTest, LoadsEachLoginWithItsUserAndLimit)
{
    ASSERT_EQ(table.Logins().size(), 2U);
    const Login &first = table.Logins()[0];
    EXPECT_EQ(first.userName, u"ann"_s);
    EXPECT_EQ(first.groupId, kEverybodyGroup);
    EXPECT_EQ(first.limit, Login::Limit::IpAddress);
    EXPECT_EQ(first.limitIp, u"10.0.0.7"_s);
    EXPECT_FALSE(table.Logins()[1].userId.IsSet());
    EXPECT_TRUE(table.Logins()[1].guest);
}

TEST_P(LoginTableTest, TheFirstProblemInOrderIsTold)
{
    // Everything is wrong at once; mending one shows the next.
    LoginEntry entry;
    entry.login.limit = Login::Limit::IpAddress;
    entry.bindToUser = true;
    entry.retyped = u"other"_s;
    const auto problem = [&] { return table.Check(entry, {}).value_or(u"none"_s); };
    EXPECT_EQ(problem(), u"You entered incorrect IP address. Please re-enter address"_s);
    entry.login.limit = Login::Limit::MacAddress;
    for (const auto *mac : {"", "0011AABBCCD", "0011AABBCCDDE"}) {
        entry.login.limitMac = QString::fromLatin1(mac);
        EXPECT_EQ(problem(),
                  u"You have entered incorrect MAC address. Please re-enter the address"_s);
    }
    entry.login.limitMac = u"ZZZZZZZZZZZZ"_s; // twelve characters of any kind
    EXPECT_EQ(problem(), u"Please bind the login to existing user with 'Browse' button"_s);
    entry.login.userId = bob;
    EXPECT_EQ(problem(), u"Please enter login name"_s);
    entry.login.name = u"GUEST"_s; // differs in letter case only
    EXPECT_EQ(problem(), u"This login name already exists! Please enter another login name"_s);
    entry.login.name = u"bob1"_s;
    EXPECT_EQ(problem(), u"Passwords are not identical. Please re-enter passwords"_s);
    entry.password = entry.retyped = QString(300, u'x');
    EXPECT_TRUE(problem().startsWith(u"The password is too long"_s));
    entry.password = entry.retyped = QString();
    EXPECT_EQ(problem(), u"none"_s);
}

TEST_P(LoginTableTest, OneThousandLoginsFit)
{
    for (int number = 0; number < 998; ++number) {
        Add(Entry(u"login%1"_s.arg(number)));
    }
    EXPECT_EQ(table.Check(Entry(u"one more"_s), {}),
              u"There is no more space to enter new login record"_s);
    EXPECT_EQ(table.Check(Entry(u"ann1"_s), 0), std::nullopt); // an existing one may be edited
}

TEST_P(LoginTableTest, SaveWritesOnlyWhatIsNewChangedOrRemoved)
{
    LoginEntry made = Entry(u"bob1"_s, u"secret"_s);
    made.bindToUser = true;
    made.login.userId = bob;
    made.login.limit = Login::Limit::MacAddress;
    made.login.limitMac = u"0011AABBCCDD"_s;
    made.login.allowStats = true;
    Add(made);
    LoginEntry changed {table.Logins()[0], true, {}, {}, false};
    changed.login.allowStats = true;
    table.Put(changed, 0);
    table.Remove(1);

    StatementRecorder recorder;
    EXPECT_TRUE(table.Save(prompt));
    const QStringList expected {
        u"SELECT Pwd FROM logins WHERE login=(?)"_s,
        u"UPDATE Logins SET LimitIP=(?), LimitMAC=(?), LimitPCMode=(?), LimitPC=(?), "
        "AllowStats=(?), userid=(?), Pwd=(?) WHERE login=(?)"_s,
        u"INSERT INTO Logins (login, LimitIP, LimitMAC, LimitPCMode, LimitPC, Virtual, "
        "AllowStats, userid, Pwd) VALUES ((?), (?), (?), (?), (?), (?), (?), (?), (?))"_s,
        u"DELETE FROM logins WHERE login=(?)"_s,
    };
    EXPECT_EQ(recorder.Take(), expected);
    EXPECT_TRUE(prompt.TakeSaid().isEmpty());
    const QString rows = RowsOf("SELECT login, LimitIP, LimitMAC, LimitPCMode, LimitPC, Virtual, "
                                "AllowStats, userid, Pwd FROM logins ORDER BY login")
                             .join(u'\n');
    EXPECT_EQ(rows,
              u"ann1|10.0.0.7||0|1|0|1|%1|digest of ann\n"
              "bob1||0011AABBCCDD|1|1|0|1|%2|b 6d1c2fee12fde2cf6fd690a11b24c3"_s.arg(ann.value)
                  .arg(bob.value));
}

TEST_P(LoginTableTest, ARemovedNameCanBeUsedAgain)
{
    table.Remove(1);
    Add(Entry(u"guest"_s, u""_s));
    EXPECT_TRUE(table.Save(prompt));
    EXPECT_EQ(RowsOf("SELECT login, Pwd, Virtual FROM logins WHERE login = 'guest'"),
              QStringList {u"guest|5b85554da1606b2582ebe938a45dd3bd|0"_s});
}

TEST_P(LoginTableTest, WhatFailedIsToldAndSavedTheNextTime)
{
    Add(Entry(u"clash"_s, u"secret"_s));
    Add(Entry(u"fine"_s));
    table.Remove(0);
    Execute("INSERT INTO Logins (login, Pwd) VALUES ('clash', 'by another administrator')");
    EXPECT_FALSE(table.Save(prompt));
    EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Error writing information to the database"_s});
    EXPECT_EQ(RowsOf("SELECT login FROM logins ORDER BY login"),
              (QStringList {u"clash"_s, u"fine"_s, u"guest"_s}));

    Execute("DELETE FROM Logins WHERE login = 'clash'");
    StatementRecorder recorder;
    EXPECT_TRUE(table.Save(prompt));
    EXPECT_EQ(recorder.Take().size(), 1) << "only what is left";
    EXPECT_EQ(RowsOf("SELECT Pwd FROM logins WHERE login = 'clash'"),
              QStringList {u"b 6d1c2fee12fde2cf6fd690a11b24c3"_s});
}

TEST_P(LoginTableTest, ATableThatIsAwayLosesNoLogin)
{
    Add(Entry(u"new"_s));
    LoginEntry changed {table.Logins()[0], true, {}, {}, false};
    changed.login.allowStats = true;
    table.Put(changed, 0);
    table.Remove(1);
    Execute("ALTER TABLE Logins RENAME TO logins_away");
    EXPECT_FALSE(table.Save(prompt));
    EXPECT_EQ(prompt.TakeSaid().size(), 3) << "the change, the new one and the removed one";
    Execute("ALTER TABLE logins_away RENAME TO Logins");
    EXPECT_TRUE(table.Save(prompt));
    EXPECT_EQ(RowsOf("SELECT login, AllowStats, Pwd FROM logins ORDER BY login").join(u'\n'),
              u"ann1|1|digest of ann\nnew|0|"_s + *PasswordDigest(u"pw"_s));
}

TEST_P(LoginTableTest, AUserHasOneLoginAtMost)
{
    EXPECT_TRUE(table.HasLogin(ann, {}));
    EXPECT_FALSE(table.HasLogin(ann, 0)); // its own
    EXPECT_FALSE(table.HasLogin(bob, {}));
    LoginEntry made = Entry(u"bob1"_s);
    made.bindToUser = true;
    made.login.userId = bob;
    Add(made);
    EXPECT_TRUE(table.HasLogin(bob, {})); // not stored yet
    table.Remove(0);
    EXPECT_FALSE(table.HasLogin(ann, {})); // still stored, but going
    Execute("INSERT INTO Logins (login, Pwd, userid) VALUES ('elsewhere', 'x', (?))", ann);
    EXPECT_TRUE(table.HasLogin(ann, {}));
}

TEST_P(LoginTableTest, UsersAreOfferedByGroupAndName)
{
    const auto groups = LoadLoginUsers();
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].name, u"Everybody"_s);
    ASSERT_EQ(groups[0].users.size(), 2U);
    EXPECT_EQ(groups[0].users[1].name, u"bob"_s);
    EXPECT_FALSE(FindUserByName(u"nobody"_s));
}

TEST_P(LoginTableTest, UnmonitoredUsersComeBack)
{
    Execute("UPDATE users SET monitored = false, ip_addr = '10.0.0.9' WHERE username = 'bob'");
    const auto users = LoadUnmonitored();
    ASSERT_EQ(users.size(), 1U);
    EXPECT_EQ(users[0].text, u"bob(10.0.0.9)"_s);
    MonitorUser(users[0].userId);
    EXPECT_TRUE(LoadUnmonitored().empty());
}
