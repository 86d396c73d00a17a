#include "accounts/credit.h"

#include "accounts/account_fixture.h"
#include "accounts/credit_entry.h"
#include "db/value_codes.h"

using namespace Qt::StringLiterals;

namespace {

class Credit : public AccountFixture
{
protected:
    // The statements that writing one credit sends.
    static QStringList Written(const Owner &owner,
                               AccountingMode ownerMode,
                               const StagedCredit &credit,
                               double rate = 1.0)
    {
        StatementRecorder recorder;
        WriteCredit(owner, ownerMode, credit, rate, nullptr);
        return recorder.Take();
    }

    static bool IsBlocked(const Owner &owner)
    {
        RunQuery(owner.IsUser() ? "SELECT blocked FROM users WHERE user_id = (?)"
                                : "SELECT blocked FROM groups WHERE group_id = (?)",
                 FetchMode::One,
                 owner.Number());
        return queryResult.Flag(1);
    }

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

const auto kUserReason = u"SELECT blockreason FROM users WHERE user_id = (?) "_s;
const auto kGroupReason = u"SELECT blockreason FROM groups WHERE group_id = (?) "_s;
const auto kUnblockUser = u"UPDATE users SET blocked = false WHERE user_id = (?)"_s;
const QStringList kUnblockGroup {u"UPDATE groups SET blocked = false WHERE group_id = (?)"_s,
                                 u"UPDATE users SET blocked = false WHERE group_id = (?)"_s,
                                 u"SELECT user_id FROM users WHERE group_id = (?)"_s};

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

    EXPECT_EQ(Written(user, AccountingMode::TrafficAndTime, {Megabytes {12.5}, true, {}}),
              (QStringList {kUserReason,
                            u"SELECT trafperiod FROM users WHERE user_id = (?)"_s,
                            u"SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id "
                            "= (?) and period = 1"_s,
                            u"INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), "
                            "(?), (?))"_s,
                            kUnblockUser}));
    EXPECT_EQ(
        NewestCredit(),
        (QStringList {
            u"1"_s, id, u""_s, u"71"_s, u""_s, u"0"_s, u""_s, u"0"_s, u"12.5"_s, u"-"_s, u"-"_s}));

    EXPECT_EQ(Written(user, AccountingMode::TrafficAndTime, {Hours {3}, true, {}}),
              (QStringList {kUserReason,
                            u"SELECT timeperiod FROM users WHERE user_id = (?)"_s,
                            u"SELECT time_id FROM time_use WHERE current_time = (?) and user_id = "
                            "(?) and period = 1"_s,
                            u"INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, (?), "
                            "(?), (?))"_s,
                            kUnblockUser}));
    EXPECT_EQ(
        NewestCredit(),
        (QStringList {
            u"4"_s, id, u""_s, u""_s, u"72"_s, u"0"_s, u""_s, u"0"_s, u"3"_s, u"-"_s, u"-"_s}));
}

TEST_P(Credit, OfAGroupsLimitGoesToItsOwnRecord)
{
    const GroupId group = AddGroup(AccountingMode::Traffic);
    Execute("INSERT INTO traffic_use (traf_id, group_id, period) VALUES (73, (?), 2)", group);
    EXPECT_EQ(
        Written(group, AccountingMode::Traffic, {Megabytes {5}, true, {}}),
        (QStringList {kGroupReason,
                      u"SELECT trafperiod FROM groups WHERE group_id = (?) "_s,
                      u"SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2"_s,
                      u"INSERT INTO billing (mode, trafid, group_id, data) VALUES (1, (?), "
                      "(?), (?))"_s}
         + kUnblockGroup));
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
    WriteCredit(user, AccountingMode::Traffic, {Megabytes {1}, true, {}}, 1.0, nullptr);
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
                owner.IsUser() ? kUserReason : kGroupReason,
                QString::fromLatin1(text).arg(owner.IsUser() ? u"object_id"_s : u"group_id"_s)};
            if (!unlimited) {
                expected += owner.IsUser() ? QStringList {kUnblockUser} : kUnblockGroup;
            }
            EXPECT_EQ(Written(owner, AccountingMode::Provider, credit, 2.5), expected);
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
        WriteCredit(user, ownerMode, {amount, true, {}}, 1.0, nullptr);
        EXPECT_EQ(IsBlocked(user), blockedAfter);
        if (KindOf(amount) != CreditKind::Time) {
            const GroupId group = AddGroup(ownerMode, reason);
            WriteCredit(group, ownerMode, {amount, true, {}}, 1.0, nullptr);
            EXPECT_EQ(IsBlocked(group), blockedAfter);
        }
    }
}

TEST_P(Credit, StagedOnesAreWrittenThenMarkedOnesClosed)
{
    const UserId user = AddUser(AccountingMode::Provider, BlockReason::Administrator);
    const BillId first = AddCredit("mode, object_id, data", "2, 1, 5");
    const BillId second = AddCredit("mode, object_id, data", "2, 1, 6");
    StagedAccount staged;
    staged.credits = {{Unbounded {}, true, {}}, {Unbounded {}, true, {}}};
    staged.closed = {second};
    StatementRecorder recorder;
    EXPECT_TRUE(ApplyStagedAccount(user, AccountingMode::Provider, staged, 1.0, nullptr));
    const auto insert = u"INSERT  INTO billing (mode, object_id, unlimited) VALUES (2, (?), 1)"_s;
    EXPECT_EQ(recorder.Take(),
              (QStringList {u"SELECT mode FROM users WHERE user_id = (?)"_s,
                            kUserReason,
                            insert,
                            kUserReason,
                            insert,
                            u"UPDATE billing SET closed = 1 WHERE bill_id = (?)"_s}));
    EXPECT_EQ(RowsOf("SELECT bill_id FROM billing WHERE closed = 1"),
              QStringList {QString::number(second.value)});
    EXPECT_EQ(RowsOf("SELECT count(*) FROM billing"), QStringList {u"4"_s});
    EXPECT_NE(first, second);
}

TEST_P(Credit, NothingIsWrittenForAnOwnerThatIsGone)
{
    StagedAccount staged;
    StatementRecorder recorder;
    for (const Owner &gone : {Owner(UserId {4711}), Owner(GroupId {4711})}) {
        const QStringList before = EveryRow();
        staged.credits = {{Megabytes {1}, true, {}}};
        staged.closed = {AddCredit("mode, object_id, data", "2, 4711, 5")};
        const QStringList withCredit = EveryRow();
        EXPECT_FALSE(ApplyStagedAccount(gone, AccountingMode::Provider, staged, 1.0, nullptr));
        EXPECT_EQ(EveryRow(), withCredit);
        EXPECT_NE(withCredit, before);
        (void)recorder.Take();
        EXPECT_TRUE(ApplyStagedAccount(gone, AccountingMode::Provider, {}, 1.0, nullptr));
        EXPECT_EQ(recorder.Take(), QStringList());
    }
}

} // namespace
