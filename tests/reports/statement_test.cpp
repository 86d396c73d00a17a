// Users' statements: the account as arithmetic, and the whole against sums that SQL makes on its own.
#include "reports/statement.h"

#include "db/query.h"
#include "db/session.h"
#include "reports/report_fixture.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

const QDate kToday(2026, 12, 15);
const StatementPeriod kNovember {{2026, 11, 1}, {2026, 11, 30}, {2026, 10, 1}, kToday};
const StatementPeriod kAll {{}, {}, {2026, 10, 1}, kToday};

StatementCredit MoneyCredit(QDate given, double money, double within = 0, double before = 0)
{
    StatementCredit credit;
    credit.given = given;
    credit.money = BaseUnits {money};
    credit.within = {within * 10, BaseUnits {within}};
    credit.used = {(within + before) * 10, BaseUnits {within + before}};
    credit.recorded = credit.used;
    return credit;
}

StatementCredit Closed(StatementCredit credit, QDate lastDay, QDate lastUse)
{
    credit.isClosed = true;
    credit.lastDay = lastDay;
    credit.lastUse = lastUse;
    return credit;
}

StatementCredit Unrecorded(StatementCredit credit)
{
    credit.recorded = credit.within;
    return credit;
}

StatementCredit TrafficCredit(QDate given, double amount, double within, double after)
{
    StatementCredit credit;
    credit.given = given;
    credit.amount = amount;
    credit.within.amount = within;
    credit.after.amount = after;
    credit.used.amount = within + after;
    credit.recorded = credit.used;
    return credit;
}

// "Given 2026-11-03 +1000 = 1500": changes and balances in hundredths.
QString InShort(const StatementLine &line)
{
    const char *const kinds[] = {
        "TotalOnly", "Opening", "Given", "Used", "Lapsed", "Rounding", "Closing"};
    QString text = QLatin1StringView(kinds[static_cast<int>(line.kind)]);
    text += line.day.isValid() ? u' ' + line.day.toString(Qt::ISODate) : QString();
    if (line.kind == StatementLine::Kind::Used || line.kind == StatementLine::Kind::TotalOnly) {
        text += u" %1 left %2"_s.arg(line.used.amount).arg(line.left);
    }
    return line.isMoney ? text + u" %1 = %2"_s.arg(line.change.value).arg(line.balance.value)
                        : text;
}

struct AccountCase
{
    const char *name;
    std::vector<StatementCredit> credits;
    StatementPeriod period;
    double rate;
    bool hasBalance;
    QStringList lines;
};

void PrintTo(const AccountCase &account, std::ostream *out)
{
    *out << account.name;
}

