#include "access/protocol_choice.h"

#include "access/stored_protocols.h"

#include <algorithm>

bool ChosenProtocol::IsRestricted() const
{
    return std::ranges::any_of(ports, &ChosenPort::restricted);
}

bool ProtocolChoice::ChangesPorts() const
{
    return std::ranges::any_of(protocols, [](const ChosenProtocol &protocol) {
        return std::ranges::any_of(protocol.ports, [&](const ChosenPort &port) {
            return port.restricted != protocol.selected;
        });
    });
}

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

Result<std::optional<ProtocolChoice>> ReadProtocolChoice(const Owner &owner)
{
    static constexpr OwnerText kRow = {
        "SELECT group_id FROM Port_blocked WHERE user_id = (?) AND port_id = (?)",
        "SELECT user_id FROM Port_blocked WHERE group_id = (?) AND port_id = (?)"};
    return ReadStoredProtocols(owner, kRow);
}
