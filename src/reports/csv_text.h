// How a text stands in a cell of a CSV file that spreadsheets open.
#pragma once

#include <QString>

// One field of a CSV file: quoted where need be, and with an apostrophe before a text that a
// spreadsheet would take for a formula, or that such an apostrophe would be taken off again.
[[nodiscard]] QString CsvField(const QString &text, bool isText);

// The text of a field that was read, without its apostrophe.
[[nodiscard]] QString TextOfCsvField(const QString &field);
