// What a batch changes in limits, credits and blocks: gathered owner by owner, written together.
#pragma once

#include "db/staged_rows.h"
#include "metering/books.h"
#include "metering/charging.h"

class AccountChanges
{
public:
    // Of traffic, with what was sent, and of time. `account` as it is behind the charge.
    void AddTraffic(const Account &account, const Charge &charge, quint64 sentBytes);
    void AddTime(const Account &account, const Charge &charge);
    void AddPrePaid(const Charge &charge);
    void Close(const std::vector<BillId> &bills);

    // Records whose limit has nothing left.
    void NoteReached(TrafficRecordId record);
    void NoteReached(TimeRecordId record);

    // The row is blocked unless it is already, or freed from a block of the service's own.
    void Block(UserId user, BlockReason reason);
    void Block(GroupId group);
    void Lift(UserId user);
    void Lift(GroupId group);

    // users.timeblocked
    void MarkTime(UserId user, bool mark);

    void Write(Books &books, QDate day) const;

    // The blocks and marks alone.
    void WriteBlocks(Books &books) const;

private:
    void Pay(const std::vector<Payment> &made, double unitsOfOne);

    StagedRows traffic; // record: received and sent bytes
    StagedRows time; // record: hours
    StagedRows adoptedTraffic; // credit: record
    StagedRows adoptedTime;
    StagedRows payments; // credit: amount, money, price, what the amount is divided by
    StagedRows closed; // credits
    StagedRows reachedTraffic; // records
    StagedRows reachedTime;
    StagedRows blocked; // users: reason
    StagedRows lifted;
    StagedRows timeMarks; // users: 0 or 1
    StagedRows blockedGroups;
    StagedRows liftedGroups;
};
