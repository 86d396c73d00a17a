// When a saved report is made by itself; with its next run and how the last one went.
#pragma once

#include "reports/report_runs.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class QComboBox;
class TimeField;

class ScheduleDialog : public Dialog
{
    Q_OBJECT

public:
    // `run` has a report. OK writes its schedule and has the timer made, changed or removed, for which the
    // system may ask who does it.
    ScheduleDialog(const AppServices &services, const ReportRun &run, QWidget *parent);

    void accept() override;

private:
    void FillDays();

    const AppServices &services;
    const QString name;
    SavedReport report;
    QComboBox *every;
    QComboBox *day;
    TimeField *at;
};
