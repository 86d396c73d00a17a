#include "access/access_mode.h"

#include "db/value_codes.h"

std::optional<quint32> ModeFor(const AccessChoice &choice)
{
    switch (choice.type) {
    case AccessType::NoControl:
        return mode::kNoControl;
    case AccessType::Provider:
        return mode::kProvider;
    case AccessType::Corporate:
        break;
    }
    if (choice.traffic && choice.time) {
        return mode::kTrafficAndTime;
    }
    if (!choice.traffic && !choice.time) {
        return std::nullopt;
    }
    return choice.traffic ? mode::kTraffic : mode::kTime;
}

AccessChoice ChoiceFor(quint32 storedMode)
{
    switch (storedMode) {
    case mode::kTraffic:
        return {AccessType::Corporate, true, false};
    case mode::kTime:
        return {AccessType::Corporate, false, true};
    case mode::kTrafficAndTime:
        return {AccessType::Corporate, true, true};
    case mode::kProvider:
        return {AccessType::Provider, false, false};
    default:
        return {};
    }
}

bool IsLimitMode(quint32 storedMode)
{
    return ChoiceFor(storedMode).type == AccessType::Corporate;
}
