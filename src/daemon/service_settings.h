// What the accounting service takes from the settings that it shares with the console.
#pragma once

#include "admin/address_ranges.h"
#include "admin/default_profile.h"
#include "config/config_store.h"
#include "metering/new_users.h"

#include <QStringList>

#include <chrono>
#include <vector>

// Which protocols are counted; the codes of monitorprotmode.
enum class MonitoredProtocols { All = 0, Basic = 1, Marked = 2, AllButMarked = 3 };

struct ServiceSettings
{
    QString dataSource;
    QString gatewayId; // "GatewayId", else made of the machine's own id
    std::chrono::seconds period {60}; // between two counts
    double price = 0; // base units for each megabyte
    QList<AddressRange> local;
    QList<Ipv4> excluded;
    QString adapter; // the description of the interface to the workstations; empty: all
    Identification identification = Identification::ByIp;
    bool identifiesByLogin = false; // "IdentMode" 2, which there is not yet
    bool bindsHardware = false; // an address belongs to one hardware address
    MonitoredProtocols protocols = MonitoredProtocols::All;
    quint16 authPort = 0; // 0: none
    DefaultProfile newUser; // authRequired also by "AuthReqNew"
    std::chrono::seconds idleGrace {300}; // without a packet: no longer on line
    bool keepsTableOnStop = false; // "OnStop": keep; else everybody passes
    bool passesUnknownIpv6 = false; // "UnknownIPv6": pass; else refused while any limit is in use

    bool operator==(const ServiceSettings &) const = default;
};

struct ReadSettings
{
    ServiceSettings settings;
    QStringList faults; // of each bad value: its name, its file, and what is wrong with it
};

// Of a value that is bad, or in a file that cannot be read, what `before` holds stays. A missing value
// counts as it does for the console.
[[nodiscard]] ReadSettings ReadServiceSettings(const ConfigStore &store,
                                               const ServiceSettings &before);

// Which gateway this is, the same at each start: the machine, and on it the network that the process is
// in. No longer than 64 characters.
[[nodiscard]] QString InstanceId();

// Why the service cannot work with these settings at all.
[[nodiscard]] QStringList ProblemsOf(const ServiceSettings &settings);
