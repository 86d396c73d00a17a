#include "daemon/address_book.h"

#include <algorithm>
#include <iterator>
#include <utility>

void AddressBook::Begin(const CountersByKey &counters)
{
    for (const auto &[key, counter] : counters.asKeyValueRange()) {
        if (!key.unknown) {
            accounted.insert(key.address, counter.received);
            owners.insert(key.address, counter.owner);
        }
    }
}

void AddressBook::BeginAnew(const Owners &newOwners)
{
    *this = {};
    owners = newOwners;
}

void AddressBook::Complete(const Owners &wanted)
{
    for (const auto &[address, owner] : wanted.asKeyValueRange()) {
        if (!owners.contains(address)) {
            owners.insert(address, owner);
        }
    }
}

bool AddressBook::Take(const Owners &newOwners)
{
    if (owners == newOwners) {
        return false;
    }
    for (const auto &[address, owner] : owners.asKeyValueRange()) {
        if (!newOwners.contains(address)) {
            retired.insert(address, owner);
        }
    }
    owners = newOwners;
    retired.removeIf([this](auto entry) { return owners.contains(entry.key()); });
    return true;
}

UserId AddressBook::OwnerOf(const NetAddress &address) const
{
    const auto present = owners.constFind(address);
    return present != owners.constEnd() ? *present : retired.value(address);
}

std::vector<NetAddress> AddressBook::Retired() const
{
    return {retired.keyBegin(), retired.keyEnd()};
}

void AddressBook::NoteAccounted(const Count &count)
{
    for (const AddressCounters &each : count.counters) {
        if (each.unknown) {
            doneUnknown.push_back(each.address);
        } else {
            accounted.insert(each.address, each.received);
        }
    }
}

AddressBook::Outdated AddressBook::OutdatedOf(const std::vector<NetAddress> &done) const
{
    Outdated outdated {.retired = {}, .unknown = doneUnknown};
    std::ranges::copy_if(done,
                         std::back_inserter(outdated.retired),
                         [this](const NetAddress &address) { return retired.contains(address); });
    return outdated;
}

void AddressBook::Forget(const Outdated &gone)
{
    for (const NetAddress &address : gone.retired) {
        retired.remove(address);
        accounted.remove(address);
        forgotten.push_back({address, false});
    }
    for (const NetAddress &address : gone.unknown) {
        forgotten.push_back({address, true});
    }
    doneUnknown.clear();
}

void AddressBook::Drop(const std::vector<CounterKey> &dropped)
{
    std::erase_if(forgotten, [&dropped](const CounterKey &key) {
        return std::ranges::find(dropped, key) != dropped.end();
    });
}
