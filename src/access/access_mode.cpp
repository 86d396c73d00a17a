#include "access/access_mode.h"

#include <QCoreApplication>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(AccessMode)
};

} // namespace

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
        return Words::tr("No control");
    case AccountingMode::Traffic:
        return Words::tr("Corporate, traffic control");
    case AccountingMode::Provider:
        return Words::tr("Provider");
    case AccountingMode::Time:
        return Words::tr("Corporate, time control");
    case AccountingMode::TrafficAndTime:
        return Words::tr("Corporate, traffic and time control");
    }
    return QString::number(static_cast<quint32>(storedMode));
}
