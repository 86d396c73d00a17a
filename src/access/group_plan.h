// What storing a group's sheet makes of the group, decided before anything is written.
#pragma once

#include "access/block_step.h"
#include "access/group_record.h"
#include "access/settle.h"

// A user that the sheet moves, and where it stands now.
struct MovedMember
{
    UserId userId;
    QString name;
    GroupId base; // where the sheet found it
    GroupId now;
    QString nowName; // of that group
};

struct GroupPlan
{
    GroupId groupId;
    std::vector<UserId> removed; // into "Everybody"
    std::vector<UserId> added;
    QString name;
    QString description;
    StoredBlock blockNow;
    BlockStep block = BlockStep::Leave;
    ProtocolChoice protocols;
    AccountingMode mode = AccountingMode::NoControl;
    bool modeChanged = false; // in the sheet, and stored so
    Limits limits;
    bool limitTouched = false; // in the sheet
    std::optional<StagedCredit> credit;
};

// `now` is the group as it is in the database. What somebody else has changed since `sheet` was opened,
// and the sheet too, is asked through `settle`. The members are planned by the next.
[[nodiscard]] GroupPlan
PlanGroup(const GroupRecord &sheet, const GroupRecord &now, const Settler &settle);

// The users to move into `target`: those that somebody else has moved elsewhere meanwhile are asked
// about.
[[nodiscard]] std::vector<UserId>
PlanMoves(const std::vector<MovedMember> &members, GroupId target, const Settler &settle);
