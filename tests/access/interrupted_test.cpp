// The program is killed before each of its statements in turn: what is left is the state before the
// action or the state after it, and never anything between.
#include "access/list_commands.h"
#include "access/many_users.h"
#include "apply_fixture.h"
#include "db/check.h"
#include "support/core/test_data_source.h"

#include <QLoggingCategory>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

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
    // Runs `act` in a process of its own, killed before its first, second, ... statement, each time
    // on the same rows, until it comes to its end; how often it was killed. The rows of the last run
    // are left.
    int KillEverywhere(void (*prepare)(), void (*act)())
    {
        QList<QStringList> others; // states that are not the one before
        int kills = 0;
        for (bool finished = false; !finished;) {
            TearDown();
            SetUp();
            prepare();
            const QStringList before = EveryRow();
            TearDown();
            finished = RunUntil(kills, act);
            test_data_source::OpenSession(Dsn());
            const QStringList left = EveryRow();
            if (finished) {
                EXPECT_NE(left, before) << "the action has changed nothing";
                EXPECT_THAT(others, testing::Each(left));
            } else {
                ++kills;
                if (left != before) {
                    others << left;
                }
            }
        }
        return kills;
    }

    // What the database's check names.
    [[nodiscard]] static QStringList Check()
    {
        const CheckResult result = CheckDatabase(Dsn());
        EXPECT_FALSE(result.failure) << qPrintable(result.failure.value_or(QString()));
        return result.findings;
    }

private:
    // The session is closed here: the other process opens its own.
    static bool RunUntil(int statement, void (*act)())
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

UserRecord User()
{
    return LoadUser(UserId {1}).value().value();
}

// Says Yes to everything.
void Do(const Action &action)
{
    (void)RunAnswering(action, true);
}

void NothingMore() { }

} // namespace

TEST_F(Interrupted, AUsersSheetIsStoredAsAWhole)
{
    const auto prepare = [] {
        Execute("UPDATE users SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
                "WHERE user_id = 1");
        Execute("INSERT INTO traffic_use (user_id, period, data, blocked) VALUES (1, 2, 150, 1)");
    };
    const int kills = KillEverywhere(prepare, [] {
        UserRecord record = User();
        record.draft.ipAddress = u"10.0.0.2"_s;
        record.draft.groupId = kEverybodyGroup;
        record.times.Add({1, u"08:00:00"_s, u"09:00:00"_s});
        record.protocols.Select(u"FTP"_s, true);
        record.draft.mode = AccountingMode::TrafficAndTime;
        record.limits.traffic = WholeMegabytes {200};
        record.limits.time = WholeHours {8};
        Do(UserAction(record));
    });
    EXPECT_GT(kills, 60);
    EXPECT_THAT(Check(), IsEmpty());
    EXPECT_THAT(RowsOf("SELECT mode, traflim, timelim, blocked, ip_addr FROM users "
                       "WHERE user_id < 9"),
                ElementsAre(u"5|200|8|0|10.0.0.2"_s));
}

TEST_F(Interrupted, ABlockIsLiftedWithItsLimit)
{
    const auto prepare = [] {
        Execute("UPDATE users SET mode = 1, blocked = 1, blockreason = 1 WHERE user_id = 1");
    };
    (void)KillEverywhere(prepare, [] {
        UserRecord record = User();
        record.draft.mode = AccountingMode::NoControl;
        Do(UserAction(record));
    });
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(Interrupted, AnOwnPriceComesWithItsFlag)
{
    (void)KillEverywhere(NothingMore, [] {
        UserRecord record = User();
        record.draft.mode = AccountingMode::Provider;
        record.limits.ownPrice = true;
        record.limits.price = 2.5;
        Do(UserAction(record));
    });
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(Interrupted, AGroupsSheetIsStoredAsAWhole)
{
    const int kills = KillEverywhere(NothingMore, [] {
        GroupRecord record = LoadGroup(GroupId {81}).value().value();
        record.members.Remove(0);
        (void)record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup});
        record.block.requested = true;
        record.protocols.Select(u"FTP"_s, true);
        record.draft.mode = AccountingMode::Traffic;
        record.limits.traffic = WholeMegabytes {5};
        Do(GroupAction(record));
    });
    EXPECT_GT(kills, 50);
    EXPECT_THAT(Check(), IsEmpty());
    EXPECT_THAT(RowsOf("SELECT user_id, group_id, blocked FROM users ORDER BY user_id"),
                ElementsAre(u"1|80|0"_s, u"2|81|1"_s, u"9|81|1"_s));
}

TEST_F(Interrupted, UsersAreDeletedWithAllThatWasCounted)
{
    const auto prepare = [] {
        for (const quint32 user : {1U, 2U}) {
            Execute("INSERT INTO traffic_use (user_id, period) VALUES ((?), 2)", user);
            Execute("INSERT INTO time_use (user_id, period) VALUES ((?), 2)", user);
            Execute("INSERT INTO siteaccess (user_id, site_id) VALUES ((?), 1)", user);
            Execute("INSERT INTO billing (mode, object_id, data) VALUES (2, (?), 5)", user);
            Execute("INSERT INTO logins (login, userid) VALUES ((?), (?))",
                    QString::number(user),
                    user);
        }
        Execute("INSERT INTO sites (site_id, sitename) VALUES (1, 'example.org')");
    };
    const int kills = KillEverywhere(prepare, [] {
        Do(DeleteUsersAction({UserId {1}, UserId {2}}));
    });
    EXPECT_GT(kills, 14);
    EXPECT_THAT(Check(), IsEmpty());
    EXPECT_THAT(RowsOf("SELECT user_id FROM users"), ElementsAre(u"9"_s));
}

TEST_F(Interrupted, TheOtherCommandsAreAllOrNothingToo)
{
    void (*const commands[])() = {
        [] { Do(DeleteGroupOfListAction(GroupId {81})); },
        [] { Do(DeleteGroupOfDialogAction(GroupId {81})); },
        [] {
            Do(MoveUsersAction({UserId {1}, UserId {2}}, kEverybodyGroup));
        },
        [] {
            Do(StopMonitoringAction({UserId {1}, UserId {2}}));
        },
        [] { Do(RenameGroupAction(GroupId {81}, u"Sales"_s)); },
        [] { Do(AddGroupAction(u"Sales"_s, std::make_shared<GroupId>())); },
        [] {
            Do(SetModeAndLimitsAction({UserId {1}, UserId {2}},
                                      {.mode = AccountingMode::Traffic,
                                       .traffic = WholeMegabytes {7},
                                       .time = {},
                                       .period = LimitPeriod::Day}));
        },
    };
    for (const auto command : commands) {
        EXPECT_GT(KillEverywhere(NothingMore, command), 2);
        EXPECT_THAT(Check(), IsEmpty());
    }
}
