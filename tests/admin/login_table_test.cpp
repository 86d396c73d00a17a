#include "admin/login_storage.h"
#include "admin/password_digest.h"
#include "admin/unmonitored.h"
#include "db/direct_connection.h"
#include "db/value_codes.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_hook.h"
#include "support/core/statement_recorder.h"

#include <functional>
#include <utility>

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
        ann = UserOf(u"ann"_s);
        bob = UserOf(u"bob"_s);
        Execute("INSERT INTO Logins (login, Pwd, userid, LimitPC, LimitPCMode, LimitIP) VALUES "
                "('ann1', 'digest of ann', (?), 1, 0, '10.0.0.7')",
                ann);
        Execute("INSERT INTO Logins (login, Pwd, userid, Virtual) VALUES ('guest', 'g', 0, 1)");
        table = LoadLogins().value();
    }

    static UserId UserOf(const QString &name) { return FindUserByName(name).value()->userId; }

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

    // The first login as it is changed by `change`, its password kept.
    void ChangeAnn(const std::function<void(LoginEntry &)> &change)
    {
        LoginEntry entry {table.Logins()[0], table.Logins()[0].userId.IsSet(), {}, {}, false};
        change(entry);
        ASSERT_EQ(table.Check(entry, 0), std::nullopt);
        table.Put(entry, 0);
    }

    void AllowAnnStatistics()
    {
        ChangeAnn([](LoginEntry &entry) { entry.login.allowStats = true; });
    }

    LoginSaveReport Save(const Answers &answers = {})
    {
        LoginSaveReport report = SaveLogins(table.Changes(), answers);
        table.MarkSaved(report.saved);
        return report;
    }

    LoginTable table;
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

TEST_P(LoginTableTest, ALoginOfNobodyMayBeStoredAsMinusOne)
{
    Execute("INSERT INTO Logins (login, Pwd, userid) VALUES ('none', 'n', -1)");
    const LoginTable loaded = LoadLogins().value();
    ASSERT_EQ(loaded.Logins().size(), 3U);
    for (const Login &login : loaded.Logins()) {
        EXPECT_EQ(login.userId.IsSet(), login.name == u"ann1"_s) << qPrintable(login.name);
    }
}

TEST_P(LoginTableTest, WhatCouldNotBeReadIsNoTable)
{
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return LoadLogins().has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return LoadLoginGroups().has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return LoadLoginUsers().has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [this] { return LoginsOf(ann).has_value(); }), QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return FindUserByName(u"ann"_s).has_value(); }),
              QStringList());
    EXPECT_EQ(UntoldFailures(Dsn(), [] { return LoadUnmonitored().has_value(); }), QStringList());
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
    AllowAnnStatistics();
    table.Remove(1);

    StatementRecorder recorder;
    const LoginSaveReport report = Save();
    EXPECT_TRUE(report.IsDone());
    EXPECT_EQ(report.InWords(), QString());
    const QStringList expected {
        u"UPDATE Logins SET LimitIP=(?), LimitMAC=(?), LimitPCMode=(?), LimitPC=(?), "
        "AllowStats=(?), userid=(?), Pwd=(?) WHERE login=(?)"_s,
        u"INSERT INTO Logins (login, LimitIP, LimitMAC, LimitPCMode, LimitPC, Virtual, "
        "AllowStats, userid, Pwd) VALUES ((?), (?), (?), (?), (?), (?), (?), (?), (?))"_s,
        u"DELETE FROM logins WHERE login=(?)"_s,
    };
    EXPECT_EQ(recorder.TakeChanging(), expected);
    const QString rows = RowsOf("SELECT login, LimitIP, LimitMAC, LimitPCMode, LimitPC, Virtual, "
                                "AllowStats, userid, Pwd FROM logins ORDER BY login")
                             .join(u'\n');
    EXPECT_EQ(rows,
              u"ann1|10.0.0.7||0|1|0|1|%1|digest of ann\n"
              "bob1||0011AABBCCDD|1|1|0|1|%2|b 6d1c2fee12fde2cf6fd690a11b24c3"_s.arg(ann.value)
                  .arg(bob.value));
    EXPECT_TRUE(table.Changes().IsEmpty());
}

