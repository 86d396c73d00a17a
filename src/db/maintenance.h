// What work on a whole database needs of an engine beyond rows: who else is there, that nobody comes,
// which numbers the engine gives next.
#pragma once

#include "db/direct_connection.h"
#include "db/table_shape.h"

// From here to the connection's end every read sees the same state of the data, whatever others write.
[[nodiscard]] bool BeginSnapshot(DirectConnection &database);

// Who else is connected to the database, a line for each; nothing when that cannot be told. The embedded
// engine knows no connections: there it is the processes that have the file open, as far as the account
// of this one may see.
[[nodiscard]] std::optional<QStringList> OthersConnected(DirectConnection &database);

// Lets nobody else in until the connection ends, where the engine can: the embedded one, where it fails
// while somebody is.
[[nodiscard]] bool KeepOthersOut(DirectConnection &database);

// Has the connection take rows with their numbers as they are, and nothing that it would have to change.
[[nodiscard]] bool PrepareForLoading(DirectConnection &database);

// The number that the engine gives the next row of a table that it numbers; nothing when it cannot be read.
[[nodiscard]] std::optional<qint64> NextNumber(DirectConnection &database, const TableShape &table);

[[nodiscard]] bool
SetNextNumber(DirectConnection &database, const TableShape &table, qint64 number);
