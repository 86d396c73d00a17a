#include "accounts/history.h"

#include "accounts/account_fixture.h"
#include "accounts/credit_columns.h"
#include "accounts/credit_entry.h"
#include "accounts/currency.h"
#include "db/direct_connection.h"
#include "db/value_codes.h"
#include "support/core/statement_hook.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class History : public AccountFixture
{
protected:
    // The rows as the window lists them, balances included, each row's cells joined with "|".
    static QStringList Listed(const HistoryFilter &filter, double rate = 1.0)
    {
        auto rows = Read(filter);
        AddUpBalances(rows);
        QStringList lines;
        for (const HistoryRow &row : rows) {
            lines << HistoryCells(row, filter.ownerMode, rate).join(u'|');
        }
        return lines;
    }

    static std::vector<HistoryRow> Read(const HistoryFilter &filter)
    {
        const auto rows = ReadHistory(filter);
        EXPECT_TRUE(rows);
        return rows.value_or(std::vector<HistoryRow>());
    }
};

TB_ON_EVERY_ENGINE(History);

TEST(HistoryFilters, AreBuiltFromOwnerModeSwitchAndPeriod)
{
    struct Case
    {
        AccountingMode ownerMode;
        bool openOnly;
        HistoryPeriod period;
        const char *clauses;
    };
    const Case cases[] = {
        {AccountingMode::NoControl, false, HistoryPeriod::AllRecords, ""},
        {AccountingMode::Traffic, false, HistoryPeriod::AllRecords, " AND mode=1"},
        {AccountingMode::Provider, true, HistoryPeriod::AllRecords, " AND mode=2 AND closed=0"},
        {AccountingMode::Time, false, HistoryPeriod::Today, " AND mode=4 AND date >= (?)"},
        {AccountingMode::TrafficAndTime,
         true,
         HistoryPeriod::LastMonth,
         " AND (mode=1 OR mode=4) AND closed=0 AND date >= (?)"},
    };
    for (const auto &[ownerMode, openOnly, period, clauses] : cases) {
        for (const Owner &owner : {Owner(UserId {1}), Owner(GroupId {1})}) {
            const QByteArray start = owner.IsUser()
                ? "SELECT bill_id FROM billing WHERE object_id = (?)"
                : "SELECT bill_id FROM billing WHERE group_id = (?)";
            const auto built = BuildFilter({owner, ownerMode, openOnly, period}, {2026, 11, 21});
            EXPECT_EQ(built.text, start + clauses);
            EXPECT_EQ(built.since.has_value(), period != HistoryPeriod::AllRecords);
        }
    }
}

TEST(HistoryFilters, CountDaysTheSimpleWay)
{
    struct Case
    {
        QDate today;
        QString day;
        QString week;
        QString month;
    };
    const Case cases[] = {
        {{2026, 11, 21}, u"21.11.2026"_s, u"15.11.2026"_s, u"21.10.2026"_s},
        {{2026, 1, 1}, u"01.01.2026"_s, u"25.12.2026"_s, u"01.12.2026"_s},
        {{2026, 1, 7}, u"07.01.2026"_s, u"01.01.2026"_s, u"07.12.2026"_s},
        {{2026, 3, 6}, u"06.03.2026"_s, u"30.02.2026"_s, u"06.02.2026"_s},
        {{2026, 5, 31}, u"31.05.2026"_s, u"25.05.2026"_s, u"31.04.2026"_s},
        {{2026, 3, 3}, u"03.03.2026"_s, u"27.02.2026"_s, u"03.02.2026"_s},
    };
    for (const auto &[today, day, week, month] : cases) {
        const auto since = [today = today](HistoryPeriod period) {
            return *BuildFilter({UserId {1}, AccountingMode::Traffic, false, period}, today).since;
        };
        EXPECT_EQ(since(HistoryPeriod::Today), day + u" 00:00:00"_s);
        EXPECT_EQ(since(HistoryPeriod::LastWeek), week + u" 00:00:00"_s);
        EXPECT_EQ(since(HistoryPeriod::LastMonth), month + u" 00:00:00"_s);
    }
}

