#include "accounts/sheet_actions.h"

#include "accounts/account_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class SheetActions : public AccountFixture
{
protected:
    static UserRecord Loaded(UserId userId)
    {
        const auto record = LoadUser(userId);
        EXPECT_TRUE(record && *record);
        return record ? record->value_or(UserRecord()) : UserRecord();
    }

    static GroupRecord Loaded(GroupId groupId)
    {
        const auto record = LoadGroup(groupId);
        EXPECT_TRUE(record && *record);
        return record ? record->value_or(GroupRecord()) : GroupRecord();
    }

    static Outcome Run(const UserRecord &record)
    {
        return RunAction(ApplyUserAction(record, 2.5), {}, nullptr);
    }
    static Outcome Run(const GroupRecord &record)
    {
        return RunAction(ApplyGroupAction(record, 2.5), {}, nullptr);
    }
};

TB_ON_EVERY_ENGINE(SheetActions);

const StagedAccount kTenMegabytes {{{Megabytes {10}, true, {}}}, {}};

TEST_P(SheetActions, WriteTheAccountBehindTheRest)
{
    UserRecord user = Loaded(AddUser(AccountingMode::Provider));
    user.draft.fullName = u"Anna Berg"_s;
    user.account = kTenMegabytes;
    StatementRecorder recorder;
    EXPECT_TRUE(Run(user).IsDone());
    const QStringList ofUser = recorder.TakeChanging();
    EXPECT_EQ(ofUser.first(),
              u"UPDATE users SET fullname = (?), descrip = (?) WHERE user_id = (?)"_s);
    EXPECT_EQ(ofUser.at(ofUser.size() - 2),
              u"INSERT INTO billing (mode, object_id, data, currencydata, unlimited) VALUES (2, "
              "(?), (?), (?), 1)"_s);
    EXPECT_EQ(RowsOf("SELECT fullname FROM users"), QStringList {u"Anna Berg"_s});

    GroupRecord group = Loaded(AddGroup(AccountingMode::Provider));
    group.draft.description = u"all of them"_s;
    group.account = kTenMegabytes;
    (void)recorder.Take();
    EXPECT_TRUE(Run(group).IsDone());
    const QStringList ofGroup = recorder.TakeChanging();
    EXPECT_EQ(ofGroup.first(),
              u"UPDATE groups SET name = (?), descrip = (?) WHERE group_id = (?)"_s);
    EXPECT_EQ(ofGroup.at(ofGroup.size() - 2),
              u"INSERT INTO billing (mode, group_id, data, currencydata, unlimited) VALUES (2, "
              "(?), (?), (?), 1)"_s);
    EXPECT_EQ(RowsOf("SELECT mode, object_id, group_id, data + 0.5, currencydata FROM billing "
                     "ORDER BY bill_id"),
              (QStringList {u"2|1||10.5|2.5"_s, u"2||81|10.5|2.5"_s}));
}

TEST_P(SheetActions, RunNoStatementOfAnAccountThatStagesNothing)
{
    const UserRecord user = Loaded(AddUser(AccountingMode::NoControl));
    const GroupRecord group = Loaded(AddGroup(AccountingMode::NoControl));
    StatementRecorder recorder;
    EXPECT_TRUE(Run(user).IsDone());
    EXPECT_TRUE(Run(group).IsDone());
    EXPECT_EQ(recorder.Take().filter(u"billing"_s), QStringList());
}

TEST_P(SheetActions, KeepNothingOfTheRestWithoutTheAccount)
{
    UserRecord user = Loaded(AddUser(AccountingMode::Provider));
    GroupRecord group = Loaded(AddGroup(AccountingMode::Provider));
    user.draft.fullName = group.draft.description = u"changed"_s;
    user.account = group.account = kTenMegabytes;
    const QStringList before = EveryRow();
    Execute("ALTER TABLE billing RENAME COLUMN currencydata TO away");
    const Outcome ofUser = Run(user);
    const Outcome ofGroup = Run(group);
    Execute("ALTER TABLE billing RENAME COLUMN away TO currencydata");
    for (const Outcome &outcome : {ofUser, ofGroup}) {
        EXPECT_EQ(outcome.state, Outcome::State::NotDone);
        ASSERT_FALSE(outcome.failures.isEmpty());
        EXPECT_TRUE(outcome.failures.constFirst().statement.startsWith(u"INSERT INTO billing"_s));
    }
    EXPECT_EQ(EveryRow(), before);
}

// The mode was not touched in the sheet, and so stays as somebody else has set it: the credit was
// chosen for another one.
TEST_P(SheetActions, WriteNoCreditForAnotherModeThanItWasChosenFor)
{
    UserRecord user = Loaded(AddUser(AccountingMode::Provider));
    GroupRecord group = Loaded(AddGroup(AccountingMode::Provider));
    user.draft.fullName = group.draft.description = u"changed"_s;
    user.account = group.account = kTenMegabytes;
    Execute("UPDATE users SET mode = 1");
    Execute("UPDATE groups SET mode = 1 WHERE group_id = (?)", group.groupId);
    const QStringList before = EveryRow();
    for (const Outcome &outcome : {Run(user), Run(group)}) {
        EXPECT_EQ(outcome.state, Outcome::State::Refused);
        EXPECT_TRUE(outcome.refusal.contains(u"\"Corporate, traffic control\""_s))
            << qPrintable(outcome.refusal);
    }
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(SheetActions, WriteACreditForTheModeThatTheSheetSets)
{
    UserRecord user = Loaded(AddUser(AccountingMode::Traffic));
    GroupRecord group = Loaded(AddGroup(AccountingMode::Traffic));
    user.draft.mode = group.draft.mode = AccountingMode::Provider;
    user.account = group.account = kTenMegabytes;
    EXPECT_TRUE(Run(user).IsDone());
    EXPECT_TRUE(Run(group).IsDone());
    EXPECT_EQ(RowsOf("SELECT mode, object_id, group_id FROM billing ORDER BY bill_id"),
              (QStringList {u"2|1|"_s, u"2||81"_s}));
}

TEST_P(SheetActions, TellTheMembersThatAGroupsCreditUnblocked)
{
    GroupRecord group = Loaded(AddGroup(AccountingMode::Provider, BlockReason::TrafficUsedUp));
    const UserId member = AddUser(AccountingMode::NoControl, BlockReason::TrafficUsedUp);
    Execute("UPDATE users SET group_id = (?)", group.groupId);
    group.account = kTenMegabytes;
    QStringList changed;
    for (const Change &change : Run(group).changes) {
        changed << change.table + u' ' + (change.before.isEmpty() ? u"new"_s : change.key);
    }
    EXPECT_EQ(changed,
              (QStringList {u"groups 81"_s, u"users %1"_s.arg(member.value), u"billing new"_s}));
}

TEST_P(SheetActions, AreRefusedForAnOwnerThatIsGone)
{
    UserRecord user = Loaded(AddUser(AccountingMode::Provider));
    GroupRecord group = Loaded(AddGroup(AccountingMode::Provider));
    user.account = group.account = kTenMegabytes;
    Execute("DELETE FROM users");
    Execute("DELETE FROM groups WHERE group_id = (?)", group.groupId);
    const QStringList before = EveryRow();
    EXPECT_EQ(Run(user).state, Outcome::State::Refused);
    EXPECT_EQ(Run(group).state, Outcome::State::Refused);
    EXPECT_EQ(EveryRow(), before);
}

} // namespace
