// What the stand-in reads and writes for one count.
#pragma once

#include "db/query.h"
#include "db/session.h"

#include <optional>
#include <utility>

// Each statement stands for itself, as the service's do. After the first one that fails nothing more
// is written: what could not be read is not counted with.
class Books
{
public:
    // The value; an empty one in place of what could not be read.
    template <typename Value>
    [[nodiscard]] Value Take(Result<Value> result)
    {
        if (!result) {
            Note(std::move(result.error()));
            return Value {};
        }
        return *std::move(result);
    }

    template <typename... Values>
    void Write(const char *sqlText, const Values &...values)
    {
        if (!failure) {
            Execute(sqlText, values...);
            Note(LastFailure());
        }
    }

    // `value` when all was read and written, else why it was not.
    template <typename Value>
    [[nodiscard]] Result<Value> Close(Value value) const
    {
        if (failure) {
            return tl::unexpected(*failure);
        }
        return value;
    }

private:
    void Note(std::optional<Failure> newFailure)
    {
        if (!failure) {
            failure = std::move(newFailure);
        }
    }

    std::optional<Failure> failure; // the first one
};
