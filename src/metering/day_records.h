// What is added to usage records, and the day's records of users (period 0), which statistics and
// reports read.
#pragma once

#include "metering/books.h"

#include <QDate>

#include <vector>

struct DayUse
{
    UserId user;
    quint64 received = 0; // bytes
    quint64 sent = 0;
    double hours = 0; // on line
};

// Adds to the records of the day, the last one where there are several, or makes them. Each user once.
void AddToDay(Books &books, const std::vector<DayUse> &uses, QDate day);

// Received and sent bytes to records of traffic_use by their ids, hours to those of time_use.
void AddToTrafficRecords(Books &books, const StagedRows &amounts);
void AddToTimeRecords(Books &books, const StagedRows &amounts);
