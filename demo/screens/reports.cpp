#include "demo/screens/studio.h"
#include "reports/saved_report.h"
#include "ui/main/splitter_frame.h"
#include "ui/reports/report_viewer.h"
#include "ui/reports/reports_dialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QEventLoop>
#include <QListView>
#include <QListWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTopTenUsers = 1;
constexpr int kTrafficDetailed = 2;

void WaitFor(ReportViewer &viewer)
{
    QEventLoop untilReady;
    QObject::connect(&viewer, &ReportViewer::Ready, &untilReady, &QEventLoop::quit);
    if (viewer.IsBusy()) {
        untilReady.exec();
    }
}

void Generate(ReportsDialog &reports, int row)
{
    reports.findChild<QListWidget *>(u"catalogue"_s)->setCurrentRow(row);
    Press(reports, u"generate"_s);
    WaitFor(reports.Viewer());
}

void TakeSome(QDialog &filter)
{
    auto *left = filter.findChild<QListView *>(u"left"_s);
    for (int row = 0; row < 3; ++row) {
        left->selectionModel()->setCurrentIndex(left->model()->index(row, 0),
                                                QItemSelectionModel::ClearAndSelect);
        Press(filter, u"take"_s);
    }
}

// Saved under a name for the pictures, and removed again.
void DrawSaved(Studio &studio, const ReportsDialog &reports)
{
    const SavedReports saved(studio.Services().settings);
    const QString name = u"Monthly"_s;
    const bool isSaved = saved
                             .Write(name,
                                    {.row = kTrafficDetailed,
                                     .period = u"previous-month"_s,
                                     .output = u"/var/lib/tollbrook-report/monthly.pdf"_s})
                             .has_value();
    studio.DrawDialog(
        u"reports-saved"_s,
        [&] { Press(reports, u"savedReports"_s); },
        [&](QDialog &dialog) {
            dialog.findChild<QTreeWidget *>()->setCurrentItem(
                dialog.findChild<QTreeWidget *>()->topLevelItem(0));
            studio.DrawDialog(u"reports-saved-change"_s, [&] { Press(dialog, u"change"_s); });
            studio.DrawDialog(u"reports-saved-schedule"_s, [&] { Press(dialog, u"schedule"_s); });
        });
    if (!isSaved || !saved.Remove(name)) {
        studio.Fail(u"reports-saved"_s);
    }
}

void DrawTable(Studio &studio, ReportsDialog &reports)
{
    auto *asTable = reports.findChild<QAction *>(u"asTable"_s);
    asTable->trigger();
    WaitFor(reports.Viewer());
    studio.Draw(u"reports-table"_s, reports);
    asTable->trigger();
}

} // namespace

void DrawReports(Studio &studio)
{
    studio.DrawDialog(
        u"reports"_s,
        [&] { studio.Frame().Dialogs().reports(&studio.Frame()); },
        [&](QDialog &dialog) {
            auto &reports = static_cast<ReportsDialog &>(dialog);
            Press(reports, u"lastMonth"_s);
            Generate(reports, kTrafficDetailed);
            studio.Draw(u"reports-detailed"_s, reports);
            DrawTable(studio, reports);
            DrawSaved(studio, reports);
            auto *users = reports.findChild<QAbstractButton *>(u"users"_s);
            studio.DrawDialog(
                u"reports-filter"_s, [&] { users->click(); }, TakeSome);
            Generate(reports, kTopTenUsers);
        });
}
