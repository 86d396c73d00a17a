#include "access/account_use.h"

#include "base/day.h"
#include "db/query.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kIdsAtOnce = 60; // a statement has room for few more values
constexpr quint32 kDense = 4; // ids that are at least every fourth one are read as a span

// Rules of users while they are read, with the record that credits of a limit name.
struct Account
{
    OwnerRules rules;
    quint32 trafficRecord = 0;
    quint32 timeRecord = 0;
};

using Accounts = QHash<UserId, Account>;

// Behind each "AND" may follow.
constexpr const char *kTraffic =
    "SELECT users.user_id, users.mode, users.traflim, users.trafperiod, traffic_use.traf_id, "
    "traffic_use.data, traffic_use.blocked, traffic_use.current_time FROM users LEFT JOIN "
    "traffic_use ON traffic_use.user_id = users.user_id AND traffic_use.period = users.trafperiod "
    "AND (users.trafperiod = 2 OR traffic_use.current_time = (?)) WHERE users.mode IN (1, 5)";

constexpr const char *kTime =
    "SELECT users.user_id, users.mode, users.timelim, users.timeperiod, time_use.time_id, "
    "time_use.data, time_use.blocked, time_use.current_time FROM users LEFT JOIN time_use ON "
    "time_use.user_id = users.user_id AND time_use.period = users.timeperiod AND "
    "(users.timeperiod = 2 OR time_use.current_time = (?)) WHERE users.mode = 4";

constexpr const char *kPrePaid =
    "SELECT users.user_id, users.own_price, users.trafprice FROM users WHERE users.mode = 2";

constexpr const char *kCredits =
    "SELECT object_id, mode, trafid, time_id, data, usage, moneydata, moneyusage, unlimited, "
    "expiredday FROM billing WHERE closed = 0";

template <typename Unit>
void TakeUse(const Row &row, LimitRules<Unit> &rules, quint32 &record)
{
    rules.period = row.Code<LimitPeriod>(4);
    record = row.Integer(5);
    if (record != 0) {
        const QDate day = DateIn(row.Text(8), u'-');
        rules.use = CountedUse<Unit> {Unit {row.Amount(6)}, row.Flag(7), day};
    }
}

Account LimitIn(const Row &row)
{
    Account account;
    account.rules.mode = row.Code<AccountingMode>(2);
    if (account.rules.mode == AccountingMode::Time) {
        account.rules.time.limit = AmountOf(WholeHours {row.Integer(3)});
        TakeUse(row, account.rules.time, account.timeRecord);
    } else {
        account.rules.traffic.limit = AmountOf(WholeMegabytes {row.Integer(3)});
        TakeUse(row, account.rules.traffic, account.trafficRecord);
    }
    return account;
}

Account PrePaidIn(const Row &row, double price)
{
    Account account;
    account.rules.mode = AccountingMode::Provider;
    account.rules.price = row.Flag(2) ? row.Amount(3) : price;
    return account;
}

// An open credit, whatever it is of.
struct StoredCredit
{
    UserId userId;
    BillingMode mode = BillingMode::Credit;
    quint32 trafficRecord = 0;
    quint32 timeRecord = 0;
    double given = 0;
    double used = 0;
    BaseUnits money;
    BaseUnits moneyUsed;
    CreditExpiry expiry;
};

StoredCredit CreditIn(const Row &row)
{
    return {.userId = row.Id<UserId>(1),
            .mode = row.Code<BillingMode>(2),
            .trafficRecord = row.Integer(3),
            .timeRecord = row.Integer(4),
            .given = row.Amount(5),
            .used = row.Amount(6),
            .money = BaseUnits {row.Amount(7)},
            .moneyUsed = BaseUnits {row.Amount(8)},
            .expiry = {row.Integer(9) != 0, row.Text(10)}};
}

template <typename Unit>
void AddCredit(const StoredCredit &credit, quint32 named, quint32 record, LimitRules<Unit> &rules)
{
    if (named == 0 || named == record) {
        rules.credits.push_back({Unit {credit.given}, Unit {credit.used}, credit.expiry});
    }
}

void AddCredit(const StoredCredit &credit, Account &account)
{
    OwnerRules &rules = account.rules;
    if (credit.mode == BillingMode::Traffic) {
        AddCredit(credit, credit.trafficRecord, account.trafficRecord, rules.traffic);
    } else if (credit.mode == BillingMode::Time) {
        AddCredit(credit, credit.timeRecord, account.timeRecord, rules.time);
    } else if (credit.mode == BillingMode::Credit) {
        rules.credits.push_back({.money = credit.money,
                                 .moneyUsed = credit.moneyUsed,
                                 .traffic = Megabytes {credit.given},
                                 .trafficUsed = Megabytes {credit.used},
                                 .expiry = credit.expiry});
    }
}

