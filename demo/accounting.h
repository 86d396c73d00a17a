// How the stand-in service counts: usage records, limits, credits and blocks.
#pragma once

#include "db/failure.h"
#include "db/quantities.h"
#include "db/value_codes.h"

// What one user did since the last count.
struct Activity
{
    Megabytes received; // what limits and credits are about
    Megabytes sent;
    Hours hours; // on line
};

// Adds the activity to the day's record and to the record of each limit that the user has, up to the
// limit; what is beyond goes to the open credits of that limit, oldest first, and what nothing pays
// for stays in the record. A pre-paid user's traffic goes to the credits alone, money at the user's
// own price or at `price` for each megabyte. The group's record grows likewise.
//
// When nothing is left afterwards the user is blocked. Gives the reason, or None for a user who may go
// on. A statement that fails ends the count: what was counted before it stays.
[[nodiscard]] Result<BlockReason>
CountActivity(UserId userId, const Activity &activity, double price);

// Unblocks the users whom a used-up limit of a period now over had blocked; gives how many.
[[nodiscard]] Result<int> BeginNewPeriods();
