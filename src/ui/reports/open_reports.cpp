#include "ui/reports/open_reports.h"

#include "ui/reports/reports_dialog.h"

void OpenReports(QWidget *parent)
{
    ReportsDialog dialog(parent);
    dialog.exec();
}
