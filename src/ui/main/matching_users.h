// "Select all matching": every user that the list's filter finds, also those whom the list does not hold,
// until something ends it.
#pragma once

#include "access/user_search.h"
#include "startup/app_services.h"

#include <QObject>

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

    [[nodiscard]] bool AreChosen() const { return !ids.isEmpty(); }

    // In the order of the list; empty while nobody is chosen.
    [[nodiscard]] const QList<UserId> &Ids() const { return ids; }

signals:
    void Changed();

private:
    const AppServices &services;
    QList<UserId> ids;
};
