// The values of a report's table, and how they are written.
#pragma once

#include "reports/layout.h"

#include <string_view>
#include <variant>
#include <vector>

// Nothing for NULL and for a column without a total; days and times as 2026-11-21 and 2026-11-21
// 09:30:00.
using Cell = std::variant<std::monostate, qint64, double, QString>;
using CellRow = std::vector<Cell>;

// The cell that a column makes of a value read as text.
[[nodiscard]] Cell CellFrom(const LayoutColumn &column, std::string_view utf8);

[[nodiscard]] double NumberIn(const Cell &cell); // 0 for what is no number

// The order of two cells: nothing first, numbers by size, texts without regard to case and then
// with it.
[[nodiscard]] int Compare(const Cell &one, const Cell &other);

// For people: 12,345.67 with the marks of the locale, and the words of a flag.
[[nodiscard]] QString DisplayText(const LayoutColumn &column, const Cell &cell);

// For programs: 12345.67, without grouping.
[[nodiscard]] QString PlainText(const LayoutColumn &column, const Cell &cell);

// On one line: line breaks, tabs and other control characters as blanks.
[[nodiscard]] QString OneLine(QString text);

// Fills the row's computed columns from the others.
void Compute(const QList<LayoutColumn> &columns, CellRow &row);
