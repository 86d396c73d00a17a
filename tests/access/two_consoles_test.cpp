// Two consoles, or a console and the service, at the same rows, on every database engine.
#include "access/list_commands.h"
#include "running.h"
#include "support/core/engine_fixture.h"

#include <gmock/gmock.h>
#include <thread>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class TwoConsoles : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name, descrip) VALUES (81, 'Office', 'desks'), "
                "(82, 'Sales', '')");
        Execute("INSERT INTO users (user_id, username, fullname, descrip, group_id, ip_addr, mode, "
                "traflim) VALUES (1, 'anna', 'Anna', 'desk', 81, '10.0.0.1', 1, 100), "
                "(2, 'bert', '', '', 81, '10.0.0.2', 0, 0), "
                "(9, 'zoe', '', '', 80, '10.0.0.9', 0, 0)");
        Execute("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
                "(1, 2, '08:00:00', '09:00:00')");
    }

    static UserRecord User() { return LoadUser(UserId {1}).value().value(); }
    static GroupRecord Group() { return LoadGroup(GroupId {81}).value().value(); }

    // Stores the record; what was asked, each question answered alike.
    static QStringList Store(const UserRecord &record, bool yes = true)
    {
        const Ran ran = RunAnswering(UserAction(record), yes);
        EXPECT_TRUE(ran.IsDone());
        return ran.asked;
    }

    static QStringList Store(const GroupRecord &record, bool yes = true)
    {
        const Ran ran = RunAnswering(GroupAction(record), yes);
        EXPECT_TRUE(ran.IsDone());
        return ran.asked;
    }
};

} // namespace

TB_ON_EVERY_ENGINE(TwoConsoles);

// What the other one has stored meanwhile, in every column that the sheet writes.
TEST_P(TwoConsoles, AnUntouchedSheetOfAUserUndoesNothing)
{
    const UserRecord record = User();
    Execute("UPDATE users SET fullname = 'A', descrip = 'B', group_id = 82, ip_addr = '10.0.0.7', "
            "mac_addr = '000000000007', timeaccess = 1, portaccess = 1, authreq = 1, mode = 5, "
            "traflim = 7, trafperiod = 1, timelim = 8, timeperiod = 1, blocked = 1, "
            "blockreason = 2 WHERE user_id = 1");
    Execute("INSERT INTO port_blocked (user_id, port_id) SELECT 1, port_id FROM ports "
            "WHERE proto_id = 1");
    Execute("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
            "(1, 3, '10:00:00', '11:00:00')");
    const QStringList before = EveryRow();
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_EQ(EveryRow(), before);

    Execute("UPDATE users SET mode = 2, own_price = 1, trafprice = 2.5 WHERE user_id = 1");
    const QStringList priced = EveryRow();
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_EQ(EveryRow(), priced);
}

TEST_P(TwoConsoles, AnUntouchedSheetOfAGroupUndoesNothing)
{
    const GroupRecord record = Group();
    Execute("UPDATE groups SET name = 'A', descrip = 'B', portaccess = 1, mode = 1, traflim = 7, "
            "trafperiod = 1, blocked = 1, blockreason = 3 WHERE group_id = 81");
    Execute("INSERT INTO port_blocked (group_id, port_id) SELECT 81, port_id FROM ports "
            "WHERE proto_id = 1");
    Execute("UPDATE users SET group_id = 82 WHERE user_id = 2");
    Execute("UPDATE users SET group_id = 81 WHERE user_id = 9");
    const QStringList before = EveryRow();
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_EQ(EveryRow(), before);

    Execute("UPDATE groups SET mode = 2, own_price = 1, trafprice = 2.5, blocked = 0 "
            "WHERE group_id = 81");
    const QStringList priced = EveryRow();
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_EQ(EveryRow(), priced);
}

TEST_P(TwoConsoles, EachTouchedAnotherFieldOfTheSameUser)
{
    UserRecord record = User();
    record.draft.fullName = u"Anna A."_s;
    record.limits.traffic = WholeMegabytes {500};
    Execute("UPDATE users SET descrip = 'window', traflim = 100, trafperiod = 1 WHERE user_id = 1");
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_THAT(
        RowsOf("SELECT fullname, descrip, traflim, trafperiod FROM users WHERE user_id = 1"),
        ElementsAre(u"Anna A.|window|500|1"_s));
}

