// Workstations as they are found on the network, and the users' rows that stand for them.
#pragma once

#include "db/failure.h"
#include "db/ids.h"
#include "db/value_codes.h"

#include <QList>
#include <QString>

#include <vector>

// What tells one user from another: the setting IdentMode.
enum class Identification { ByIp, ByMac };

struct Station
{
    QString ip; // as a new user's ip_addr is to have it
    QString mac; // as users.mac_addr has it; empty: not known
    QString name; // from the network, so that anything may stand in it; empty: not known
    UserId user {}; // whose the address is, as far as is known; not set: nobody's
};

// What the service gives to a new user: the settings' default profile.
struct NewUserProfile
{
    AccountingMode mode = AccountingMode::NoControl; // without a meaning: NoControl
    quint32 trafficLimit = 0; // megabytes
    quint32 timeLimit = 0; // hours
    LimitPeriod period = LimitPeriod::Month; // without a meaning: Month
    bool blocked = false; // as by the administrator
    bool authRequired = false;
};

struct StationRules
{
    Identification identification = Identification::ByIp;
    bool keepsAddresses = false; // nobody may change the address: what does not match is refused
    NewUserProfile profile;
};

struct StationsTaken
{
    QList<UserId> made;
    QList<UserId> moved; // have another address now, or none
    QList<UserId> completed; // hardware address or name were filled in
};

// Makes users of the stations that are nobody's, in the group "Everybody", named as the station or
// else as its address; fills in hardware addresses and names that were not known; and gives an address
// to the user whose workstation has it now:
//  - by IP, a user is an address: another workstation there is the same user;
//  - by MAC, a user is a workstation: it takes its address along, and whoever had that has none.
// A station whose hardware address is not known is told by its address alone. One transaction: hand in
// as many at once, a hundred or so, as new users may be made in that time.
[[nodiscard]] Result<StationsTaken> TakeStations(const std::vector<Station> &stations,
                                                 const StationRules &rules);
