#include "accounts/credit.h"

#include "accounts/account_fixture.h"
#include "db/value_codes.h"

using namespace Qt::StringLiterals;

namespace {

// What one run sent, without the boundaries of its transaction.
struct Sent
{
    QStringList changing;
    QStringList reads;
};

class Credit : public AccountFixture
{
protected:
    // What writing one credit sends.
    static Sent Written(const Owner &owner,
                        AccountingMode ownerMode,
                        const StagedCredit &credit,
                        double rate = 1.0)
    {
        StatementRecorder recorder;
        GiveCredit(owner, ownerMode, credit, rate);
        const QStringList all = recorder.Take();
        Sent sent;
        for (const QString &statement : all) {
            if (statement.startsWith(u"SELECT"_s)) {
                sent.reads << statement;
            } else if (!kBoundaries.contains(statement)) {
                sent.changing << statement;
            }
        }
        return sent;
    }

    inline static const QStringList kBoundaries {
        u"BEGIN"_s, u"BEGIN IMMEDIATE"_s, u"START TRANSACTION"_s, u"COMMIT"_s};

    // The newest billing row: mode, owner columns, record columns, texts and amounts.
    static QStringList NewestCredit()
    {
        RunQuery(
            "SELECT mode, object_id, group_id, trafid, time_id, unlimited, expiredday, closed, "
            "data, moneydata, currencydata FROM billing WHERE bill_id = (?)",
            FetchMode::One,
            NewestId<BillId>("SELECT bill_id FROM billing ORDER BY bill_id"));
        QStringList cells;
        for (int column = 1; column <= 8; ++column) {
            cells << queryResult.Text(column);
        }
        for (int column = 9; column <= 11; ++column) {
            cells << (queryResult.IsEmpty(column) ? u"-"_s
                                                  : QString::number(queryResult.Amount(column)));
        }
        return cells;
    }
};

TB_ON_EVERY_ENGINE(Credit);

const auto kUserMode = u"SELECT mode FROM users WHERE user_id = (?)"_s;
const auto kUserReason = u"SELECT blockreason FROM users WHERE user_id = (?) "_s;
const auto kGroupReason = u"SELECT blockreason FROM groups WHERE group_id = (?) "_s;
const auto kUnblockUser = u"UPDATE users SET blocked = false WHERE user_id = (?)"_s;
const auto kUnblockGroup = u"UPDATE groups SET blocked = false WHERE group_id = (?)"_s;

TEST_P(Credit, OfALimitGoesToThePeriodsRecord)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    const auto usage = UsagePeriod::Day;
    Execute("INSERT INTO traffic_use (traf_id, user_id, period, current_time) "
            "VALUES (71, (?), (?), (?))",
            user,
            usage,
            DayOf(Today()));
    Execute("INSERT INTO time_use (time_id, user_id, period, current_time) "
            "VALUES (72, (?), (?), (?))",
            user,
            usage,
            DayOf(Today()));
    const QString id = QString::number(user.value);

    const Sent traffic =
        Written(user, AccountingMode::TrafficAndTime, {Megabytes {12.5}, true, {}});
    EXPECT_EQ(traffic.changing,
              (QStringList {u"INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), "
                            "(?), (?))"_s,
                            kUnblockUser}));
    for (const QString &read :
         {kUserMode,
          kUserReason,
          u"SELECT trafperiod FROM users WHERE user_id = (?)"_s,
          u"SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id = (?) and period "
          "= 1"_s}) {
        EXPECT_TRUE(traffic.reads.contains(read)) << qPrintable(read);
    }
    EXPECT_EQ(
        NewestCredit(),
        (QStringList {
            u"1"_s, id, u""_s, u"71"_s, u""_s, u"0"_s, u""_s, u"0"_s, u"12.5"_s, u"-"_s, u"-"_s}));

    const Sent time = Written(user, AccountingMode::TrafficAndTime, {Hours {3}, true, {}});
    EXPECT_EQ(time.changing,
              (QStringList {u"INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, (?), "
                            "(?), (?))"_s,
                            kUnblockUser}));
    for (const QString &read :
         {kUserReason,
          u"SELECT timeperiod FROM users WHERE user_id = (?)"_s,
          u"SELECT time_id FROM time_use WHERE current_time = (?) and user_id "
          "= (?) and period = 1"_s}) {
        EXPECT_TRUE(time.reads.contains(read)) << qPrintable(read);
    }
    EXPECT_EQ(
        NewestCredit(),
        (QStringList {
            u"4"_s, id, u""_s, u""_s, u"72"_s, u"0"_s, u""_s, u"0"_s, u"3"_s, u"-"_s, u"-"_s}));
}

