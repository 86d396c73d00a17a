#include "ui/main/matching_users.h"

#include "app/perform.h"
#include "app/waiting.h"

MatchingUsers::MatchingUsers(const AppServices &appServices, QObject *parent)
    : QObject(parent)
    , services(appServices)
{ }

void MatchingUsers::Choose(const UserFilter &filter, ListOrder order, QWidget &window)
{
    const auto found = AwaitBeside(services, &window, tr("Reading the users..."), [filter, order] {
        return FindUserIds(filter, order);
    });
    ids = found ? QList<UserId>(found->begin(), found->end()) : QList<UserId>();
    emit Changed();
    if (!found) {
        TellUnread(services, tr("The users could not be read."), found.error());
    } else if (ids.isEmpty()) {
        services.prompt.Tell(tr("No user found"));
    }
}

void MatchingUsers::End()
{
    if (AreChosen()) {
        ids.clear();
        emit Changed();
    }
}
