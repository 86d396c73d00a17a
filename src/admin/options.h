// What the Options dialog edits: one copy of the settings that the accounting service reads.
#pragma once

#include "admin/address_ranges.h"
#include "admin/currency_settings.h"
#include "admin/default_profile.h"
#include "admin/edited_settings.h"
#include "admin/exclusions.h"
#include "admin/protocol_table.h"
#include "admin/save_report.h"

#include <optional>

// "IdentMode": how the service tells users apart.
namespace ident_mode {
constexpr int kIpAddress = 0;
constexpr int kMacAddress = 1;
constexpr int kUserName = 2;
} // namespace ident_mode

struct Options
{
    qint32 updatePeriod = 0; // "timer": of the database, in seconds
    std::optional<QString> adapter; // "NIC", up to 1023 bytes; nothing when it is longer
    qint32 identMode = ident_mode::kIpAddress;
    bool controlMac = false; // users may not change their IP address
    qint32 authPort = 0;
    bool authRequiredForNew = false;
    bool allowNotLogged = false; // to the domain
    bool allowNonHost = false;
    DefaultProfile profile;
    QList<AddressRange> ranges;
    QList<Ipv4> exclusions;
    // Of the database: LoadOptions leaves them out, see LoadProtocols. Nothing while they could not be
    // read; they are then not saved.
    std::optional<ProtocolTable> protocols;
    qint32 monitorMode = monitor_mode::kAll;
    CurrencySettings currency;
};

[[nodiscard]] Loaded<Options> LoadOptions(const ConfigStore &store);

// Writes everything in its fixed order, on the session of this thread; what fails stops nothing. All
// questions come first: with unanswered ones nothing is written, and they are in the report.
[[nodiscard]] SaveReport
SaveOptions(const Edited<Options> &edited, const ConfigStore &store, const Answers &answers);
