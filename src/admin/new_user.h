// A user that the administrator adds by hand, before its workstation was ever seen.
#pragma once

#include "actions/action.h"
#include "admin/default_profile.h"
#include "base/ipv4.h"
#include "db/ids.h"

#include <memory>
#include <optional>

struct NewUser
{
    QString name; // without blanks around it
    QString fullName = {};
    QString description = {};
    GroupId groupId = kEverybodyGroup;
    std::optional<Ipv4> ip = {};
    QString mac = {}; // as MacFrom gives it; empty: none
    DefaultProfile profile = {}; // what the service gives to a user that it finds
};

// `added` receives the new user's id. Refused for a name that is empty or that another user has, for an
// address that another user has, and for a group that is gone.
[[nodiscard]] Action AddUserAction(const NewUser &user, const std::shared_ptr<UserId> &added);
