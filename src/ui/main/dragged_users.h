// Users on their way from the users list to a group by the mouse.
#pragma once

#include "db/ids.h"

#include <QList>

class QMimeData;

// What this program alone understands. The caller owns it.
[[nodiscard]] QMimeData *DataOfUsers(const QList<UserId> &userIds);

// Empty for anything else, and for what another program drags, be it another one of these consoles.
[[nodiscard]] QList<UserId> UsersIn(const QMimeData &data);
