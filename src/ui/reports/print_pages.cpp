#include "ui/reports/print_pages.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PrintPages)
};

} // namespace

std::shared_ptr<QPrinter> ChoosePrinter(Prompt &prompt, QWidget &parent, const PrintWishes &wishes)
{
    // Without a printer the toolkit would quietly write a file.
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        prompt.Tell(wishes.withoutPrinter);
        return nullptr;
    }
    auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    if (wishes.copies > 0) {
        printer->setCopyCount(wishes.copies);
    }
    if (wishes.paper.isValid()) {
        printer->setPageSize(wishes.paper);
    }
    printer->setPageOrientation(wishes.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintDialog dialog(printer.get(), &parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, wishes.pageCount > 0);
    if (wishes.pageCount > 0) {
        dialog.setMinMax(1, wishes.pageCount);
    }
    return dialog.exec() == QDialog::Accepted ? printer : nullptr;
}

QSizeF SheetOf(const QPrinter &printer)
{
    return printer.pageLayout().fullRect(QPageLayout::Point).size();
}

int PrintPages(const ReportPages &pages, QPrinter &printer, RunControl &control)
{
    printer.setFullPage(true);
    printer.setDocName(pages.Table().layout.title); // as the printer's queue names the job
    const double scale = SheetOf(printer).width() / pages.Size().width();
    const int first = std::max(printer.fromPage(), 1) - 1;
    const int end =
        printer.toPage() > 0 ? std::min(printer.toPage(), pages.Count()) : pages.Count();
    const auto isWhole = [&] { return pages.Table().rows.ReadProblem().isEmpty(); };
    QPainter painter;
    if (control.IsCancelled() || !isWhole() || !painter.begin(&printer)) {
        return 0;
    }
    int sent = 0;
    do {
        if (sent > 0 && !printer.newPage()) {
            return 0;
        }
        pages.Paint(painter, first + sent, scale * printer.resolution() / 72.0);
        control.SetProgress(++sent, end - first);
    } while (first + sent < end && !control.IsCancelled() && isWhole());
    return painter.end() ? sent : 0;
}

QString ReportPrintedText(const QPrinter &printer, int sent, bool wasStopped)
{
    if (sent == 0) {
        return Words::tr("The report was not printed.");
    }
    if (wasStopped) {
        return PrintStoppedText(printer, sent);
    }
    const QString file = printer.outputFileName();
    return file.isEmpty() ? Words::tr("The report was sent to the printer.")
                          : Words::tr("The report was printed to the file %1.").arg(file);
}

QString PrintStoppedText(const QPrinter &printer, int sent)
{
    const QString file = printer.outputFileName();
    const QString pages = QLocale().toString(sent);
    return file.isEmpty()
        ? Words::tr("Printing was stopped; pages sent before: %1.").arg(pages)
        : Words::tr("Printing was stopped; pages in the file %1: %2.").arg(file, pages);
}

QString PrintUnreadText(const QPrinter &printer, int sent, const QString &readProblem)
{
    if (sent == 0) {
        return Words::tr("Nothing was printed, since rows could not be read.") + u"\n\n"
            + readProblem;
    }
    const QString file = printer.outputFileName();
    const QString pages = QLocale().toString(sent);
    const QString ended = file.isEmpty()
        ? Words::tr("Printing ended, since rows could not be read; pages sent before: %1.")
              .arg(pages)
        : Words::tr("Printing ended, since rows could not be read; pages in the file %1: %2.")
              .arg(file, pages);
    return ended + u"\n\n" + readProblem;
}
