// The currency for windows that show or take money.
#pragma once

#include "accounts/currency.h"
#include "startup/app_services.h"

#include <optional>

// The currency in force. Nothing, once that was told, when the settings cannot be read: money would be
// shown and stored by a rate that nobody chose.
[[nodiscard]] std::optional<Currency> CurrencyNow(const AppServices &services);
