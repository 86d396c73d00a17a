// What becomes of a report that was made: files, and mail.
#pragma once

#include "reports/output.h"
#include "reports/saved_report.h"

// Writes the report as `target` says: to its file, or as a file for each statement. What was written in
// words; nothing, and `problem` filled, when not all of it was.
[[nodiscard]] std::optional<QString> WriteAsSaved(const ReportTablePtr &table,
                                                  const SavedReport &target,
                                                  const OutputOptions &options,
                                                  RunControl &control,
                                                  ReportProblem &problem);

// Sends the file that was written to the report's address. False, and `problem` filled with a sentence,
// when it was not sent.
[[nodiscard]] bool
MailReport(const ReportTable &table, const SavedReport &target, QString &problem);
