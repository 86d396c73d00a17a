// "Access properties for multiple users": one access type, one period and two limits for all.
#pragma once

#include "access/many_users.h"
#include "startup/app_services.h"

#include <QDialog>

class AccessTypeBox;
class QComboBox;
class QFormLayout;
class QProgressBar;
class WholeNumberField;

class ManyUsersDialog : public QDialog
{
    Q_OBJECT

public:
    // Names the users `userIds` and starts with the values of the first one.
    ManyUsersDialog(const AppServices &services,
                    std::vector<UserId> userIds,
                    const QStringList &names,
                    QWidget *parent);

    // Writes to each user and shows how far it got.
    void accept() override;

private:
    QWidget *MakeNames(const QStringList &names);
    QWidget *MakeLimits();
    void ShowFirst();
    void EnableLimits();

    // What was entered; nothing, once that was told, when something is missing.
    [[nodiscard]] std::optional<ModeAndLimits> Entered();

    // Users deleted since the window opened are not written to, and that is told.
    void LeaveOutGone();

    const AppServices &services;
    std::vector<UserId> userIds;
    AccessTypeBox *type;
    QComboBox *period;
    WholeNumberField *traffic;
    WholeNumberField *time;
    QProgressBar *progress;
};