TEST_P(Credit, OfAGroupsLimitGoesToItsOwnRecord)
{
    const GroupId group = AddGroup(AccountingMode::Traffic);
    Execute("INSERT INTO traffic_use (traf_id, group_id, period) VALUES (73, (?), 2)", group);
    const Sent sent = Written(group, AccountingMode::Traffic, {Megabytes {5}, true, {}});
    EXPECT_EQ(sent.changing,
              (QStringList {u"INSERT INTO billing (mode, trafid, group_id, data) VALUES (1, (?), "
                            "(?), (?))"_s,
                            kUnblockGroup}));
    for (const QString &read :
         {u"SELECT mode FROM groups WHERE group_id = (?)"_s,
          kGroupReason,
          u"SELECT trafperiod FROM groups WHERE group_id = (?) "_s,
          u"SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2"_s}) {
        EXPECT_TRUE(sent.reads.contains(read)) << qPrintable(read);
    }
    EXPECT_EQ(NewestCredit(),
              (QStringList {u"1"_s,
                            u""_s,
                            QString::number(group.value),
                            u"73"_s,
                            u""_s,
                            u"0"_s,
                            u""_s,
                            u"0"_s,
                            u"5"_s,
                            u"-"_s,
                            u"-"_s}));
}

TEST_P(Credit, WithoutARecordNamesNone)
{
    const UserId user = AddUser(AccountingMode::Traffic);
    GiveCredit(user, AccountingMode::Traffic, {Megabytes {1}, true, {}});
    EXPECT_EQ(NewestCredit().at(3), u"0"_s);
}

TEST_P(Credit, PrePaidIsWrittenByKindAndExpiry)
{
    struct Case
    {
        CreditAmount amount;
        QString expiry;
        const char *text;
        QStringList amounts; // data, moneydata, currencydata
    };
    const Case cases[] = {
        {Megabytes {4},
         {},
         "INSERT INTO billing (mode, %1, data, currencydata, unlimited) VALUES (2, (?), (?), (?), 1)",
         {u"4"_s, u"-"_s, u"2.5"_s}},
        {Megabytes {4},
         u"2027.03.01"_s,
         "INSERT  INTO billing (mode, %1, data, currencydata, unlimited, expiredday) VALUES (2, (?), "
         "(?), (?), 0, (?))",
         {u"4"_s, u"-"_s, u"2.5"_s}},
        {BaseUnits {4},
         {},
         "INSERT  INTO billing (mode, %1, moneydata, currencydata, unlimited) VALUES (2, (?), (?), "
         "(?), 1)",
         {u"-"_s, u"4"_s, u"2.5"_s}},
        {BaseUnits {4},
         u"2027.03.01"_s,
         "INSERT  INTO billing (mode, %1, moneydata, currencydata, unlimited, expiredday) VALUES (2, "
         "(?), (?), (?), 0, (?))",
         {u"-"_s, u"4"_s, u"2.5"_s}},
        {Unbounded {},
         {},
         "INSERT  INTO billing (mode, %1, unlimited) VALUES (2, (?), 1)",
         {u"-"_s, u"-"_s, u"-"_s}},
        {Unbounded {},
         u"2027.03.01"_s,
         "INSERT  INTO billing (mode, %1, unlimited, expiredday) VALUES (2, (?), 0, (?))",
         {u"-"_s, u"-"_s, u"-"_s}},
    };
    const UserId user = AddUser(AccountingMode::Provider);
    const GroupId group = AddGroup(AccountingMode::Provider);
    for (const Owner &owner : {Owner(user), Owner(group)}) {
        for (const auto &[amount, expiry, text, amounts] : cases) {
            const bool unlimited = KindOf(amount) == CreditKind::Unlimited;
            const StagedCredit credit {amount, expiry.isEmpty(), expiry};
            QStringList expected {
                QString::fromLatin1(text).arg(owner.IsUser() ? u"object_id"_s : u"group_id"_s)};
            if (!unlimited) {
                expected << (owner.IsUser() ? kUnblockUser : kUnblockGroup);
            }
            EXPECT_EQ(Written(owner, AccountingMode::Provider, credit, 2.5).changing, expected);
            const QString id = QString::number(owner.Number());
            EXPECT_EQ(NewestCredit(),
                      (QStringList {u"2"_s,
                                    owner.IsUser() ? id : u""_s,
                                    owner.IsUser() ? u""_s : id,
                                    u""_s,
                                    u""_s,
                                    expiry.isEmpty() ? u"1"_s : u"0"_s,
                                    expiry,
                                    u"0"_s}
                       + amounts));
        }
    }
}

TEST_P(Credit, LiftsABlockUnlessTheAdministratorsOrWithoutAmount)
{
    struct Case
    {
        AccountingMode ownerMode;
        BlockReason reason;
        CreditAmount amount;
        bool blockedAfter;
    };
    const Case cases[] = {
        {AccountingMode::Traffic, BlockReason::TrafficUsedUp, Megabytes {5}, false},
        {AccountingMode::Traffic, BlockReason::Administrator, Megabytes {5}, true},
        {AccountingMode::Time, BlockReason::TimeUsedUp, Hours {5}, false},
        {AccountingMode::Time, BlockReason::Administrator, Hours {5}, true},
        {AccountingMode::Provider, BlockReason::None, BaseUnits {5}, false},
        {AccountingMode::Provider, BlockReason::ShownAsAllowed, Megabytes {5}, false},
        {AccountingMode::Provider, BlockReason::Administrator, BaseUnits {5}, true},
        {AccountingMode::Provider, BlockReason::Administrator, Megabytes {5}, true},
        {AccountingMode::Provider, BlockReason::TrafficUsedUp, Unbounded {}, true},
        {AccountingMode::Provider, BlockReason::Administrator, Unbounded {}, true},
    };
    for (const auto &[ownerMode, reason, amount, blockedAfter] : cases) {
        const UserId user = AddUser(ownerMode, reason);
        GiveCredit(user, ownerMode, {amount, true, {}});
        EXPECT_EQ(IsBlocked(user), blockedAfter);
        if (KindOf(amount) != CreditKind::Time) {
            const GroupId group = AddGroup(ownerMode, reason);
            GiveCredit(group, ownerMode, {amount, true, {}});
            EXPECT_EQ(IsBlocked(group), blockedAfter);
        }
    }
}

