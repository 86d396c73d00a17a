#include "metering/account_rows.h"

#include "base/day.h"
#include "metering/bytes.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// What limits of traffic and of time, of users and of groups, differ in. The rows that are handed in come
// first in each join: one of the engines would begin with an index of few values.
struct LimitTexts
{
    const char *read; // owners, day: owner, limit, period, record, amount, reached, day
    const char *insert; // day, owners with the period
    const char *renew; // records with the day
};

constexpr LimitTexts kUserTraffic {
    "SELECT users.user_id, users.traflim, users.trafperiod, traffic_use.traf_id, traffic_use.data, "
    "traffic_use.blocked, traffic_use.current_time FROM STAGED (?) AS_ROWS s CROSS JOIN users "
    "LEFT JOIN traffic_use ON traffic_use.user_id = users.user_id AND "
    "traffic_use.period = users.trafperiod AND (users.trafperiod = 2 OR "
    "traffic_use.current_time = (?)) WHERE users.user_id = s.k AND users.trafperiod IN (1, 2) "
    "ORDER BY traffic_use.traf_id",
    "INSERT INTO traffic_use (user_id, period, current_time) "
    "SELECT s.k, s.n1, (?) FROM STAGED (?) AS_ROWS s",
    "UPDATE traffic_use SET current_time = date (s.t), data = 0, senddata = 0, blocked = false "
    "FROM STAGED (?) AS_ROWS s WHERE traffic_use.traf_id = s.k"};

constexpr LimitTexts kUserTime {
    "SELECT users.user_id, users.timelim, users.timeperiod, time_use.time_id, time_use.data, "
    "time_use.blocked, time_use.current_time FROM STAGED (?) AS_ROWS s CROSS JOIN users "
    "LEFT JOIN time_use ON time_use.user_id = users.user_id AND "
    "time_use.period = users.timeperiod AND (users.timeperiod = 2 OR "
    "time_use.current_time = (?)) WHERE users.user_id = s.k AND users.timeperiod IN (1, 2) "
    "ORDER BY time_use.time_id",
    "INSERT INTO time_use (user_id, period, current_time) "
    "SELECT s.k, s.n1, (?) FROM STAGED (?) AS_ROWS s",
    "UPDATE time_use SET current_time = date (s.t), data = 0, blocked = false "
    "FROM STAGED (?) AS_ROWS s WHERE time_use.time_id = s.k"};

constexpr LimitTexts kGroupTraffic {
    "SELECT groups.group_id, groups.traflim, CASE WHEN groups.trafperiod = 1 THEN 1 ELSE 2 END, "
    "traffic_use.traf_id, traffic_use.data, traffic_use.blocked, traffic_use.current_time "
    "FROM STAGED (?) AS_ROWS s CROSS JOIN groups LEFT JOIN traffic_use ON "
    "traffic_use.group_id = groups.group_id AND ((groups.trafperiod <> 1 AND "
    "traffic_use.period = 2) OR (groups.trafperiod = 1 AND traffic_use.period = 1 AND "
    "traffic_use.current_time = (?))) WHERE groups.group_id = s.k ORDER BY traffic_use.traf_id",
    "INSERT INTO traffic_use (group_id, period, current_time) "
    "SELECT s.k, s.n1, (?) FROM STAGED (?) AS_ROWS s",
    kUserTraffic.renew};

constexpr const char *kUserCredits =
    "SELECT billing.object_id, billing.bill_id, billing.mode, billing.trafid, billing.time_id, "
    "billing.data, billing.usage, billing.moneydata, billing.moneyusage, billing.unlimited, "
    "billing.expiredday FROM STAGED (?) AS_ROWS s CROSS JOIN billing "
    "WHERE billing.object_id = s.k AND billing.closed = 0 ORDER BY billing.date, billing.bill_id";

