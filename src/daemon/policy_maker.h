// From who may what, as the database says it, to what the kernel is to do.
#pragma once

#include "daemon/service_settings.h"
#include "gateway/policy.h"
#include "metering/monitored_ports.h"
#include "metering/standing.h"

#include <QHash>
#include <QSet>

#include <map>

// A notice that is in force until the database has been asked often enough.
enum class Notice { Blocked, Unblocked };

// The addresses beside the stored one that belong to a hardware address at present.
using CompanionAddresses = std::map<HardwareAddress, std::vector<NetAddress>>;

// What a policy is made of. All that it refers to outlives the making.
struct PolicySources
{
    const ServiceSettings &settings;
    const QStringList &lanInterfaces; // by name; empty: all
    const Standings &standings;
    const MonitoredPorts &ports;
    const CompanionAddresses &companions;
    // Received bytes of each address as they were accounted when the standings were read.
    const QHash<NetAddress, quint64> &accounted;
    const QHash<UserId, Notice> &notices;
    const QSet<UserId> &timeEnded; // their last second is over, which no row says yet
};

struct MadePolicy
{
    Policy policy;
    QHash<NetAddress, UserId> owners;
    // Users whose stored address is not one, or belongs to an earlier user of the list as well.
    std::vector<UserId> withoutAddress;
};

// Of users who share an address the first by id has it.
[[nodiscard]] MadePolicy MakePolicy(const PolicySources &sources);
