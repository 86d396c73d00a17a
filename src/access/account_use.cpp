#include "access/account_use.h"

#include "base/day.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

AccountUses UsesOf(const AccountRules &accounts, QDate today)
{
    AccountUses uses;
    for (auto account = accounts.begin(); account != accounts.end(); ++account) {
        if (const auto use = AccountUseOf(*account, today)) {
            uses.insert(account.key(), *use);
        }
    }
    return uses;
}

// A statement's part with the values of its markers.
struct Part
{
    QByteArray text;
    ValueList values;
};

void Add(Part &part, const QByteArray &text, const ValueList &values)
{
    part.text += text;
    part.values.insert(part.values.end(), values.begin(), values.end());
}

constexpr const char *kNotExpired =
    " AND closed = 0 AND (unlimited <> 0 OR expiredday = '' OR expiredday >= (?))";

// What was counted, in the unit of the user's mode.
Part UsedAmount(const ValueList &today, const ValueList &month, const ValueList &lastDay)
{
    Part part;
    Add(part,
        "CASE WHEN mode IN (1, 5) AND trafperiod = 1 THEN COALESCE((SELECT MAX(data) FROM "
        "traffic_use WHERE traffic_use.user_id = users.user_id AND period = 1 AND current_time = "
        "(?)), 0) ",
        today);
    Add(part,
        "WHEN mode IN (1, 5) THEN COALESCE((SELECT MAX(data) FROM traffic_use WHERE "
        "traffic_use.user_id = users.user_id AND period = 2 AND current_time >= (?)), 0) ",
        month);
    Add(part,
        "WHEN mode = 4 AND timeperiod = 1 THEN COALESCE((SELECT MAX(data) FROM time_use WHERE "
        "time_use.user_id = users.user_id AND period = 1 AND current_time = (?)), 0) ",
        today);
    Add(part,
        "WHEN mode = 4 THEN COALESCE((SELECT MAX(data) FROM time_use WHERE time_use.user_id = "
        "users.user_id AND period = 2 AND current_time >= (?)), 0) ",
        month);
    Add(part,
        QByteArray("WHEN mode = 2 THEN (SELECT SUM(CASE WHEN moneydata > 0 THEN moneyusage ELSE "
                   "usage END) FROM billing WHERE object_id = users.user_id AND billing.mode = 2")
            + kNotExpired + ") ELSE 0 END",
        lastDay);
    return part;
}

// The statements of traffic and time: what names the limit, its period, its records and its credits.
struct LimitColumns
{
    const char *limit;
    const char *period;
    const char *table;
    const char *record;
    const char *creditRecord;
    const char *creditMode;
};

constexpr LimitColumns kTrafficColumns {
    "traflim", "trafperiod", "traffic_use", "traf_id", "trafid", "1"};
constexpr LimitColumns kTimeColumns {
    "timelim", "timeperiod", "time_use", "time_id", "billing.time_id", "4"};

// Of a limit and the credits that extend it, each never less than nothing; `records` are those of the
// present accounting period, " AND" in front, with one marker for `day`.
void AddLimitLeft(Part &part,
                  const LimitColumns &columns,
                  const char *records,
                  const ValueList &day,
                  const ValueList &lastDay)
{
    const QByteArray limit(columns.limit);
    const QByteArray ofUser = QByteArray(columns.table) + " WHERE " + columns.table
        + ".user_id = users.user_id" + records;
    Add(part,
        QByteArray("COALESCE((SELECT MIN(CASE WHEN data < " + limit + " THEN " + limit
                   + " - data ELSE 0 END) FROM " + ofUser + "), " + limit + ")"),
        day);
    Add(part,
        QByteArray(
            " + COALESCE((SELECT SUM(CASE WHEN usage < data THEN data - usage ELSE 0 END) FROM "
            "billing WHERE object_id = users.user_id AND billing.mode = ")
            + columns.creditMode + " AND (" + columns.creditRecord + " = 0 OR "
            + columns.creditRecord + " IN (SELECT " + columns.record + " FROM " + ofUser + "))",
        day);
    Add(part, QByteArray(kNotExpired) + "), 0) ", lastDay);
}

// What is left of it. A credit without a bound is more than any other.
Part LeftAmount(const ValueList &today, const ValueList &month, const ValueList &lastDay)
{
    constexpr const char *kOfDay = " AND period = 1 AND current_time = (?)";
    constexpr const char *kOfMonth = " AND period = 2 AND current_time >= (?)";
    Part part;
    Add(part, "CASE WHEN mode IN (1, 5) AND trafperiod = 1 THEN ", {});
    AddLimitLeft(part, kTrafficColumns, kOfDay, today, lastDay);
    Add(part, "WHEN mode IN (1, 5) THEN ", {});
    AddLimitLeft(part, kTrafficColumns, kOfMonth, month, lastDay);
    Add(part, "WHEN mode = 4 AND timeperiod = 1 THEN ", {});
    AddLimitLeft(part, kTimeColumns, kOfDay, today, lastDay);
    Add(part, "WHEN mode = 4 THEN ", {});
    AddLimitLeft(part, kTimeColumns, kOfMonth, month, lastDay);
    Add(part,
        QByteArray(
            "WHEN mode = 2 THEN COALESCE((SELECT SUM(CASE WHEN moneydata > 0 THEN CASE WHEN "
            "moneyusage < moneydata THEN moneydata - moneyusage ELSE 0 END WHEN data > 0 THEN "
            "CASE WHEN usage < data THEN data - usage ELSE 0 END ELSE 1000000000000 END) FROM "
            "billing WHERE object_id = users.user_id AND billing.mode = 2")
            + kNotExpired + "), 0) ELSE 0 END",
        lastDay);
    return part;
}

} // namespace

Result<AccountUses> ReadAccountUses(const QList<UserId> &users, AccountMoment moment)
{
    return ReadAccountRules(users, moment).map([&moment](const AccountRules &accounts) {
        return UsesOf(accounts, moment.today);
    });
}

Result<AccountUses> ReadAllAccountUses(AccountMoment moment)
{
    return ReadAllAccountRules(moment, LimitsRead::Shown)
        .map([&moment](const AccountRules &accounts) { return UsesOf(accounts, moment.today); });
}

Result<UserList> WithAccountUses(UserList list, AccountMoment moment)
{
    return ReadAccountUses(list.rowUserIds, moment).map([&](const AccountUses &uses) {
        for (qsizetype row = 0; row < list.rows.size(); ++row) {
            const auto use = uses.constFind(list.rowUserIds[row]);
            if (use != uses.constEnd()) {
                list.rows[row].use = *use;
            }
        }
        return std::move(list);
    });
}

QByteArray AccountOrderClause(int order, bool ascending, QDate today, ValueList &values)
{
    const ValueList day {DayOf(today)};
    const ValueList month {DayOf(QDate(today.year(), today.month(), 1))};
    const ValueList lastDay {today.toString(u"yyyy.MM.dd"_s)};
    const Part amount = order == user_order::kUsed ? UsedAmount(day, month, lastDay)
                                                   : LeftAmount(day, month, lastDay);
    values.insert(values.end(), amount.values.begin(), amount.values.end());
    return " ORDER BY CASE mode WHEN 1 THEN 0 WHEN 5 THEN 0 WHEN 2 THEN 1 WHEN 4 THEN 2 ELSE 3 "
           "END, "
        + amount.text + (ascending ? " ASC" : " DESC") + ", username";
}
