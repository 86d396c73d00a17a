// The running database servers (see the script "servers" beside this file).
#pragma once

#include <QString>

#include <optional>

// The odbc.ini section of the server's data source, "postgresql" or "mariadb", without its heading;
// nothing while the servers do not run.
[[nodiscard]] std::optional<QString> ServerSection(const QString &engine);

// How to start them.
[[nodiscard]] QString ServersHint();
