// The users that are selected in the list, kept while the list has lost the focus and deselected the
// first; or all that match, while these are chosen.
#pragma once

#include "db/ids.h"

#include <QList>
#include <QObject>
#include <QTimer>

class CAdministratorView;

class ChosenUsers : public QObject
{
    Q_OBJECT

public:
    ChosenUsers(CAdministratorView &list, QObject *parent);

    // In the order of the list.
    [[nodiscard]] const QList<UserId> &Ids() const { return ids; }

signals:
    void Changed();

private:
    void Take();

    CAdministratorView &list;
    QTimer soon;
    QList<UserId> ids;
};
