// An upgrade of the tables as a window offers it: looked at before, and run alone with the database.
#pragma once

#include "upkeep/backup.h"
#include "upkeep/told.h"

#include <QStringList>

// What the upgrade of the data source's tables would do, a line for each version, step and row that is
// renamed. Changes nothing.
[[nodiscard]] Told<QStringList> LookAtUpgrade(const QString &dsn);

struct UpgradeWish
{
    QString dsn;
    std::optional<BackupWish> backup {}; // made before anything is changed
};

// Refused, with their names, while others are connected. The first failure ends it: a backup that could not
// be made leaves the tables as they are. `tell` hears of each step, on the thread that calls.
[[nodiscard]] Told<void> UpgradeAlone(const UpgradeWish &wish, const Tell &tell);
