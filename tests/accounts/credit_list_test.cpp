#include "accounts/credit_list.h"

#include "accounts/account_fixture.h"
#include "accounts/credit_columns.h"
#include "accounts/credit_entry.h"
#include "accounts/currency.h"
#include "db/value_codes.h"
#include "support/core/statement_hook.h"

using namespace Qt::StringLiterals;

namespace {

class CreditListing : public AccountFixture
{
protected:
    // The rows' cells, each joined with "|".
    QStringList Listed(const Owner &owner, AccountingMode ownerMode)
    {
        QStringList lines;
        for (const ListedCredit &row : List(owner, ownerMode).rows) {
            lines << row.cells.join(u'|');
        }
        return lines;
    }

    CreditList List(const Owner &owner, AccountingMode ownerMode)
    {
        const auto list = ReadCredits(owner, ownerMode, CurrentCurrency(settings));
        EXPECT_TRUE(list);
        return list.value_or(CreditList());
    }
};

TB_ON_EVERY_ENGINE(CreditListing);

TEST_P(CreditListing, NamesItsColumnsByMode)
{
    EXPECT_EQ(CreditHeaders(AccountingMode::TrafficAndTime).join(u'|'),
              u"N|Date/Time|Credit|Used|Status|Type"_s);
    EXPECT_EQ(CreditHeaders(AccountingMode::Provider).join(u'|'),
              u"N|Date/Time|Credit|Type|Used Mb|Used cash|Exp.date|Status"_s);
    EXPECT_EQ(CreditColumns(AccountingMode::NoControl), CreditColumns(AccountingMode::Provider))
        << "a credit staged there is a pre-paid one";
    EXPECT_EQ(StatusCell(AccountingMode::Traffic), 3);
    EXPECT_EQ(StatusCell(AccountingMode::Provider), 6);
}

TEST_P(CreditListing, OfLimitsShowsEachKindOnItsOwnStatement)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    AddCredit("mode, object_id, data, usage, date", "1, 1, 100, 2.5, '2026-11-01 08:00:00'");
    AddCredit("mode, object_id, data, closed, date", "1, 1, 50, 1, '2026-11-02 08:00:00'");
    AddCredit("mode, object_id, data, date", "4, 1, 8, '2026-11-03 08:00:00'");
    AddCredit("mode, object_id, data", "2, 1, 8");
    ASSERT_EQ(user, UserId {1});
    StatementRecorder recorder;
    EXPECT_EQ(Listed(user, AccountingMode::TrafficAndTime),
              (QStringList {u"2026-11-02|50.00|0.00|Expired|Mbytes"_s,
                            u"2026-11-01|100.00|2.50|Active|Mbytes"_s,
                            u"2026-11-03|8.00|0.00|Active|hr"_s}));
    EXPECT_EQ(
        recorder.Take(),
        (QStringList {u"SELECT date, data, closed, usage, bill_id FROM billing WHERE object_id "
                      "= (?) and mode = 1 ORDER BY date DESC"_s,
                      u"SELECT date, data, closed, usage, bill_id FROM billing WHERE object_id "
                      "= (?) and mode = 4  ORDER BY date DESC"_s}));
    EXPECT_EQ(Listed(user, AccountingMode::Traffic).size(), 2);
    EXPECT_EQ(Listed(user, AccountingMode::Time).size(), 1);
    EXPECT_EQ(Listed(user, AccountingMode::NoControl).size(), 0);
    EXPECT_EQ(Listed(GroupId {user.value}, AccountingMode::TrafficAndTime).size(), 0)
        << "a group has no time credits, least of all those of the user of its number";
}

TEST_P(CreditListing, OfAGroupsLimitIsThatOfItsCurrentRecord)
{
    const GroupId group = AddGroup(AccountingMode::Traffic);
    Execute("INSERT INTO traffic_use (traf_id, group_id, period) VALUES (7, (?), 2)", group);
    AddCredit("mode, group_id, trafid, data", "1, 81, 7, 10");
    AddCredit("mode, group_id, trafid, data", "1, 81, 6, 20");
    StatementRecorder recorder;
    const CreditList list = List(group, AccountingMode::Traffic);
    ASSERT_EQ(list.rows.size(), 1U);
    EXPECT_EQ(list.rows[0].cells.at(1), u"10.00"_s);
    EXPECT_EQ(
        recorder.Take().last(),
        u"SELECT date, data, closed, usage, bill_id FROM billing WHERE group_id = (?) and mode "
        "= 1 and trafid = (?) ORDER BY date DESC"_s);
}

