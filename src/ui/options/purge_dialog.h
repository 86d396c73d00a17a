// "Purge database": removes usage, credit and site-access records, all or all but a period.
#pragma once

#include "admin/purge.h"
#include "startup/app_services.h"

#include <QDialog>

class QCheckBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeWidget;

class PurgeDialog : public QDialog
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
    QWidget *PeriodBox();
    QWidget *OutcomeBox();
    void EnableControls();
    [[nodiscard]] PurgeChoice Choice() const;
    [[nodiscard]] bool IsPeriodInOrder();
    void Purge();
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
    QGroupBox *periodBox = nullptr;
    QRadioButton *today = nullptr;
    QRadioButton *lastWeek = nullptr;
    QRadioButton *lastMonth = nullptr;
    QRadioButton *custom = nullptr;
    QDateEdit *since = nullptr;
    QDateEdit *until = nullptr;
    QTreeWidget *outcome = nullptr;
    QProgressBar *progress = nullptr;
    QLabel *doing = nullptr;
    QPushButton *purge = nullptr;
    QPushButton *close = nullptr;
    bool busy = false;
};

// The "Purge database..." command: it runs only while the accounting service is stopped.
void OpenPurge(const AppServices &services, QWidget *parent);
