// A report, or another table, on a printer.
#pragma once

#include "base/prompt.h"
#include "reports/report_pages.h"
#include "reports/report_run.h"

#include <memory>

class QPrinter;
class QWidget;

// What the print dialog starts with.
struct PrintWishes
{
    int copies = 0; // 0: the printer's own number
    int pageCount = 0; // 0 while nobody knows it: no pages are chosen then
    QPageSize paper {}; // invalid for the printer's own
    bool landscape = false;
    QString withoutPrinter; // told when no printer is installed
};

// Lets the administrator choose a printer, the paper, the pages and the copies. Null when there is no
// printer, which is told, or none was chosen.
[[nodiscard]] std::shared_ptr<QPrinter>
ChoosePrinter(Prompt &prompt, QWidget &parent, const PrintWishes &wishes);

// The paper that was chosen, in points.
[[nodiscard]] QSizeF SheetOf(const QPrinter &printer);

// Pages that are laid out for the printer's paper. How many were sent; 0 when the printer fails. A cancel, and
// rows that cannot be read (RowStore::ReadProblem), end it behind a page: the toolkit has no way to take back
// those before.
[[nodiscard]] int PrintPages(const ReportPages &pages, QPrinter &printer, RunControl &control);

// What became of a report of which so many pages were sent, all of whose rows could be read. The dialog that
// chooses a printer may have chosen a file.
[[nodiscard]] QString ReportPrintedText(const QPrinter &printer, int sent, bool wasStopped);

// What became of a print that was stopped behind the page `sent`.
[[nodiscard]] QString PrintStoppedText(const QPrinter &printer, int sent);

// What became of a print that ended behind the page `sent` since rows could not be read, and why.
[[nodiscard]] QString
PrintUnreadText(const QPrinter &printer, int sent, const QString &readProblem);
