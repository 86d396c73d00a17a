// Work that needs the database for itself.
#pragma once

#include "upkeep/told.h"

class DirectConnection;

// Fails, and names them, while others are connected to the connection's database.
[[nodiscard]] Told<void> NobodyElse(DirectConnection &database, const QString &dsn);
