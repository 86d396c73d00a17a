// The report that shows on paper and as files.
#include "reports/output.h"
#include "reports/statement_files.h"
#include "ui/reports/page_view.h"
#include "ui/reports/print_pages.h"
#include "ui/reports/report_viewer.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The kind that was chosen wins over whatever stands behind a dot of the name; the ending of another
// kind is replaced.
QString WithEnding(const QString &name, const QString &ending, const QStringList &endings)
{
    const QString last = QFileInfo(name).suffix().toLower();
    if (last == ending) {
        return name;
    }
    const QString bare = endings.contains(last) ? name.chopped(last.size() + 1) : name;
    return bare + u'.' + ending;
}

} // namespace

void ReportViewer::Print()
{
    auto printer = ChoosePrinter(
        prompt,
        *this,
        {.copies = copies,
         .pageCount = pages ? pages->Count() : 0,
         .paper = pages ? pages->Sheet().pageSize() : QPageSize(),
         .landscape = pages && pages->Sheet().orientation() == QPageLayout::Landscape,
         .withoutPrinter = QCoreApplication::translate(
             "PrintPages", "No printer is installed. The report can be saved as PDF.")});
    if (printer && pages) {
        PrintOn(printer);
    }
}

void ReportViewer::PrintOn(const std::shared_ptr<QPrinter> &printer)
{
    struct Printed
    {
        QString text;
        bool isWhole = true;
    };
    const auto outcome = std::make_shared<Printed>();
    job.Start(
        [printed = table, printer, outcome](RunControl &control) {
            const ReportPages sheets(printed, SheetOf(*printer), &control);
            const int sent = PrintPages(sheets, *printer, control);
            const QString unread = printed->rows.ReadProblem();
            outcome->isWhole = unread.isEmpty();
            outcome->text = outcome->isWhole
                ? ReportPrintedText(*printer, sent, control.IsCancelled())
                : PrintUnreadText(*printer, sent, unread);
        },
        [this, outcome] {
            if (outcome->isWhole) {
                Say(outcome->text);
            } else {
                prompt.Tell(outcome->text, Prompt::Icon::Warning);
            }
        });
}

void ReportViewer::SaveAs()
{
    QStringList endings;
    QStringList kinds;
    for (const FormatEntry &entry : OutputFormats()) {
        endings += entry.ending.toString();
        kinds += KindOf(entry.format);
    }
    QFileDialog dialog(this, tr("Save report"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(kinds);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the ending is added behind it
    dialog.selectFile(QString(table->layout.title).replace(u'/', u'-'));
    while (dialog.exec() == QDialog::Accepted) {
        const QString ending = endings.value(kinds.indexOf(dialog.selectedNameFilter()));
        const QString name = WithEnding(dialog.selectedFiles().constFirst(), ending, endings);
        const bool each = AsksForEach();
        if (MayReplace(name, each)) {
            each ? SaveEachTo(name) : SaveTo(name);
            return;
        }
    }
}

bool ReportViewer::AsksForEach()
{
    return table->layout.pageForEach && table->groups.size() > 1
        && prompt.Ask(
            tr("Do you want a file of its own for each user?\nThe users' names become part of "
               "the files' names."));
}

bool ReportViewer::MayReplace(const QString &fileName, bool each)
{
    const QStringList names = each ? StatementFileNames(*table, fileName) : QStringList {fileName};
    // That a folder cannot be replaced is told when it is tried.
    const auto isThere = [](const QString &name) {
        return QFileInfo::exists(name) && !QFileInfo(name).isDir();
    };
    const auto first = std::find_if(names.begin(), names.end(), isThere);
    return first == names.end()
        || prompt.AskToDestroy(
            each ? tr("%1 and perhaps others already exist.\nDo you want to replace them?")
                       .arg(*first)
                 : tr("%1 already exists.\nDo you want to replace it?").arg(*first),
            {});
}

void ReportViewer::SaveEachTo(const QString &fileName)
{
    struct Saved
    {
        ReportProblem problem;
        qsizetype written = 0;
    };
    const auto saved = std::make_shared<Saved>();
    job.Start(
        [whole = table, fileName, saved](RunControl &control) {
            if (WriteStatementFiles(whole, fileName, control, saved->problem, saved->written)) {
                saved->problem = {};
            }
        },
        [this, fileName, saved, all = table->groups.size()] {
            const QString folder = QFileInfo(fileName).absolutePath();
            const QString written =
                tr("%1 of %2 statements were saved in %3").arg(saved->written).arg(all).arg(folder);
            if (saved->problem.kind == ReportProblem::Kind::Output) {
                prompt.Tell(written + u"\n\n" + saved->problem.text, Prompt::Icon::Warning);
            } else {
                Say(written);
            }
        });
}

void ReportViewer::SaveTo(const QString &fileName)
{
    const auto problem = std::make_shared<ReportProblem>();
    job.Start(
        [saved = table, fileName, problem](RunControl &control) {
            if (WriteReport(saved, fileName, control, *problem)) {
                *problem = {};
            }
        },
        [this, fileName, problem] {
            switch (problem->kind) {
            case ReportProblem::Kind::None:
                Say(tr("Saved as %1").arg(fileName));
                break;
            case ReportProblem::Kind::Cancelled:
                Say(tr("The report was not saved."));
                break;
            default:
                prompt.Tell(tr("The report was not saved.") + u"\n\n" + problem->text,
                            Prompt::Icon::Warning);
            }
        });
}
