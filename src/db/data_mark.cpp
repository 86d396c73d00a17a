#include "db/data_mark.h"

#include "db/dialect.h"
#include "db/query.h"
#include "db/session.h"

Result<DataMark> ReadDataMark()
{
    return ReadOne("SELECT number, rests FROM DATA_MARK",
                   [](const Row &row) {
                       // The connection that gave the row, which may be a new one.
                       return DataMark {.connection = SessionConnection(),
                                        .number = row.Text(1).toLongLong(),
                                        .rests = row.Integer(2) == 1,
                                        .countsOwnWrites = SessionDialect().marksOwnWrites};
                   })
        .map([](const std::optional<DataMark> &mark) { return mark.value_or(DataMark()); });
}

bool IsSameData(const DataMark &before, const DataMark &after, int ownWrites)
{
    const qint64 expected = before.number + (before.countsOwnWrites ? ownWrites : 0);
    return before.connection != 0 && before.connection == after.connection && before.rests
        && after.rests && after.number == expected;
}
