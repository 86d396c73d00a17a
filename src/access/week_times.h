// Whether a moment lies in the allowed times of the week, and when that changes.
#pragma once

#include "access/time_range.h"

#include <QDate>
#include <QTime>

#include <optional>
#include <vector>

// By the wall clock; the weekday is the day's own.
struct Moment
{
    QDate day;
    QTime time; // whole seconds count

    bool operator==(const Moment &) const = default;
};

struct WeekRules
{
    bool grant =
        false; // true: access is allowed in the ranges and at no other time; false: denied in them
    std::vector<TimeRange> ranges; // none of them: no restriction
};

struct WeekState
{
    bool allowed = true;
    std::optional<Moment> until; // when it changes; nothing when it never does
    std::optional<Moment> changesBack; // when it is as now again
    int unreadable = 0; // ranges that cover no time since what is stored cannot be read

    bool operator==(const WeekState &) const = default;
};

// A stop of 23:59 reaches midnight. A range whose texts cannot be read still counts as one: where ranges
// grant access, it never makes the others vanish into "no restriction".
[[nodiscard]] WeekState TimesAt(const WeekRules &rules, const Moment &now);

// Seconds since midnight of "08:30", "08.30" or "08:30:00"; nothing for any other text.
[[nodiscard]] std::optional<int> SecondsOfDay(const QString &text);
