// What the engines spell differently. Statements are written once; a dialect reads them as tokens and
// writes the engine's spelling.
#pragma once

#include <QtGlobal>

#include <array>
#include <string>
#include <string_view>

struct Dialect
{
    const char *engine; // as the driver names its server, in part
    char identifierQuote; // around names that the engine reserves
    qint16 amountType; // SQL type that amounts are bound with: some lose digits as REAL
};

extern const Dialect kSqlite;
extern const Dialect kPostgresql;
extern const Dialect kMariadb;

// The dialect for the server name that a driver reports; SQLite's for one it does not know.
[[nodiscard]] const Dialect &DialectFor(std::string_view serverName);

// The most parameters that one statement has.
constexpr int kMaxParameters = 15;

enum class ParameterKind { Integer, Amount, Text, Day };

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
// comparisons of billing.date, a date and time, by day. Texts in quotes stay as they are. `kinds`
// tells what is bound; `changes` receives what must be done to it.
void Translate(const Dialect &dialect,
               std::string_view statement,
               const ParameterKinds &kinds,
               std::string &translated,
               ParameterChanges &changes);

// The same for a statement without parameters.
[[nodiscard]] std::string Translate(const Dialect &dialect, std::string_view statement);
