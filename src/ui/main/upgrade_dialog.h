// Offers to bring the tables of an older database up to date.
#pragma once

#include "startup/app_services.h"
#include "ui/common/dialog.h"
#include "upkeep/told.h"

#include <QStringList>

#include <thread>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

// Says what the upgrade would do, makes a backup before when that is wanted, and runs it beside the
// window, for which the console's session is closed meanwhile. What fails leaves the console with the
// tables as they are, and the window open for another try.
class UpgradeDialog : public Dialog
{
    Q_OBJECT

public:
    // `version` is that of the tables of the database that the session is open on.
    UpgradeDialog(const AppServices &services, int version, QWidget *parent);
    ~UpgradeDialog() override; // waits for what runs

    [[nodiscard]] bool IsUpgraded() const { return isUpgraded; }

    // Not while the upgrade runs: nothing can take back what it does.
    void reject() override;

private:
    void Build(int version);
    void Look();
    void ShowSteps(const Told<QStringList> &lines);
    void Browse();
    [[nodiscard]] bool HasBackupFile();
    void Upgrade();
    void Begin();
    void Finish(const Told<void> &done);
    void SetRunning(bool runs);

    const AppServices &services;
    const QString dsn;
    QPlainTextEdit *log = nullptr; // what would be done, and then what was
    QCheckBox *backsUp = nullptr;
    QLineEdit *file = nullptr;
    QPushButton *browse = nullptr;
    QProgressBar *progress = nullptr;
    QLabel *outcome = nullptr;
    QPushButton *upgrade = nullptr;
    QPushButton *close = nullptr;
    std::jthread worker;
    bool isRunning = false;
    bool isUpgraded = false;
};

// Offers it over `parent`; true when the tables are up to date afterwards.
[[nodiscard]] bool OfferUpgrade(const AppServices &services, int version, QWidget *parent);