TEST(HistoryFilters, PeriodsHaveTheirTexts)
{
    EXPECT_EQ(HistoryPeriodNames().join(u'|'), u"All records|Today|Last week|Last month"_s);
}

TEST_P(History, SelectsWhatTheFilterNames)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    AddCredit("mode, object_id, data, date, closed", "1, 1, 11, '2026-11-21 00:00:00', 0");
    AddCredit("mode, object_id, data, date, closed", "4, 1, 12, '2026-11-20 23:59:59', 0");
    AddCredit("mode, object_id, data, date, closed", "1, 1, 13, '2026-11-15 00:00:00', 1");
    AddCredit("mode, object_id, data, date, closed", "1, 1, 14, '2026-11-14 23:59:59', 0");
    AddCredit("mode, object_id, data, date, closed", "1, 1, 15, '2026-10-20 12:00:00', 0");
    AddCredit("mode, object_id, data, date, closed", "2, 1, 16, '2026-11-21 12:00:00', 0");
    struct Case
    {
        AccountingMode ownerMode;
        bool openOnly;
        HistoryPeriod period;
        QList<int> amounts;
    };
    const Case cases[] = {
        {AccountingMode::TrafficAndTime, false, HistoryPeriod::AllRecords, {11, 12, 13, 14, 15}},
        {AccountingMode::TrafficAndTime, true, HistoryPeriod::AllRecords, {11, 12, 14, 15}},
        {AccountingMode::TrafficAndTime, false, HistoryPeriod::Today, {11}},
        {AccountingMode::TrafficAndTime, false, HistoryPeriod::LastWeek, {11, 12, 13}},
        {AccountingMode::TrafficAndTime, true, HistoryPeriod::LastMonth, {11, 12, 14}},
        {AccountingMode::Traffic, false, HistoryPeriod::LastWeek, {11, 13}},
        {AccountingMode::Time, false, HistoryPeriod::AllRecords, {12}},
        {AccountingMode::Provider, false, HistoryPeriod::AllRecords, {16}},
    };
    for (const auto &[ownerMode, openOnly, period, amounts] : cases) {
        QList<int> read;
        for (const HistoryRow &row : Read({user, ownerMode, openOnly, period})) {
            read << static_cast<int>(NumberOf(row.amount));
        }
        EXPECT_EQ(read, amounts) << static_cast<int>(ownerMode) << openOnly
                                 << static_cast<int>(period);
    }
    EXPECT_TRUE(Read({GroupId {1}, AccountingMode::Traffic, false, {}}).empty());
}

TEST_P(History, ReadsEachCreditAfterTheFilter)
{
    AddCredit("mode, group_id, data, date", "1, 81, 5, '2026-11-01 00:00:00'");
    AddCredit("mode, group_id, moneydata", "2, 81, 5");
    StatementRecorder recorder;
    (void)Read({GroupId {81}, AccountingMode::Traffic, false, HistoryPeriod::Today});
    EXPECT_EQ(recorder.Take().join(u'\n'),
              u"SELECT bill_id FROM billing WHERE group_id = (?) AND mode=1 AND date >= (?)"_s);
    (void)Read({GroupId {81}, AccountingMode::Traffic, true, {}});
    EXPECT_EQ(recorder.Take(),
              (QStringList {u"SELECT bill_id FROM billing WHERE group_id = (?) AND mode=1 AND "
                            "closed=0"_s,
                            u"SELECT date, data, closed, usage, mode FROM billing WHERE bill_id = "
                            "(?)"_s}));
    (void)Read({GroupId {81}, AccountingMode::Provider, false, {}});
    EXPECT_EQ(recorder.Take(),
              (QStringList {u"SELECT bill_id FROM billing WHERE group_id = (?) AND mode=2"_s,
                            u"SELECT date, closed, usage, unlimited, expiredday, moneydata, "
                            "moneyusage, data FROM billing WHERE bill_id = (?)"_s}));
}

