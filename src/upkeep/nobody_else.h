// Work that needs the database for itself.
#pragma once

#include "upkeep/told.h"

class DirectConnection;

// Fails, and names them, while others are connected to the connection's database.
[[nodiscard]] Told<void> NobodyElse(DirectConnection &database, const QString &dsn);

// The same for an upgrade, which is no matter of others where there is nothing to upgrade. That nothing can
// be opened is left for the upgrade to tell.
[[nodiscard]] Told<void> NobodyNeedsOlderTables(const QString &dsn);
