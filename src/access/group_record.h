// What a group's sheet shows and stages. Nothing of it is stored before the sheet is confirmed.
#pragma once

#include "access/block_state.h"
#include "access/limits.h"
#include "access/member_table.h"
#include "access/protocol_choice.h"
#include "access/staged_account.h"
#include "access/time_ranges.h"
#include "db/value_codes.h"

#include <QString>

struct GroupRecord
{
    GroupId groupId;
    QString name;
    QString description;
    AccountingMode mode = AccountingMode::NoControl;
    MemberTable members;
    BlockState block;
    LimitsDraft limits;
    StagedAccount account; // dropped whenever the access type is changed
    TimeRanges times; // never stored
    ProtocolChoice protocols;

    [[nodiscard]] Owner Self() const { return groupId; }
};

// Nothing when there is no such group any more.
[[nodiscard]] std::optional<GroupRecord> LoadGroup(GroupId groupId);
