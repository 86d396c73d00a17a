#include "accounts/currency.h"

using namespace Qt::StringLiterals;

namespace {

bool IsCurrencyInUse(const ConfigStore &config)
{
    return config.ReadText(values::kCurUse) == u"2"_s;
}

} // namespace

Currency CurrentCurrency(const ConfigStore &config)
{
    return {CurrentRate(config),
            IsCurrencyInUse(config) ? config.ReadText(values::kCurrencyName).value_or(QString())
                                    : u"units"_s};
}

double CurrentRate(const ConfigStore &config)
{
    return IsCurrencyInUse(config) ? config.ReadAmount(values::kCurrencyRate) : 1.0;
}

QString UnitName(const Currency &currency, CreditKind kind)
{
    switch (kind) {
    case CreditKind::Traffic:
        return u"Mbytes"_s;
    case CreditKind::Money:
    case CreditKind::Unlimited:
        return currency.name;
    case CreditKind::Time:
        return u"hr"_s;
    }
    return {};
}
