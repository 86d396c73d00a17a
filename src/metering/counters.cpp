#include "metering/counters.h"

#include "metering/books.h"

#include <cmath>
#include <string>

namespace {

constexpr size_t kForgottenAtOnce = 200; // in one transaction

// A counter reads up to 15 digits as they are: a petabyte.
quint64 BytesIn(const Row &row, int column)
{
    return static_cast<quint64>(std::max(std::round(row.Amount(column)), 0.0));
}

QString GenerationText(quint64 generation)
{
    return QString::number(generation);
}

CounterKey KeyOf(const AddressCounters &counters)
{
    return {counters.address, counters.unknown};
}

struct LastBytes
{
    bool isStored = false;
    NewBytes bytes; // nothing of another generation
};

// The outer join keeps every engine from going through all counters for each row that is handed in, as one
// does whose statistics know nothing of a gateway yet.
std::vector<LastBytes>
ReadLast(Books &books, const Count &count, const std::vector<const AddressCounters *> &counters)
{
    StagedRows keys;
    for (size_t i = 0; i < counters.size(); ++i) {
        keys.Add(static_cast<quint32>(i),
                 {counters[i]->unknown ? 1.0 : 0.0},
                 {counters[i]->address.Text()});
    }
    struct Stored
    {
        quint32 index;
        LastBytes last;
    };
    const QString generation = GenerationText(count.generation);
    const auto stored = books.Take(ReadAll(
        "SELECT s.k, service_counters.generation, service_counters.received, "
        "service_counters.sent FROM STAGED (?) AS_ROWS s LEFT JOIN service_counters ON "
        "service_counters.gateway = (?) and service_counters.address = s.t and "
        "service_counters.unknown = s.n1",
        [&generation](const Row &row) {
            const bool goesOn = row.Text(2) == generation;
            return Stored {row.Integer(1),
                           {!row.IsEmpty(2),
                            goesOn ? NewBytes {BytesIn(row, 3), BytesIn(row, 4)} : NewBytes {}}};
        },
        keys,
        count.gatewayId));
    std::vector<LastBytes> last(counters.size());
    for (const Stored &each : stored) {
        last[each.index] = each.last;
    }
    return last;
}

} // namespace

size_t qHash(const CounterKey &key, size_t seed)
{
    return qHashMulti(seed, key.address, key.unknown);
}

void LockCounters(Books &books, const QString &gatewayId)
{
    const std::string text =
        transaction::Locking("SELECT instance FROM service_gateways WHERE gateway = (?)");
    static_cast<void>(books.Take(Exists(text.c_str(), gatewayId)));
}

std::vector<NewBytes>
TakeNewBytes(Books &books, const Count &count, const std::vector<const AddressCounters *> &counters)
{
    std::vector<NewBytes> fresh(counters.size());
    const std::vector<LastBytes> last = ReadLast(books, count, counters);
    const QString generation = GenerationText(count.generation);
    StagedRows changed;
    StagedRows added;
    for (size_t i = 0; i < counters.size(); ++i) {
        const AddressCounters &now = *counters[i];
        const auto &[received, sent] = last[i].bytes;
        fresh[i] = {now.received - std::min(received, now.received),
                    now.sent - std::min(sent, now.sent)};
        if (fresh[i].received > 0 || fresh[i].sent > 0) {
            (last[i].isStored ? changed : added)
                .Add(now.owner.value,
                     {now.unknown ? 1.0 : 0.0,
                      static_cast<double>(std::max(received, now.received)),
                      static_cast<double>(std::max(sent, now.sent))},
                     {now.address.Text(), generation, count.gatewayId});
        }
    }
    books.WriteAll("UPDATE service_counters SET user_id = s.k, generation = s.u, "
                   "received = s.n2, sent = s.n3 FROM STAGED (?) AS_ROWS s WHERE "
                   "service_counters.gateway = s.v and service_counters.address = s.t and "
                   "service_counters.unknown = s.n1",
                   changed);
    books.WriteAll("INSERT INTO service_counters (gateway, address, unknown, user_id, generation, "
                   "received, sent) SELECT s.v, s.t, s.n1, s.k, s.u, s.n2, s.n3 "
                   "FROM STAGED (?) AS_ROWS s",
                   added);
    return fresh;
}

Result<CountersByKey> ReadCounters(const QString &gatewayId, quint64 generation)
{
    struct Stored
    {
        std::optional<NetAddress> address;
        bool unknown;
        AccountedCounters accounted;
    };
    return ReadAll(
               "SELECT address, unknown, user_id, received, sent FROM service_counters "
               "WHERE gateway = (?) and generation = (?)",
               [](const Row &row) {
                   return Stored {NetAddress::From(row.Text(1)),
                                  row.Flag(2),
                                  {row.Id<UserId>(3), BytesIn(row, 4), BytesIn(row, 5)}};
               },
               gatewayId,
               GenerationText(generation))
        .map([](const std::vector<Stored> &rows) {
            CountersByKey counters;
            counters.reserve(static_cast<qsizetype>(rows.size()));
            for (const auto &[address, unknown, accounted] : rows) {
                if (address) { // under any other text the kernel counts nothing
                    counters.insert({*address, unknown}, accounted);
                }
            }
            return counters;
        });
}

Result<bool> ForgetCounters(const QString &gatewayId, const std::vector<CounterKey> &keys)
{
    Result<bool> forgotten = true;
    for (size_t from = 0; forgotten && from < keys.size(); from += kForgottenAtOnce) {
        const size_t end = std::min(from + kForgottenAtOnce, keys.size());
        forgotten = books::InTransaction([&](Books &books) {
            for (size_t i = from; i < end; ++i) {
                books.Write("DELETE FROM service_counters WHERE gateway = (?) and address = (?) "
                            "and unknown = (?)",
                            gatewayId,
                            keys[i].address.Text(),
                            keys[i].unknown ? 1U : 0U);
            }
        });
    }
    return forgotten;
}

Result<bool> ReconcileCounters(const Count &present)
{
    QHash<CounterKey, NewBytes> counted;
    for (const AddressCounters &each : present.counters) {
        counted.insert(KeyOf(each), {each.received, each.sent});
    }
    return ReadCounters(present.gatewayId, present.generation)
        .and_then([&](const CountersByKey &accounted) {
            std::vector<CounterKey> gone;
            for (auto each = accounted.begin(); each != accounted.end(); ++each) {
                const auto now = counted.constFind(each.key());
                if (now == counted.constEnd() || now->received < each->received
                    || now->sent < each->sent) {
                    gone.push_back(each.key());
                }
            }
            return gone.empty() ? Result<bool>(true) : ForgetCounters(present.gatewayId, gone);
        });
}

Count ChangedCounters::In(Count count) const
{
    if (count.generation == generation) {
        std::erase_if(count.counters, [this](const AddressCounters &each) {
            const auto last = known.constFind(KeyOf(each));
            return last != known.constEnd() && last->received == each.received
                && last->sent == each.sent;
        });
        count.counters.shrink_to_fit(); // few are left, and are kept until they are written
    }
    return count;
}

void ChangedCounters::Take(const Count &written)
{
    if (std::exchange(generation, written.generation) != written.generation) {
        known.clear();
    }
    for (const AddressCounters &each : written.counters) {
        if (each.owner.IsSet()) {
            known.insert(KeyOf(each), {each.owner, each.received, each.sent});
        }
    }
}

void ChangedCounters::Forget(const std::vector<CounterKey> &keys)
{
    for (const CounterKey &key : keys) {
        known.remove(key);
    }
}
