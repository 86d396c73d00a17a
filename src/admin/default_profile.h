// The profile that the accounting service gives to a newly seen user: the store's key DefProfile.
#pragma once

#include <QtGlobal>

#include <optional>

class ConfigStore;

// Codes are those of the users table (db/value_codes.h).
struct DefaultProfile
{
    qint32 mode = 0;
    std::optional<qint32> trafficLimit; // megabytes, as shown; nothing while missing
    std::optional<qint32> timeLimit; // hours, as shown; nothing while missing
    qint32 period = 0;
    bool blocked = false;
    bool authRequired = false; // kept: read and never written back

    bool operator==(const DefaultProfile &) const = default;
};

[[nodiscard]] DefaultProfile LoadDefaultProfile(const ConfigStore &store, qsizetype bufferBytes);
void SaveDefaultProfile(const ConfigStore &store, const DefaultProfile &profile);
