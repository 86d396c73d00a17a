// One transaction of the accounts of some users: what is new, charged and settled.
#pragma once

#include "metering/count.h"

#include <QDate>

#include <map>
#include <vector>

// What there is of one user.
struct Part
{
    std::vector<const AddressCounters *> counters;
    double seconds = 0; // on line
    bool isSettled = false; // also without anything new
};

using Parts = std::map<UserId, Part>;

struct Accounting
{
    const Count &count; // its gateway, generation and who was refused at a bound
    Prices prices;
    QDate day; // to which what is new belongs
    QSet<GroupId> groups; // that are settled also without anything new
};

// Writes the parts in batches of whole users. When one fails, those before it stay.
[[nodiscard]] Result<Counted> WriteParts(const Parts &parts, const Accounting &accounting);
