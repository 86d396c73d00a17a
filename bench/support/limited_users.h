// Users as a gateway's are: all are counted, one in five has a limit or credits, and none of them comes to
// an end.
#pragma once

#include <QString>

// The data source of a database on the engine with so many of them (see BenchDatabase).
[[nodiscard]] QString LimitedUsers(const QString &engine, int users);
