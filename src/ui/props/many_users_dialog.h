// "Access properties for multiple users": one access type, one period and two limits for all.
#pragma once

#include "access/many_users.h"
#include "startup/app_services.h"
#include "ui/common/dialog.h"

#include <optional>
#include <vector>

class AccessTypeBox;
class QComboBox;
class QFormLayout;
class QProgressBar;
class NumberField;

// What is read before the dialog opens: the users, the names of the first of them, and how the first that is
// there stands.
struct UsersAndAccess
{
    std::vector<UserId> userIds;
    std::vector<NamedUser> named; // all, unless there are more than are listed one by one
    ModeAndLimits access;
};

// Nothing when none of the users that would be named is there any more. Of as many as the users list holds
// those that are gone are left out; of more, all are taken as they are given, and the action leaves out who
// is gone.
[[nodiscard]] Result<std::optional<UsersAndAccess>>
ReadUsersAndAccess(const std::vector<UserId> &userIds);

class ManyUsersDialog : public Dialog
{
    Q_OBJECT

public:
    // Names the users and starts with the values of the first one.
    ManyUsersDialog(const AppServices &services, const UsersAndAccess &opened, QWidget *parent);

    // Writes to all users, or to none: then the dialog stays open.
    void accept() override;

private:
    QWidget *MakeNames(const std::vector<NamedUser> &named);
    QWidget *MakeNamesLine(const std::vector<NamedUser> &named);
    QWidget *MakeLimits();
    void ShowAccess(const ModeAndLimits &access);
    void EnableLimits();

    // What was entered; nothing, once that was told, when something is missing.
    [[nodiscard]] std::optional<ModeAndLimits> Entered();

    // How many of the users were written to; nothing when none was.
    [[nodiscard]] std::optional<size_t> Write(const ModeAndLimits &entered);

    const AppServices &services;
    std::vector<UserId> userIds;
    AccessTypeBox *type;
    QComboBox *period;
    NumberField *traffic;
    NumberField *time;
    QProgressBar *progress;
};