constexpr const char *kGroupCredits =
    "SELECT billing.group_id, billing.bill_id, billing.mode, billing.trafid, billing.time_id, "
    "billing.data, billing.usage, billing.moneydata, billing.moneyusage, billing.unlimited, "
    "billing.expiredday FROM STAGED (?) AS_ROWS s CROSS JOIN billing "
    "WHERE billing.group_id = s.k AND billing.closed = 0 ORDER BY billing.date, billing.bill_id";

// The accounts of users or groups by their numbers.
using Accounts = std::map<quint32, Account *>;

struct LimitRow
{
    quint32 owner = 0;
    double limit = 0;
    LimitPeriod period = LimitPeriod::None;
    quint32 record = 0;
    double used = 0;
    bool reached = false;
    QDate countedOn;
};

LimitRow LimitIn(const Row &row)
{
    return {.owner = row.Integer(1),
            .limit = static_cast<double>(row.Integer(2)),
            .period = row.Code<LimitPeriod>(3),
            .record = row.Integer(4),
            .used = row.Amount(5),
            .reached = row.Flag(6),
            .countedOn = DateIn(row.Text(7), u'-')};
}

// As it is stored: of the text that was read the last digits may be missing.
Megabytes Exact(Megabytes amount)
{
    return MegabytesOf(BytesOf(amount));
}

Hours Exact(Hours amount)
{
    return amount;
}

template <typename Unit, typename RecordId>
void Take(const LimitRow &row, LimitRules<Unit> &rules, RecordId &record)
{
    rules.limit = Unit {row.limit};
    rules.period = row.period;
    record = RecordId {row.record};
    if (record.IsSet()) {
        rules.use = CountedUse<Unit> {Exact(Unit {row.used}), row.reached, row.countedOn};
    }
}

// Reads one kind of limit of some accounts and sees to their records.
template <typename Unit, typename RecordId>
class LimitReading
{
public:
    LimitReading(Books &transaction,
                 const LimitTexts &statements,
                 LimitRules<Unit> OwnerRules::*limit,
                 RecordId Account::*recordOfLimit,
                 bool Account::*renewed)
        : books(transaction)
        , texts(statements)
        , rules(limit)
        , record(recordOfLimit)
        , hasBegunAnew(renewed)
    { }

    void Run(const Accounts &accounts, QDate day)
    {
        Read(accounts, day);
        if (const Accounts missing = MakeMissing(accounts, day); !missing.empty()) {
            Read(missing, day);
        }
        RenewMonths(accounts, day);
    }

private:
    // Of several records the last one counts.
    void Read(const Accounts &accounts, QDate day)
    {
        StagedRows owners;
        for (const auto &[owner, account] : accounts) {
            owners.Add(owner);
        }
        if (owners.IsEmpty()) {
            return;
        }
        for (const LimitRow &row : books.Take(ReadAll(texts.read, LimitIn, owners, DayOf(day)))) {
            Account &account = *accounts.at(row.owner);
            Take(row, account.rules.*rules, account.*record);
        }
    }

    Accounts MakeMissing(const Accounts &accounts, QDate day)
    {
        Accounts missing;
        StagedRows rows;
        for (const auto &[owner, account] : accounts) {
            const LimitPeriod period = (account->rules.*rules).period;
            if (period != LimitPeriod::None && !(account->*record).IsSet()) {
                missing.emplace(owner, account);
                rows.Add(owner, {static_cast<double>(UsagePeriodOf(period))});
            }
        }
        if (!rows.IsEmpty()) {
            books.Write(texts.insert, DayOf(day), rows);
        }
        return missing;
    }

    void RenewMonths(const Accounts &accounts, QDate day)
    {
        StagedRows rows;
        for (const auto &[owner, account] : accounts) {
            LimitRules<Unit> &limit = account->rules.*rules;
            if (limit.use && limit.period == LimitPeriod::Month
                && IsOfEarlierMonth(limit.use->countedOn, day)) {
                rows.Add((account->*record).value, {}, {day.toString(Qt::ISODate)});
                limit.use = CountedUse<Unit> {Unit {}, false, day};
                account->*hasBegunAnew = true;
            }
        }
        books.WriteAll(texts.renew, rows);
    }

