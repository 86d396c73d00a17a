// A report as a file: PDF, CSV, HTML or XLSX.
#pragma once

#include "db/failure.h"
#include "reports/output_format.h"
#include "reports/report_run.h"
#include "reports/report_table.h"

class QIODevice;

struct OutputOptions
{
    bool csvBom = false; // begins a CSV file with the mark by which some spreadsheets know UTF-8
    bool groupReads = false; // a new file may be read by its group, not by its owner alone
    bool isTrial = false; // all is written, and then dropped
};

// Writes the file whole or leaves what its name held before (output_file.h). False, and `problem` filled,
// on a full disk, a missing folder, somebody else's symbolic link, or a cancel.
[[nodiscard]] bool WriteReport(const ReportTablePtr &table,
                               const QString &fileName,
                               RunControl &control,
                               ReportProblem &problem,
                               const OutputOptions &options = {});

// The same for a table that was just read: how many rows were written, or why none.
[[nodiscard]] Result<qint64>
SaveRows(const ReportTablePtr &table, const QString &fileName, const OutputOptions &options = {});

// The single formats, for WriteReport and for tests. False when cancelled or the device fails.
[[nodiscard]] bool WritePdf(const ReportTablePtr &table, QIODevice &device, RunControl &control);
[[nodiscard]] bool WriteCsv(const ReportTable &table,
                            QIODevice &device,
                            RunControl &control,
                            const OutputOptions &options = {});
[[nodiscard]] bool WriteHtml(const ReportTable &table, QIODevice &device, RunControl &control);

// The same; `words` says what failed beside the device.
[[nodiscard]] bool
WriteXlsx(const ReportTable &table, QIODevice &device, RunControl &control, QString &words);
