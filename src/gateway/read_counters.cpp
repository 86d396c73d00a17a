#include "gateway/read_counters.h"

#include "gateway/table_reader.h"

#include <algorithm>

namespace {

// One counter of each address, the other one from a second list: an address may be in either alone.
template <typename Line>
void AddCounter(std::map<NetAddress, Line> &lines, const ReadElements &read, quint64 Line::*counter)
{
    for (const ReadElement &element : read) {
        Line &line = lines[element.element.address];
        line.address = element.element.address;
        line.*counter += element.bytes;
    }
}

template <typename Line>
std::vector<Line> InOrder(std::map<NetAddress, Line> &&lines)
{
    std::vector<Line> list;
    list.reserve(lines.size());
    for (auto &[address, line] : lines) {
        list.push_back(std::move(line));
    }
    return list;
}

// Reads one set after the other until one cannot be read.
class Sets
{
public:
    explicit Sets(NetlinkSocket &from) : socket(from) { }

    [[nodiscard]] ReadElements Read(SetId set)
    {
        GatewayResult<ReadElements> read =
            failure ? tl::unexpected(*failure) : ReadSet(socket, set);
        if (!read) {
            failure = read.error();
            return {};
        }
        return std::move(*read);
    }

    std::optional<GatewayFailure> failure;

private:
    NetlinkSocket &socket;
};

// Both are sorted and have the same addresses, unless another program has removed some: those are
// left out, and missed by whoever knows them.
std::vector<AddressReading> Clients(const ReadElements &received, const ReadElements &sent)
{
    std::vector<AddressReading> clients;
    clients.reserve(received.size());
    auto other = sent.begin();
    for (const ReadElement &element : received) {
        while (other != sent.end() && other->element < element.element) {
            ++other;
        }
        if (other != sent.end() && other->element == element.element) {
            clients.push_back({element.element.address, element.bytes, other->bytes});
        }
    }
    return clients;
}

void AddHardware(std::map<NetAddress, UnknownReading> &unknown,
                 const std::vector<AddressPair> &pairs)
{
    for (const AddressPair &pair : pairs) {
        const auto found = unknown.find(pair.address);
        if (found != unknown.end()) {
            found->second.hardware = pair.hardware;
        }
    }
}

void AddUsedUp(Reading &reading, const Quotas &quotas)
{
    for (const auto &[id, quota] : quotas) {
        if (quota.depleted) {
            (id.kind == QuotaId::Kind::User ? reading.usedUpClients : reading.usedUpGroups)
                .push_back(id.id);
        }
    }
}

} // namespace

GatewayResult<Reading> ReadCounters(NetlinkSocket &socket, quint64 generation)
{
    Sets sets(socket);
    Reading reading;
    reading.generation = generation;
    reading.at = std::chrono::steady_clock::now();
    reading.clients = Clients(sets.Read(SetId::Received), sets.Read(SetId::Sent));
    std::map<NetAddress, UnknownReading> unknown;
    AddCounter(unknown, sets.Read(SetId::SeenSent), &UnknownReading::sent);
    AddCounter(unknown, sets.Read(SetId::SeenReceived), &UnknownReading::received);
    AddCounter(unknown, sets.Read(SetId::SeenRefused), &UnknownReading::sent);
    for (const ReadElement &element : sets.Read(SetId::Pairs)) {
        reading.pairs.push_back({element.element.address, HardwareFrom(element.element.detail)});
    }
    if (sets.failure) {
        return tl::unexpected(*sets.failure);
    }
    AddHardware(unknown, reading.pairs);
    reading.unknown = InOrder(std::move(unknown));
    return ReadQuotas(socket).map([&](const Quotas &quotas) {
        AddUsedUp(reading, quotas);
        return std::move(reading);
    });
}
