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

    // The notice of this number has had its time: unless there has been another one by then, the row alone
    // holds from now on. 0: none has.
    void End(UserId userId, quint64 number);

signals:
    // The user's row is to be read: a notice comes before what it tells of is committed, so that this is
    // asked for several times. `ended`: the number of the notice that has had its time then; else 0.
    void ReadWanted(UserId userId, quint64 ended);

private:
    QHash<UserId, Notice> notices;
    QHash<UserId, quint64> numbers; // of each user's last one
    quint64 lastNumber = 0;
};