TEST_P(TwoConsoles, BothTouchedTheSameFieldsOfAUser)
{
    UserRecord record = User();
    record.draft.fullName = u"Anna A."_s;
    record.draft.description = u"window"_s;
    record.draft.groupId = kEverybodyGroup;
    record.limits.traffic = WholeMegabytes {500};
    Execute("UPDATE users SET fullname = 'Ann', group_id = 82, traflim = 300 WHERE user_id = 1");
    EXPECT_THAT(Store(record, false),
                ElementsAre(u"Full name: changed meanwhile to \"Ann\". Overwrite?"_s,
                            u"Group: changed meanwhile to \"Sales\". Overwrite?"_s,
                            u"Traffic limit, Mb: changed meanwhile to \"300\". Overwrite?"_s));
    EXPECT_THAT(RowsOf("SELECT fullname, descrip, group_id, traflim FROM users WHERE user_id = 1"),
                ElementsAre(u"Ann|window|82|300"_s))
        << "after a No the rest is stored";
    EXPECT_EQ(Store(record).size(), 3) << "the description is what the sheet wants by now";
}

TEST_P(TwoConsoles, BothTouchedTheSameFieldsOfAGroup)
{
    GroupRecord record = Group();
    record.draft.name = u"Front office"_s;
    record.draft.mode = AccountingMode::Traffic;
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    Execute("UPDATE groups SET name = 'Back office', mode = 2 WHERE group_id = 81");
    Execute("UPDATE users SET group_id = 82 WHERE user_id IN (1, 9)");
    EXPECT_THAT(Store(record),
                ElementsAre(u"Name: changed meanwhile to \"Back office\". Overwrite?"_s,
                            u"Access type: changed meanwhile to \"Provider\". Overwrite?"_s,
                            u"Group of anna: changed meanwhile to \"Sales\". Overwrite?"_s,
                            u"Group of zoe: changed meanwhile to \"Sales\". Overwrite?"_s));
    EXPECT_THAT(RowsOf("SELECT name, mode FROM groups WHERE group_id = 81"),
                ElementsAre(u"Front office|1"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, group_id FROM users ORDER BY user_id"),
                ElementsAre(u"1|80"_s, u"2|81"_s, u"9|81"_s));
}

TEST_P(TwoConsoles, AMemberThatWasDeletedIsLeftOut)
{
    GroupRecord record = Group();
    record.members.Remove(0);
    ASSERT_TRUE(record.members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    Execute("DELETE FROM users WHERE user_id = 1");
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_THAT(RowsOf("SELECT user_id, group_id FROM users ORDER BY user_id"),
                ElementsAre(u"2|81"_s, u"9|81"_s));
}

// A new value is a new question: the answer on another one does not count for it.
TEST_P(TwoConsoles, AnAnswerHoldsForTheValueThatItWasGivenFor)
{
    UserRecord record = User();
    record.draft.fullName = u"Anna A."_s;
    Execute("UPDATE users SET fullname = 'Ann' WHERE user_id = 1");
    const Outcome first = RunAction(UserAction(record), {}, nullptr);
    ASSERT_EQ(first.questions.size(), 1);
    Execute("UPDATE users SET fullname = 'Annie' WHERE user_id = 1");
    const Answers answers {{first.questions.front().key, true}};
    const Outcome second = RunAction(UserAction(record), answers, nullptr);
    EXPECT_EQ(second.state, Outcome::State::NeedsAnswers);
    EXPECT_THAT(RowsOf("SELECT fullname FROM users WHERE user_id = 1"), ElementsAre(u"Annie"_s));
}

TEST_P(TwoConsoles, AClickOnTheBlockBoxIsAskedAboutAnotherBlock)
{
    UserRecord record = User();
    record.block.requested = true;
    Execute("UPDATE users SET blocked = 1, blockreason = 1 WHERE user_id = 1");
    EXPECT_THAT(Store(record, false),
                ElementsAre(u"Access: changed meanwhile to \"Access is denied by the service\". "
                            "Overwrite?"_s));
    EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM users WHERE user_id = 1"),
                ElementsAre(u"1|1"_s));
    EXPECT_EQ(Store(record).size(), 1);
    EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM users WHERE user_id = 1"),
                ElementsAre(u"1|3"_s));
}

