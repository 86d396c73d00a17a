#include "reports/statement_builder.h"

#include "access/credit_expiry.h"
#include "base/text.h"
#include "db/schema_version.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Statement)
};

enum Column : size_t {
    UserName,
    FullName,
    Address,
    DayOfRow,
    What,
    Received,
    Sent,
    Time,
    UsedTraffic,
    UsedTime,
    Money,
    Balance,
    UserNumber,
};

constexpr int kColumns = UserNumber + 1;
constexpr int kVersionWithUse = 1; // of the schema, from which on credit_use is there

LayoutColumn TextColumn(const char *name, const QString &heading, double width)
{
    LayoutColumn column;
    column.name = QLatin1StringView(name);
    column.heading = heading;
    column.width = width;
    return column;
}

LayoutColumn AmountColumn(const char *name, const QString &heading, const QString &unit, bool total)
{
    LayoutColumn column = TextColumn(name, heading, 12);
    column.type = ColumnType::Amount;
    column.unit = unit;
    column.total = total;
    return column;
}

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

QString Amount(double value)
{
    LayoutColumn column;
    column.type = ColumnType::Amount;
    return DisplayText(column, value);
}

QString InWords(QDate day)
{
    return day.toString(Qt::ISODate);
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

} // namespace

Layout StatementLayout()
{
    const QString megabytes = Words::tr("MB");
    const QString hours = Words::tr("h");
    Layout layout;
    layout.title = Words::tr("Statement");
    layout.noun = Words::tr("lines");
    layout.pageForEach = true;
    layout.columns = {TextColumn("username", Words::tr("User"), 20),
                      TextColumn("fullname", Words::tr("Name"), 20),
                      TextColumn("ip_addr", Words::tr("IP address"), 16),
                      TextColumn("day", Words::tr("Day"), 13),
                      TextColumn("what", Words::tr("What"), 36),
                      AmountColumn("received", Words::tr("Received"), megabytes, true),
                      AmountColumn("sent", Words::tr("Sent"), megabytes, true),
                      AmountColumn("time", Words::tr("Time"), hours, true),
                      AmountColumn("used_traffic", Words::tr("Used"), megabytes, true),
                      AmountColumn("used_time", Words::tr("Used"), hours, true),
                      AmountColumn("money", Words::tr("Amount"), {}, false),
                      AmountColumn("balance", Words::tr("Balance"), {}, false),
                      TextColumn(kUserNumberColumn, {}, 1)};
    layout.columns[UserNumber].type = ColumnType::Integer;
    layout.columns[UserNumber].hidden = true;
    layout.columns[DayOfRow].type = ColumnType::Day;
    layout.group = {UserName, FullName, Address};
    return layout;
}

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
    for (const ReadAs as : columns) {
        positions.push_back({static_cast<int>(positions.size()) + 1, as});
    }
    int rows = -1;
    if (connection.RunForRows(statement, RowOrder::AsAsked)) {
        connection.Choose(positions);
        while ((rows = connection.FetchBlock()) > 0) {
            for (int row = 0; row < rows; ++row) {
                if (!take(row)) {
                    return false;
                }
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
    const auto part = [&](const QString &records, const QString &amounts) {
        return u"SELECT %1.user_id AS owner, %1.`current_time` AS counted, %2 FROM `%1` %1 WHERE "
               "%1.period = 0%3"_s.arg(
                   records, amounts, Between(records + u".`current_time`", period));
    };
    const bool done = Read(
        u"SELECT users.user_id, used.counted, used.received, used.sent, used.hours FROM `users` "
        "users INNER JOIN (%1 UNION ALL %2) used ON used.owner = users.user_id%3 "
        "ORDER BY users.`username` ASC, users.user_id ASC, used.counted ASC"_s.arg(
            part(u"traffic_use"_s,
                 u"traffic_use.`data` AS received, traffic_use.senddata AS sent, 0.0 AS hours"_s)
                + u" AND (traffic_use.`data` <> 0 or traffic_use.senddata <> 0)",
            part(u"time_use"_s, u"0.0 AS received, 0.0 AS sent, time_use.`data` AS hours"_s)
                + u" AND time_use.`data` <> 0",
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
    return std::ranges::all_of(account, [&](const auto &line) { return Store(RowOf(user, line)); });
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

CellRow StatementBuilder::RowOf(const User &user, const StatementLine &line) const
{
    constexpr double kCentsOfOne = 100;
    using enum StatementLine::Kind;
    CellRow row = user.named;
    row[DayOfRow] = line.day.isValid() ? Cell(InWords(line.day)) : Cell();
    row[What] = TextOf(line);
    if (line.kind == Used) {
        const size_t column = line.credit->mode == BillingMode::Time ? UsedTime : UsedTraffic;
        row[column] = line.used.amount;
    }
    if (line.isMoney) {
        const bool isBalance = line.kind == Opening || line.kind == Closing;
        row[Money] =
            isBalance ? Cell() : Cell(static_cast<double>(line.change.value) / kCentsOfOne);
        row[Balance] = static_cast<double>(line.balance.value) / kCentsOfOne;
    }
    return row;
}

QString StatementBuilder::AmountOf(const StatementCredit &credit) const
{
    if (credit.IsOfMoney()) {
        return Amount(credit.money.value * table.currency.rate) + u' '
            + table.layout.columns.at(Money).unit;
    }
    if (credit.amount <= 0) {
        return Words::tr("unlimited");
    }
    const size_t column = credit.mode == BillingMode::Time ? UsedTime : UsedTraffic;
    return Amount(credit.amount) + u' '
        + table.layout.columns.at(static_cast<qsizetype>(column)).unit;
}

QString StatementBuilder::TextOf(const StatementLine &line) const
{
    using enum StatementLine::Kind;
    switch (line.kind) {
    case Opening:
        return Words::tr("Opening balance");
    case Closing:
        return Words::tr("Closing balance");
    case Rounding:
        return Words::tr("Rounding");
    case Lapsed:
        return Words::tr("Rest of the credit of %1, closed").arg(InWords(line.credit->given));
    case Given:
        return line.credit->lastDay.isValid()
            ? Words::tr("Credit given: %1, until %2")
                  .arg(AmountOf(*line.credit), InWords(line.credit->lastDay))
            : Words::tr("Credit given: %1").arg(AmountOf(*line.credit));
    case TotalOnly: {
        const bool isTime = line.credit->mode == BillingMode::Time;
        const QString used = Amount(line.used.amount) + u' '
            + table.layout.columns.at(isTime ? UsedTime : UsedTraffic).unit;
        const QString text = line.day.isValid()
            ? Words::tr("Used of the credit of %1 before this day, known as a total only: %2")
            : Words::tr("Used of the credit of %1, known as a total only: %2");
        const QString money = line.credit->IsOfMoney()
            ? u", "_s + Amount(line.used.money.value * table.currency.rate) + u' '
                + table.layout.columns.at(Money).unit
            : QString();
        return text.arg(InWords(line.credit->given), used + money);
    }
    case Used:
        break;
    }
    const QString text = Words::tr("Used of the credit of %1: %2")
                             .arg(InWords(line.credit->given), AmountOf(*line.credit));
    return line.credit->amount > 0 && !line.credit->isClosed
        ? Words::tr("%1, %2 left").arg(text, Amount(line.left))
        : text;
}
