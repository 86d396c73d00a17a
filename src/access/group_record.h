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

struct GroupFields
{
    QString name;
    QString description;
    AccountingMode mode = AccountingMode::NoControl;

    bool operator==(const GroupFields &) const = default;
};

// What is not among the fields keeps by itself what was read and what became of it.
struct GroupRecord
{
    GroupId groupId;
    GroupFields base; // as read
    GroupFields draft; // as the administrator leaves it
    MemberTable members;
    BlockState block;
    LimitsDraft limits;
    StagedAccount account; // dropped whenever the access type is changed
    TimeRanges times; // never stored
    ProtocolChoice protocols;

    [[nodiscard]] Owner Self() const { return groupId; }
};

// Nothing when there is no such group any more.
[[nodiscard]] Result<std::optional<GroupRecord>> LoadGroup(GroupId groupId);
