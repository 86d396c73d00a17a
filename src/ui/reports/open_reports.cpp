#include "ui/reports/open_reports.h"

#include "ui/reports/reports_dialog.h"

void OpenReports(const AppServices &services, QWidget *parent)
{
    ReportsDialog dialog(services, parent);
    dialog.exec();
}
