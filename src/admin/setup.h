// What the setup wizard collects: the settings without which the accounting service cannot work.
#pragma once

#include "admin/adapters.h"
#include "admin/address_ranges.h"
#include "admin/exclusions.h"
#include "admin/protocol_table.h"

struct NetworkSetup
{
    QList<AddressRange> ranges;
    bool usesProxy = false; // without one, every exclusion goes
    QList<Ipv4> proxies; // addresses to exclude
    qint32 monitorMode = monitor_mode::kAll;
    ProtocolTable protocols;
    qint32 identMode = 0;
};

// What stands now.
[[nodiscard]] NetworkSetup LoadSetup(const ConfigStore &store);

// Writes everything in its fixed order; what fails stops nothing.
void SaveSetup(const NetworkSetup &setup, const ConfigStore &store);

// The networks that the machine itself stands in, each once, for a site that has no ranges yet.
// Adapters without an address, hidden ones and host addresses (a prefix above 30) suggest nothing.
[[nodiscard]] QList<AddressRange> SuggestedRanges(const QList<Adapter> &adapters);
