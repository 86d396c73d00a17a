#include "gateway/neighbours.h"

#include <algorithm>
#include <cstring>
#include <linux/neighbour.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <map>
#include <net/if.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 kUsable = NUD_PERMANENT | NUD_REACHABLE | NUD_STALE | NUD_DELAY | NUD_PROBE;
constexpr size_t kHardwareSize = 6;

std::optional<NetAddress> AddressFrom(NetlinkView bytes)
{
    NetAddress::Bytes whole {};
    if (bytes.size() == 4) {
        whole[10] = whole[11] = 0xFF;
        std::ranges::copy(bytes, whole.begin() + 12);
        return NetAddress(whole);
    }
    if (bytes.size() != whole.size()) {
        return std::nullopt;
    }
    std::ranges::copy(bytes, whole.begin());
    return NetAddress(whole);
}

QString NameOf(quint32 number)
{
    char name[IF_NAMESIZE] = {};
    return if_indextoname(number, name) != nullptr ? QString::fromUtf8(name) : QString();
}

} // namespace

std::optional<NeighbourEntry> NeighbourEntryFrom(const NetlinkMessage &message)
{
    ndmsg header;
    const auto attributes = message.Attributes(sizeof header);
    if (!attributes) {
        return std::nullopt;
    }
    std::memcpy(&header, message.body.data(), sizeof header);
    const auto hardware = attributes->Bytes(NDA_LLADDR);
    const bool isFamily = header.ndm_family == AF_INET || header.ndm_family == AF_INET6;
    if (!isFamily || (header.ndm_state & kUsable) == 0 || !hardware
        || hardware->size() != kHardwareSize) {
        return NeighbourEntry {};
    }
    const auto bytes = attributes->Bytes(NDA_DST);
    const auto address = bytes ? AddressFrom(*bytes) : std::nullopt;
    if (!address) {
        return std::nullopt;
    }
    NeighbourEntry entry {.neighbour =
                              Neighbour {.address = *address, .hardware = {}, .interface = {}},
                          .interfaceNumber = static_cast<quint32>(header.ndm_ifindex)};
    std::ranges::copy(*hardware, entry.neighbour->hardware.bytes.begin());
    return entry;
}

GatewayResult<std::vector<Neighbour>> ReadNeighbours()
{
    GatewayResult<NetlinkSocket> socket = NetlinkSocket::Open(NETLINK_ROUTE);
    if (!socket) {
        return tl::unexpected(socket.error());
    }
    const ndmsg all {};
    NetlinkWriter request;
    request.BeginWith(
        RTM_GETNEIGH, NLM_F_DUMP, {reinterpret_cast<const quint8 *>(&all), sizeof all});
    request.End();
    std::vector<Neighbour> neighbours;
    std::map<quint32, QString> names;
    const auto take = [&](const NetlinkMessage &message) {
        std::optional<NeighbourEntry> entry = NeighbourEntryFrom(message);
        if (entry && entry->neighbour) {
            const auto [name, isNew] = names.try_emplace(entry->interfaceNumber);
            if (isNew) {
                name->second = NameOf(entry->interfaceNumber);
            }
            entry->neighbour->interface = name->second;
            neighbours.push_back(std::move(*entry->neighbour));
        }
        return entry.has_value();
    };
    return socket
        ->Dump(
            request, [&] { neighbours.clear(); }, take, u"Reading the neighbour table"_s)
        .map([&] {
            std::ranges::sort(neighbours, {}, &Neighbour::address);
            return std::move(neighbours);
        });
}
