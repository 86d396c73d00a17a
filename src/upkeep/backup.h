// Makes a backup of a database, and of the settings, while the programs run.
#pragma once

#include "upkeep/told.h"

#include <optional>

struct BackupWish
{
    QString dsn;
    QString file;
    std::optional<QString> configFolder {}; // without one the settings stay out of it
    bool replaces = false; // a file that is there already
};

// Writes one state of the database. The file appears when it is whole, and not otherwise. `tell` hears of
// each table when it is written.
[[nodiscard]] Told<void> MakeBackup(const BackupWish &wish, const Tell &tell);
