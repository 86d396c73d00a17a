#include "ui/reports/print_pages.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

std::shared_ptr<QPrinter> ChoosePrinter(Prompt &prompt, QWidget &parent, int copies, int pageCount)
{
    // Without a printer the toolkit would quietly write a file.
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        prompt.Tell(QCoreApplication::translate(
            "PrintPages", "No printer is installed. The report can be saved as PDF."));
        return nullptr;
    }
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    if (copies > 0) {
        printer->setCopyCount(copies);
    }
    QPrintDialog dialog(printer.get(), &parent);
    dialog.setMinMax(1, std::max(1, pageCount));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted ? printer : nullptr;
}

int PrintPages(const ReportPages &pages, QPrinter &printer, RunControl &control)
{
    printer.setPageOrientation(pages.IsLandscape() ? QPageLayout::Landscape
                                                   : QPageLayout::Portrait);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    printer.setDocName(pages.Table().layout.title); // as the printer's queue names the job
    const int first = std::max(printer.fromPage(), 1) - 1;
    const int end =
        printer.toPage() > 0 ? std::min(printer.toPage(), pages.Count()) : pages.Count();
    QPainter painter;
    if (control.IsCancelled() || !painter.begin(&printer)) {
        return 0;
    }
    int sent = 0;
    do {
        if (sent > 0 && !printer.newPage()) {
            return 0;
        }
        pages.Paint(painter, first + sent, printer.resolution() / 72.0);
        control.SetProgress(++sent, end - first);
    } while (first + sent < end && !control.IsCancelled());
    return painter.end() ? sent : 0;
}
