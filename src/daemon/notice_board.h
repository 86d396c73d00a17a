// Who was said to be blocked or let in, until the database says so itself.
#pragma once

#include "daemon/policy_maker.h"

#include <QObject>

class NoticeBoard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void Put(UserId userId, bool blocked);

    [[nodiscard]] const QHash<UserId, Notice> &InForce() const { return notices; }

    // The row alone holds from now on.
    void Take(UserId userId);

signals:
    // The user's row is to be read: a notice comes before what it tells of is committed, so that this is
    // asked for several times. `last`: the notice has had its time.
    void ReadWanted(UserId userId, bool last);

private:
    QHash<UserId, Notice> notices;
    QHash<UserId, quint64> numbers; // of each user's last one
};