TEST_P(LoginTableTest, ARemovedNameCanBeUsedAgain)
{
    table.Remove(1);
    Add(Entry(u"guest"_s, u""_s));
    StatementRecorder recorder;
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(recorder.TakeChanging().first(), u"DELETE FROM logins WHERE login=(?)"_s);
    EXPECT_EQ(RowsOf("SELECT login, Pwd, Virtual FROM logins WHERE login = 'guest'"),
              QStringList {u"guest|5b85554da1606b2582ebe938a45dd3bd|0"_s});
}

TEST_P(LoginTableTest, ANameThatSomebodyElseTookMeanwhileIsToldAndSavedTheNextTime)
{
    Add(Entry(u"clash"_s, u"secret"_s));
    Add(Entry(u"fine"_s));
    table.Remove(0);
    Execute("INSERT INTO Logins (login, Pwd) VALUES ('clash', 'by another administrator')");
    const LoginSaveReport report = Save();
    EXPECT_FALSE(report.IsDone());
    EXPECT_EQ(report.InWords(),
              u"The login clash was not saved: somebody else has made it meanwhile.\n"
              "The other changes were saved."_s);
    EXPECT_EQ(RowsOf("SELECT login FROM logins ORDER BY login"),
              (QStringList {u"clash"_s, u"fine"_s, u"guest"_s}));
    EXPECT_EQ(RowsOf("SELECT Pwd FROM logins WHERE login = 'clash'"),
              QStringList {u"by another administrator"_s});

    Execute("DELETE FROM Logins WHERE login = 'clash'");
    StatementRecorder recorder;
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(recorder.TakeChanging().size(), 1) << "only what is left";
    EXPECT_EQ(RowsOf("SELECT Pwd FROM logins WHERE login = 'clash'"),
              QStringList {u"b 6d1c2fee12fde2cf6fd690a11b24c3"_s});
}

TEST_P(LoginTableTest, ALoginThatSomebodyElseRemovedIsTold)
{
    AllowAnnStatistics();
    table.Remove(1);
    Execute("DELETE FROM Logins");
    const LoginSaveReport report = Save();
    EXPECT_EQ(report.InWords(),
              u"The login ann1 was not saved: somebody else has removed it meanwhile. It is no "
              "longer listed.\n"
              "The other changes were saved."_s)
        << "a removed one that is gone already is what was wanted";
    EXPECT_TRUE(RowsOf("SELECT login FROM logins").isEmpty());
    EXPECT_TRUE(table.Logins().empty());
    EXPECT_TRUE(table.Changes().IsEmpty()) << "nothing is told again";
}

TEST_P(LoginTableTest, NoLoginIsBoundToAUserThatIsGone)
{
    const auto bindToBob = [this](LoginEntry &entry) {
        entry.bindToUser = true;
        entry.login.userId = bob;
    };
    ChangeAnn(bindToBob);
    LoginEntry added = Entry(u"new"_s);
    bindToBob(added);
    table.Put(added, {});
    Execute("DELETE FROM users WHERE user_id = (?)", bob); // by another console
    const QStringList before = EveryRow();
    EXPECT_EQ(Save().notSaved,
              (QStringList {u"The login ann1 was not saved: the user to whom it is bound has been "
                            "deleted meanwhile."_s,
                            u"The login new was not saved: the user to whom it is bound has been "
                            "deleted meanwhile."_s}));
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(LoginTableTest, ATableThatIsAwayLosesNoLogin)
{
    Add(Entry(u"new"_s));
    AllowAnnStatistics();
    table.Remove(1);
    const QStringList before = EveryRow();
    Execute("ALTER TABLE Logins RENAME TO logins_away");
    const LoginSaveReport report = Save();
    Execute("ALTER TABLE logins_away RENAME TO Logins");
    EXPECT_EQ(report.outcome.state, Outcome::State::NotDone);
    EXPECT_EQ(report.notSaved,
              (QStringList {u"The login ann1 was not saved."_s,
                            u"The login new was not saved."_s,
                            u"The login guest was not removed."_s}));
    EXPECT_TRUE(report.InWords().startsWith(u"Error writing information to the database\n"_s));
    EXPECT_TRUE(report.InWords().contains(u"Nothing was saved."_s));
    EXPECT_EQ(EveryRow(), before);
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf("SELECT login, AllowStats, Pwd FROM logins ORDER BY login").join(u'\n'),
              u"ann1|1|digest of ann\nnew|0|"_s + *PasswordDigest(u"pw"_s));
}

