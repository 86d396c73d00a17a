#include "daemon/neighbourhood.h"

#include "daemon/kernel_surroundings.h"
#include "gateway/neighbours.h"

namespace {

constexpr size_t kMostAtOnce = 100; // in one transaction

// Those of packets that the neighbour table does not have, and those of the neighbour table.
std::vector<AddressPair> Together(const std::vector<AddressPair> &ofPackets,
                                  const std::vector<Neighbour> &neighbours,
                                  const QStringList &lanInterfaces)
{
    QSet<NetAddress> known;
    for (const Neighbour &each : neighbours) {
        known.insert(each.address);
    }
    std::vector<AddressPair> pairs;
    for (const AddressPair &each : ofPackets) {
        if (!known.contains(each.address)) {
            pairs.push_back(each);
        }
    }
    for (const Neighbour &each : neighbours) {
        if (lanInterfaces.isEmpty() || lanInterfaces.contains(each.interface)) {
            pairs.push_back({each.address, each.hardware});
        }
    }
    return pairs;
}

} // namespace

Neighbourhood::Neighbourhood()
{
    connect(&finder, &WorkstationFinder::Named, this, &Neighbourhood::Named);
}

GatewayResult<void> Neighbourhood::Look(const Reading &reading,
                                        const QStringList &lanInterfaces,
                                        Identification identification,
                                        const AddressBook &book)
{
    const auto neighbours = ReadNeighbours();
    const std::vector<AddressPair> pairs =
        neighbours ? Together(reading.pairs, *neighbours, lanInterfaces) : reading.pairs;
    companions = CompanionsIn(pairs, identification);
    hardware.clear();
    for (const AddressPair &each : pairs) {
        hardware.insert(each.address, each.hardware);
    }
    finder.Look(reading.unknown, book.Present(), hardware);
    return neighbours.map([](const auto &) {});
}

std::vector<Station> Neighbourhood::Take(const Standings &standings, const AddressBook &book)
{
    std::vector<Station> stations = finder.Take(std::chrono::steady_clock::now());
    for (const auto &[address, seen] : hardware.asKeyValueRange()) {
        const Standing *const user = StandingOf(standings, book.Present().value(address));
        if (user != nullptr && user->address == address && user->hardware != seen
            && told.value(address) != seen && stations.size() < kMostAtOnce) {
            told.insert(address, seen);
            stations.push_back({address.Text(), seen.Text(), {}, user->user});
        }
    }
    return stations;
}

void Neighbourhood::PutBack(const std::vector<Station> &stations)
{
    finder.PutBack(stations);
    for (const Station &each : stations) {
        if (const auto address = NetAddress::From(each.ip)) {
            told.remove(*address);
        }
    }
}
