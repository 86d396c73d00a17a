// A report as a file: PDF, CSV, HTML or XLSX.
#pragma once

#include "reports/report_run.h"
#include "reports/report_table.h"

#include <optional>

class QIODevice;

enum class OutputFormat { Pdf, Csv, Html, Xlsx };

// By the file name's extension in any case; nothing for another one.
[[nodiscard]] std::optional<OutputFormat> FormatOf(const QString &fileName);

// Writes the file through a temporary one beside it and a rename: the name holds the whole report,
// or what it held before. False, and `problem` filled, on a full disk, a missing folder, or a
// cancel.
[[nodiscard]] bool WriteReport(const ReportTablePtr &table,
                               const QString &fileName,
                               RunControl &control,
                               ReportProblem &problem);

// The single formats, for WriteReport and for tests. False when cancelled or the device fails.
[[nodiscard]] bool WritePdf(const ReportTablePtr &table, QIODevice &device, RunControl &control);
[[nodiscard]] bool WriteCsv(const ReportTable &table, QIODevice &device, RunControl &control);
[[nodiscard]] bool WriteHtml(const ReportTable &table, QIODevice &device, RunControl &control);

// The same; `words` says what failed beside the device.
[[nodiscard]] bool
WriteXlsx(const ReportTable &table, QIODevice &device, RunControl &control, QString &words);

// One field of a CSV file: quoted where need be, and with an apostrophe before a text that a
// spreadsheet would take for a formula.
[[nodiscard]] QString CsvField(const QString &text, bool isText);
