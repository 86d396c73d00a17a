// Under which name a report is saved, and where it is written and sent to.
#pragma once

#include "reports/saved_report.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class TextField;

class SaveReportDialog : public Dialog
{
    Q_OBJECT

public:
    // Shows `report`, which is new without a name. OK writes it under the name that stands there, and asks
    // before another report of that name is replaced.
    SaveReportDialog(const AppServices &services,
                     const SavedReport &report,
                     const QString &filterInWords,
                     const QString &name,
                     QWidget *parent);

    // Under which it was written.
    [[nodiscard]] QString Name() const;

    void accept() override;

private:
    void FillPeriods();
    void Browse();
    [[nodiscard]] SavedReport Entered() const;
    [[nodiscard]] bool IsInOrder(const SavedReport &entered);
    [[nodiscard]] bool MayReplace(SavedReport &entered);

    const AppServices &services;
    const SavedReport report;
    const QString formerName;
    TextField *name;
    QComboBox *period;
    TextField *output;
    QCheckBox *split;
    QCheckBox *failIfEmpty;
    TextField *mail;
};
