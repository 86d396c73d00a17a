#include "reports/statement_builder.h"

#include "access/credit_expiry.h"
#include "base/text.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace statement;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Statement)
};

constexpr int kVersionWithUse = 1; // of the schema, from which on credit_use is there

// "#2026/11/21#": how a query's text writes a day, which the dialect spells.
QString InQuery(QDate day)
{
    return u'#' + day.toString(u"yyyy/MM/dd"_s) + u'#';
}

// The column's days of the period.
QString Between(const QString &column, const StatementPeriod &period)
{
    QString text;
    if (period.from.isValid()) {
        text += u" AND %1 >= %2"_s.arg(column, InQuery(period.from));
    }
    if (period.to.isValid()) {
        text += u" AND %1 <= %2"_s.arg(column, InQuery(period.to));
    }
    return text;
}

// SUM() of what lies behind a condition, which begins with " AND ".
QString SumWhere(const QString &column, const QString &condition)
{
    return condition.isEmpty()
        ? u"SUM(%1)"_s.arg(column)
        : u"SUM(CASE WHEN %1 THEN %2 ELSE 0 END)"_s.arg(condition.sliced(5), column);
}

QDate DateFrom(std::string_view text)
{
    return QDate::fromString(TextFromUtf8(text).left(10), Qt::ISODate);
}

bool SaysNothing(const StatementLine &line)
{
    using enum StatementLine::Kind;
    return (line.kind == Opening || line.kind == Closing) && line.balance.value == 0;
}

Cell UnlessNothing(double value)
{
    return value == 0 ? Cell() : Cell(value);
}

// Until one of the block's rows is not taken.
bool TakeAll(int rows, const std::function<bool(int row)> &take)
{
    for (int row = 0; row < rows; ++row) {
        if (!take(row)) {
            return false;
        }
    }
    return true;
}

} // namespace

StatementBuilder::StatementBuilder(ReportTable &toFill,
                                   const StatementFilter &chosen,
                                   ReportConnection &useConnection,
                                   RunControl &useControl)
    : table(toFill)
    , filter(chosen)
    , connection(useConnection)
    , control(useControl)
    , collector(toFill)
    , totals(toFill.layout.columns)
    , groupTotals(toFill.layout.columns)
    , period {toFill.firstDay, toFill.lastDay, {}, toFill.made.date()}
{
    const QString unit =
        table.currency.name.isEmpty() ? Words::tr("base units") : table.currency.name;
    table.layout.columns[Money].unit = unit;
    table.layout.columns[Balance].unit = unit;
}

bool StatementBuilder::Build()
{
    const bool done = ReadUsers() && ReadCredits() && ReadFirstDay() && ReadUse() && ReadDays()
        && FinishUpTo(users.size());
    if (!done || !table.rows.Finish()) {
        if (problem.kind == ReportProblem::Kind::None) {
            problem = {ReportProblem::Kind::Output, table.rows.Problem()};
        }
        return false;
    }
    table.allCount = table.rows.Count();
    table.totals = totals.Cells();
    table.allTotals = table.totals;
    return true;
}

QString StatementBuilder::Clauses() const
{
    return u" WHERE users.user_id > 0"_s + filter.userClause + filter.groupClause;
}

bool StatementBuilder::Read(const QString &statement,
                            const std::vector<ReadAs> &columns,
                            const TakeRow &take)
{
    std::vector<ReadColumn> positions;
    positions.reserve(columns.size());
    for (const ReadAs as : columns) {
        positions.push_back({static_cast<int>(positions.size()) + 1, as});
    }
    int rows = -1;
    if (connection.RunForRows(statement, RowOrder::AsAsked)) {
        connection.Choose(positions);
        while ((rows = connection.FetchBlock()) > 0) {
            if (!TakeAll(rows, take)) {
                return false;
            }
            rowsRead += rows;
            control.SetProgress(rowsRead);
        }
    }
    if (rows < 0 || control.IsCancelled()) {
        problem = {ReportProblem::Kind::Database, connection.Problem()};
        return false;
    }
    return true;
}

bool StatementBuilder::ReadUsers()
{
    using enum ReadAs;
    return Read(
        u"SELECT users.user_id, users.mode, users.`username`, users.`fullname`, users.`ip_addr` "
        "FROM `users` users"_s
            + Clauses() + u" ORDER BY users.`username` ASC, users.user_id ASC",
        {Integer, Integer, Text, Text, Text},
        [this](int row) {
            User user;
            user.id = connection.Integer(row, 0);
            user.isPrePaid =
                connection.Integer(row, 1) == static_cast<qint64>(AccountingMode::Provider);
            user.named.resize(kColumns);
            user.named[UserNumber] = user.id;
            for (const size_t column : {UserName, FullName, Address}) {
                user.named[column] =
                    TextFromUtf8(connection.Text(row, static_cast<int>(column) + 2));
            }
            users.push_back(std::move(user));
            return true;
        });
}