// Its ports would be restricted, and nobody could see it.
TEST_P(TwoConsoles, PortsOfARemovedProtocolDoNotComeBack)
{
    UserRecord record = User();
    record.protocols.Select(u"FTP"_s, true);
    record.protocols.Select(u"SSH"_s, true);
    Execute("DELETE FROM ports WHERE proto_id = 3");
    Execute("DELETE FROM protocols WHERE id = 3");
    EXPECT_THAT(Store(record), IsEmpty());
    EXPECT_THAT(RowsOf("SELECT p.port_number FROM port_blocked b, ports p "
                       "WHERE b.port_id = p.port_id"),
                ElementsAre(u"22"_s));
    EXPECT_THAT(RowsOf("SELECT COUNT(*) FROM port_blocked"), ElementsAre(u"1"_s));
}

TEST_P(TwoConsoles, TheGroupThatWasChosenIsDeleted)
{
    UserRecord record = User();
    record.draft.groupId = GroupId {82};
    EXPECT_TRUE(RunAction(DeleteGroupOfListAction(GroupId {82}), {}, nullptr).IsDone());
    const QStringList before = EveryRow();
    const Outcome outcome = RunAction(UserAction(record), {}, nullptr);
    EXPECT_EQ(outcome.refusal,
              u"The chosen group has been deleted meanwhile. Nothing was changed."_s);
    EXPECT_EQ(EveryRow(), before);
}

namespace {

constexpr int kRounds = 20;

// What each of two consoles does in its own thread, with a session of its own.
void RunAtOnce(const QByteArray &dsn, void (*first)(int), void (*second)(int))
{
    const auto console = [&dsn](void (*act)(int)) {
        ConnectDatabase(dsn.constData());
        for (int round = 0; round < kRounds; ++round) {
            act(round);
        }
        DisconnectDatabase();
    };
    std::thread other(console, second);
    console(first);
    other.join();
    ConnectDatabase(dsn.constData());
}

} // namespace

// Each writes the whole row, of which it touched one field: no edit of the other one gets lost.
TEST_P(TwoConsoles, StoreSheetsOfOneUserAtOnce)
{
    RunAtOnce(
        Dsn().toUtf8(),
        [](int round) {
            UserRecord record = User();
            record.draft.fullName = QString::number(round);
            EXPECT_THAT(Store(record), IsEmpty());
        },
        [](int round) {
            UserRecord record = User();
            record.draft.description = QString::number(round);
            record.draft.groupId = round % 2 == 0 ? GroupId {81} : GroupId {82};
            EXPECT_THAT(Store(record), IsEmpty());
        });
    EXPECT_THAT(RowsOf("SELECT fullname, descrip, group_id FROM users WHERE user_id = 1"),
                ElementsAre(u"19|19|82"_s));
}

// They lock rows of groups and of users: none waits for the other in a circle for good.
TEST_P(TwoConsoles, StoreAGroupAndMoveItsMembersAtOnce)
{
    RunAtOnce(
        Dsn().toUtf8(),
        [](int round) {
            GroupRecord record = Group();
            record.draft.description = QString::number(round);
            record.block.requested = !record.block.opened;
            EXPECT_THAT(Store(record), IsEmpty());
        },
        [](int round) {
            const GroupId target {round % 2 == 0 ? 82U : 81U};
            const Outcome outcome = RunAction(
                MoveUsersAction({UserId {9}, UserId {2}, UserId {1}}, target), {}, nullptr);
            EXPECT_TRUE(outcome.IsDone()) << qPrintable(InWords(ActionId::MoveUsers, outcome));
        });
    EXPECT_THAT(RowsOf("SELECT descrip, blocked FROM groups WHERE group_id = 81"),
                ElementsAre(u"19|0"_s));
    EXPECT_THAT(RowsOf("SELECT group_id FROM users"), testing::Each(u"81"_s));
}
