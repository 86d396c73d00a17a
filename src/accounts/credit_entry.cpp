#include "accounts/credit_entry.h"

#include "base/day.h"

using namespace Qt::StringLiterals;

namespace {

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

CreditProblem CheckAmount(CreditKind kind, std::optional<double> typed, double rate)
{
    if (kind == CreditKind::Unlimited) {
        return std::nullopt;
    }
    if (!typed || !(*typed > 0.0) || *typed > kMostCredit) {
        return u"Please enter an amount above 0 and up to 1000000000"_s;
    }
    if (kind != CreditKind::Money) {
        return std::nullopt;
    }
    if (!(rate > 0.0)) {
        return u"The currency has no valid rate. Please correct it on the Tariff page of the options"_s;
    }
    if (!(BaseUnits {*typed / rate} > kLeastMoney)) {
        return u"The amount is too small at the currency's rate. Please enter a larger one"_s;
    }
    return std::nullopt;
}

CreditProblem CheckExpiry(QDate day)
{
    if (day < Today()) {
        return u"The expiry day has already passed. Please choose another day"_s;
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
