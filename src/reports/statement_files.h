// Users' statements as one file for each.
#pragma once

#include "reports/output.h"

// The file of one user beside the one that was asked for: "out/statement.pdf" becomes
// "out/statement-anna-17.pdf". Of the name only letters, digits, "-", "_" and "." stay as they are; the
// number in the database makes two of one name two files.
[[nodiscard]] QString
StatementFileName(const QString &fileName, const QString &userName, qint64 userNumber);

// The names of all, in the order of the table, which must be one of statements.
[[nodiscard]] QStringList StatementFileNames(const ReportTable &table, const QString &fileName);

// Writes them one after the other, each as WriteReport does. False at the first that cannot be written, and
// when cancelled; `written` has then been written and stays.
[[nodiscard]] bool WriteStatementFiles(const ReportTablePtr &table,
                                       const QString &fileName,
                                       RunControl &control,
                                       ReportProblem &problem,
                                       qsizetype &written,
                                       const OutputOptions &options = {});