    Books &books;
    const LimitTexts &texts;
    LimitRules<Unit> OwnerRules::*rules;
    RecordId Account::*record;
    bool Account::*hasBegunAnew;
};

// A row of `billing`.
struct CreditRow
{
    quint32 owner = 0;
    BillId bill;
    BillingMode mode = BillingMode::Credit;
    quint32 trafficRecord = 0;
    quint32 timeRecord = 0;
    double given = 0;
    double used = 0;
    BaseUnits money;
    BaseUnits moneyUsed;
    CreditExpiry expiry;
};

CreditRow CreditIn(const Row &row)
{
    return {.owner = row.Integer(1),
            .bill = row.Id<BillId>(2),
            .mode = row.Code<BillingMode>(3),
            .trafficRecord = row.Integer(4),
            .timeRecord = row.Integer(5),
            .given = row.Amount(6),
            .used = row.Amount(7),
            .money = BaseUnits {row.Amount(8)},
            .moneyUsed = BaseUnits {row.Amount(9)},
            .expiry = {row.Integer(10) != 0, row.Text(11)}};
}

// To which record a credit belongs, and which one is counted into.
struct CreditRecords
{
    quint32 named = 0; // 0: there was none yet
    quint32 present = 0;
    bool hasBegunAnew = false; // what was named is the month before
};

template <typename Unit>
void AddLimitCredit(const CreditRow &credit,
                    const CreditRecords &records,
                    LimitRules<Unit> &rules,
                    LimitCredits &credits)
{
    if (records.present == 0 || (records.named != 0 && records.named != records.present)) {
        return;
    }
    if (records.named != 0 && records.hasBegunAnew) {
        credits.ended.push_back(credit.bill);
        return;
    }
    rules.credits.push_back({Unit {credit.given}, Exact(Unit {credit.used}), credit.expiry});
    credits.open.push_back(credit.bill);
    if (records.named == 0) {
        credits.adopted.push_back(credit.bill);
    }
}

void AddCredit(const CreditRow &credit, Account &account)
{
    OwnerRules &rules = account.rules;
    if (credit.mode == BillingMode::Traffic) {
        AddLimitCredit(
            credit,
            {credit.trafficRecord, account.trafficRecord.value, account.hasNewMonthOfTraffic},
            rules.traffic,
            account.trafficCredits);
    } else if (credit.mode == BillingMode::Time) {
        AddLimitCredit(credit,
                       {credit.timeRecord, account.timeRecord.value, account.hasNewMonthOfTime},
                       rules.time,
                       account.timeCredits);
    } else if (credit.mode == BillingMode::Credit && rules.mode == AccountingMode::Provider) {
        rules.credits.push_back({.money = credit.money,
                                 .moneyUsed = credit.moneyUsed,
                                 .traffic = Megabytes {credit.given},
                                 .trafficUsed = Exact(Megabytes {credit.used}),
                                 .expiry = credit.expiry});
        account.prePaidCredits.push_back(credit.bill);
    }
}

void ReadCredits(Books &books, const char *sqlText, const Accounts &accounts)
{
    StagedRows owners;
    for (const auto &[owner, account] : accounts) {
        owners.Add(owner);
    }
    if (owners.IsEmpty()) {
        return;
    }
    for (const CreditRow &credit : books.Take(ReadAll(sqlText, CreditIn, owners))) {
        AddCredit(credit, *accounts.at(credit.owner));
    }
}

// Those of the owners whose rules are of such a kind.
template <typename Owners>
Accounts Chosen(Owners &owners, const std::function<bool(const OwnerRules &)> &isWanted)
{
    Accounts chosen;
    for (auto &[id, owner] : owners) {
        if (isWanted(owner.account.rules)) {
            chosen.emplace(id.value, &owner.account);
        }
    }
    return chosen;
}

