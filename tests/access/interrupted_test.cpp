// The program is killed before each of its statements in turn; what is left must be accepted by the
// database's check or named by it.
#include "access/list_commands.h"
#include "apply_fixture.h"
#include "db/check.h"
#include "support/core/test_data_source.h"

#include <QLoggingCategory>
#include <QSet>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

int statementsLeft = 0;

// Every statement is logged before it goes to the driver.
void KillBeforeStatement(QtMsgType, const QMessageLogContext &context, const QString &)
{
    if (qstrcmp(context.category, "tollbrook.db.statement") == 0 && statementsLeft-- == 0) {
        kill(getpid(), SIGKILL);
    }
}

class Interrupted : public ApplyFixture
{
protected:
    struct Findings
    {
        QSet<QString> onTheWay; // after any of the kills
        QStringList atTheEnd;
        int kills = 0;
    };

    // Runs `act` in a process of its own, killed before its first, second, ... statement, each time
    // on the same rows, until it comes to its end.
    template <typename Act>
    Findings KillEverywhere(void (*prepare)(), Act act)
    {
        Findings findings;
        for (bool finished = false; !finished;) {
            TearDown();
            SetUp();
            prepare();
            EXPECT_THAT(Check(), IsEmpty()) << "before";
            TearDown();
            finished = RunUntil(findings.kills, act);
            test_data_source::OpenSession(Dsn());
            const QStringList found = Check();
            if (finished) {
                findings.atTheEnd = found;
            } else {
                findings.onTheWay += QSet<QString>(found.begin(), found.end());
                ++findings.kills;
            }
        }
        return findings;
    }

    [[nodiscard]] static QStringList Check()
    {
        const CheckResult result = CheckDatabase(Dsn());
        EXPECT_FALSE(result.failure) << qPrintable(result.failure.value_or(QString()));
        return result.findings;
    }

private:
    // The session is closed here: the other process opens its own.
    template <typename Act>
    static bool RunUntil(int statement, Act act)
    {
        const pid_t child = fork();
        if (child == 0) {
            ConnectDatabase(Dsn().toUtf8().constData());
            statementsLeft = statement;
            qInstallMessageHandler(KillBeforeStatement);
            QLoggingCategory::setFilterRules(u"tollbrook.db.statement.debug=true"_s);
            act();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status);
    }
};

// Says Yes to everything.
class Yes : public Prompt
{
public:
    void Tell(const QString &, Icon, const QString &) override { }
    [[nodiscard]] bool Ask(const QString &, const QString &) override { return true; }
};

} // namespace

TEST_F(Interrupted, AUsersRaisedLimitsLeaveNothingToName)
{
    const auto prepare = [] {
        Execute("UPDATE users SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
                "WHERE user_id = 1");
        Execute("INSERT INTO traffic_use (user_id, period, data, blocked) VALUES (1, 2, 150, 1)");
    };
    const Findings findings = KillEverywhere(prepare, [] {
        UserRecord record = LoadUser(UserId {1}).value();
        record.draft.ipAddress = u"10.0.0.77"_s;
        record.draft.groupId = kEverybodyGroup;
        record.times.Add({1, u"08:00:00"_s, u"09:00:00"_s});
        record.protocols.Select(u"FTP"_s, true);
        record.mode = AccountingMode::TrafficAndTime;
        record.limits.traffic = WholeMegabytes {200};
        record.limits.trafficRaised = true;
        record.limits.time = WholeHours {8};
        record.limits.timeRaised = true;
        Yes yes;
        (void)ApplyUser(record, nullptr, yes);
    });
    EXPECT_GT(findings.kills, 30);
    EXPECT_THAT(findings.onTheWay, IsEmpty());
    EXPECT_THAT(findings.atTheEnd, IsEmpty());
    EXPECT_THAT(RowsOf("SELECT mode, traflim, timelim, blocked FROM users WHERE user_id = 1"),
                testing::ElementsAre(u"5|200|8|0"_s));
}

TEST_F(Interrupted, AUserWithoutControlIsNamedWhileItsBlockStands)
{
    const auto prepare = [] {
        Execute("UPDATE users SET mode = 1, blocked = 1, blockreason = 1 WHERE user_id = 1");
    };
    const Findings findings = KillEverywhere(prepare, [] {
        UserRecord record = LoadUser(UserId {1}).value();
        record.mode = AccountingMode::NoControl;
        Yes yes;
        (void)ApplyUser(record, nullptr, yes);
    });
    EXPECT_THAT(findings.onTheWay,
                UnorderedElementsAre(
                    u"1 users are blocked for a used-up limit although they have none."_s));
    EXPECT_THAT(findings.atTheEnd, IsEmpty());
}

