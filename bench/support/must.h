// Benchmarks do not go on after a failure: they end the program with what went wrong.
#pragma once

#include "db/direct_connection.h"

[[noreturn]] void Fail(const QString &problem);

void Must(bool done, const DirectConnection &connection);