bool HasTrafficLimit(const OwnerRules &rules)
{
    return rules.mode == AccountingMode::Traffic || rules.mode == AccountingMode::TrafficAndTime;
}

bool HasTimeLimit(const OwnerRules &rules)
{
    return rules.mode == AccountingMode::Time || rules.mode == AccountingMode::TrafficAndTime;
}

bool MayHaveCredits(const OwnerRules &rules)
{
    return rules.mode == AccountingMode::Provider || CountsTraffic(rules) || CountsTime(rules);
}

CountedUsers ReadUserRows(Books &books, const std::vector<UserId> &users, const Prices &prices)
{
    StagedRows ids;
    for (const UserId user : users) {
        ids.Add(user.value);
    }
    const auto read = books.Take(ReadAll(
        "SELECT users.user_id, users.group_id, users.mode, users.blocked, users.blockreason, "
        "users.own_price, users.trafprice FROM STAGED (?) AS_ROWS s CROSS JOIN users "
        "WHERE users.user_id = s.k AND users.monitored = true",
        [&prices](const Row &row) {
            CountedUser user;
            user.group = row.Id<GroupId>(2);
            user.account.rules.mode = row.Code<AccountingMode>(3);
            user.account.rules.block = {row.Flag(4), row.Code<BlockReason>(5)};
            user.account.rules.price = row.Flag(6) ? row.Amount(7) : prices.price;
            return std::pair {row.Id<UserId>(1), std::move(user)};
        },
        ids));
    return {read.begin(), read.end()};
}

CountedGroups ReadGroupRows(Books &books, const QSet<GroupId> &groups, const Prices &prices)
{
    StagedRows ids;
    for (const GroupId group : groups) {
        ids.Add(group.value);
    }
    if (ids.IsEmpty()) {
        return {};
    }
    const auto read = books.Take(ReadAll(
        "SELECT groups.group_id, groups.mode, groups.blocked, groups.blockreason, "
        "groups.own_price, groups.trafprice FROM STAGED (?) AS_ROWS s CROSS JOIN groups "
        "WHERE groups.group_id = s.k AND groups.mode IN (1, 2)",
        [&prices](const Row &row) {
            CountedGroup group;
            group.account.rules.mode = row.Code<AccountingMode>(2);
            group.account.rules.block = {row.Flag(3), row.Code<BlockReason>(4)};
            group.account.rules.price = row.Flag(5) ? row.Amount(6) : prices.price;
            return std::pair {row.Id<GroupId>(1), std::move(group)};
        },
        ids));
    return {read.begin(), read.end()};
}

} // namespace

CountedUsers
ReadCountedUsers(Books &books, const std::vector<UserId> &users, QDate day, const Prices &prices)
{
    CountedUsers read = ReadUserRows(books, users, prices);
    LimitReading(books,
                 kUserTraffic,
                 &OwnerRules::traffic,
                 &Account::trafficRecord,
                 &Account::hasNewMonthOfTraffic)
        .Run(Chosen(read, HasTrafficLimit), day);
    LimitReading(
        books, kUserTime, &OwnerRules::time, &Account::timeRecord, &Account::hasNewMonthOfTime)
        .Run(Chosen(read, HasTimeLimit), day);
    ReadCredits(books, kUserCredits, Chosen(read, MayHaveCredits));
    return read;
}

CountedGroups
ReadCountedGroups(Books &books, const QSet<GroupId> &groups, QDate day, const Prices &prices)
{
    CountedGroups read = ReadGroupRows(books, groups, prices);
    LimitReading(books,
                 kGroupTraffic,
                 &OwnerRules::traffic,
                 &Account::trafficRecord,
                 &Account::hasNewMonthOfTraffic)
        .Run(Chosen(read, HasTrafficLimit), day);
    ReadCredits(books, kGroupCredits, Chosen(read, MayHaveCredits));
    return read;
}
