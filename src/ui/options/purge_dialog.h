// "Purge database": removes usage, credit and site-access records, all or all but a period.
#pragma once

#include "admin/purge.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

class PurgePeriodBox;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;

class PurgeDialog : public Dialog
{
    Q_OBJECT

public:
    PurgeDialog(const AppServices &services, QWidget *parent);

    void reject() override;

private:
    // What a purge did not do, in words for the message at its end.
    struct Trouble
    {
        QStringList failed; // titles of tables
        QStringList unknown;
        QStringList notTried;
        QStringList reasons;
    };

    void Build();
    QWidget *ModeBox();
    QWidget *OutcomeBox();
    void EnableControls();
    [[nodiscard]] std::optional<PurgeChoice> Choice() const; // nothing while none is made
    void Purge();
    [[nodiscard]] bool MayRemove(const PurgeChoice &choice, QDate day);
    [[nodiscard]] bool Count(std::vector<PurgeStep> &steps);
    void ShowCounts(const std::vector<PurgeStep> &steps);
    void RunSteps(const std::vector<PurgeStep> &steps);
    void ShowRemoved(const PurgeStep &step, const PurgeOutcome &done);
    void TellEnd(const Trouble &trouble);
    void SetBusy(bool busy);

    const AppServices &services;
    QRadioButton *all = nullptr;
    QRadioButton *byPeriod = nullptr;
    QCheckBox *deleteUsers = nullptr;
    PurgePeriodBox *period = nullptr;
    QTreeWidget *outcome = nullptr;
    QProgressBar *progress = nullptr;
    QLabel *doing = nullptr;
    QPushButton *purge = nullptr;
    QPushButton *close = nullptr;
    bool busy = false;
};

// The "Purge database..." command: it runs only while the accounting service is stopped.
void OpenPurge(const AppServices &services, QWidget *parent);