TEST_P(LoginTableTest, APasswordThatCouldNotBeReadIsNotWrittenAsNone)
{
    AllowAnnStatistics();
    Add(Entry(u"new"_s));
    LoginSaveReport report;
    {
        DirectConnection other;
        ASSERT_TRUE(other.Open(Dsn()));
        bool isAway = false;
        const auto move = [&](bool away) {
            EXPECT_TRUE(other.Run(away ? u"ALTER TABLE logins RENAME TO logins_away"_s
                                       : u"ALTER TABLE logins_away RENAME TO logins"_s));
            isAway = away;
        };
        bool first = true;
        const StatementHook fail([&](const QString &statement) {
            if (isAway) {
                move(false);
            } else if (statement.startsWith(u"SELECT Pwd"_s) && std::exchange(first, false)) {
                move(true);
            }
        });
        report = Save();
    }
    EXPECT_EQ(report.notSaved, QStringList {u"The login ann1 was not saved."_s});
    EXPECT_EQ(report.outcome.state, Outcome::State::Partly);
    EXPECT_EQ(RowsOf("SELECT login, Pwd, AllowStats FROM logins ORDER BY login"),
              (QStringList {u"ann1|digest of ann|0"_s,
                            u"guest|g|0"_s,
                            u"new|%1|0"_s.arg(*PasswordDigest(u"pw"_s))}));
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf("SELECT Pwd, AllowStats FROM logins WHERE login = 'ann1'"),
              QStringList {u"digest of ann|1"_s});
}

TEST_P(LoginTableTest, WhatWasNotTouchedStaysAsSomebodyElseLeftIt)
{
    AllowAnnStatistics();
    Execute("UPDATE Logins SET LimitPCMode = 1, LimitMAC = '0011AABBCCDD', userid = (?), "
            "Pwd = 'another' WHERE login = 'ann1'",
            bob);
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf("SELECT LimitIP, LimitMAC, LimitPCMode, LimitPC, AllowStats, userid, Pwd FROM "
                     "logins WHERE login = 'ann1'"),
              QStringList {u"10.0.0.7|0011AABBCCDD|1|1|1|%1|another"_s.arg(bob.value)});
    EXPECT_EQ(table.Logins()[0].userName, u"bob"_s) << "the list shows what was stored";
}

TEST_P(LoginTableTest, WhatBothTouchedIsAsked)
{
    Execute("INSERT INTO users (username, group_id, monitored) VALUES ('cleo', 80, true)");
    ChangeAnn([this](LoginEntry &entry) { entry.login.userId = bob; });
    Execute("UPDATE Logins SET userid = (?) WHERE login = 'ann1'", UserOf(u"cleo"_s));
    const QStringList before = EveryRow();
    LoginSaveReport report = Save();
    EXPECT_EQ(report.outcome.state, Outcome::State::NeedsAnswers);
    ASSERT_EQ(report.outcome.questions.size(), 1);
    EXPECT_EQ(report.outcome.questions[0].text,
              u"Login ann1: the bound user was changed meanwhile to cleo \u2013 overwrite?"_s);
    EXPECT_EQ(report.InWords(), QString());
    EXPECT_EQ(EveryRow(), before);

    const auto bound = [] {
        return RowsOf("SELECT username FROM logins, users WHERE userid = user_id");
    };
    LoginTable copy = table;
    EXPECT_TRUE(Save({{report.outcome.questions[0].key, false}}).IsDone());
    EXPECT_EQ(bound(), QStringList {u"cleo"_s});
    table = copy;
    EXPECT_TRUE(Save({{report.outcome.questions[0].key, true}}).IsDone());
    EXPECT_EQ(bound(), QStringList {u"bob"_s});
}