// Also those that were given before the period, on which the opening balance rests.
bool StatementBuilder::ReadCredits()
{
    using enum ReadAs;
    std::unordered_map<qint64, size_t> places;
    for (size_t place = 0; place < users.size(); ++place) {
        places.emplace(users[place].id, place);
    }
    return Read(
        u"SELECT users.user_id, billing.bill_id, billing.mode, billing.`date`, billing.`data`, "
        "billing.`usage`, billing.moneydata, billing.moneyusage, billing.unlimited, "
        "billing.expiredday, billing.closed FROM `users` users INNER JOIN `billing` billing "
        "ON billing.object_id = users.user_id"_s
            + Clauses()
            + u" AND billing.mode IN (1, 2, 4) ORDER BY billing.`date` ASC, billing.bill_id ASC",
        {Integer, Integer, Integer, Text, Amount, Amount, Amount, Amount, Integer, Text, Integer},
        [&](int row) {
            constexpr double kLeastMoney = 0.0001; // a credit of less is not one of money
            const auto place = places.find(connection.Integer(row, 0));
            if (place == places.end()) {
                return true; // begun after the users were read, on an engine without one view of all
            }
            const auto amount = [&](int column) {
                return connection.IsNull(row, column) ? 0 : connection.Amount(row, column);
            };
            const auto bill = connection.Integer(row, 1);
            StatementCredit credit;
            credit.bill = static_cast<quint32>(bill);
            credit.mode = static_cast<BillingMode>(connection.Integer(row, 2));
            credit.given = DateFrom(connection.Text(row, 3));
            credit.money = BaseUnits {amount(6) > kLeastMoney ? amount(6) : 0};
            credit.amount = credit.IsOfMoney() ? 0 : amount(4);
            credit.used = {amount(5), BaseUnits {amount(7)}};
            credit.lastDay = CreditExpiry {connection.Integer(row, 8) != 0,
                                           TextFromUtf8(connection.Text(row, 9))}
                                 .LastDay();
            credit.isClosed = connection.Integer(row, 10) != 0;
            auto &ofUser = users[place->second].credits;
            credits[bill] = {place->second, ofUser.size()};
            ofUser.push_back(credit);
            return true;
        });
}

bool StatementBuilder::ReadFirstDay()
{
    if (connection.SchemaVersion() < kVersionWithUse) {
        return true;
    }
    return Read(u"SELECT MIN(credit_use.`day`) FROM `credit_use` credit_use"_s,
                {ReadAs::Text},
                [this](int row) {
                    period.recordedSince =
                        connection.IsNull(row, 0) ? QDate() : DateFrom(connection.Text(row, 0));
                    return true;
                });
}

bool StatementBuilder::ReadUse()
{
    if (!period.recordedSince.isValid()) {
        return true;
    }
    using enum ReadAs;
    const QString column = u"credit_use.`day`"_s;
    const QString within = Between(column, period);
    const QString after =
        period.to.isValid() ? u" AND %1 > %2"_s.arg(column, InQuery(period.to)) : u" AND 1 = 0"_s;
    QStringList sums;
    for (const QString &condition : {QString(), within, after}) {
        sums += SumWhere(u"credit_use.`data`"_s, condition);
        sums += SumWhere(u"credit_use.money"_s, condition);
    }
    return Read(
        u"SELECT credit_use.bill_id, MAX(%1), %2 FROM `credit_use` credit_use INNER JOIN `billing` "
        "billing ON billing.bill_id = credit_use.bill_id INNER JOIN `users` users ON users.user_id "
        "= billing.object_id%3 GROUP BY credit_use.bill_id"_s.arg(
            column, sums.join(u", "_s), Clauses()),
        {Integer, Text, Amount, Amount, Amount, Amount, Amount, Amount},
        [this](int row) {
            const auto place = credits.find(connection.Integer(row, 0));
            if (place != credits.end()) {
                StatementCredit &credit = users[place->second.first].credits[place->second.second];
                const auto use = [&](int first) {
                    return CreditUse {connection.Amount(row, first),
                                      BaseUnits {connection.Amount(row, first + 1)}};
                };
                credit.lastUse = DateFrom(connection.Text(row, 1));
                credit.recorded = use(2);
                credit.within = use(4);
                credit.after = use(6);
            }
            return true;
        });
}

