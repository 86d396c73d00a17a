// "Select all matching": every user that the list's filter finds, also those whom the list does not hold,
// until the person at it ends it. They are known by their ids: who comes to match later is none of them.
#pragma once

#include "access/user_search.h"
#include "db/session_thread.h"
#include "startup/app_services.h"

#include <QObject>

#include <vector>

class QWidget;

class MatchingUsers : public QObject
{
    Q_OBJECT

public:
    explicit MatchingUsers(const AppServices &services, QObject *parent);

    // Reads their ids on a connection of its own while `window` waits. When they cannot be read, or there
    // are none, that is told and nobody is chosen.
    void Choose(const UserFilter &filter, ListOrder order, QWidget &window);

    void End();

    // The list was read anew: on a connection of its own it is looked up who of the chosen ones is still
    // found, and who is not is chosen no more. When that cannot be read, all stay.
    void LookAgain(const UserFilter &filter, ListOrder order);
    [[nodiscard]] bool IsLooking() const { return session.IsBusy(); }

    [[nodiscard]] bool AreChosen() const { return !ids.isEmpty(); }

    // In the order of the list; empty while nobody is chosen.
    [[nodiscard]] const QList<UserId> &Ids() const { return ids; }
    [[nodiscard]] bool Contains(UserId userId) const;

signals:
    void Changed();

    // Some are gone since the list was read anew; Changed follows.
    void Shrunk();

private:
    void Take(std::vector<UserId> found);

    const AppServices &services;
    SessionThread session; // looks again and does nothing else: it may be cancelled at any time
    int looks = 0; // that were asked for; only the last one counts
    QList<UserId> ids;
    std::vector<UserId> sorted; // the same by number
};
