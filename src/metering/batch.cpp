#include "metering/batch.h"

#include "metering/account_changes.h"
#include "metering/account_rows.h"
#include "metering/batch_size.h"
#include "metering/bytes.h"
#include "metering/counters.h"
#include "metering/day_records.h"

#include <algorithm>
#include <iterator>
#include <thread>

namespace {

constexpr double kSecondsOfHour = 3600;

BlockReason ReasonOf(const StoredBlock &block)
{
    return block.blocked ? block.reason : BlockReason::None;
}

bool IsForUse(BlockReason reason)
{
    return reason == BlockReason::TrafficUsedUp || reason == BlockReason::TimeUsedUp;
}

// One batch of users in its transaction.
class Batch
{
public:
    Batch(Books &transaction, const Accounting &whole, Counted &result)
        : books(transaction)
        , accounting(whole)
        , count(whole.count)
        , counted(result)
        , day(whole.day)
    { }

    void Run(Parts::const_iterator begin, Parts::const_iterator end, const QSet<GroupId> &settled)
    {
        TakeNew(begin, end);
        if (fresh.empty() && settled.isEmpty()) {
            return;
        }
        std::vector<UserId> ids;
        std::ranges::transform(
            fresh, std::back_inserter(ids), [](const auto &each) { return each.first; });
        users = ReadCountedUsers(books, ids, day, accounting.prices);
        std::erase_if(fresh, [this](const auto &each) { return !users.contains(each.first); });
        AddDay();
        ReadGroups(settled);
        for (auto &[id, user] : users) {
            ChargeUser(id, user);
        }
        for (auto &[id, group] : groups) {
            ChargeGroup(id, group);
        }
        changes.Write(books, day);
    }

private:
    struct New
    {
        NewBytes bytes;
        double hours = 0;
    };

    // Who has new bytes, or is settled anyway.
    void TakeNew(Parts::const_iterator begin, Parts::const_iterator end)
    {
        std::vector<const AddressCounters *> all;
        for (auto part = begin; part != end; ++part) {
            all.insert(all.end(), part->second.counters.begin(), part->second.counters.end());
        }
        const auto bytes = all.empty() ? std::vector<NewBytes>() : TakeNewBytes(books, count, all);
        size_t place = 0;
        for (auto part = begin; part != end; ++part) {
            New sum;
            for (size_t i = 0; i < part->second.counters.size(); ++i) {
                sum.bytes.received += bytes[place].received;
                sum.bytes.sent += bytes[place].sent;
                ++place;
            }
            const bool isNew = sum.bytes.received > 0 || sum.bytes.sent > 0;
            sum.hours = isNew ? part->second.seconds / kSecondsOfHour : 0;
            if (isNew || part->second.isSettled) {
                fresh.emplace(part->first, sum);
            }
        }
    }

    void AddDay()
    {
        std::vector<DayUse> uses;
        for (const auto &[user, sum] : fresh) {
            uses.push_back({user, sum.bytes.received, sum.bytes.sent, sum.hours});
            counted.received += sum.bytes.received;
            counted.sent += sum.bytes.sent;
            counted.users += sum.bytes.received > 0 || sum.bytes.sent > 0 ? 1 : 0;
        }
        AddToDay(books, uses, day);
    }

    void ReadGroups(const QSet<GroupId> &settled)
    {
        QSet<GroupId> wanted = settled;
        for (const auto &[id, user] : users) {
            wanted.insert(user.group);
        }
        groups = ReadCountedGroups(books, wanted, day, accounting.prices);
        for (const auto &[id, user] : users) {
            const auto group = groups.find(user.group);
            if (group == groups.end()) {
                continue;
            }
            const bool isMember = group->second.account.rules.mode == AccountingMode::Traffic
                || user.account.rules.mode == AccountingMode::NoControl;
            if (isMember) {
                groupUse[user.group].received += fresh.at(id).bytes.received;
                groupUse[user.group].sent += fresh.at(id).bytes.sent;
            }
        }
    }

    void ChargeUser(UserId id, CountedUser &user)
    {
        const auto &[bytes, hours] = fresh.at(id);
        Account &account = user.account;
        ChargeBytes(account, bytes);
        if (CountsTime(account.rules) && account.rules.time.use) {
            changes.AddTime(account, ChargeTime(account, Hours {hours}, day));
        }
        if (count.usedUp.contains(id)) {
            End(account);
        }
        NoteReached(account);
        SettleBlock(id, account);
    }

