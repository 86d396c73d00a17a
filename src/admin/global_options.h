// What the older global options sheet edits: a part of the same settings.
#pragma once

#include "admin/options.h"

constexpr qint32 kMinUpdatePeriod = 1; // of this sheet; the Options dialog takes any
constexpr qint32 kMaxUpdatePeriod = 1000;

struct GlobalOptions
{
    CurrencySettings currency;
    QList<AddressRange> ranges;
    QList<Ipv4> exclusions;
    bool controlMac = false;
    qint32 updatePeriod = 0; // seconds
    bool domainLogon = false; // "UserviewEnabled"
    QString deinstallPassword; // "clientpwd", up to 254 bytes of plain text
    qint32 monitorMode = monitor_mode::kAll;
    std::optional<ProtocolTable> protocols; // as in Options
    qint32 identMode = ident_mode::kIpAddress;
};

[[nodiscard]] Loaded<GlobalOptions> LoadGlobalOptions(const ConfigStore &store);

// As SaveOptions, in this sheet's own order.
[[nodiscard]] SaveReport SaveGlobalOptions(const Edited<GlobalOptions> &edited,
                                           const ConfigStore &store,
                                           const Answers &answers);
