// The beginning of a backup, which tells what it holds. docs/backup-format.md describes the whole file.
#pragma once

#include "upkeep/site_rows.h"

#include <QByteArray>

inline constexpr QByteArrayView kBackupMark("tollbrook-backup 1\n");
constexpr qsizetype kBackupSumBytes = 32; // SHA-256, the last ones of the file

// In JSON, with the moment in UTC at which it is made.
[[nodiscard]] QByteArray HeaderOf(const Site &site);

// A header whose tables are not those that its version has, or of a version that this program does not
// know, is refused.
[[nodiscard]] Told<Site> SiteFrom(const QByteArray &header);
