#include "access/access_mode.h"

using namespace Qt::StringLiterals;

std::optional<AccountingMode> ModeFor(const AccessChoice &choice)
{
    switch (choice.type) {
    case AccessType::NoControl:
        return AccountingMode::NoControl;
    case AccessType::Provider:
        return AccountingMode::Provider;
    case AccessType::Corporate:
        break;
    }
    if (choice.traffic && choice.time) {
        return AccountingMode::TrafficAndTime;
    }
    if (!choice.traffic && !choice.time) {
        return std::nullopt;
    }
    return choice.traffic ? AccountingMode::Traffic : AccountingMode::Time;
}

AccessChoice ChoiceFor(AccountingMode storedMode)
{
    switch (storedMode) {
    case AccountingMode::Traffic:
        return {AccessType::Corporate, true, false};
    case AccountingMode::Time:
        return {AccessType::Corporate, false, true};
    case AccountingMode::TrafficAndTime:
        return {AccessType::Corporate, true, true};
    case AccountingMode::Provider:
        return {AccessType::Provider, false, false};
    default:
        return {};
    }
}

bool IsLimitMode(AccountingMode storedMode)
{
    return ChoiceFor(storedMode).type == AccessType::Corporate;
}

QString AccessTypeText(AccountingMode storedMode)
{
    switch (storedMode) {
    case AccountingMode::NoControl:
        return u"No control"_s;
    case AccountingMode::Traffic:
        return u"Corporate, traffic control"_s;
    case AccountingMode::Provider:
        return u"Provider"_s;
    case AccountingMode::Time:
        return u"Corporate, time control"_s;
    case AccountingMode::TrafficAndTime:
        return u"Corporate, traffic and time control"_s;
    }
    return QString::number(static_cast<quint32>(storedMode));
}
