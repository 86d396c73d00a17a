// Whether a text may be run as a report's query, and what it becomes when it is made part of
// another.
#pragma once

#include <QString>

#include <optional>

// Why the text is not one reading statement that a report may run; nothing when it is one.
// Comments, back-slashes, parameters and functions beyond the common ones are refused, since
// engines differ in what they make of them.
[[nodiscard]] std::optional<QString> QueryProblem(const QString &query);

// The query fit to stand in parentheses: without a last ";" and without its own ORDER BY, unless a
// limit follows it. The query must have no problem.
[[nodiscard]] QString WithoutOrder(const QString &query);
