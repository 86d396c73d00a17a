#include "access/protocol_choice.h"

#include "db/session.h"

#include <algorithm>

namespace {

std::vector<ChosenProtocol> ReadProtocols()
{
    std::vector<ChosenProtocol> protocols;
    LimitRows(ProtocolChoice::kMostProtocols);
    RowCursor rows("SELECT id, Proto_name FROM Protocols ORDER BY Proto_name ASC");
    while (protocols.size() < ProtocolChoice::kMostProtocols && rows.Next()) {
        protocols.push_back({queryResult.Text(2), queryResult.Id<ProtocolId>(1), false, {}});
    }
    return protocols;
}

std::vector<PortId> ReadPorts(ProtocolId protocolId)
{
    std::vector<PortId> ports;
    LimitRows(ProtocolChoice::kMostPorts);
    RowCursor rows("SELECT Port_id FROM Ports WHERE Proto_id = (?)", protocolId);
    while (ports.size() < ProtocolChoice::kMostPorts && rows.Next()) {
        ports.push_back(queryResult.Id<PortId>(1));
    }
    return ports;
}

bool IsRestricted(const OwnerText &question, const Owner &owner, PortId port)
{
    return RunQuery(question.For(owner), FetchMode::One, owner.Number(), port) != kQueryNoData;
}

constexpr OwnerText kReadFlag = {"SELECT PortAccess FROM users WHERE user_id = (?) ",
                                 "SELECT PortAccess FROM groups WHERE group_id = (?)"};
constexpr OwnerText kReadRow = {
    "SELECT group_id FROM Port_blocked WHERE user_id = (?) AND port_id = (?)",
    "SELECT user_id FROM Port_blocked WHERE group_id = (?) AND port_id = (?)"};
constexpr OwnerText kAllow = {"UPDATE users SET PortAccess = true WHERE user_id = (?)",
                              "UPDATE Groups SET PortAccess = true WHERE Group_id = (?)"};
constexpr OwnerText kDisallow = {"UPDATE users SET PortAccess = false WHERE user_id = (?)",
                                 "UPDATE Groups SET PortAccess = false WHERE Group_id = (?)"};
constexpr OwnerText kDelete = {"DELETE FROM Port_blocked WHERE user_id=(?) AND port_id=(?)",
                               "DELETE FROM Port_blocked WHERE Group_id=(?) AND port_id=(?)"};
constexpr OwnerText kFindRow = {
    "SELECT group_id FROM Port_blocked WHERE user_id = (?) AND port_id = (?)",
    "SELECT user_id FROM Port_blocked WHERE Group_id = (?) AND port_id = (?)"};
constexpr OwnerText kInsert = {"INSERT INTO Port_blocked (user_id, port_id) VALUES ((?), (?))",
                               "INSERT INTO Port_blocked (Group_id, port_id) VALUES ((?), (?))"};

} // namespace

QStringList ProtocolChoice::Names(bool selected) const
{
    QStringList names;
    for (const ChosenProtocol &protocol : protocols) {
        if (protocol.selected == selected) {
            names << protocol.name;
        }
    }
    return names;
}

void ProtocolChoice::Select(const QString &name, bool selected)
{
    const auto found = std::ranges::find(protocols, name, &ChosenProtocol::name);
    if (found != protocols.end()) {
        found->selected = selected;
    }
}

ProtocolChoice ReadProtocolChoice(const Owner &owner)
{
    ProtocolChoice choice;
    RunQuery(kReadFlag.For(owner), FetchMode::All, owner.Number());
    choice.allow = queryResult.Flag(1);
    choice.protocols = ReadProtocols();
    for (ChosenProtocol &protocol : choice.protocols) {
        protocol.ports = ReadPorts(protocol.id);
        for (const PortId port : protocol.ports) {
            const bool restricted = IsRestricted(kReadRow, owner, port);
            protocol.selected = protocol.selected || restricted;
        }
    }
    return choice;
}

void SaveProtocolChoice(const Owner &owner, const ProtocolChoice &choice)
{
    Execute((choice.allow ? kAllow : kDisallow).For(owner), owner.Number());
    for (const ChosenProtocol &protocol : choice.protocols) {
        for (const PortId port : protocol.ports) {
            if (!protocol.selected) {
                Execute(kDelete.For(owner), owner.Number(), port);
            } else if (!IsRestricted(kFindRow, owner, port)) {
                Execute(kInsert.For(owner), owner.Number(), port);
            }
        }
    }
}
