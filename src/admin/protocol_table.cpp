#include "admin/protocol_table.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ProtocolTable)
};

} // namespace

QString TextOf(ProtocolProblem problem)
{
    switch (problem) {
    case ProtocolProblem::NameMissing:
        return Words::tr("Enter protocol title please");
    case ProtocolProblem::ProtocolListed:
        return Words::tr("This protocol is already in the list!");
    case ProtocolProblem::PortListed:
        return Words::tr("This port is already in list!");
    case ProtocolProblem::PortOutOfRange:
        return Words::tr("Enter a port number between 1 and %1 please").arg(kHighestPort);
    case ProtocolProblem::TooManyProtocols:
        return Words::tr("You can not add more than %1 protocols").arg(kMaxProtocols);
    case ProtocolProblem::TooManyPorts:
        return Words::tr("You can not add more than %1 ports to a protocol").arg(kMaxPorts);
    }
    Q_UNREACHABLE();
}

ProtocolTable::ProtocolTable(QList<Protocol> listed) : protocols(std::move(listed)) { }

ProtocolTable::ProtocolTable(QList<Protocol> listed, QList<Protocol> unlisted)
    : protocols(std::move(listed))
    , removedProtocols(std::move(unlisted))
    , unlists(true)
{ }

QList<ProtocolPort> ProtocolTable::RemovedPortsOf(ProtocolId protocolId) const
{
    QList<ProtocolPort> ports;
    for (const RemovedPort &removed : removedPorts) {
        if (removed.protocolId == protocolId) {
            ports << removed.port;
        }
    }
    return ports;
}

qsizetype ProtocolTable::IndexOf(const QString &name) const
{
    const auto found = std::ranges::find(protocols, name, &Protocol::name);
    return found == protocols.cend() ? -1 : found - protocols.cbegin();
}

std::optional<ProtocolProblem> ProtocolTable::Add(const QString &name)
{
    const auto hasName = [&name](const Protocol &each) {
        return each.name.compare(name, Qt::CaseInsensitive) == 0;
    };
    if (name.isEmpty()) {
        return ProtocolProblem::NameMissing;
    }
    if (std::ranges::any_of(protocols, hasName)) {
        return ProtocolProblem::ProtocolListed;
    }
    if (protocols.size() >= kMaxProtocols) {
        return ProtocolProblem::TooManyProtocols;
    }
    const auto removed = std::ranges::find_if(removedProtocols, hasName);
    if (removed == removedProtocols.end()) {
        protocols.append({.name = name, .ports = {}, .id = {}, .isNew = true});
    } else {
        ComeBack(*removed);
        removedProtocols.erase(removed);
    }
    return std::nullopt;
}

// The row is used again: a second one of that name could not be told from it by name.
void ProtocolTable::ComeBack(Protocol protocol)
{
    protocol.monitored = false;
    if (!unlists) {
        for (const ProtocolPort &port : std::exchange(protocol.ports, {})) {
            if (port.id.IsSet()) {
                removedPorts.append({protocol.id, port});
            }
        }
    }
    protocols.append(std::move(protocol));
}

std::optional<ProtocolProblem> ProtocolTable::AddPort(qsizetype protocol,
                                                      std::optional<qint32> number)
{
    if (!number || *number < 1 || *number > kHighestPort) {
        return ProtocolProblem::PortOutOfRange;
    }
    Protocol &owner = protocols[protocol];
    const auto hasNumber = [&number](const ProtocolPort &port) { return port.number == *number; };
    if (std::ranges::any_of(std::as_const(owner.ports), hasNumber)) {
        return ProtocolProblem::PortListed;
    }
    if (owner.ports.size() >= kMaxPorts) {
        return ProtocolProblem::TooManyPorts;
    }
    const auto removed = std::ranges::find_if(removedPorts, [&](const RemovedPort &each) {
        return each.protocolId == owner.id && each.port.number == *number;
    });
    if (removed == removedPorts.end()) {
        owner.ports.append(ProtocolPort {*number, {}});
    } else {
        owner.ports.append(removed->port);
        removedPorts.erase(removed);
    }
    return std::nullopt;
}

void ProtocolTable::Remove(qsizetype protocol)
{
    Protocol removed = protocols.takeAt(protocol);
    if (!removed.isNew) {
        removedProtocols.append(std::move(removed));
    }
}

void ProtocolTable::RemovePort(qsizetype protocol, qsizetype port)
{
    Protocol &owner = protocols[protocol];
    const ProtocolPort removed = owner.ports.takeAt(port);
    if (removed.id.IsSet()) {
        removedPorts.append({owner.id, removed});
    }
}

void ProtocolTable::SetMonitored(qsizetype protocol, bool monitored)
{
    protocols[protocol].monitored = monitored;
}

bool ProtocolTable::AnyMonitored() const
{
    return std::ranges::any_of(protocols, &Protocol::monitored);
}

std::optional<QString> QuestionOnMonitoring(bool anyMonitored, int mode)
{
    if (anyMonitored || mode != monitor_mode::kSpecifiedOnly) {
        return std::nullopt;
    }
    return Words::tr(
        "You have not selected any protocol. Tollbrook will not track any traffic with "
        "this setup. Would you like to continue?");
}
