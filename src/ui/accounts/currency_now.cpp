#include "ui/accounts/currency_now.h"

std::optional<Currency> CurrencyNow(const AppServices &services)
{
    if (const auto problem = services.settings.Problem(ConfigKeyId::Base)) {
        services.prompt.Tell(TextOf(*problem), Prompt::Icon::Error);
        return std::nullopt;
    }
    return CurrentCurrency(services.settings);
}
