#include "accounts/currency.h"

#include <QCoreApplication>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Currency)
};

bool IsCurrencyInUse(const ConfigStore &config)
{
    return config.ReadText(values::kCurUse) == u"2"_s;
}

} // namespace

Currency CurrentCurrency(const ConfigStore &config)
{
    return {CurrentRate(config),
            IsCurrencyInUse(config) ? config.ReadText(values::kCurrencyName).value_or(QString())
                                    : Words::tr("units")};
}

double CurrentRate(const ConfigStore &config)
{
    return IsCurrencyInUse(config) ? config.ReadAmount(values::kCurrencyRate) : 1.0;
}

double InCurrency(BaseUnits money, double rate)
{
    constexpr double kPrecision = 1e9;
    return std::round(money.value * rate * kPrecision) / kPrecision;
}

QString UnitName(const Currency &currency, CreditKind kind)
{
    switch (kind) {
    case CreditKind::Traffic:
        return Words::tr("Mbytes");
    case CreditKind::Money:
    case CreditKind::Unlimited:
        return currency.name;
    case CreditKind::Time:
        return Words::tr("hr");
    }
    return {};
}