TEST_P(LoginTableTest, ASavedPasswordIsNotWrittenAgain)
{
    ChangeAnn([](LoginEntry &entry) {
        entry.password = entry.retyped = u"secret"_s;
        entry.passwordTouched = true;
    });
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf("SELECT Pwd FROM logins WHERE login = 'ann1'"),
              QStringList {u"b 6d1c2fee12fde2cf6fd690a11b24c3"_s});
    Execute("UPDATE Logins SET Pwd = 'another' WHERE login = 'ann1'");
    AllowAnnStatistics();
    EXPECT_TRUE(Save().IsDone());
    EXPECT_EQ(RowsOf("SELECT Pwd FROM logins WHERE login = 'ann1'"), QStringList {u"another"_s});
}

TEST_P(LoginTableTest, AUserHasOneLoginAtMost)
{
    const auto hasLogin = [this](UserId user, std::optional<size_t> index) {
        return table.HasLogin(user, index, LoginsOf(user).value());
    };
    EXPECT_TRUE(hasLogin(ann, {}));
    EXPECT_FALSE(hasLogin(ann, 0)); // its own
    EXPECT_FALSE(hasLogin(bob, {}));
    LoginEntry made = Entry(u"bob1"_s);
    made.bindToUser = true;
    made.login.userId = bob;
    Add(made);
    EXPECT_TRUE(hasLogin(bob, {})); // not stored yet
    table.Remove(0);
    EXPECT_FALSE(hasLogin(ann, {})); // still stored, but going
    Execute("INSERT INTO Logins (login, Pwd, userid) VALUES ('elsewhere', 'x', (?))", ann);
    EXPECT_TRUE(hasLogin(ann, {}));
}

TEST_P(LoginTableTest, UsersAreOfferedByGroupAndName)
{
    const auto groups = LoadLoginUsers().value();
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].name, u"Everybody"_s);
    ASSERT_EQ(groups[0].users.size(), 2U);
    EXPECT_EQ(groups[0].users[1].name, u"bob"_s);
    EXPECT_FALSE(FindUserByName(u"nobody"_s).value());
}

TEST_P(LoginTableTest, UnmonitoredUsersComeBack)
{
    Execute("UPDATE users SET monitored = false, ip_addr = '10.0.0.9'");
    const auto users = LoadUnmonitored().value();
    ASSERT_EQ(users.size(), 2U);
    EXPECT_EQ(users[1].text, u"bob(10.0.0.9)"_s);
    StatementRecorder recorder;
    const Outcome outcome =
        RunAction(MonitorUsersAction({users[1].userId, users[0].userId}), {}, nullptr);
    EXPECT_EQ(recorder.TakeChanging(),
              QStringList(2, u"UPDATE users SET monitored=true WHERE user_id = (?) "_s));
    EXPECT_TRUE(outcome.IsDone());
    ASSERT_EQ(outcome.changes.size(), 2);
    EXPECT_TRUE(LoadUnmonitored().value().empty());
}

TEST_P(LoginTableTest, UnmonitoredUsersThatAreGoneDoNotComeBack)
{
    Execute("UPDATE users SET monitored = false");
    const auto users = LoadUnmonitored().value();
    ASSERT_EQ(users.size(), 2U);
    Execute("DELETE FROM users WHERE user_id = (?)", users[0].userId); // by another console
    EXPECT_EQ(RunAction(MonitorUsersAction({users[0].userId}), {}, nullptr).refusal,
              u"This user has been deleted meanwhile. Nothing was changed."_s);
    EXPECT_TRUE(
        RunAction(MonitorUsersAction({users[0].userId, users[1].userId}), {}, nullptr).IsDone());
    EXPECT_TRUE(LoadUnmonitored().value().empty());
}
