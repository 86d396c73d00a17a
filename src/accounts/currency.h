// The currency in which money is shown. It is stored in base units always.
#pragma once

#include "access/staged_account.h"
#include "config/config_store.h"

#include <QString>

// Taken from the settings before work begins that must not read them.
struct Currency
{
    double rate = 1.0; // currency per base unit
    QString name;
};

[[nodiscard]] Currency CurrentCurrency(const ConfigStore &config);

// Currency per base unit: the defined currency's rate while that is in use, otherwise 1.0. What a
// site stored as its rate is returned as it stands, 0 for a text that is no number.
[[nodiscard]] double CurrentRate(const ConfigStore &config);

// Money in the currency, to nine decimals: the product has more digits than anybody ever gave.
[[nodiscard]] double InCurrency(BaseUnits money, double rate);

// The unit in which a credit of this kind is shown: megabytes, hours, or the currency's name. An
// unlimited credit has the money's.
[[nodiscard]] QString UnitName(const Currency &currency, CreditKind kind);
