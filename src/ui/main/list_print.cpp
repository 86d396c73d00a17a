#include "ui/main/list_print.h"

#include "app/perform.h"
#include "app/waiting.h"
#include "ui/reports/print_pages.h"
#include "ui/reports/report_job.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLocale>
#include <QPrinter>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ListPrint)
};

struct Printed
{
    int pages = 0; // that were sent; 0 for a failure
    bool stopped = false;
};

Printed
PrintBeside(QWidget &parent, const ReportTablePtr &table, const std::shared_ptr<QPrinter> &printer)
{
    const auto printed = std::make_shared<Printed>();
    ReportJob job;
    WaitDialog wait(Words::tr("Printing the list..."), &parent);
    QEventLoop loop;
    QObject::connect(&wait, &WaitDialog::Cancelled, &job, &ReportJob::Cancel);
    QObject::connect(&job, &ReportJob::Progressed, &wait, &WaitDialog::ShowProgress);
    QObject::connect(&job, &ReportJob::Ended, &loop, &QEventLoop::quit);
    job.Start(
        [table, printer, printed](RunControl &control) {
            const ReportPages pages(table, SheetOf(*printer), &control);
            printed->pages = PrintPages(pages, *printer, control);
            printed->stopped = control.IsCancelled();
        },
        [] {});
    wait.show();
    loop.exec();
    return *printed;
}

// The dialog that chooses a printer may have chosen a file.
QString PrintedText(const QPrinter &printer, qsizetype users, int pages)
{
    const QLocale locale;
    const QString file = printer.outputFileName();
    return file.isEmpty() ? Words::tr("Users sent to the printer: %1, on pages: %2.")
                                .arg(locale.toString(users), locale.toString(pages))
                          : Words::tr("Users printed to the file %1: %2, on pages: %3.")
                                .arg(file, locale.toString(users), locale.toString(pages));
}

} // namespace

void PrintList(const AppServices &services, QWidget &parent, const ListToExport &list)
{
    constexpr qsizetype kMostColumnsUpright = 4;
    const auto printer =
        ChoosePrinter(services.prompt,
                      parent,
                      {.landscape = list.columns.size() > kMostColumnsUpright,
                       .withoutPrinter = Words::tr(
                           "No printer is installed. The list can be exported as a file.")});
    if (printer) {
        PrintListOn(services, parent, list, printer);
    }
}

void PrintListOn(const AppServices &services,
                 QWidget &parent,
                 const ListToExport &list,
                 const std::shared_ptr<QPrinter> &printer)
{
    const auto table = AwaitBeside(services, &parent, Words::tr("Reading the list..."), [list] {
        return ReadWholeList(list);
    });
    if (!table) {
        TellUnread(services, Words::tr("The list was not printed."), table.error());
        return;
    }
    if ((*table)->IsEmpty()) {
        services.prompt.Tell(Words::tr("There is no user to print."));
        return;
    }
    const Printed printed = PrintBeside(parent, *table, printer);
    if (const QString unread = (*table)->rows.ReadProblem(); !unread.isEmpty()) {
        services.prompt.Tell(PrintUnreadText(*printer, printed.pages, unread), Prompt::Icon::Error);
    } else if (printed.pages == 0) {
        services.prompt.Tell(Words::tr("The list was not printed."), Prompt::Icon::Error);
    } else if (printed.stopped) {
        services.prompt.Tell(PrintStoppedText(*printer, printed.pages));
    } else {
        services.prompt.Tell(PrintedText(*printer, (*table)->rows.Count(), printed.pages));
    }
}
