// The machine's network adapters, and which of them the accounting service is bound to.
#pragma once

#include "base/ipv4.h"
#include "config/settings_failure.h"

#include <QList>
#include <QString>

#include <optional>

class ConfigStore;

struct Adapter
{
    QString name; // of the system, such as eth0
    QString description; // shown, and kept as the choice
    bool hidden = false; // never offered: the loopback
    std::optional<Ipv4> address;
    quint32 prefixLength = 0; // of the address; 0 when unknown

    bool operator==(const Adapter &) const = default;
};

// In the system's order, hidden ones included.
[[nodiscard]] QList<Adapter> SystemAdapters();

// Those that may be chosen, in the same order.
[[nodiscard]] QList<Adapter> Selectable(const QList<Adapter> &adapters);

// The selectable one with exactly this description; null when there is none.
[[nodiscard]] const Adapter *FindAdapter(const QList<Adapter> &adapters,
                                         const QString &description);

// What the capture driver is bound to: "Export" less its device path. Nothing without a driver.
[[nodiscard]] tl::expected<std::optional<QString>, SettingsFailure>
CaptureBinding(const ConfigStore &store);

// The adapter that the service is bound to: the "NIC" of the binding's own key, which is not the
// "NIC" of the Options dialog. Nothing while the capture driver has no binding.
[[nodiscard]] tl::expected<std::optional<QString>, SettingsFailure>
BoundAdapter(const ConfigStore &store);
[[nodiscard]] SettingsResult BindAdapter(const ConfigStore &store, const Adapter &adapter);
