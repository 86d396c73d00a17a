// Whether a text may be run as a report's query, and what it becomes when it is made part of
// another.
#pragma once

#include <QString>

#include <optional>

// Why the text is not one reading statement that a report may run; nothing when it is one. It may name
// the tables and columns that a report reads (readable_names.h) and call the common functions; whatever
// else an engine may know, quoted or not, is refused.
[[nodiscard]] std::optional<QString> QueryProblem(const QString &query);

// The query fit to stand in parentheses: without a last ";" and without its own ORDER BY, unless a
// limit follows it. The query must have no problem.
[[nodiscard]] QString WithoutOrder(const QString &query);
