// What a user's sheet shows and stages. Nothing of it is stored before the sheet is confirmed.
#pragma once

#include "access/block_state.h"
#include "access/limits.h"
#include "access/protocol_choice.h"
#include "access/staged_account.h"
#include "access/time_ranges.h"
#include "db/value_codes.h"

#include <QString>

struct UserGeneral
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

    bool operator==(const UserGeneral &) const = default;
};

struct UserRecord
{
    UserId userId;
    UserGeneral saved;
    UserGeneral draft;
    AccountingMode mode = AccountingMode::NoControl;
    BlockState block;
    bool authRequired = false;
    LimitsDraft limits;
    StagedAccount account; // dropped whenever the access type is changed
    TimeRanges times;
    ProtocolChoice protocols;

    [[nodiscard]] Owner Self() const { return userId; }
};

// Nothing when there is no such user any more.
[[nodiscard]] std::optional<UserRecord> LoadUser(UserId userId);