TEST_F(Interrupted, AnOwnPriceIsNamedUntilItIsThere)
{
    const Findings findings = KillEverywhere([] {},
                                             [] {
                                                 UserRecord record = LoadUser(UserId {1}).value();
                                                 record.mode = AccountingMode::Provider;
                                                 record.limits.ownPrice = true;
                                                 record.limits.price = 2.5;
                                                 Yes yes;
                                                 (void)ApplyUser(record, nullptr, yes);
                                             });
    EXPECT_THAT(findings.onTheWay,
                UnorderedElementsAre(u"1 users have a price of their own that is 0 or less."_s));
    EXPECT_THAT(findings.atTheEnd, IsEmpty());
}

// Only the other user's row is removed; what was counted for it is left, and named for good.
TEST_F(Interrupted, WhatAUserThatLostItsAddressLeavesIsNamed)
{
    const auto prepare = [] {
        Execute("INSERT INTO traffic_use (user_id, period) VALUES (2, 2)");
        Execute("INSERT INTO logins (login, userid) VALUES ('bert', 2)");
    };
    const Findings findings = KillEverywhere(prepare, [] {
        UserRecord record = LoadUser(UserId {1}).value();
        record.draft.ipAddress = u"10.0.0.2"_s;
        Yes yes;
        (void)ApplyUser(record, nullptr, yes);
    });
    const auto left =
        UnorderedElementsAre(u"1 traffic records belong to a user that does not exist."_s,
                             u"1 logins are bound to a user that does not exist."_s);
    EXPECT_THAT(findings.onTheWay, left);
    EXPECT_THAT(findings.atTheEnd, left);
}

TEST_F(Interrupted, MembersAreNamedUntilTheirGroupsBlockHasReachedThem)
{
    const Findings findings = KillEverywhere([] {},
                                             [] {
                                                 GroupRecord record =
                                                     LoadGroup(GroupId {81}).value();
                                                 record.members.Remove(0);
                                                 (void)record.members.Add({UserId {9}, u"zoe"_s});
                                                 record.block.requested = true;
                                                 record.mode = AccountingMode::Traffic;
                                                 record.limits.traffic = WholeMegabytes {5};
                                                 Yes yes;
                                                 (void)ApplyGroup(record, nullptr, yes);
                                             });
    EXPECT_THAT(findings.onTheWay,
                UnorderedElementsAre(u"2 users are open although their group is blocked."_s));
    EXPECT_THAT(findings.atTheEnd, IsEmpty());
}

TEST_F(Interrupted, ADeletionIsNamedUntilItIsDone)
{
    const auto prepare = [] {
        Execute("INSERT INTO traffic_use (traf_id, user_id, period) VALUES (1, 1, 2)");
        Execute("INSERT INTO time_use (user_id, period) VALUES (1, 2)");
        Execute("INSERT INTO sites (site_id, sitename) VALUES (1, 'example.org')");
        Execute("INSERT INTO siteaccess (user_id, site_id) VALUES (1, 1)");
        Execute("INSERT INTO billing (mode, object_id, data, closed) VALUES (2, 1, 5, 1)");
        Execute("UPDATE billing SET unlimited = 1");
        Execute("INSERT INTO logins (login, userid) VALUES ('anna', 1)");
    };
    const Findings user = KillEverywhere(prepare, [] { DeleteUser(UserId {1}); });
    EXPECT_EQ(user.onTheWay.size(), 5);
    EXPECT_THAT(user.atTheEnd, IsEmpty());

    const Findings group = KillEverywhere([] {}, [] { DeleteGroupOfList(GroupId {81}); });
    EXPECT_THAT(group.onTheWay,
                UnorderedElementsAre(u"2 users belong to a group that does not exist."_s));
    EXPECT_THAT(group.atTheEnd, IsEmpty());
    const Findings safer = KillEverywhere([] {}, [] { DeleteGroupOfDialog(GroupId {81}); });
    EXPECT_THAT(safer.onTheWay, IsEmpty());
    EXPECT_THAT(safer.atTheEnd, IsEmpty());
}
