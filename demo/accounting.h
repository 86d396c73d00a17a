// How the stand-in service counts: usage records, limits, credits and blocks.
#pragma once

#include <QtGlobal>

// What one user did since the last count.
struct Activity
{
    double received = 0; // megabytes; what limits and credits are about
    double sent = 0; // megabytes
    double hours = 0; // on line
};

// Adds the activity to the day's record and to the record of each limit that the user has, up to the
// limit; what is beyond goes to the open credits of that limit, oldest first, and what nothing pays
// for stays in the record. A pre-paid user's traffic goes to the credits alone, money at the user's
// own price or at `price` for each megabyte. The group's record grows likewise.
//
// When nothing is left afterwards the user is blocked: 1 for traffic, 2 for time. Returns that
// reason, or 0 for a user who may go on.
quint32 CountActivity(quint32 userId, const Activity &activity, double price);

// Unblocks the users whom a used-up limit of a period now over had blocked; returns how many.
int BeginNewPeriods();