TEST_P(CreditListing, OfPrePaidCreditTellsKindExpiryAndStatus)
{
    const UserId user = AddUser(AccountingMode::Provider);
    UseCurrency(u"2.5"_s);
    const char *columns = "mode, object_id, date, data, usage, moneydata, moneyusage, unlimited, "
                          "expiredday, closed";
    const char *rows[] = {
        "2, 1, '2026-11-09 10:00:00', NULL, 3, 4, 1.5, 1, '', 0",
        "2, 1, '2026-11-08 10:00:00', 200, 12.345, NULL, 0, 0, '2026.11.21', 0",
        "2, 1, '2026-11-07 10:00:00', 100, 0, 0.0001, 0, 0, '2026.11.20', 0",
        "2, 1, '2026-11-06 10:00:00', NULL, 0, NULL, 0, 1, '2020.01.01', 0",
        "2, 1, '2026-11-05 10:00:00', 70, 0, NULL, 0, 0, '2027.01.01', 1",
    };
    for (const char *row : rows) {
        AddCredit(columns, row);
    }
    const QStringList before = EveryRow();
    EXPECT_EQ(Listed(user, AccountingMode::Provider),
              (QStringList {u"2026-11-09|10|Euro|3.00|3.75|Unlimited|Active"_s,
                            u"2026-11-08|200.00|Mbytes|12.35|0|2026.11.21|Active"_s,
                            u"2026-11-07|100.00|Mbytes|0.00|0|2026.11.20|Expired"_s,
                            u"2026-11-06|Unlim|None|0.00|0|Unlimited|Active"_s,
                            u"2026-11-05|70.00|Mbytes|0.00|0|2027.01.01|Expired"_s}));
    EXPECT_DOUBLE_EQ(List(user, AccountingMode::Provider).balance.value, -3 + (200 - 12.345) + 100)
        << "megabytes of every credit that is not closed";
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(CreditListing, StopsAtItsCapacity)
{
    const UserId user = AddUser(AccountingMode::Traffic);
    for (int i = 0; i < 105; ++i) {
        Execute("INSERT INTO billing (mode, object_id, data) VALUES (1, (?), 1)", user);
    }
    EXPECT_EQ(List(user, AccountingMode::Traffic).rows.size(), 100U);
    EXPECT_EQ(List(UserId {user.value + 1}, AccountingMode::Traffic).rows.size(), 0U);
}

TEST_P(CreditListing, StopsAtItsCapacityOfBothKinds)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    for (int i = 0; i < 99; ++i) {
        Execute("INSERT INTO billing (mode, object_id, data) VALUES (1, (?), 1)", user);
    }
    const auto timeCredits = [&] {
        return Listed(user, AccountingMode::TrafficAndTime).filter(u"|hr"_s).size();
    };
    for (int i = 0; i < 2; ++i) {
        Execute("INSERT INTO billing (mode, object_id, data) VALUES (4, (?), 1)", user);
    }
    EXPECT_EQ(timeCredits(), 1);
    Execute("INSERT INTO billing (mode, object_id, data) VALUES (1, (?), 1)", user);
    EXPECT_EQ(timeCredits(), 0);
    EXPECT_EQ(Listed(user, AccountingMode::TrafficAndTime).size(), 100);
}

TEST_P(CreditListing, ThatCannotBeReadIsNotEmpty)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    const GroupId group = AddGroup(AccountingMode::Traffic);
    const std::pair<Owner, AccountingMode> cases[] = {
        {user, AccountingMode::TrafficAndTime},
        {user, AccountingMode::Provider},
        {group, AccountingMode::Traffic},
        {group, AccountingMode::Provider},
    };
    for (const auto &[owner, mode] : cases) {
        EXPECT_EQ(UntoldFailures(Dsn(),
                                 [&, owner = owner, mode = mode] {
                                     return ReadCredits(owner, mode, {}).has_value();
                                 }),
                  QStringList());
    }
}

TEST_P(CreditListing, AStagedRowIsNewAndOfToday)
{
    UseCurrency(u"2.5"_s);
    const auto row = [&](const StagedCredit &credit, AccountingMode ownerMode) {
        return StagedRow(credit, ownerMode, CurrentCurrency(settings)).cells.join(u'|');
    };
    EXPECT_EQ(row({Megabytes {12345.67}, true, {}}, AccountingMode::Traffic),
              u"2026-11-21|12346||New|Mbytes"_s);
    EXPECT_EQ(row({Hours {1.5}, true, {}}, AccountingMode::Time), u"2026-11-21|1.5||New|hr"_s);
    EXPECT_EQ(row({BaseUnits {4}, false, u"2027.01.01"_s}, AccountingMode::Provider),
              u"2026-11-21|10|Euro|||2027.01.01|New"_s);
    EXPECT_EQ(row({Megabytes {4}, true, {}}, AccountingMode::Provider),
              u"2026-11-21|4.00|Mbytes|||Unlimited|New"_s);
    EXPECT_EQ(row({Unbounded {}, true, {}}, AccountingMode::Provider),
              u"2026-11-21|Unlim|None|||Unlimited|New"_s);
}

TEST_P(CreditListing, MoneyIsListedAsItWasTyped)
{
    const UserId user = AddUser(AccountingMode::Provider);
    for (const auto *rate : {"2.5", "3", "0.07", "41.37", "1.1", "7777"}) {
        UseCurrency(QString::fromLatin1(rate));
        for (const double typed : {10.0, 0.8, 0.99, 33.33, 1.0 * 7 / 4, 199.9, 4567.0}) {
            const double current = CurrentRate(settings);
            ASSERT_FALSE(CheckAmount(CreditKind::Money, typed, current));
            Execute("DELETE FROM billing");
            GiveCredit(user,
                       AccountingMode::Provider,
                       CreditFrom(CreditKind::Money, typed, current, {}),
                       current);
            EXPECT_EQ(List(user, AccountingMode::Provider).rows.at(0).cells.at(1),
                      QString::number(typed))
                << rate;
        }
    }
}

} // namespace
