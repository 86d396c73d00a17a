// What the setup wizard collects: the settings without which the accounting service cannot work.
#pragma once

#include "admin/adapters.h"
#include "admin/address_ranges.h"
#include "admin/edited_settings.h"
#include "admin/exclusions.h"
#include "admin/protocol_table.h"
#include "admin/save_report.h"

#include <optional>

struct NetworkSetup
{
    QList<AddressRange> ranges;
    bool usesProxy = false; // without one, every exclusion goes
    QList<Ipv4> proxies; // addresses to exclude
    qint32 monitorMode = monitor_mode::kAll;
    // Of the database: LoadSetup leaves them out, see LoadWizardProtocols. Nothing while they could not
    // be read; they are then not saved.
    std::optional<ProtocolTable> protocols;
    qint32 identMode = 0;
};

// What stands now.
[[nodiscard]] Loaded<NetworkSetup> LoadSetup(const ConfigStore &store);

// Writes everything in its fixed order, on the session of this thread; what fails stops nothing. As
// with SaveOptions, all questions come first.
[[nodiscard]] SaveReport
SaveSetup(const Edited<NetworkSetup> &edited, const ConfigStore &store, const Answers &answers);

// The networks that the machine itself stands in, each once, for a site that has no ranges yet.
// Adapters without an address, hidden ones and host addresses (a prefix above 30) suggest nothing.
[[nodiscard]] QList<AddressRange> SuggestedRanges(const QList<Adapter> &adapters);
