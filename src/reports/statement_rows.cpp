#include "reports/statement_rows.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace statement;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Statement)
};

LayoutColumn TextColumn(const QString &name, const QString &heading, double width)
{
    LayoutColumn column;
    column.name = name;
    column.heading = heading;
    column.width = width;
    return column;
}

LayoutColumn AmountColumn(const QString &name, const QString &heading, const QString &unit)
{
    constexpr double kWidth = 12;
    LayoutColumn column = TextColumn(name, heading, kWidth);
    column.type = ColumnType::Amount;
    column.unit = unit;
    column.total = !unit.isEmpty();
    return column;
}

QString InWords(QDate day)
{
    return day.toString(Qt::ISODate);
}

Column UseColumnOf(const StatementCredit &credit)
{
    return credit.mode == BillingMode::Time ? UsedTime : UsedTraffic;
}

// An account's lines in the units of a table.
class LineWords
{
public:
    explicit LineWords(const ReportTable &ofTable) : table(ofTable) { }

    [[nodiscard]] QString Of(const StatementLine &line) const
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
            return Words::tr("Rest of %1 (%2), closed")
                .arg(Of(*line.credit), InWords(line.credit->given));
        case Given:
            return OfGiven(*line.credit);
        case TotalOnly:
            return OfTotal(line);
        case Used:
            break;
        }
        return OfUsed(line);
    }

private:
    [[nodiscard]] QString In(Column column, double value) const
    {
        const LayoutColumn &told = table.layout.columns.at(column);
        return DisplayText(told, value) + u' ' + told.unit;
    }

    [[nodiscard]] QString InMoney(BaseUnits money) const
    {
        return In(Money, money.value * table.currency.rate);
    }

    [[nodiscard]] QString Of(const StatementCredit &credit) const
    {
        if (credit.IsOfMoney()) {
            return InMoney(credit.money);
        }
        return credit.amount > 0 ? In(UseColumnOf(credit), credit.amount)
                                 : Words::tr("unlimited use");
    }

    [[nodiscard]] QString OfGiven(const StatementCredit &credit) const
    {
        return credit.lastDay.isValid()
            ? Words::tr("Credit of %1, until %2").arg(Of(credit), InWords(credit.lastDay))
            : Words::tr("Credit of %1").arg(Of(credit));
    }

    [[nodiscard]] QString OfTotal(const StatementLine &line) const
    {
        QString used = In(UseColumnOf(*line.credit), line.used.amount);
        used += line.credit->IsOfMoney() ? u", "_s + InMoney(line.used.money) : QString();
        const QString text = line.day.isValid()
            ? Words::tr("Used of %1 (%2) before this day, known as a total only: %3")
            : Words::tr("Used of %1 (%2), known as a total only: %3");
        return text.arg(Of(*line.credit), InWords(line.credit->given), used);
    }

    [[nodiscard]] QString OfUsed(const StatementLine &line) const
    {
        const StatementCredit &credit = *line.credit;
        const QString text = Words::tr("Used of %1 (%2)").arg(Of(credit), InWords(credit.given));
        return credit.amount > 0 && !credit.isClosed
            ? Words::tr("%1, %2 left").arg(text, In(UseColumnOf(credit), line.left))
            : text;
    }

    const ReportTable &table;
};

} // namespace

Layout StatementLayout()
{
    const QString megabytes = Words::tr("MB");
    const QString hours = Words::tr("h");
    Layout layout;
    layout.title = Words::tr("Statement");
    layout.noun = Words::tr("lines");
    layout.pageForEach = true;
    layout.columns = {TextColumn(u"username"_s, Words::tr("User"), 20),
                      TextColumn(u"fullname"_s, Words::tr("Name"), 20),
                      TextColumn(u"ip_addr"_s, Words::tr("IP address"), 16),
                      TextColumn(u"day"_s, Words::tr("Day"), 13),
                      TextColumn(u"what"_s, Words::tr("What"), 100),
                      AmountColumn(u"received"_s, Words::tr("Received"), megabytes),
                      AmountColumn(u"sent"_s, Words::tr("Sent"), megabytes),
                      AmountColumn(u"time"_s, Words::tr("Time"), hours),
                      AmountColumn(u"used_traffic"_s, Words::tr("Used"), megabytes),
                      AmountColumn(u"used_time"_s, Words::tr("Used"), hours),
                      AmountColumn(u"money"_s, Words::tr("Amount"), {}),
                      AmountColumn(u"balance"_s, Words::tr("Balance"), {}),
                      TextColumn(u"user_id"_s, {}, 1)};
    layout.columns[DayOfRow].type = ColumnType::Day;
    layout.columns[UserNumber].type = ColumnType::Integer;
    layout.columns[UserNumber].hidden = true;
    layout.group = {UserName, FullName, Address};
    return layout;
}

CellRow AccountRow(const ReportTable &table, const CellRow &named, const StatementLine &line)
{
    constexpr double kCentsOfOne = 100;
    using enum StatementLine::Kind;
    CellRow row = named;
    row[DayOfRow] = line.day.isValid() ? Cell(InWords(line.day)) : Cell();
    row[What] = LineWords(table).Of(line);
    if (line.kind == Used) {
        row[UseColumnOf(*line.credit)] = line.used.amount;
    }
    if (line.isMoney) {
        const bool isBalance = line.kind == Opening || line.kind == Closing;
        row[Money] =
            isBalance ? Cell() : Cell(static_cast<double>(line.change.value) / kCentsOfOne);
        row[Balance] = static_cast<double>(line.balance.value) / kCentsOfOne;
    }
    return row;
}
