// Writes a statement in an engine's spelling.
#pragma once

#include "db/dialect.h"

#include <array>
#include <string>
#include <string_view>

// The most parameters that one statement has.
constexpr int kMaxParameters = 256;

enum class ParameterKind { Integer, Amount, Text, Day, Rows };

// What must become of a bound value so that a date-and-time column is compared with it by day.
enum class ParameterChange {
    None,
    NextDay, // the day after the bound one
    DayToStamp, // "21.11.2026 00:00:00" as "2026-11-21 00:00:00"
};

using ParameterKinds = std::array<ParameterKind, kMaxParameters>;
using ParameterChanges = std::array<ParameterChange, kMaxParameters>;

// Writes `statement` in the engine's spelling into `translated`: names in lower case and quoted where
// an engine reserves them, back-quoted names, true and false as 1 and 0, #2026/11/21# as a date, and
// comparisons of billing.date, a date and time, by day, and a column's comparison with many numbers in
// parentheses, (a = 1 OR a = 2 OR ...), as a list. Texts in quotes stay as they are. `kinds`
// tells what is bound; `changes` receives what must be done to it.
void Translate(const Dialect &dialect,
               std::string_view statement,
               const ParameterKinds &kinds,
               std::string &translated,
               ParameterChanges &changes);

// The same for a statement without parameters.
[[nodiscard]] std::string Translate(const Dialect &dialect, std::string_view statement);
