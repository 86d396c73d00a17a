// The Reports window over the data of the reports' tests.
#pragma once

#include "report_fixture.h"
#include "reports/catalogue.h"
#include "support/core/test_data_source.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/reports/page_view.h"
#include "ui/reports/report_viewer.h"
#include "ui/reports/reports_dialog.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>

inline const QDate kToday(2026, 11, 21);

class Reports : public WindowFixture
{
protected:
    void SetUp() override
    {
        WindowFixture::SetUp();
        FillReportData();
        // The dialog always reads the data source "bill".
        test_data_source::Define(
            QStringLiteral("bill"),
            QStringLiteral("Driver=SQLite3\nDatabase=%1\nStepAPI=1\nTimeout=5000")
                .arg(DatabaseFile()));
        QFile::link(QStringLiteral(TB_SOURCE_DIR "/src/reports/layouts"),
                    folder.filePath(QStringLiteral("reports")));
        Settings().WriteText(values::kPath, folder.path() + QLatin1Char('/'));
        dialog = std::make_unique<ReportsDialog>(Services());
        dialog->show();
    }

    void Select(int row) { ClickCell(Find<QListWidget>(*dialog, "catalogue"), row, 0); }

    void ClickGenerate()
    {
        QSignalSpy ready(&dialog->Viewer(), &ReportViewer::Ready);
        Click(*dialog, "generate");
        if (dialog->Viewer().IsBusy()) {
            EXPECT_TRUE(ready.wait(20'000));
        }
    }

    static void MultiplyVisits(int times)
    {
        for (int copies = 0; copies < times; ++copies) {
            Execute(
                "INSERT INTO SiteAccess (user_id, site_id, access_time) SELECT user_id, site_id, "
                "access_time FROM SiteAccess");
        }
    }

    QString Message() { return Find<QLabel>(*dialog, "message").text(); }

    const TodayOverride today {kToday};
    std::unique_ptr<ReportsDialog> dialog;
};
