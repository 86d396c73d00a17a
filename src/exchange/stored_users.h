// All users as they stand in the database, with what an import may change of them.
#pragma once

#include "access/group_list.h"
#include "access/limits.h"
#include "access/pre_paid_credit.h"
#include "db/failure.h"
#include "db/ids.h"
#include "db/value_codes.h"

#include <QHash>
#include <QStringList>

#include <vector>

// What the columns of a file stand for.
struct UserValues
{
    QString fullName {};
    QString description {};
    QString workstation {};
    QString ipAddress {}; // dotted, or empty
    QString macAddress {}; // twelve characters, or empty
    GroupId groupId {}; // not set for a group that is to be made
    QString groupName {}; // empty for a group that is gone
    AccountingMode mode = AccountingMode::NoControl;
    Limits limits {};
    bool blocked = false; // by the administrator
    bool authRequired = false;
    QString login {}; // the last one that is bound to the user, or the one of the file

    bool operator==(const UserValues &) const = default;
};

struct StoredUserRow
{
    UserId userId;
    QString name;
    UserValues values;
    bool isBlocked = false; // by whomever
    bool isMonitored = true;
    QStringList logins;

    bool operator==(const StoredUserRow &) const = default;
};

struct StoredLogin
{
    QString name;
    UserId userId; // not set: bound to no user
    QString digest;
};

struct StoredUsers
{
    std::vector<StoredUserRow> users; // in the order of their ids
    QList<NamedGroup> groups;
    QHash<QString, StoredLogin> logins; // by NameKey
    QHash<UserId, PrePaidCredit> credits; // of users with open ones, the first that has not expired
    QHash<UserId, bool> blockedRecords; // users with a used-up record of an accounting period
};

// Reads on the session of this thread, within whatever transaction is open.
[[nodiscard]] Result<StoredUsers> ReadStoredUsers();
