#include "access/account_rules.h"

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
using GroupAccounts = QHash<GroupId, Account>;

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

// The second limit of those who have both.
constexpr const char *kTimeBesides =
    "SELECT users.user_id, users.mode, users.timelim, users.timeperiod, time_use.time_id, "
    "time_use.data, time_use.blocked, time_use.current_time FROM users LEFT JOIN time_use ON "
    "time_use.user_id = users.user_id AND time_use.period = users.timeperiod AND "
    "(users.timeperiod = 2 OR time_use.current_time = (?)) WHERE users.mode = 5";

constexpr const char *kGroupTraffic =
    "SELECT groups.group_id, traffic_use.traf_id, traffic_use.data, traffic_use.blocked, "
    "traffic_use.current_time FROM groups JOIN traffic_use ON traffic_use.group_id = "
    "groups.group_id WHERE groups.mode = 1 and ((groups.trafperiod <> 1 and traffic_use.period = 2) "
    "or (groups.trafperiod = 1 and traffic_use.period = 1 and traffic_use.current_time = (?))) "
    "ORDER BY traffic_use.traf_id";

constexpr const char *kGroupCredits =
    "SELECT group_id, mode, trafid, time_id, data, usage, moneydata, moneyusage, unlimited, "
    "expiredday FROM billing WHERE closed = 0 and group_id > 0";

constexpr const char *kPrePaid =
    "SELECT users.user_id, users.own_price, users.trafprice FROM users WHERE users.mode = 2";

constexpr const char *kCredits =
    "SELECT object_id, mode, trafid, time_id, data, usage, moneydata, moneyusage, unlimited, "
    "expiredday FROM billing WHERE closed = 0";

// From the column of the record's id on.
template <typename Unit>
void TakeRecord(const Row &row, int column, LimitRules<Unit> &rules, quint32 &record)
{
    record = row.Integer(column);
    if (record != 0) {
        const QDate day = DateIn(row.Text(column + 3), u'-');
        rules.use = CountedUse<Unit> {Unit {row.Amount(column + 1)}, row.Flag(column + 2), day};
    }
}

