#include "metering/day_records.h"

#include "base/day.h"

#include <QHash>

namespace {

// Where traffic and time differ. The outer joins keep every engine from going through all records of the day
// for each row that is handed in.
struct DayTexts
{
    const char *records; // users, day: user, record or null
    const char *insert; // day, users with amounts
    void (*add)(Books &books, const StagedRows &amounts);
};

constexpr DayTexts kTraffic {
    "SELECT s.k, MAX(traffic_use.traf_id) FROM STAGED (?) AS_ROWS s LEFT JOIN traffic_use ON "
    "traffic_use.user_id = s.k and traffic_use.period = 0 and traffic_use.current_time = (?) "
    "GROUP BY s.k",
    "INSERT INTO traffic_use (user_id, period, current_time, data, senddata) "
    "SELECT s.k, 0, (?), s.n1 / 1048576.0, s.n2 / 1048576.0 FROM STAGED (?) AS_ROWS s",
    AddToTrafficRecords};

constexpr DayTexts kTime {
    "SELECT s.k, MAX(time_use.time_id) FROM STAGED (?) AS_ROWS s LEFT JOIN time_use ON "
    "time_use.user_id = s.k and time_use.period = 0 and time_use.current_time = (?) "
    "GROUP BY s.k",
    "INSERT INTO time_use (user_id, period, current_time, data) "
    "SELECT s.k, 0, (?), s.n1 FROM STAGED (?) AS_ROWS s",
    AddToTimeRecords};

struct Amounts
{
    UserId user;
    double first = 0;
    double second = 0;
};

void AddAmounts(Books &books, const DayTexts &texts, const std::vector<Amounts> &amounts, QDate day)
{
    StagedRows users;
    for (const Amounts &each : amounts) {
        users.Add(each.user.value);
    }
    if (users.IsEmpty()) {
        return;
    }
    QHash<UserId, quint32> records;
    const auto take = [](const Row &row) {
        return std::pair {row.Id<UserId>(1), row.IsEmpty(2) ? 0 : row.Integer(2)};
    };
    for (const auto &[user, record] : books.Take(ReadAll(texts.records, take, users, DayOf(day)))) {
        records.insert(user, record);
    }
    StagedRows made;
    StagedRows added;
    for (const Amounts &each : amounts) {
        const quint32 record = records.value(each.user);
        const bool isThere = record != 0;
        (isThere ? added : made).Add(isThere ? record : each.user.value, {each.first, each.second});
    }
    texts.add(books, added);
    if (!made.IsEmpty()) {
        books.Write(texts.insert, DayOf(day), made);
    }
}

} // namespace

void AddToDay(Books &books, const std::vector<DayUse> &uses, QDate day)
{
    std::vector<Amounts> traffic;
    std::vector<Amounts> time;
    for (const DayUse &use : uses) {
        if (use.received > 0 || use.sent > 0) {
            traffic.push_back(
                {use.user, static_cast<double>(use.received), static_cast<double>(use.sent)});
        }
        if (use.hours > 0) {
            time.push_back({use.user, use.hours, 0});
        }
    }
    AddAmounts(books, kTraffic, traffic, day);
    AddAmounts(books, kTime, time, day);
}

void AddToTrafficRecords(Books &books, const StagedRows &amounts)
{
    books.WriteAll("UPDATE traffic_use SET data = traffic_use.data + s.n1 / 1048576.0, "
                   "senddata = traffic_use.senddata + s.n2 / 1048576.0 "
                   "FROM STAGED (?) AS_ROWS s WHERE traffic_use.traf_id = s.k",
                   amounts);
}

void AddToTimeRecords(Books &books, const StagedRows &amounts)
{
    books.WriteAll("UPDATE time_use SET data = time_use.data + s.n1 "
                   "FROM STAGED (?) AS_ROWS s WHERE time_use.time_id = s.k",
                   amounts);
}
