// A record that several statements are read for: step by step, until one fails or finds no row.
#pragma once

#include "db/failure.h"

#include <initializer_list>
#include <optional>
#include <utility>

// False when the row that the step reads is gone.
template <typename Record>
using LoadStep = Result<bool> (*)(Record &);

template <typename Record>
[[nodiscard]] Result<std::optional<Record>>
LoadBySteps(Record record, std::initializer_list<LoadStep<Record>> steps)
{
    for (const auto step : steps) {
        const Result<bool> found = step(record);
        if (!found) {
            return tl::unexpected(found.error());
        }
        if (!*found) {
            return std::nullopt;
        }
    }
    return std::optional<Record>(std::move(record));
}

// Hands what was read to `take`; false when nothing was.
template <typename Value, typename Take>
[[nodiscard]] Result<bool> TakeFound(Result<std::optional<Value>> read, const Take &take)
{
    if (!read) {
        return tl::unexpected(read.error());
    }
    const bool found = read->has_value();
    if (found) {
        take(**std::move(read));
    }
    return found;
}