TEST_P(Credit, OfAGroupLeavesMembersThatTheAdministratorBlocked)
{
    const GroupId group = AddGroup(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    const UserId usedUp = AddUser(AccountingMode::NoControl, BlockReason::TrafficUsedUp);
    const UserId administrators = AddUser(AccountingMode::NoControl, BlockReason::Administrator);
    const UserId other = AddUser(AccountingMode::NoControl, BlockReason::TrafficUsedUp);
    Execute("UPDATE users SET group_id = (?) WHERE user_id <> (?)", group, other);
    EXPECT_EQ(Written(group, AccountingMode::Provider, {Megabytes {1}, true, {}}).changing.mid(1),
              (QStringList {kUnblockGroup, kUnblockUser}));
    EXPECT_FALSE(IsBlocked(group));
    EXPECT_FALSE(IsBlocked(usedUp));
    EXPECT_TRUE(IsBlocked(administrators));
    EXPECT_TRUE(IsBlocked(other));
}

TEST_P(Credit, StagedOnesAreWrittenThenMarkedOnesClosed)
{
    const UserId user = AddUser(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    AddCredit("mode, object_id, data", "2, 1, 5");
    const BillId second = AddCredit("mode, object_id, data", "2, 1, 6");
    StagedAccount staged;
    staged.credits = {
        {Unbounded {}, true, {}}, {Megabytes {1}, true, {}}, {Megabytes {2}, true, {}}};
    staged.closed = {second};
    StatementRecorder recorder;
    const Outcome outcome = Write(user, AccountingMode::Provider, staged);
    EXPECT_TRUE(outcome.IsDone());
    const auto insert = u"INSERT INTO billing (mode, object_id, data, currencydata, unlimited) "
                        "VALUES (2, (?), (?), (?), 1)"_s;
    EXPECT_EQ(
        recorder.TakeChanging(),
        (QStringList {u"INSERT  INTO billing (mode, object_id, unlimited) VALUES (2, (?), 1)"_s,
                      insert,
                      kUnblockUser,
                      insert,
                      kUnblockUser,
                      u"UPDATE billing SET closed = 1 WHERE bill_id = (?)"_s}));
    EXPECT_EQ(RowsOf("SELECT bill_id FROM billing WHERE closed = 1"),
              QStringList {QString::number(second.value)});
    EXPECT_EQ(RowsOf("SELECT count(*) FROM billing"), QStringList {u"5"_s});
}

// That an outcome tells them shows that they were locked or watched.
TEST_P(Credit, TellsTheRowsThatChanged)
{
    const auto changed = [](const Outcome &outcome) {
        QStringList rows;
        for (const Change &change : outcome.changes) {
            rows << change.table + u' ' + (change.before.isEmpty() ? u"new"_s : change.key);
        }
        return rows;
    };
    const UserId user = AddUser(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    const BillId credit = AddCredit("mode, object_id, data", "2, 1, 5");
    const StagedAccount ofUser {{{Megabytes {1}, true, {}}}, {credit}};
    EXPECT_EQ(changed(Write(user, AccountingMode::Provider, ofUser)),
              (QStringList {u"users 1"_s, u"billing %1"_s.arg(credit.value), u"billing new"_s}));

    const GroupId group = AddGroup(AccountingMode::Provider, BlockReason::TrafficUsedUp);
    Execute("UPDATE users SET group_id = (?), blocked = true", group);
    const StagedAccount ofGroup {{{Megabytes {1}, true, {}}}, {}};
    EXPECT_EQ(changed(Write(group, AccountingMode::Provider, ofGroup)),
              (QStringList {u"groups 81"_s, u"users 1"_s, u"billing new"_s}));
}

TEST_P(Credit, NothingIsReadOrWrittenWhereNothingIsStaged)
{
    StatementRecorder recorder;
    const Action action {ActionId::WriteAccount, [](ActionRun &run) {
                             const auto mode = AccountingMode::Time;
                             WriteStagedAccount(run, UserId {4711}, {mode, mode}, {}, 1.0);
                         }};
    EXPECT_TRUE(RunAction(action, {}, nullptr).IsDone());
    for (const QString &statement : recorder.Take()) {
        EXPECT_TRUE(kBoundaries.contains(statement)) << qPrintable(statement);
    }
}

} // namespace
