// What storing a user's sheet makes of the user, decided before anything is written.
#pragma once

#include "access/block_step.h"
#include "access/settle.h"
#include "access/stored_times.h"
#include "access/user_record.h"

struct UserPlan
{
    UserId userId;
    QString fullName;
    QString description;
    std::optional<GroupId> group; // to move into
    std::optional<QString> ipAddress; // to change to
    std::optional<QString> macAddress;
    TimesPlan times;
    ProtocolChoice protocols;
    bool authRequired = false;
    AccountingMode mode = AccountingMode::NoControl;
    bool modeChanged = false; // in the sheet, and stored so
    Limits limits;
    bool trafficTouched = false; // the limit, in the sheet
    bool timeTouched = false;
    bool creditStaged = false;
    StoredBlock blockNow;
    BlockStep block = BlockStep::Leave;
};

// `now` is the user as it is in the database. What somebody else has changed since `sheet` was opened,
// and the sheet too, is asked through `settle`.
[[nodiscard]] UserPlan
PlanUser(const UserRecord &sheet, const UserRecord &now, const Settler &settle);
