#include "access/stored_protocols.h"

#include "db/query.h"

#include <algorithm>

namespace {

Result<std::vector<ChosenProtocol>> ReadProtocols()
{
    return ReadUpTo(ProtocolChoice::kMostProtocols,
                    "SELECT id, Proto_name FROM Protocols ORDER BY Proto_name ASC",
                    [](const Row &row) {
                        return ChosenProtocol {row.Text(2), row.Id<ProtocolId>(1), false, {}};
                    });
}

Result<std::vector<ChosenPort>> ReadPorts(ProtocolId protocolId)
{
    return ReadUpTo(
        ProtocolChoice::kMostPorts,
        "SELECT Port_id FROM Ports WHERE Proto_id = (?)",
        [](const Row &row) {
            return ChosenPort {row.Id<PortId>(1), false};
        },
        protocolId);
}

// The ports of the protocol, each with whether it is restricted.
Result<std::vector<ChosenPort>>
ReadStoredPorts(ProtocolId protocolId, const Owner &owner, const OwnerText &portRow)
{
    auto ports = ReadPorts(protocolId);
    for (size_t i = 0; ports && i < ports->size(); ++i) {
        const auto found = Exists(portRow.For(owner), owner.Number(), (*ports)[i].id);
        if (!found) {
            return tl::unexpected(found.error());
        }
        (*ports)[i].restricted = *found;
    }
    return ports;
}

const ChosenProtocol *Find(const ProtocolChoice &choice, ProtocolId id)
{
    const auto found = std::ranges::find(choice.protocols, id, &ChosenProtocol::id);
    return found == choice.protocols.end() ? nullptr : &*found;
}

// Of two states only: whoever changed one of them made the other of it.
bool Settle(bool base, bool draft, bool now)
{
    return draft != base ? draft : now;
}

} // namespace

Result<std::optional<ProtocolChoice>> ReadStoredProtocols(const Owner &owner,
                                                          const OwnerText &portRow)
{
    static constexpr OwnerText kFlag = {"SELECT PortAccess FROM users WHERE user_id = (?) ",
                                        "SELECT PortAccess FROM groups WHERE group_id = (?)"};
    const auto allow = ReadOne(
        kFlag.For(owner), [](const Row &row) { return row.Flag(1); }, owner.Number());
    if (!allow) {
        return tl::unexpected(allow.error());
    }
    if (!*allow) {
        return std::nullopt;
    }
    auto protocols = ReadProtocols();
    if (!protocols) {
        return tl::unexpected(protocols.error());
    }
    for (ChosenProtocol &protocol : *protocols) {
        auto ports = ReadStoredPorts(protocol.id, owner, portRow);
        if (!ports) {
            return tl::unexpected(ports.error());
        }
        protocol.ports = *std::move(ports);
        protocol.selected = protocol.IsRestricted();
    }
    return ProtocolChoice {**allow, **allow, *std::move(protocols)};
}

Result<std::optional<ProtocolChoice>> ReadProtocolsToStore(const Owner &owner)
{
    static constexpr OwnerText kRow = {
        "SELECT group_id FROM Port_blocked WHERE user_id = (?) AND port_id = (?)",
        "SELECT user_id FROM Port_blocked WHERE Group_id = (?) AND port_id = (?)"};
    return ReadStoredProtocols(owner, kRow);
}

ProtocolChoice SettleProtocols(const ProtocolChoice &sheet, const ProtocolChoice &now)
{
    ProtocolChoice settled;
    settled.storedAllow = now.storedAllow;
    settled.allow = Settle(sheet.storedAllow, sheet.allow, now.storedAllow);
    for (const ChosenProtocol &protocol : sheet.protocols) {
        const ChosenProtocol *stored = Find(now, protocol.id);
        if (stored != nullptr) {
            ChosenProtocol kept = *stored;
            kept.selected = Settle(protocol.IsRestricted(), protocol.selected, stored->selected);
            settled.protocols.push_back(std::move(kept));
        }
    }
    return settled;
}

void WriteProtocols(ActionRun &run, const Owner &owner, const ProtocolChoice &choice)
{
    static constexpr OwnerText kAllow = {
        "UPDATE users SET PortAccess = true WHERE user_id = (?)",
        "UPDATE Groups SET PortAccess = true WHERE Group_id = (?)"};
    static constexpr OwnerText kDisallow = {
        "UPDATE users SET PortAccess = false WHERE user_id = (?)",
        "UPDATE Groups SET PortAccess = false WHERE Group_id = (?)"};
    static constexpr OwnerText kDelete = {
        "DELETE FROM Port_blocked WHERE user_id=(?) AND port_id=(?)",
        "DELETE FROM Port_blocked WHERE Group_id=(?) AND port_id=(?)"};
    static constexpr OwnerText kInsert = {
        "INSERT INTO Port_blocked (user_id, port_id) VALUES ((?), (?))",
        "INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))"};
    run.Write((choice.allow ? kAllow : kDisallow).For(owner), owner.Number());
    for (const ChosenProtocol &protocol : choice.protocols) {
        for (const ChosenPort &port : protocol.ports) {
            if (!protocol.selected) {
                run.Write(kDelete.For(owner), owner.Number(), port.id);
            } else if (!port.restricted) {
                run.Write(kInsert.For(owner), owner.Number(), port.id);
            }
        }
    }
}
