// One transaction of the accounts: what is read and written in it.
#pragma once

#include "db/query.h"
#include "db/write.h"

#include <optional>
#include <utility>

// After the first failure nothing more is written: what could not be read is not counted with, and the
// transaction is rolled back.
class Books
{
public:
    // The value; an empty one in place of what could not be read.
    template <typename Value>
    [[nodiscard]] Value Take(Result<Value> result)
    {
        if (!result) {
            if (!failure) {
                failure = std::move(result.error());
            }
            return Value {};
        }
        return *std::move(result);
    }

    // How many rows were changed.
    template <typename... Values>
    qint64 Write(const char *sqlText, const Values &...values)
    {
        return failure ? 0 : Take(WriteRows(sqlText, values...));
    }

    // The same of a statement that begins with its rows, unless there are none.
    template <typename... Values>
    void WriteAll(const char *sqlText, const StagedRows &rows, const Values &...values)
    {
        if (!rows.IsEmpty()) {
            Write(sqlText, rows, values...);
        }
    }

    [[nodiscard]] const std::optional<Failure> &WhyStopped() const { return failure; }

private:
    std::optional<Failure> failure; // the first one
};

namespace books {

// Runs `body` in one transaction, again where it lost against another one for as long as that may take.
// It changes nothing of its own but what it begins with.
[[nodiscard]] Result<bool> InTransaction(FunctionRef<void(Books &)> body);

} // namespace books
