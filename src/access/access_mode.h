// The access control types as they are chosen, and the accounting mode that each one is.
#pragma once

#include "db/value_codes.h"

#include <QString>

#include <optional>

enum class AccessType { NoControl, Corporate, Provider };

struct AccessChoice
{
    AccessType type = AccessType::NoControl;
    bool traffic = false; // the two corporate options; groups always take traffic
    bool time = false;

    bool operator==(const AccessChoice &) const = default;
};

// Nothing for "Corporate" with neither option.
[[nodiscard]] std::optional<AccountingMode> ModeFor(const AccessChoice &choice);

// The choice that a stored mode shows as; a code of no meaning shows as "No control".
[[nodiscard]] AccessChoice ChoiceFor(AccountingMode storedMode);

// True for the modes that limit traffic or time, or both, within an accounting period.
[[nodiscard]] bool IsLimitMode(AccountingMode storedMode);

// A stored mode for a person; a code of no meaning is its number.
[[nodiscard]] QString AccessTypeText(AccountingMode storedMode);