TEST_P(History, EveryFilterIsAnswered)
{
    for (const Owner &owner : {Owner(UserId {1}), Owner(GroupId {81})}) {
        for (const auto mode : {AccountingMode::NoControl,
                                AccountingMode::Traffic,
                                AccountingMode::Provider,
                                AccountingMode::Time,
                                AccountingMode::TrafficAndTime}) {
            for (const bool openOnly : {false, true}) {
                EXPECT_TRUE(Read({owner, mode, openOnly, HistoryPeriod::AllRecords}).empty());
                EXPECT_TRUE(Read({owner, mode, openOnly, HistoryPeriod::LastMonth}).empty());
            }
        }
    }
}

TEST_P(History, NamesItsColumnsByMode)
{
    EXPECT_EQ(HistoryHeaders(AccountingMode::Time).join(u'|'),
              u"N|Date|Time|Credit|Used|Balance|Type|Status"_s);
    EXPECT_EQ(HistoryHeaders(AccountingMode::Provider).join(u'|'),
              u"N|Date|Time|Credit|Used|Balance|Type|Used, Mb|Expiry date|Status"_s);
}

TEST_P(History, OfLimitsKeepsABalanceForEachUnit)
{
    const UserId user = AddUser(AccountingMode::TrafficAndTime);
    AddCredit("mode, object_id, data, usage, date", "1, 1, 100, 30, '2026-11-01 08:05:09'");
    AddCredit("mode, object_id, data, usage, date", "4, 1, 8, 0.5, '2026-11-02 08:00:00'");
    AddCredit("mode, object_id, data, closed, date", "1, 1, 50, 1, '2026-11-03 08:00:00'");
    AddCredit("mode, object_id, data, date", "1, 1, 25.555, '2026-11-04 18:00:00'");
    EXPECT_EQ(Listed({user, AccountingMode::TrafficAndTime, false, {}}),
              (QStringList {u"01.11.2026|08:05:09|100.00|30.00|70.00|Mbytes|Active"_s,
                            u"02.11.2026|08:00:00|8.00|0.50|7.50|hr|Active"_s,
                            u"03.11.2026|08:00:00|50.00|0.00|70.00|Mbytes|Closed"_s,
                            u"04.11.2026|18:00:00|25.55|0.00|95.56|Mbytes|Active"_s}));
}

TEST_P(History, OfPrePaidCreditIsInTheCurrencyShown)
{
    const UserId user = AddUser(AccountingMode::Provider);
    const char *columns =
        "mode, object_id, date, data, usage, moneydata, moneyusage, unlimited, expiredday, closed";
    const char *rows[] = {
        "2, 1, '2026-11-05 10:00:00', NULL, 3, 4, 1.5, 1, '', 0",
        "2, 1, '2026-11-06 10:00:00', 200, 12.5, 0, 0, 0, '2026.11.21', 0",
        "2, 1, '2026-11-07 10:00:00', 100, 0, NULL, 0, 0, '2026.11.20', 0",
        "2, 1, '2026-11-08 10:00:00', NULL, 9, NULL, 0, 1, '', 0",
        "2, 1, '2026-11-09 10:00:00', NULL, 0, 8, 0, 0, '2027.01.01', 1",
        "2, 1, '2026-11-10 10:00:00', NULL, 0, 2, 0, 0, '2027.01.01', 0",
    };
    for (const char *row : rows) {
        AddCredit(columns, row);
    }
    EXPECT_EQ(
        Listed({user, AccountingMode::Provider, false, {}}, 2.5),
        (QStringList {u"05.11.2026|10:00:00|10.00|3.75|6.25|Money|3.00|Unlimited|Active"_s,
                      u"06.11.2026|10:00:00|200.00|12.50|187.50|Mbytes|12.50|2026.11.21|Active"_s,
                      u"07.11.2026|10:00:00|100.00|0.00|287.50|Mbytes|0.00|2026.11.20|Expired"_s,
                      u"08.11.2026|10:00:00|Unlim|9.00|287.50|Unlim|9.00|Unlimited|Active"_s,
                      u"09.11.2026|10:00:00|20.00|0.00|6.25|Money|0.00|2027.01.01|Closed"_s,
                      u"10.11.2026|10:00:00|5.00|0.00|11.25|Money|0.00|2027.01.01|Active"_s}));
}

