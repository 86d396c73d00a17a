// A user that the administrator adds by hand, before its workstation was ever seen: by the rules of an
// import of one row.
#pragma once

#include "exchange/import_action.h"

struct NewUser
{
    QString name;
    QString fullName = {};
    QString description = {};
    std::optional<NamedGroup> group = {}; // not set: the one of all users
    std::optional<Ipv4> ip = {};
    QString mac = {}; // in any form that MacFrom takes; empty: none
};

struct NewUserPlan
{
    std::shared_ptr<const ImportJob> job; // of one row
    QString refusal; // for a person, why the user is not added; empty for one that may be
    bool isNameTaken = false; // which is the refusal
};

// Reads on the session of this thread.
[[nodiscard]] Result<NewUserPlan> PlanNewUser(const NewUser &user, const ImportContext &context);

// Adds the user of a plan without a refusal; `added` receives its id. Refused when a user came meanwhile
// who has the name or an address.
[[nodiscard]] Action AddUserAction(const NewUserPlan &plan, const std::shared_ptr<UserId> &added);