    void ChargeBytes(Account &account, const NewBytes &bytes)
    {
        const Megabytes received = MegabytesOf(bytes.received);
        if (account.rules.mode == AccountingMode::Provider) {
            changes.AddPrePaid(ChargePrePaid(account, received, day));
        } else if (CountsTraffic(account.rules) && account.rules.traffic.use) {
            changes.AddTraffic(account, ChargeTraffic(account, received, day), bytes.sent);
        }
    }

    void End(Account &account)
    {
        std::vector<BillId> closed;
        if (EndTraffic(account, day, closed)) {
            changes.Close(closed);
        }
    }

    // What has nothing left is noted in the record of the limit.
    void NoteReached(Account &account)
    {
        const AccessFindings findings = AccountFindings(account.rules, day);
        for (const Fact &fact : findings.facts) {
            if (fact.effect != FactEffect::Refuses) {
                continue;
            }
            if (fact.kind == FactKind::TrafficLimit && account.rules.traffic.use) {
                changes.NoteReached(account.trafficRecord);
            } else if (fact.kind == FactKind::TimeLimit && account.rules.time.use) {
                changes.NoteReached(account.timeRecord);
            }
        }
    }

    void SettleBlock(UserId id, const Account &account)
    {
        const BlockReason reason = UsedUp(account.rules, day);
        const BlockReason stored = ReasonOf(account.rules.block);
        if (IsForUse(reason) && !account.rules.block.blocked) {
            changes.Block(id, reason);
            (reason == BlockReason::TimeUsedUp ? counted.timeUsedUp : counted.trafficUsedUp)
                .append(id);
        } else if (!IsForUse(reason) && IsForUse(stored)) {
            changes.Lift(id);
            counted.lifted.append(id);
        }
    }

    void ChargeGroup(GroupId id, CountedGroup &group)
    {
        Account &account = group.account;
        ChargeBytes(account, groupUse[id]);
        if (count.usedUpGroups.contains(id)) {
            End(account);
        }
        NoteReached(account);
        const bool limits = account.rules.mode == AccountingMode::Traffic;
        const bool isUsedUp = limits && IsForUse(UsedUp(account.rules, day));
        if (isUsedUp && !account.rules.block.blocked) {
            changes.Block(id);
            counted.groupsUsedUp.append(id);
        } else if (!isUsedUp && IsForUse(ReasonOf(account.rules.block))) {
            changes.Lift(id);
            counted.groupsLifted.append(id);
        }
    }

    Books &books;
    const Accounting &accounting;
    const Count &count;
    Counted &counted;
    const QDate day;
    std::map<UserId, New> fresh;
    CountedUsers users;
    CountedGroups groups;
    std::map<GroupId, NewBytes> groupUse;
    AccountChanges changes;
};

// How long it took, without the turn of others behind it, decides how large the next batch is.
Result<Counted> WriteBatch(Parts::const_iterator begin,
                           Parts::const_iterator end,
                           const Accounting &accounting,
                           const QSet<GroupId> &groups,
                           BatchSize &size)
{
    Counted counted;
    const BatchSize::Measure measure(size);
    return books::InTransaction([&](Books &books) {
               counted = {};
               LockCounters(books, accounting.count.gatewayId);
               Batch(books, accounting, counted).Run(begin, end, groups);
           })
        .map([&counted](bool) { return std::move(counted); });
}

// No user is in two batches; a group may be settled in several.
void Add(Counted &whole, Counted &&batch)
{
    whole.received += batch.received;
    whole.sent += batch.sent;
    whole.users += batch.users;
    whole.trafficUsedUp += batch.trafficUsedUp;
    whole.timeUsedUp += batch.timeUsedUp;
    whole.groupsUsedUp += batch.groupsUsedUp;
    whole.lifted += batch.lifted;
    whole.groupsLifted += batch.groupsLifted;
}

} // namespace

Result<Counted> WriteParts(const Parts &parts, const Accounting &accounting)
{
    Counted counted;
    QSet<GroupId> groups = accounting.groups; // with the first batch
    BatchSize size(transaction::ShutsOutWriters());
    for (auto begin = parts.begin(); begin != parts.end() || !groups.isEmpty();) {
        auto end = begin;
        for (size_t taken = 0; taken < size.Now() && end != parts.end(); ++taken) {
            ++end;
        }
        auto batch = WriteBatch(begin, end, accounting, groups, size);
        if (!batch) {
            return batch;
        }
        Add(counted, *std::move(batch));
        groups.clear();
        begin = end;
        if (size.ShutsOutWriters() && begin != parts.end()) {
            std::this_thread::sleep_for(BatchSize::kTurnOfOthers);
        }
    }
    return counted;
}
