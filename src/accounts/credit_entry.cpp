#include "accounts/credit_entry.h"

#include "access/access_mode.h"
#include "access/limits.h"
#include "base/day.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(CreditEntry)
};

CreditAmount AmountFrom(CreditKind kind, double typed, double rate)
{
    switch (kind) {
    case CreditKind::Traffic:
        return Megabytes {typed};
    case CreditKind::Money:
        return BaseUnits {typed / rate};
    case CreditKind::Time:
        return Hours {typed};
    case CreditKind::Unlimited:
        break;
    }
    return Unbounded {};
}

} // namespace

QList<CreditKind> CreditKindsFor(const Owner &owner, AccountingMode mode)
{
    const bool isLimited = owner.IsUser() ? IsLimitMode(mode) : mode == AccountingMode::Traffic;
    if (isLimited) {
        const LimitFields limits = FieldsFor(mode);
        return (limits.traffic ? QList {CreditKind::Traffic} : QList<CreditKind> {})
            + (limits.time ? QList {CreditKind::Time} : QList<CreditKind> {});
    }
    if (owner.IsUser() || mode == AccountingMode::Provider) {
        return {CreditKind::Unlimited, CreditKind::Traffic, CreditKind::Money};
    }
    return {};
}

CreditProblem CheckAmount(CreditKind kind, std::optional<double> typed, double rate)
{
    if (kind == CreditKind::Unlimited) {
        return std::nullopt;
    }
    if (!typed || !(*typed > 0.0) || *typed > kMostCredit) {
        return Words::tr("Please enter an amount above 0 and up to 1000000000");
    }
    if (kind != CreditKind::Money) {
        return std::nullopt;
    }
    if (!(rate > 0.0)) {
        return Words::tr(
            "The currency has no valid rate. Please correct it on the Tariff page of the options");
    }
    if (!(BaseUnits {*typed / rate} > kLeastMoney)) {
        return Words::tr(
            "The amount is too small at the currency's rate. Please enter a larger one");
    }
    return std::nullopt;
}

CreditProblem CheckExpiry(QDate day)
{
    if (day < Today()) {
        return Words::tr("The expiry day has already passed. Please choose another day");
    }
    return std::nullopt;
}

StagedCredit CreditFrom(CreditKind kind, double typed, double rate, QDate expiry)
{
    StagedCredit credit;
    credit.amount = AmountFrom(kind, typed, rate);
    credit.neverExpires = !expiry.isValid();
    if (expiry.isValid()) {
        credit.expiryDay = expiry.toString(u"yyyy.MM.dd"_s);
    }
    return credit;
}
