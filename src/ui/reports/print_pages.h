// A report on a printer.
#pragma once

#include "base/prompt.h"
#include "reports/report_pages.h"
#include "reports/report_run.h"

#include <memory>

class QPrinter;
class QWidget;

// Lets the administrator choose a printer, the pages and the copies, of which `copies` are preset
// (0: the printer's own number). Null when there is none, which is told, or none was chosen.
[[nodiscard]] std::shared_ptr<QPrinter>
ChoosePrinter(Prompt &prompt, QWidget &parent, int copies, int pageCount);

// How many pages were sent; 0 when the printer fails. A cancel ends it behind a page: the toolkit has
// no way to take back those before.
[[nodiscard]] int PrintPages(const ReportPages &pages, QPrinter &printer, RunControl &control);
