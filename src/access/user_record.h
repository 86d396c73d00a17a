// What a user's sheet shows and stages. Nothing of it is stored before the sheet is confirmed.
#pragma once

#include "access/block_state.h"
#include "access/limits.h"
#include "access/protocol_choice.h"
#include "access/staged_account.h"
#include "access/time_ranges.h"
#include "db/value_codes.h"

#include <QString>

struct UserFields
{
    QString fullName;
    QString description;
    QString userName;
    QString ipAddress; // dotted, or empty
    QString macAddress; // twelve characters, or empty
    QString workstation;
    QString login; // empty when no login is bound to the user
    GroupId groupId;
    QString groupName; // empty when there is no such group any more
    bool guest = false;
    AccountingMode mode = AccountingMode::NoControl;
    bool authRequired = false;

    bool operator==(const UserFields &) const = default;
};

// What is not among the fields keeps by itself what was read and what became of it.
struct UserRecord
{
    UserId userId;
    UserFields base; // as read
    UserFields draft; // as the administrator leaves it
    BlockState block;
    LimitsDraft limits;
    StagedAccount account; // dropped whenever the access type is changed
    TimeRanges times;
    ProtocolChoice protocols;

    [[nodiscard]] Owner Self() const { return userId; }
};

// Nothing when there is no such user any more. A user whose group is gone is there, without a group's
// name.
[[nodiscard]] Result<std::optional<UserRecord>> LoadUser(UserId userId);