// Of a few users; of everybody without any.
struct Whose
{
    QByteArray clause; // behind a column's name
    ValueList values;
};

Whose Everybody()
{
    return {};
}

// Always as many markers: a statement of one text is planned once.
Whose Of(const QList<UserId> &users, qsizetype from)
{
    Whose whose {" IN (", {}};
    for (qsizetype at = 0; at < kIdsAtOnce; ++at) {
        whose.clause += at == 0 ? "(?)" : ", (?)";
        whose.values.emplace_back(users[std::min(from + at, users.size() - 1)].value);
    }
    whose.clause += ')';
    return whose;
}

// From the least of them to the greatest, where few others are between.
std::optional<Whose> SpanOf(const QList<UserId> &users)
{
    const auto [least, greatest] = std::ranges::minmax(users, {}, &UserId::value);
    if (greatest.value - least.value >= kDense * static_cast<quint32>(users.size())) {
        return std::nullopt;
    }
    return Whose {" BETWEEN (?) AND (?)", {least.value, greatest.value}};
}

QByteArray Restricted(const char *sqlText, const char *column, const Whose &whose)
{
    return whose.clause.isEmpty() ? QByteArray(sqlText)
                                  : sqlText + QByteArray(" AND ") + column + whose.clause;
}

// Of several records of a user the last one counts.
template <typename Reader>
Result<bool> ReadInto(Accounts &accounts,
                      const QByteArray &sqlText,
                      const Reader &reader,
                      const ValueList &values)
{
    const auto take = [&reader](const Row &row) {
        return std::pair {row.Id<UserId>(1), reader(row)};
    };
    return ReadAll(sqlText.constData(), take, values)
        .map([&accounts](const std::vector<std::pair<UserId, Account>> &read) {
            for (const auto &[userId, account] : read) {
                accounts[userId] = account;
            }
            return true;
        });
}

Result<bool> ReadLimits(const Whose &whose, AccountMoment moment, Accounts &accounts)
{
    ValueList values {DayOf(moment.today)};
    values.insert(values.end(), whose.values.begin(), whose.values.end());
    const auto restricted = [&whose](const char *sqlText) {
        return Restricted(sqlText, "users.user_id", whose);
    };
    const auto prePaid = [&moment](const Row &row) { return PrePaidIn(row, moment.price); };
    return ReadInto(accounts, restricted(kTraffic), LimitIn, values)
        .and_then([&](bool) { return ReadInto(accounts, restricted(kTime), LimitIn, values); })
        .and_then(
            [&](bool) { return ReadInto(accounts, restricted(kPrePaid), prePaid, whose.values); });
}

Result<bool> ReadCredits(const Whose &whose, Accounts &accounts)
{
    return ReadAll(Restricted(kCredits, "object_id", whose).constData(), CreditIn, whose.values)
        .map([&accounts](const std::vector<StoredCredit> &credits) {
            for (const StoredCredit &credit : credits) {
                if (const auto account = accounts.find(credit.userId); account != accounts.end()) {
                    AddCredit(credit, *account);
                }
            }
            return true;
        });
}

Result<bool> ReadAccounts(const Whose &whose, AccountMoment moment, Accounts &accounts)
{
    return ReadLimits(whose, moment, accounts).and_then([&](bool) {
        return accounts.isEmpty() ? Result<bool>(true) : ReadCredits(whose, accounts);
    });
}

Result<AccountUses> UsesOf(const Result<bool> &read, const Accounts &accounts, QDate today)
{
    return read.map([&](bool) {
        AccountUses uses;
        for (auto account = accounts.begin(); account != accounts.end(); ++account) {
            if (const auto use = AccountUseOf(account->rules, today)) {
                uses.insert(account.key(), *use);
            }
        }
        return uses;
    });
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
        QByteArray("WHEN mode = 2 THEN (SELECT SUM(usage) FROM billing WHERE object_id = "
                   "users.user_id AND billing.mode = 2")
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
    Accounts accounts;
    if (users.isEmpty()) {
        return AccountUses();
    }
    if (const auto span = SpanOf(users)) {
        const auto read = ReadAccounts(*span, moment, accounts);
        const QSet<UserId> wanted(users.begin(), users.end());
        accounts.removeIf([&wanted](auto account) { return !wanted.contains(account.key()); });
        return UsesOf(read, accounts, moment.today);
    }
    Result<bool> read = true;
    for (qsizetype from = 0; read && from < users.size(); from += kIdsAtOnce) {
        read = ReadAccounts(Of(users, from), moment, accounts);
    }
    return UsesOf(read, accounts, moment.today);
}

Result<AccountUses> ReadAllAccountUses(AccountMoment moment)
{
    Accounts accounts;
    return UsesOf(ReadAccounts(Everybody(), moment, accounts), accounts, moment.today);
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