const AccountCase kAccounts[] = {
    {"a user without a pre-paid account has no balances", {}, kNovember, 1, false, {}},
    {"a pre-paid account without credits",
     {},
     kNovember,
     1,
     true,
     {u"Opening 2026-11-01 0 = 0"_s, u"Closing 2026-11-30 0 = 0"_s}},
    {"credits of before, of the period and of behind it",
     {MoneyCredit({2026, 10, 5}, 50, 10, 15),
      MoneyCredit({2026, 11, 30}, 20, 5),
      MoneyCredit({2026, 12, 1}, 99)},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 3500"_s,
      u"Used 100 left 0 -1000 = 2500"_s,
      u"Given 2026-11-30 2000 = 4500"_s,
      u"Used 50 left 0 -500 = 4000"_s,
      u"Closing 2026-11-30 0 = 4000"_s}},
    {"lines are rounded one by one, and the balances are exact",
     {MoneyCredit({2026, 10, 1}, 10, 0.334),
      MoneyCredit({2026, 10, 2}, 10, 0.334),
      MoneyCredit({2026, 10, 3}, 10, 0.334)},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 3000"_s,
      u"Used 3.34 left 0 -33 = 2967"_s,
      u"Used 3.34 left 0 -33 = 2934"_s,
      u"Used 3.34 left 0 -33 = 2901"_s,
      u"Rounding -1 = 2900"_s,
      u"Closing 2026-11-30 0 = 2900"_s}},
    {"in another currency",
     {MoneyCredit({2026, 11, 1}, 4, 1)},
     kNovember,
     2.5,
     false,
     {u"Opening 2026-11-01 0 = 0"_s,
      u"Given 2026-11-01 1000 = 1000"_s,
      u"Used 10 left 0 -250 = 750"_s,
      u"Closing 2026-11-30 0 = 750"_s}},
    {"a closed credit's rest lapses behind its last day",
     {Closed(MoneyCredit({2026, 10, 5}, 50, 10), {2026, 11, 20}, {2026, 11, 4})},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 5000"_s,
      u"Used 100 left 0 -1000 = 4000"_s,
      u"Lapsed 2026-11-21 -4000 = 0"_s,
      u"Closing 2026-11-30 0 = 0"_s}},
    {"a rest that lapsed before the period is not in it",
     {Closed(MoneyCredit({2026, 10, 5}, 50, 0, 10), {2026, 10, 30}, {2026, 10, 6})},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 0"_s, u"Closing 2026-11-30 0 = 0"_s}},
    {"a rest that lapses behind the period is still in it",
     {Closed(MoneyCredit({2026, 10, 5}, 50), {2026, 11, 30}, {})},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 5000"_s, u"Closing 2026-11-30 0 = 5000"_s}},
    {"one that was closed before its last day lapses when it was last used",
     {Closed(MoneyCredit({2026, 10, 5}, 50, 10), {2027, 1, 1}, {2026, 11, 4})},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 5000"_s,
      u"Used 100 left 0 -1000 = 4000"_s,
      u"Lapsed 2026-11-04 -4000 = 0"_s,
      u"Closing 2026-11-30 0 = 0"_s}},
    {"what has no days is a total, and the account begins with the first day",
     {Unrecorded(MoneyCredit({2026, 9, 5}, 50, 10, 15))},
     kAll,
     1,
     false,
     {u"TotalOnly 2026-10-01 150 left 0"_s,
      u"Opening 2026-10-01 0 = 3500"_s,
      u"Used 100 left 0 -1000 = 2500"_s,
      u"Closing 0 = 2500"_s}},
    {"what has no days and lies before the period is in the opening balance",
     {Unrecorded(MoneyCredit({2026, 9, 5}, 50, 10, 15))},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 3500"_s,
      u"Used 100 left 0 -1000 = 2500"_s,
      u"Closing 2026-11-30 0 = 2500"_s}},
    {"nothing but totals before the first day",
     {Unrecorded(MoneyCredit({2026, 9, 5}, 50, 0, 15))},
     {{2026, 9, 1}, {2026, 9, 30}, {2026, 10, 1}, kToday},
     1,
     false,
     {u"TotalOnly 2026-10-01 150 left 0"_s, u"Given 2026-09-05"_s}},
    {"nothing but totals where no day was recorded",
     {Unrecorded(MoneyCredit({2026, 9, 5}, 50, 0, 15))},
     {{}, {}, {}, kToday},
     1,
     false,
     {u"TotalOnly 150 left 0"_s, u"Given 2026-09-05"_s}},
    {"use without days of a credit that was given since is in the account, not in the rounding",
     {Unrecorded(MoneyCredit({2026, 11, 5}, 50, 10, 15))},
     kNovember,
     1,
     false,
     {u"Opening 2026-11-01 0 = 0"_s,
      u"Given 2026-11-05 5000 = 5000"_s,
      u"TotalOnly 150 left 0 -1500 = 3500"_s,
      u"Used 100 left 0 -1000 = 2500"_s,
      u"Closing 2026-11-30 0 = 2500"_s}},
    {"where all use has its days, the account is whole",
     {MoneyCredit({2026, 9, 5}, 50, 10)},
     kAll,
     1,
     false,
     {u"Opening 0 = 0"_s,
      u"Given 2026-09-05 5000 = 5000"_s,
      u"Used 100 left 0 -1000 = 4000"_s,
      u"Closing 0 = 4000"_s}},
    {"traffic credits have no money; what is left is told even when nothing was used",
     {TrafficCredit({2026, 10, 5}, 500, 20, 30), TrafficCredit({2026, 10, 6}, 100, 0, 0)},
     kNovember,
     1,
     false,
     {u"Used 20 left 480"_s, u"Used 0 left 100"_s}},
};

class Account : public testing::TestWithParam<AccountCase>
{ };

} // namespace

INSTANTIATE_TEST_SUITE_P(Statement, Account, testing::ValuesIn(kAccounts));

TEST_P(Account, AddsUpLineByLine)
{
    const AccountCase &account = GetParam();
    QStringList lines;
    for (const StatementLine &line :
         AccountLines(account.credits, account.period, account.rate, account.hasBalance)) {
        lines += InShort(line);
    }
    EXPECT_EQ(lines.join(u'\n').toStdString(), account.lines.join(u'\n').toStdString());
}

