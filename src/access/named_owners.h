// Users and groups by what people call them.
#pragma once

#include "db/failure.h"
#include "db/ids.h"

#include <QString>

#include <vector>

struct FoundOwner
{
    quint32 number = 0; // the id of the user, or of the group
    QString name;
    QString detail; // tells it from others of the name: a user's IP address, a group's description

    bool operator==(const FoundOwner &) const = default;
};

// The users, monitored or not, of that name, or of that IP or MAC address; "#12" and "id:12" are the user
// of that number and nobody else. Each once, in the order of their numbers.
[[nodiscard]] Result<std::vector<FoundOwner>> UsersCalled(const QString &text);

// The same of groups, whose names count as one as NameKey says.
[[nodiscard]] Result<std::vector<FoundOwner>> GroupsCalled(const QString &text);