// The only rows of which there may be millions.
bool StatementBuilder::ReadDays()
{
    using enum ReadAs;
    const auto part = [&](const QString &records, const QString &amounts, const QString &counted) {
        return u"SELECT %1.user_id AS owner, %1.`current_time` AS counted, %2 FROM `%1` %1 WHERE "
               "%1.period = 0%3 AND %4"_s.arg(
                   records, amounts, Between(records + u".`current_time`", period), counted);
    };
    const bool done = Read(
        u"SELECT users.user_id, used.counted, used.received, used.sent, used.hours FROM `users` "
        "users INNER JOIN (%1 UNION ALL %2) used ON used.owner = users.user_id%3 "
        "ORDER BY users.`username` ASC, users.user_id ASC, used.counted ASC"_s.arg(
            part(u"traffic_use"_s,
                 u"traffic_use.`data` AS received, traffic_use.senddata AS sent, 0.0 AS hours"_s,
                 u"(traffic_use.`data` <> 0 or traffic_use.senddata <> 0)"_s),
            part(u"time_use"_s,
                 u"0.0 AS received, 0.0 AS sent, time_use.`data` AS hours"_s,
                 u"time_use.`data` <> 0"_s),
            Clauses()),
        {Integer, Text, Amount, Amount, Amount},
        [this](int row) { return TakeDay(row); });
    return done && FinishDay();
}

bool StatementBuilder::TakeDay(int row)
{
    const qint64 id = connection.Integer(row, 0);
    size_t place = current;
    while (place < users.size() && users[place].id != id) {
        ++place;
    }
    if (place == users.size()) {
        problem = {ReportProblem::Kind::Database,
                   Words::tr("the users have changed while they were read")};
        return false;
    }
    const QString counted =
        std::get<QString>(CellFrom(table.layout.columns.at(DayOfRow), connection.Text(row, 1)));
    if (place != current || counted != day.day) {
        if (!FinishDay() || !FinishUpTo(place)) {
            return false;
        }
        day.day = counted;
    }
    day.received += connection.Amount(row, 2);
    day.sent += connection.Amount(row, 3);
    day.hours += connection.Amount(row, 4);
    return true;
}

bool StatementBuilder::FinishDay()
{
    if (day.day.isEmpty()) {
        return true;
    }
    const DayRow told = std::exchange(day, {});
    const User &user = users[current];
    if (!hasBegun && !Begin(user, LinesOf(user))) {
        return false;
    }
    CellRow row = user.named;
    row[DayOfRow] = told.day;
    row[Received] = told.received;
    row[Sent] = told.sent;
    row[Time] = UnlessNothing(told.hours);
    return Store(row);
}

// The statements of all before that user that are not yet finished.
bool StatementBuilder::FinishUpTo(size_t place)
{
    for (; current < place; ++current) {
        if (control.IsCancelled() || !Finish(users[current])) {
            return false;
        }
        hasBegun = false;
    }
    return true;
}

std::vector<StatementLine> StatementBuilder::LinesOf(const User &user) const
{
    return AccountLines(user.credits, period, table.currency.rate, user.isPrePaid);
}

bool StatementBuilder::Begin(const User &user, const std::vector<StatementLine> &account)
{
    hasBegun = true;
    groupTotals = RowTotals(table.layout.columns);
    table.groups.push_back({user.named, table.rows.Count(), 0, {}});
    return std::ranges::all_of(
        account, [&](const auto &line) { return Store(AccountRow(table, user.named, line)); });
}

bool StatementBuilder::Finish(const User &user)
{
    if (!hasBegun) {
        const auto account = LinesOf(user);
        const bool isChosen = !filter.userClause.isEmpty() || !filter.groupClause.isEmpty();
        if (!isChosen && std::ranges::all_of(account, SaysNothing)) {
            return true;
        }
        if (!Begin(user, account)) {
            return false;
        }
    }
    if (table.groups.back().count == 0) {
        CellRow row = user.named;
        row[What] = Words::tr("Nothing was used in this period.");
        if (!Store(row)) {
            return false;
        }
    }
    table.groups.back().totals = groupTotals.Cells();
    for (size_t place = 0; place < kColumns; ++place) {
        table.reach[place].Take(NumberIn(table.groups.back().totals[place]));
    }
    return true;
}

bool StatementBuilder::Store(const CellRow &row)
{
    ++table.groups.back().count;
    groupTotals.Add(row);
    totals.Add(row);
    if (!collector.Store(row)) {
        problem = {ReportProblem::Kind::Output, table.rows.Problem()};
        return false;
    }
    return true;
}