template <typename Unit>
void TakeUse(const Row &row, LimitRules<Unit> &rules, quint32 &record)
{
    rules.period = row.Code<LimitPeriod>(4);
    TakeRecord(row, 5, rules, record);
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
    quint32 owner = 0;
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
    return {.owner = row.Integer(1),
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

template <typename OwnerId>
void AddCredits(const std::vector<StoredCredit> &credits, QHash<OwnerId, Account> &accounts)
{
    for (const StoredCredit &credit : credits) {
        if (const auto account = accounts.find(OwnerId {credit.owner}); account != accounts.end()) {
            AddCredit(credit, *account);
        }
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

// Of users with both limits the second one.
Result<bool> ReadTimeBesides(AccountMoment moment, Accounts &accounts)
{
    const auto take = [](const Row &row) {
        Account account;
        account.rules.time.limit = AmountOf(WholeHours {row.Integer(3)});
        TakeUse(row, account.rules.time, account.timeRecord);
        return std::pair {row.Id<UserId>(1), std::move(account)};
    };
    return ReadAll(kTimeBesides, take, DayOf(moment.today))
        .map([&accounts](const std::vector<std::pair<UserId, Account>> &read) {
            for (const auto &[userId, account] : read) {
                accounts[userId].rules.time = account.rules.time;
                accounts[userId].timeRecord = account.timeRecord;
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
            AddCredits<UserId>(credits, accounts);
            return true;
        });
}

Result<bool> ReadAccounts(const Whose &whose, AccountMoment moment, Accounts &accounts)
{
    return ReadLimits(whose, moment, accounts).and_then([&](bool) {
        return accounts.isEmpty() ? Result<bool>(true) : ReadCredits(whose, accounts);
    });
}

template <typename OwnerId>
Result<QHash<OwnerId, OwnerRules>> RulesOf(const Result<bool> &read,
                                           QHash<OwnerId, Account> &accounts)
{
    return read.map([&accounts](bool) {
        QHash<OwnerId, OwnerRules> rules;
        rules.reserve(accounts.size());
        for (auto account = accounts.begin(); account != accounts.end(); ++account) {
            rules.insert(account.key(), std::move(account->rules));
        }
        return rules;
    });
}

Result<bool> ReadGroups(AccountMoment moment, GroupAccounts &groups)
{
    using Entry = std::pair<GroupId, Account>;
    return ReadAll("SELECT mode, traflim, trafperiod, own_price, trafprice, blocked, blockreason, "
                   "portaccess, timeaccess, group_id FROM groups",
                   [&moment](const Row &row) {
                       return Entry {row.Id<GroupId>(10), {GroupRulesIn(row, moment.price), 0, 0}};
                   })
        .map([&groups](const std::vector<Entry> &read) {
            for (const auto &[groupId, account] : read) {
                groups.insert(groupId, account);
            }
            return true;
        });
}

// Of several records of a group the last one counts.
Result<bool> ReadGroupRecords(AccountMoment moment, GroupAccounts &groups)
{
    using Entry = std::pair<GroupId, Account>;
    const auto take = [](const Row &row) {
        Account account;
        TakeRecord(row, 2, account.rules.traffic, account.trafficRecord);
        return Entry {row.Id<GroupId>(1), std::move(account)};
    };
    return ReadAll(kGroupTraffic, take, DayOf(moment.today))
        .map([&groups](const std::vector<Entry> &read) {
            for (const auto &[groupId, account] : read) {
                groups[groupId].rules.traffic.use = account.rules.traffic.use;
                groups[groupId].trafficRecord = account.trafficRecord;
            }
            return true;
        });
}

Result<bool> ReadGroupCredits(GroupAccounts &groups)
{
    return ReadAll(kGroupCredits, CreditIn)
        .map([&groups](const std::vector<StoredCredit> &credits) {
            AddCredits<GroupId>(credits, groups);
            return true;
        });
}

} // namespace

OwnerRules GroupRulesIn(const Row &row, double price)
{
    OwnerRules group;
    group.mode = row.Code<AccountingMode>(1);
    group.traffic.limit = AmountOf(WholeMegabytes {row.Integer(2)});
    const bool isDaily = row.Code<LimitPeriod>(3) == LimitPeriod::Day;
    group.traffic.period = isDaily ? LimitPeriod::Day : LimitPeriod::Month;
    group.price = row.Flag(4) ? row.Amount(5) : price;
    group.block = {row.Flag(6), row.Code<BlockReason>(7)};
    group.ports.allowOnly = row.Flag(8);
    group.times.grant = row.Flag(9);
    return group;
}

Result<AccountRules> ReadAccountRules(const QList<UserId> &users, AccountMoment moment)
{
    Accounts accounts;
    if (users.isEmpty()) {
        return AccountRules();
    }
    if (const auto span = SpanOf(users)) {
        const auto read = ReadAccounts(*span, moment, accounts);
        const QSet<UserId> wanted(users.begin(), users.end());
        accounts.removeIf([&wanted](auto account) { return !wanted.contains(account.key()); });
        return RulesOf(read, accounts);
    }
    Result<bool> read = true;
    for (qsizetype from = 0; read && from < users.size(); from += kIdsAtOnce) {
        read = ReadAccounts(Of(users, from), moment, accounts);
    }
    return RulesOf(read, accounts);
}

Result<AccountRules> ReadAllAccountRules(AccountMoment moment, LimitsRead limits)
{
    Accounts accounts;
    Result<bool> read = ReadLimits(Everybody(), moment, accounts);
    if (read && limits == LimitsRead::Both) {
        read = ReadTimeBesides(moment, accounts);
    }
    if (read && !accounts.isEmpty()) {
        read = ReadCredits(Everybody(), accounts);
    }
    return RulesOf(read, accounts);
}

Result<GroupRules> ReadAllGroupRules(AccountMoment moment)
{
    GroupAccounts groups;
    const auto read = ReadGroups(moment, groups)
                          .and_then([&](bool) { return ReadGroupRecords(moment, groups); })
                          .and_then([&](bool) { return ReadGroupCredits(groups); });
    return RulesOf(read, groups);
}