TEST_P(History, AStagedCreditIsNewAndCounts)
{
    std::vector<HistoryRow> rows {HistoryRowOf({BaseUnits {4}, false, u"2027.01.01"_s}),
                                  HistoryRowOf({Unbounded {}, true, {}})};
    AddUpBalances(rows);
    const QStringList cells = HistoryCells(rows[0], AccountingMode::Provider, 2.5);
    EXPECT_EQ(cells.at(0), u"21.11.2026"_s);
    EXPECT_EQ(cells.mid(2).join(u'|'), u"10.00|0.00|10.00|Money|0.00|2027.01.01|New"_s);
    EXPECT_EQ(HistoryCells(rows[1], AccountingMode::Provider, 2.5).at(7), u"Unlimited"_s);
}

TEST_P(History, MoneyIsListedAsItWasTyped)
{
    const UserId user = AddUser(AccountingMode::Provider);
    int checked = 0;
    for (const auto *rate : {"1", "2.5", "3", "0.07", "41.37", "1.1", "7777", "0.333", "99999"}) {
        UseCurrency(QString::fromLatin1(rate));
        const double current = CurrentRate(settings);
        for (const qint64 hundredths :
             {1LL, 7LL, 99LL, 1000LL, 3333LL, 123457LL, 99999999LL, 12345678901LL, 99999999999LL}) {
            const double typed = static_cast<double>(hundredths) / 100;
            if (CheckAmount(CreditKind::Money, typed, current)) {
                continue;
            }
            Execute("DELETE FROM billing");
            GiveCredit(user,
                       AccountingMode::Provider,
                       CreditFrom(CreditKind::Money, typed, current, {}),
                       current);
            const QString line =
                Listed({user, AccountingMode::Provider, false, {}}, current).value(0);
            const QString money = QString::number(typed, 'f', 2);
            EXPECT_EQ(line.section(u'|', 2, 5), money % u"|0.00|"_s % money % u"|Money"_s) << rate;
            ++checked;
        }
    }
    EXPECT_EQ(checked, 76) << "five would be stored as no money at all and are refused";
}

TEST_P(History, ThatCannotBeReadIsNeitherEmptyNorShorter)
{
    const UserId user = AddUser(AccountingMode::Traffic);
    AddCredit("mode, object_id, data", "1, 1, 5");
    AddCredit("mode, object_id, data", "1, 1, 6");
    AddCredit("mode, object_id, data", "2, 1, 7");
    for (const auto mode : {AccountingMode::Traffic, AccountingMode::Provider}) {
        for (const auto period : {HistoryPeriod::AllRecords, HistoryPeriod::LastMonth}) {
            EXPECT_EQ(
                UntoldFailures(Dsn(),
                               [&] {
                                   return ReadHistory({user, mode, false, period}).has_value();
                               }),
                QStringList());
        }
    }
}

TEST_P(History, LeavesOutACreditThatIsGoneByNow)
{
    const UserId user = AddUser(AccountingMode::Traffic);
    const BillId gone = AddCredit("mode, object_id, data", "1, 1, 5");
    const BillId stays = AddCredit("mode, object_id, data", "1, 1, 6");
    DirectConnection other;
    ASSERT_TRUE(other.Open(Dsn()));
    bool removed = false;
    const StatementHook hook([&](const QString &statement) {
        if (statement.startsWith(u"SELECT date"_s) && !std::exchange(removed, true)) {
            EXPECT_TRUE(other.Run(u"DELETE FROM billing WHERE bill_id = %1"_s.arg(gone.value)));
        }
    });
    const auto rows = Read({user, AccountingMode::Traffic, false, HistoryPeriod::AllRecords});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].billId, stays);
    EXPECT_TRUE(removed);
}

TEST_P(History, HoldsMoreThanAHundredCredits)
{
    const UserId user = AddUser(AccountingMode::Traffic);
    for (int i = 0; i < 120; ++i) {
        Execute("INSERT INTO billing (mode, object_id, data) VALUES (1, (?), 1)", user);
    }
    const QStringList lines = Listed({user, AccountingMode::Traffic, false, {}});
    ASSERT_EQ(lines.size(), 120);
    EXPECT_EQ(lines.last().section(u'|', 4, 4), u"120.00"_s);
}

} // namespace
