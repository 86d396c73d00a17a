// What the commands of the users list do with the users that are chosen in it.
#pragma once

#include "actions/action.h"
#include "startup/app_services.h"
#include "ui/main/frame_dialogs.h"
#include "ui/main/id_list_pane.h"

#include <QCoreApplication>
#include <QList>

#include <functional>
#include <vector>

class CAdministratorView;

class UserCommands
{
    Q_DECLARE_TR_FUNCTIONS(UserCommands)

public:
    // All of them must outlive it.
    UserCommands(const AppServices &services,
                 const FrameDialogs &dialogs,
                 CAdministratorView &list);

    // Asks, naming the number, where these are all users that match.
    [[nodiscard]] bool MayChange(const Targets<UserId> &targets) const;

    // Of the first selected user, or of all that match; no refill follows.
    void ChangeGroup();

    // Of all that are chosen.
    void ChangeGroupOfChosen();
    void SetLimitsOfChosen();

    // Dropped on the group, called `name`. Asks, and has the list read anew.
    void MoveToGroup(const QList<UserId> &userIds, GroupId groupId, const QString &name);

    // Of the selected rows. Each asks first, and says that it does not work on all users that match.
    void Delete();
    void StopMonitoring();

    // Says, where all that match are chosen, that a command takes selected rows alone. True when it did.
    [[nodiscard]] bool TellsOfMatching() const;

private:
    void MoveToChosenGroup(const QList<UserId> &userIds);
    void RemoveSelected(const std::function<bool(const Targets<UserId> &removed)> &ask,
                        const QString &what,
                        Action (*actionOn)(const std::vector<UserId> &));

    const AppServices &services;
    const FrameDialogs &dialogs;
    CAdministratorView &list;
};
