#include "plain_accounts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMegabyte = 1048576.0;

bool IsOver(const PlainCredit &credit, QDate day)
{
    return credit.lastDay && *credit.lastDay < day;
}

// Bytes that a credit still pays for.
quint64 LeftBytes(const PlainCredit &credit, double price)
{
    constexpr quint64 kEndless = 1ULL << 60;
    if (credit.given < 0 || (credit.isMoney && price <= 0)) {
        return kEndless;
    }
    const double left = credit.isMoney
        ? (credit.given - credit.usedMoney) / price * kMegabyte
        : credit.given * kMegabyte - static_cast<double>(credit.usedBytes);
    return left <= 0 ? 0 : static_cast<quint64>(std::floor(left + 1e-3));
}

// What the credits do not pay for.
quint64 Pay(std::vector<PlainCredit> &credits, int record, QDate day, double price, quint64 bytes)
{
    for (PlainCredit &credit : credits) {
        if (credit.closed || (credit.ofRecord >= 0 && credit.ofRecord != record)) {
            continue;
        }
        credit.ofRecord = record;
        if (IsOver(credit, day)) {
            credit.closed = true;
            continue;
        }
        const quint64 paid = std::min(bytes, LeftBytes(credit, price));
        credit.usedBytes += paid;
        credit.usedMoney += credit.isMoney ? static_cast<double>(paid) / kMegabyte * price : 0;
        bytes -= paid;
        credit.closed = LeftBytes(credit, price) == 0;
    }
    return bytes;
}

double PayHours(std::vector<PlainCredit> &credits, int record, QDate day, double hours)
{
    for (PlainCredit &credit : credits) {
        if (credit.closed || (credit.ofRecord >= 0 && credit.ofRecord != record)) {
            continue;
        }
        credit.ofRecord = record;
        if (IsOver(credit, day)) {
            credit.closed = true;
            continue;
        }
        const double paid = std::min(hours, std::max(credit.given - credit.usedHours, 0.0));
        credit.usedHours += paid;
        hours -= paid;
        credit.closed = credit.given - credit.usedHours < 1e-7;
    }
    return hours;
}

// The record that the day counts into; its number.
int RecordOf(PlainLimit &limit, QDate day)
{
    if (limit.records.empty() || (!limit.monthly && limit.records.back().day != day)) {
        limit.records.push_back({day});
    }
    PlainLimit::Record &record = limit.records.back();
    const bool isOfAnotherMonth =
        record.day.year() != day.year() || record.day.month() != day.month();
    const int number = static_cast<int>(limit.records.size()) - 1;
    if (limit.monthly && isOfAnotherMonth) {
        record = {day};
        for (PlainCredit &credit : limit.credits) {
            credit.closed = credit.closed || credit.ofRecord == number;
        }
    }
    return number;
}

bool AnyLeft(const std::vector<PlainCredit> &credits, int record)
{
    return std::ranges::any_of(credits, [record](const PlainCredit &credit) {
        return !credit.closed && credit.ofRecord == record;
    });
}

} // namespace

void PlainAccounts::ChargeTraffic(PlainUser &payer, QDate day, quint64 received, quint64 sent)
{
    if (payer.mode == 2) {
        (void)Pay(payer.prePaid, 0, day, payer.price, received);
    } else if (payer.mode == 1 || payer.mode == 5) {
        const int number = RecordOf(payer.traffic, day);
        auto &record = payer.traffic.records.back();
        const quint64 limit = static_cast<quint64>(payer.traffic.limit) << 20;
        const quint64 room = limit - std::min(limit, record.bytes);
        const quint64 covered = std::min(room, received);
        record.sent += sent;
        record.bytes += covered + Pay(payer.traffic.credits, number, day, 0, received - covered);
    }
}

void PlainAccounts::Count(size_t user, QDate day, quint64 received, quint64 sent, double hours)
{
    PlainUser &whose = users[user];
    whose.days[day].bytes += received;
    whose.days[day].sent += sent;
    whose.days[day].hours += hours;
    ChargeTraffic(whose, day, received, sent);
    if (whose.mode == 4 || whose.mode == 5) {
        const int number = RecordOf(whose.time, day);
        auto &record = whose.time.records.back();
        const double covered = std::min(hours, std::max(whose.time.limit - record.hours, 0.0));
        record.hours += covered + PayHours(whose.time.credits, number, day, hours - covered);
    }
    PlainUser &group = groups[static_cast<size_t>(whose.group)];
    if (group.mode == 1 || (group.mode == 2 && whose.mode == 0)) {
        ChargeTraffic(group, day, received, sent);
    }
}

void PlainAccounts::Settle(size_t user, QDate day)
{
    PlainUser &whose = users[user];
    bool trafficEnds = whose.mode == 2 && !AnyLeft(whose.prePaid, 0);
    bool timeEnds = false;
    if (whose.mode == 1 || whose.mode == 5) {
        const int number = RecordOf(whose.traffic, day);
        auto &record = whose.traffic.records.back();
        trafficEnds = record.bytes >= static_cast<quint64>(whose.traffic.limit) << 20
            && !AnyLeft(whose.traffic.credits, number);
        record.reached = record.reached || trafficEnds;
    }
    if (whose.mode == 4 || whose.mode == 5) {
        const int number = RecordOf(whose.time, day);
        auto &record = whose.time.records.back();
        timeEnds = record.hours > whose.time.limit - 1e-9 && !AnyLeft(whose.time.credits, number);
        record.reached = record.reached || timeEnds;
    }
    if (!trafficEnds && !timeEnds) {
        whose.blocked = 0;
    } else if (whose.blocked == 0) {
        whose.blocked = trafficEnds ? 1 : 2;
    }
}
