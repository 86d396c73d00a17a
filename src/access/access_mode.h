// The access control types as they are chosen, and the accounting mode that each one is.
#pragma once

#include <QtGlobal>

#include <optional>

enum class AccessType { NoControl, Corporate, Provider };

struct AccessChoice
{
    AccessType type = AccessType::NoControl;
    bool traffic = false; // the two corporate options; groups always take traffic
    bool time = false;

    bool operator==(const AccessChoice &) const = default;
};

// The mode (db/value_codes.h); nothing for "Corporate" with neither option.
[[nodiscard]] std::optional<quint32> ModeFor(const AccessChoice &choice);

// The choice that a stored mode shows as; a code of no meaning shows as "No control".
[[nodiscard]] AccessChoice ChoiceFor(quint32 storedMode);

// True for the modes that limit traffic or time, or both, within an accounting period.
[[nodiscard]] bool IsLimitMode(quint32 storedMode);
