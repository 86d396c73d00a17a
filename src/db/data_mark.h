// Whether others have written into the session's database since some moment, without a look at the rows.
#pragma once

#include "db/failure.h"

// What the engine tells of the data at a moment.
struct DataMark
{
    quint64 connection = 0; // marks of two connections cannot be compared; 0: not read yet
    qint64 number = 0;
    bool rests =
        false; // else what is being written, or was just now, may not change the number any more
    bool countsOwnWrites = false; // the number changes with those of the session, too

    bool operator==(const DataMark &) const = default;
};

// Not inside a transaction. What is read of the rows afterwards is at least as new as the mark.
[[nodiscard]] Result<DataMark> ReadDataMark();

// True only when nobody wrote between `before` and `after` but this session, and that in `ownWrites`
// transactions, each of which changed a row of the tables "service_..." alone. It may be false although
// nobody did.
[[nodiscard]] bool IsSameData(const DataMark &before, const DataMark &after, int ownWrites);
