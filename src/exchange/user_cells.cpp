#include "exchange/user_cells.h"

#include "accounts/currency.h"
#include "base/amount_text.h"
#include "exchange/cell_values.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(UserCells)
};

QString LimitCell(ImportColumn column, const UserValues &values)
{
    const LimitFields fields = FieldsFor(values.mode);
    const Limits &limits = values.limits;
    switch (column) {
    case ImportColumn::TrafficLimit:
        return fields.traffic ? QString::number(limits.traffic.value) : QString();
    case ImportColumn::TimeLimit:
        return fields.time ? QString::number(limits.time.value) : QString();
    case ImportColumn::Period:
        return fields.period ? PeriodWord(PeriodIn(values.mode, limits)) : QString();
    case ImportColumn::Price:
        if (!fields.rates) {
            return {};
        }
        return limits.ownPrice ? FigureOf(limits.price) : GlobalPriceWord();
    default:
        return {};
    }
}

QString ShownFlag(bool on)
{
    return on ? Words::tr("yes") : Words::tr("no");
}

} // namespace

QString CellOf(ImportColumn column, const UserValues &values)
{
    switch (column) {
    case ImportColumn::FullName:
        return values.fullName;
    case ImportColumn::Description:
        return values.description;
    case ImportColumn::Workstation:
        return values.workstation;
    case ImportColumn::IpAddress:
        return values.ipAddress;
    case ImportColumn::MacAddress:
        return values.macAddress;
    case ImportColumn::Group:
        return values.groupName;
    case ImportColumn::CreateGroup:
        return values.groupName.isEmpty() ? QString() : FlagWord(true);
    case ImportColumn::Access:
        return ModeWord(values.mode);
    case ImportColumn::Blocked:
        return FlagWord(values.blocked);
    case ImportColumn::LoginRequired:
        return FlagWord(values.authRequired);
    case ImportColumn::Login:
        return values.login;
    default:
        return LimitCell(column, values);
    }
}

QString CreditCell(ImportColumn column, const PrePaidCredit &credit, double rate)
{
    switch (column) {
    case ImportColumn::TrafficCredit:
        if (credit.Kind() == PrePaidKind::Unbounded) {
            return UnlimitedWord();
        }
        return credit.Kind() == PrePaidKind::Traffic ? FigureOf(credit.traffic.value) : QString();
    case ImportColumn::MoneyCredit:
        return credit.Kind() == PrePaidKind::Money ? FigureOf(InCurrency(credit.money, rate))
                                                   : QString();
    case ImportColumn::CreditExpires:
        return credit.expiry.LastDay().toString(Qt::ISODate);
    default:
        return {};
    }
}

QString ShownValue(ImportColumn column, const UserValues &values)
{
    switch (column) {
    case ImportColumn::Access:
        return AccessTypeText(values.mode);
    case ImportColumn::Blocked:
        return ShownFlag(values.blocked);
    case ImportColumn::LoginRequired:
        return ShownFlag(values.authRequired);
    case ImportColumn::Period:
        if (CellOf(column, values).isEmpty()) {
            return {};
        }
        return PeriodIn(values.mode, values.limits) == LimitPeriod::Day ? Words::tr("day")
                                                                        : Words::tr("month");
    case ImportColumn::Price: {
        const QString cell = CellOf(column, values);
        if (cell == GlobalPriceWord()) {
            return Words::tr("global");
        }
        return cell.isEmpty() ? cell : AmountText(values.limits.price);
    }
    default:
        return CellOf(column, values);
    }
}
