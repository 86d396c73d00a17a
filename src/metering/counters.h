// The kernel's counters as they were last accounted: the table service_counters.
#pragma once

#include "metering/count.h"

#include <QHash>

#include <utility>

// Under which a counter is known.
struct CounterKey
{
    NetAddress address;
    bool unknown = false;

    bool operator==(const CounterKey &) const = default;
};

[[nodiscard]] size_t qHash(const CounterKey &key, size_t seed = 0); // NOLINT: QHash's name

struct AccountedCounters
{
    UserId owner;
    quint64 received = 0; // bytes
    quint64 sent = 0;
};

using CountersByKey = QHash<CounterKey, AccountedCounters>;

// All of a gateway's counters of this generation.
[[nodiscard]] Result<CountersByKey> ReadCounters(const QString &gatewayId, quint64 generation);

// To be called behind the removal of counters from the kernel's table and before one of the same
// addresses is made anew: it would begin below what was accounted, and count for nothing until it got
// there.
[[nodiscard]] Result<bool> ForgetCounters(const QString &gatewayId,
                                          const std::vector<CounterKey> &keys);

// At the start of the service, when all counts that were kept have been written and `present` has every
// counter of the kernel's table: forgets those that the table has no more, or that began anew.
[[nodiscard]] Result<bool> ReconcileCounters(const Count &present);

class Books;

// Until the transaction ends no other one accounts counters of the gateway: what a session that was given
// up still does at the server is either seen by the next one or not done at all. Of a gateway that nobody has
// claimed nothing is locked.
void LockCounters(Books &books, const QString &gatewayId);

// What is new in counters since they were accounted, in bytes.
struct NewBytes
{
    quint64 received = 0;
    quint64 sent = 0;
};

// Of each of the counters in their order; they are accounted from then on, as the transaction is kept.
[[nodiscard]] std::vector<NewBytes> TakeNewBytes(
    Books &books, const Count &count, const std::vector<const AddressCounters *> &counters);

// Leaves out of counts what has not changed since it was accounted, without a look at the database.
class ChangedCounters
{
public:
    // What the database has of the generation, at the start.
    ChangedCounters(quint64 presentGeneration, CountersByKey accounted)
        : generation(presentGeneration)
        , known(std::move(accounted))
    { }

    // The count without counters that are as they were when last accounted.
    [[nodiscard]] Count In(Count count) const;

    // To be called for a count that was written.
    void Take(const Count &written);

    void Forget(const std::vector<CounterKey> &keys);

private:
    quint64 generation; // of `known`
    CountersByKey known;
};
