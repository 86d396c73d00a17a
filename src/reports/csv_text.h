// How a text stands in a cell of a CSV file that spreadsheets open.
#pragma once

#include <QString>

// A text that a spreadsheet leaves as it is: with an apostrophe before what it would take for a formula, and before
// what begins with such an apostrophe already.
[[nodiscard]] QString GuardedText(const QString &text);

// One field of a CSV file: quoted where need be, a text also guarded.
[[nodiscard]] QString CsvField(const QString &text, bool isText);

// The text of a field that was read, without its apostrophe.
[[nodiscard]] QString TextOfCsvField(const QString &field);
