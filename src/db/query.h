// Reading from the database: what was read, or why it could not be. That there is no such row is a
// value. A query outside a transaction whose connection is lost is asked again on a new one.
#pragma once

#include "base/function_ref.h"
#include "db/failure.h"
#include "db/parameters.h"
#include "db/row.h"

#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace query {

// Whether further rows are wanted.
enum class Then { GoOn, Stop };

// Whether LETTER_CASE (dialect.h) looks at no letter's case; else at none but that of a to z.
[[nodiscard]] bool FoldsEveryLetter();

// Runs `sqlText` with the values that `bind` binds, and hands each row to `take`. `restart` is called
// before the rows come, once more when they come from the beginning again. `most` is the most rows
// that are asked for; 0 for no bound.
[[nodiscard]] std::optional<Failure> Read(const char *sqlText,
                                          quint32 most,
                                          FunctionRef<void()> bind,
                                          FunctionRef<void()> restart,
                                          FunctionRef<Then(const Row &)> take);

template <typename Reader>
using ReadBy = std::remove_cvref_t<std::invoke_result_t<Reader, const Row &>>;

// The first row where `then` is Stop, else the last one.
template <typename Reader, typename... Values>
[[nodiscard]] Result<std::optional<ReadBy<Reader>>>
ReadSingle(Then then, const char *sqlText, const Reader &reader, const Values &...values)
{
    std::optional<ReadBy<Reader>> value;
    auto failure = Read(
        sqlText,
        0,
        [&] { BindValues(values...); },
        [&] { value.reset(); },
        [&](const Row &row) {
            value.emplace(reader(row));
            return then;
        });
    if (failure) {
        return tl::unexpected(*std::move(failure));
    }
    return value;
}

} // namespace query

// True when the session is open; else why it is not.
[[nodiscard]] Result<bool> IsSessionOpen();

// The version of the schema of the session's database (schema_version.h), as it was when the session was
// opened; else why that is not open.
[[nodiscard]] Result<int> OpenedSchemaVersion();

// What `reader` makes of the first row; nothing when there is none.
template <typename Reader, typename... Values>
[[nodiscard]] Result<std::optional<query::ReadBy<Reader>>>
ReadOne(const char *sqlText, const Reader &reader, const Values &...values)
{
    return query::ReadSingle(query::Then::Stop, sqlText, reader, values...);
}

// What `reader` makes of the last row, of which there may be several; nothing when there is none.
template <typename Reader, typename... Values>
[[nodiscard]] Result<std::optional<query::ReadBy<Reader>>>
ReadLast(const char *sqlText, const Reader &reader, const Values &...values)
{
    return query::ReadSingle(query::Then::GoOn, sqlText, reader, values...);
}

// What `reader` makes of each of the first `most` rows, in their order.
template <typename Reader, typename... Values>
[[nodiscard]] Result<std::vector<query::ReadBy<Reader>>>
ReadUpTo(quint32 most, const char *sqlText, const Reader &reader, const Values &...values)
{
    std::vector<query::ReadBy<Reader>> rows;
    auto failure = query::Read(
        sqlText,
        most,
        [&] { BindValues(values...); },
        [&] { rows.clear(); },
        [&](const Row &row) {
            rows.push_back(reader(row));
            return rows.size() == most ? query::Then::Stop : query::Then::GoOn;
        });
    if (failure) {
        return tl::unexpected(*std::move(failure));
    }
    return rows;
}

// What `reader` makes of every row, in their order.
template <typename Reader, typename... Values>
[[nodiscard]] Result<std::vector<query::ReadBy<Reader>>>
ReadAll(const char *sqlText, const Reader &reader, const Values &...values)
{
    return ReadUpTo(0, sqlText, reader, values...);
}

// Whether the query gives any row.
template <typename... Values>
[[nodiscard]] Result<bool> Exists(const char *sqlText, const Values &...values)
{
    return ReadOne(
               sqlText, [](const Row &) { return true; }, values...)
        .map([](const std::optional<bool> &found) { return found.has_value(); });
}
