// "Saved reports": those that are saved under a name, when they are made, and how that went.
#pragma once

#include "reports/report_runs.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class QLabel;
class QPushButton;
class QTreeWidget;

// What the Reports window has chosen at present.
struct ReportChoice
{
    std::optional<SavedReport> report; // nothing while no report is selected
    QString filter; // in words; empty for none
};

class SavedReportsDialog : public Dialog
{
    Q_OBJECT

public:
    SavedReportsDialog(const AppServices &services, const ReportChoice &choice, QWidget *parent);

    // What was to be opened when the dialog was accepted.
    [[nodiscard]] const SavedReport &Opened() const { return opened; }

private:
    void Fill(const QString &chosenName);
    void ShowChosen();
    void SaveChoice();
    void Change();
    void Schedule();
    void Delete();
    void Open();
    [[nodiscard]] const ReportRun *Chosen() const; // null for none
    [[nodiscard]] QPushButton *
    Command(const QString &text, const char *objectName, void (SavedReportsDialog::*act)());

    const AppServices &services;
    const ReportChoice choice;
    std::vector<ReportRun> runs;
    SavedReport opened;
    QTreeWidget *list;
    QLabel *details;
    QPushButton *open;
    QPushButton *change;
    QPushButton *schedule;
    QPushButton *remove;
};
