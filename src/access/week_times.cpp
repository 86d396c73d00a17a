#include "access/week_times.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDay = 24 * 60 * 60; // seconds
constexpr int kWeek = 7 * kDay;
constexpr int kReachesMidnight = kDay - 60;

// Seconds since Monday's midnight; the stop is the first second that does not belong to it.
struct Stretch
{
    int start;
    int stop;
};

std::optional<Stretch> StretchOf(const TimeRange &range)
{
    const auto start = SecondsOfDay(range.start);
    const auto stop = SecondsOfDay(range.stop);
    if (range.day < 1 || range.day > 7 || !start || !stop || *start >= *stop) {
        return std::nullopt;
    }
    const int monday = static_cast<int>(range.day - 1) * kDay;
    return Stretch {monday + *start, monday + (*stop >= kReachesMidnight ? kDay : *stop)};
}

bool IsIn(const std::vector<Stretch> &stretches, int second)
{
    return std::ranges::any_of(stretches, [second](const Stretch &each) {
        return second >= each.start && second < each.stop;
    });
}

// How many seconds after `from` it is no longer, or not yet, in the stretches as it is at `from`.
std::optional<int> ChangesAfter(const std::vector<Stretch> &stretches, int from)
{
    std::vector<int> steps;
    for (const Stretch &each : stretches) {
        for (const int edge : {each.start, each.stop}) {
            steps.push_back((edge - from + kWeek) % kWeek);
        }
    }
    std::ranges::sort(steps);
    const bool inside = IsIn(stretches, from % kWeek);
    for (const int step : steps) {
        if (IsIn(stretches, (from + step) % kWeek) != inside) {
            return step;
        }
    }
    return std::nullopt;
}

Moment Later(const Moment &now, int seconds)
{
    const int total = QTime(0, 0).secsTo(now.time) + seconds;
    return {now.day.addDays(total / kDay), QTime(0, 0).addSecs(total % kDay)};
}

} // namespace

std::optional<int> SecondsOfDay(const QString &text)
{
    static const QRegularExpression pattern(u"^\\s*(\\d{1,2})[:.](\\d{2})(?:[:.](\\d{2}))?\\s*$"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    const QTime time(
        match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    if (!match.hasMatch() || !time.isValid()) {
        return std::nullopt;
    }
    return QTime(0, 0).secsTo(time);
}

WeekState TimesAt(const WeekRules &rules, const Moment &now)
{
    WeekState state;
    std::vector<Stretch> stretches;
    for (const TimeRange &range : rules.ranges) {
        if (const auto stretch = StretchOf(range)) {
            stretches.push_back(*stretch);
        } else {
            ++state.unreadable;
        }
    }
    if (rules.ranges.empty()) {
        return state;
    }
    const int second = (now.day.dayOfWeek() - 1) * kDay + QTime(0, 0).secsTo(now.time);
    state.allowed = IsIn(stretches, second) == rules.grant;
    if (const auto change = ChangesAfter(stretches, second)) {
        state.until = Later(now, *change);
        const auto back = ChangesAfter(stretches, (second + *change) % kWeek);
        state.changesBack = Later(*state.until, back.value_or(0)); // what changes once changes back
    }
    return state;
}
