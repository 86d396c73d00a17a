// Fills an empty database from a backup, or from another database.
#pragma once

#include "upkeep/told.h"

#include <optional>

enum class FillMode { Run, DryRun };

struct RestoreWish
{
    QString file;
    QString dsn;
    std::optional<QString> configFolder {}; // for the settings; without one they stay in the backup
    FillMode mode = FillMode::Run;
    bool onlySettings = false; // the database is left alone
};

// Refuses a damaged backup, a database that is not empty or that others are connected to, and settings that
// are there already with other values, before anything is written. The engine may be another one than the
// backup's. A dry run ends there.
[[nodiscard]] Told<void> Restore(const RestoreWish &wish, const Tell &tell);

struct CopyWish
{
    QString from;
    QString to;
    FillMode mode = FillMode::Run;
};

// The same from one data source to another, whose programs may go on meanwhile: what they write after the
// beginning is not copied.
[[nodiscard]] Told<void> CopyDatabase(const CopyWish &wish, const Tell &tell);
