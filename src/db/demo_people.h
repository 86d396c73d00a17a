// Made-up users and groups of the demonstration data, the same on every run.
#pragma once

#include "db/direct_connection.h"
#include "db/value_codes.h"

#include <random>

struct DemoGroup
{
    int id = 0; // once it stands in the database
    AccountingMode mode = AccountingMode::NoControl;
    bool blocked = false;
};

// The columns that DemoUser::Row and DemoGroupRow fill, in their order.
extern const char *const kDemoUserColumns;
extern const char *const kDemoGroupColumns;

// Numbers that are the same on every machine.
class DemoChance
{
public:
    // 0 to `bound` - 1.
    int Below(int bound) { return static_cast<int>(engine() % static_cast<quint32>(bound)); }
    bool Percent(int share) { return Below(100) < share; }

private:
    std::mt19937 engine {20031121}; // any number will do, as long as it stays
};

// Group number `index`, counted from 0, and its row. The fifth is blocked by the administrator.
[[nodiscard]] DemoGroup MakeDemoGroup(int index);
[[nodiscard]] SqlValues DemoGroupRow(int index, const DemoGroup &group, DemoChance &chance);

// The row of user number `index`, counted from 0, in one of `groups`.
[[nodiscard]] SqlValues DemoUserRow(int index, const QList<DemoGroup> &groups, DemoChance &chance);
