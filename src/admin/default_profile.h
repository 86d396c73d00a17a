// The profile that the accounting service gives to a newly seen user: the store's key DefProfile.
#pragma once

#include "admin/edited_settings.h"
#include "db/value_codes.h"

#include <optional>

struct DefaultProfile
{
    AccountingMode mode = AccountingMode::NoControl;
    std::optional<qint32> trafficLimit; // megabytes, as shown; nothing while missing
    std::optional<qint32> timeLimit; // hours, as shown; nothing while missing
    LimitPeriod period = LimitPeriod::None;
    bool blocked = false;
    bool authRequired = false; // kept: read and never written back

    bool operator==(const DefaultProfile &) const = default;
};

[[nodiscard]] DefaultProfile LoadDefaultProfile(const KeyReader &key, qsizetype bufferBytes);
[[nodiscard]] SettingsResult SaveDefaultProfile(const ConfigStore &store,
                                                const Edited<DefaultProfile> &edited);
