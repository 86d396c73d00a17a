// Whose bytes each address of the kernel's table counts, and how far they are in the accounts.
#pragma once

#include "base/net_address.h"
#include "metering/counters.h"

#include <QHash>

#include <vector>

class AddressBook
{
public:
    using Owners = QHash<NetAddress, UserId>;

    // With the counters of a generation as the database has them.
    void Begin(const CountersByKey &counters);

    // All counters began at nothing.
    void BeginAnew(const Owners &newOwners);

    // Those who have no owner yet get theirs; of the others what was counted is the present one's.
    void Complete(const Owners &wanted);

    // Who has the addresses from now on: one that is nobody's any more is retired. False when nothing
    // has changed.
    bool Take(const Owners &newOwners);

    // Also of a retired address; not set: nobody's.
    [[nodiscard]] UserId OwnerOf(const NetAddress &address) const;
    [[nodiscard]] const Owners &Present() const { return owners; }
    [[nodiscard]] std::vector<NetAddress> Retired() const;

    // Received bytes that are in the accounts.
    [[nodiscard]] const QHash<NetAddress, quint64> &Accounted() const { return accounted; }
    void NoteAccounted(const Count &count);

    // What the kernel need not keep: those of `done` that are retired still, and unknown addresses that
    // were accounted as somebody's.
    struct Outdated
    {
        std::vector<NetAddress> retired;
        std::vector<NetAddress> unknown;
    };
    [[nodiscard]] Outdated OutdatedOf(const std::vector<NetAddress> &done) const;

    // They are gone from the kernel; the database has them still.
    void Forget(const Outdated &gone);
    [[nodiscard]] const std::vector<CounterKey> &Forgotten() const { return forgotten; }

    // The database has forgotten them, too.
    void Drop(const std::vector<CounterKey> &dropped);

private:
    Owners owners;
    Owners retired; // whose bytes they counted; nobody's now
    QHash<NetAddress, quint64> accounted;
    std::vector<NetAddress> doneUnknown;
    std::vector<CounterKey> forgotten;
};