TEST(Cents, AreRoundedAwayFromZero)
{
    EXPECT_EQ(InCents(BaseUnits {0.125}, 1), Cents {13});
    EXPECT_EQ(InCents(BaseUnits {-0.125}, 1), Cents {-13});
    EXPECT_EQ(InCents(BaseUnits {0.1}, 2.5), Cents {25});
    EXPECT_EQ(InCents(BaseUnits {1e15}, 1), Cents {100'000'000'000'000'000});
    EXPECT_GT(InCents(BaseUnits {1e300}, 1).value, 0);
}

namespace {

constexpr quint32 kUsers = 1000;
constexpr quint32 kCreditsOfUser = 2;

// One statement for all rows of a table: thousands of them would take a server long.
void Insert(const QString &into, const QStringList &rows)
{
    const QByteArray sqlText =
        (u"INSERT INTO "_s + into + u" VALUES " + rows.join(u", "_s)).toUtf8();
    Execute(sqlText.constData());
}

// Odd users have credits of traffic, even ones of money; each takes of both on three days of two months.
void FillAccounts()
{
    QStringList users;
    QStringList bills;
    QStringList uses;
    for (quint32 user = 1; user <= kUsers; ++user) {
        const bool isMoney = user % 2 == 0;
        users += u"('user%1', %2, 2, true)"_s.arg((user * 7919) % 10'000).arg(80 + user % 2);
        for (quint32 credit = 1; credit <= kCreditsOfUser; ++credit) {
            const quint32 bill = (user - 1) * kCreditsOfUser + credit;
            double used = 0;
            double paid = 0;
            for (const QDate day : {QDate(2026, 10, 31), QDate(2026, 11, 1), QDate(2026, 11, 30)}) {
                const double amount = user * 0.37 + day.day() + credit;
                const double money = isMoney ? amount * 0.0123 : 0;
                uses += u"(%1, '%2', %3, %4, 0.0123)"_s.arg(bill)
                            .arg(day.toString(Qt::ISODate))
                            .arg(amount, 0, 'g', 17)
                            .arg(money, 0, 'g', 17);
                used += amount;
                paid += money;
            }
            bills += u"(2, %1, '2026-10-30 08:00:00', %2, %3, %4, %5, 1)"_s.arg(user)
                         .arg(isMoney ? 0 : 5000)
                         .arg(used, 0, 'g', 17)
                         .arg(isMoney ? 50 : 0)
                         .arg(paid, 0, 'g', 17);
        }
    }
    Insert(u"users (username, group_id, mode, monitored)"_s, users);
    Insert(u"billing (mode, object_id, date, data, usage, moneydata, moneyusage, unlimited)"_s,
           bills);
    Insert(u"credit_use (bill_id, day, data, money, price)"_s, uses);
}

class Statements : public EngineFixture
{ };

TB_ON_EVERY_ENGINE(Statements);

ReportRequest
StatementsOf(const QString &dsn, const ReportPeriod &period, const StatementFilter &filter = {})
{
    ReportRequest request = RequestFor(dsn, 0, period);
    request.layoutPath.clear();
    request.query.clear();
    request.statement = filter;
    request.currency = {1, u"Taler"_s};
    request.made = QDateTime(kToday, QTime(9, 30));
    return request;
}

const ReportPeriod kInNovember {PeriodChoice::Custom, {2026, 11, 1}, {2026, 11, 30}};

size_t PlaceOf(const ReportTable &table, const QString &name)
{
    for (size_t place = 0; place < static_cast<size_t>(table.layout.columns.size()); ++place) {
        if (table.layout.columns.at(static_cast<qsizetype>(place)).name == name) {
            return place;
        }
    }
    ADD_FAILURE() << name.toStdString();
    return 0;
}

double AnswerTo(const char *sqlText)
{
    RunQuery(sqlText, FetchMode::One);
    return queryResult.Amount(1);
}

} // namespace

TEST_P(Statements, OfAThousandUsersComeToWhatThePeriodTook)
{
    FillAccounts();
    const auto table = ReportOf(StatementsOf(DsnOf("reports"), kInNovember));
    ASSERT_TRUE(table);
    ASSERT_EQ(table->groups.size(), kUsers);
    EXPECT_NEAR(NumberIn(table->totals[PlaceOf(*table, u"used_traffic"_s)]),
                AnswerTo("SELECT SUM(data) FROM credit_use WHERE day >= '2026-11-01'"),
                1e-6);
    const size_t money = PlaceOf(*table, u"money"_s);
    const size_t balance = PlaceOf(*table, u"balance"_s);
    const auto rests =
        ReadAll("SELECT object_id, SUM(moneydata) - SUM(moneyusage) FROM billing "
                "WHERE closed = 0 GROUP BY object_id",
                [](const Row &row) { return std::pair(row.Integer(1), row.Amount(2)); });
    ASSERT_TRUE(rests);
    const std::map<quint32, double> restOf(rests->begin(), rests->end());
    qint64 used = 0;
    qint64 closing = 0;
    for (const ReportGroup &group : table->groups) {
        qint64 known = 0; // the opening balance and what was added since
        for (const CellRow &row : table->rows.Read(group.first, group.count)) {
            const qint64 cents = std::llround(NumberIn(row[money]) * 100);
            const qint64 stated = std::llround(NumberIn(row[balance]) * 100);
            used -= cents;
            known = row[money].index() == 0 && known == 0 ? stated : known + cents;
            EXPECT_EQ(known, stated);
            closing = known;
        }
        const auto user =
            static_cast<quint32>(std::get<qint64>(group.keys[PlaceOf(*table, u"user_id"_s)]));
        EXPECT_EQ(closing, std::llround(restOf.at(user) * 100)) << user;
    }
    // The balances' rounding is among what was used: no more than a cent for each user.
    EXPECT_NEAR(static_cast<double>(used) / 100,
                AnswerTo("SELECT SUM(money) FROM credit_use WHERE day >= '2026-11-01'"),
                kUsers * 0.01);
}

TEST_P(Statements, HaveTheDaysOfThePeriodInOrder)
{
    FillReportData();
    StatementFilter anna;
    anna.userClause = OnlyUsersClause({UserId {1}});
    const auto table = ReportOf(StatementsOf(DsnOf("reports"), kInNovember, anna));
    ASSERT_TRUE(table);
    const QString text = AsText(*table);
    EXPECT_TRUE(text.contains(u"group: anna, 10.0.0.1\n"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(
        u"anna |  | 10.0.0.1 | 2026-11-01 |  | 11.25 | 0.13 | 0.50 |  |  |  |  | 1\n"
        "anna |  | 10.0.0.1 | 2026-11-15 |  | 25.25 | 0.13 |  |  |  |  |  | 1\n"
        "anna |  | 10.0.0.1 | 2026-11-20 |  | 30.25 | 0.13 |  |  |  |  |  | 1\n"
        "anna |  | 10.0.0.1 | 2026-11-21 |  | 31.25 | 0.13 | 0.50 |  |  |  |  | 1\n"_s))
        << text.toStdString();
}

TEST_P(Statements, AreMadeOfWhoWasChosenEvenWithNothingToState)
{
    Execute("INSERT INTO users (username, group_id, mode, monitored) VALUES ('idle', 80, 1, 1)");
    EXPECT_TRUE(ReportOf(StatementsOf(DsnOf("reports"), kInNovember))->IsEmpty());
    StatementFilter idle;
    idle.groupClause = OnlyGroupsClause({GroupId {80}});
    const auto table = ReportOf(StatementsOf(DsnOf("reports"), kInNovember, idle));
    ASSERT_EQ(table->groups.size(), 1U);
    EXPECT_TRUE(AsText(*table).contains(u"Nothing was used in this period."_s));
}

TEST_P(Statements, KnowTotalsOnlyWhereTheDatabaseHasNoDaysOfCredits)
{
    Execute("INSERT INTO users (username, group_id, mode, monitored) VALUES ('old', 80, 2, 1)");
    Execute("INSERT INTO billing (mode, object_id, date, usage, moneydata, moneyusage, unlimited) "
            "VALUES (2, 1, '2026-11-02 08:00:00', 12, 50, 1.5, 1)");
    // Where the schema is older there is none; what this one holds must not be asked for.
    Execute("INSERT INTO credit_use (bill_id, day, data, money) VALUES (1, '2026-11-03', 12, 1.5)");
    Execute("DELETE FROM schema_version");
    const auto table = ReportOf(StatementsOf(DsnOf("reports"), kInNovember));
    ASSERT_TRUE(table);
    const QString text = AsText(*table);
    EXPECT_TRUE(text.contains(
        u"Used of 50.00 Taler (2026-11-02), known as a total only: 12.00 MB, 1.50 Taler"_s))
        << text.toStdString();
    EXPECT_FALSE(text.contains(u"balance"_s)) << text.toStdString();
}

TEST_P(Statements, AreNotMadeOfWhatCannotBeRead)
{
    FillReportData();
    Execute("ALTER TABLE time_use RENAME COLUMN data TO away");
    RunControl control;
    ReportProblem problem;
    EXPECT_FALSE(MakeReport(StatementsOf(DsnOf("reports"), kInNovember), control, problem));
    Execute("ALTER TABLE time_use RENAME COLUMN away TO data");
    EXPECT_EQ(problem.kind, ReportProblem::Kind::Database);
    EXPECT_FALSE(problem.text.isEmpty());
}
