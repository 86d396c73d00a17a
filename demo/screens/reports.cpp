#include "demo/screens/studio.h"
#include "ui/main/splitter_frame.h"
#include "ui/reports/report_viewer.h"
#include "ui/reports/reports_dialog.h"

#include <QAbstractButton>
#include <QEventLoop>
#include <QListView>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTopTenUsers = 1;
constexpr int kTrafficDetailed = 2;

void Generate(ReportsDialog &reports, int row)
{
    reports.findChild<QListWidget *>(u"catalogue"_s)->setCurrentRow(row);
    QEventLoop untilReady;
    QObject::connect(&reports.Viewer(), &ReportViewer::Ready, &untilReady, &QEventLoop::quit);
    Press(reports, u"generate"_s);
    if (reports.Viewer().IsBusy()) {
        untilReady.exec();
    }
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
            auto *users = reports.findChild<QAbstractButton *>(u"users"_s);
            studio.DrawDialog(
                u"reports-filter"_s, [&] { users->click(); }, TakeSome);
            Generate(reports, kTopTenUsers);
        });
}
