// Settings that name the currency in use.
#pragma once

#include "config/config_store.h"

#include <QTemporaryDir>

class CurrencySettings
{
protected:
    CurrencySettings() { settings.CreateKey(ConfigKeyId::Base); }

    void UseCurrency(const QString &rate, const QString &name = QStringLiteral("Euro")) const
    {
        settings.WriteInteger(values::kCurUse, 2);
        settings.WriteText(values::kCurrencyName, name);
        settings.WriteText(values::kCurrencyRate, rate);
    }

    QTemporaryDir folder;
    ConfigStore settings {folder.path()};
};
