#include "admin/protocol_removals.h"

#include "admin/protocol_rows.h"
#include "admin/protocol_storage.h"

#include <algorithm>

namespace {

bool HasNumber(const QList<ProtocolPort> &ports, qint32 number)
{
    return std::ranges::find(ports, number, &ProtocolPort::number) != ports.end();
}

// The row that `removed` is now: its own, or the last one of its number; nothing when it is gone.
const ProtocolPort *RowOf(const ProtocolPort &removed, const std::vector<ProtocolPort> &present)
{
    const auto same = std::ranges::find(present, removed.id, &ProtocolPort::id);
    if (same != present.end()) {
        return &*same;
    }
    const auto last = std::find_if(present.rbegin(), present.rend(), [&](const ProtocolPort &port) {
        return port.number == removed.number;
    });
    return last == present.rend() ? nullptr : &*last;
}

Result<std::optional<Question>> QuestionOf(const ProtocolTable &table, const Protocol &protocol)
{
    const QList<ProtocolPort> removed = table.RemovedPortsOf(protocol.id);
    const auto question = [](const Removal &removal) { return removal.question; };
    if (table.OnlyUnlists() && !removed.isEmpty()) {
        return ReadReplacement(protocol, protocol.id, removed)
            .map([](const Replacement &replacement) { return replacement.removal.question; });
    }
    if (!table.OnlyUnlists() && table.RemovedProtocols().contains(protocol)) {
        return ReadRemovalOfProtocol(protocol).map(question);
    }
    if (!removed.isEmpty() && !table.OnlyUnlists()) {
        return ReadRemovalOfPorts(protocol, removed).map(question);
    }
    return std::nullopt;
}

} // namespace

Result<Removal> ReadRemovalOfProtocol(const Protocol &protocol)
{
    const auto present = ReadStoredPorts(protocol.id);
    const auto denials = ReadDenials(protocol.id);
    if (!present || !denials) {
        return tl::unexpected(present ? denials.error() : present.error());
    }
    return Removal {QList<ProtocolPort>(present->begin(), present->end()),
                    *denials,
                    QuestionOnProtocol(protocol, *denials)};
}

Result<Removal> ReadRemovalOfPorts(const Protocol &protocol, const QList<ProtocolPort> &removed)
{
    const auto present = ReadStoredPorts(protocol.id);
    const auto denials = ReadDenials(protocol.id);
    if (!present || !denials) {
        return tl::unexpected(present ? denials.error() : present.error());
    }
    QList<ProtocolPort> going;
    for (const ProtocolPort &port : removed) {
        const ProtocolPort *row = RowOf(port, *present);
        going << (row == nullptr ? ProtocolPort {port.number, {}} : *row);
    }
    return Removal {going, *denials, QuestionOnPorts(protocol, going, *denials)};
}

QList<qint32> WantedPorts(const QList<ProtocolPort> &listed,
                          const QList<ProtocolPort> &removed,
                          const std::vector<ProtocolPort> &present)
{
    QList<qint32> wanted;
    for (const ProtocolPort &port : listed) {
        const bool stands =
            std::ranges::find(present, port.number, &ProtocolPort::number) != present.end();
        if (!port.id.IsSet() || stands) {
            wanted << port.number;
        }
    }
    for (const ProtocolPort &port : present) {
        if (!HasNumber(listed, port.number) && !HasNumber(removed, port.number)) {
            wanted << port.number;
        }
    }
    return wanted;
}

Result<Replacement>
ReadReplacement(const Protocol &protocol, ProtocolId protocolId, const QList<ProtocolPort> &removed)
{
    const auto present = ReadStoredPorts(protocolId);
    const auto denials = ReadDenials(protocolId);
    if (!present || !denials) {
        return tl::unexpected(present ? denials.error() : present.error());
    }
    const QList<qint32> wanted = WantedPorts(protocol.ports, removed, *present);
    QList<ProtocolPort> going;
    for (const ProtocolPort &port : *present) {
        if (!wanted.contains(port.number)) {
            going << port;
        }
    }
    return Replacement {
        *present, wanted, {going, *denials, QuestionOnPorts(protocol, going, *denials)}};
}

Result<QList<Question>> QuestionsOnDenials(const ProtocolTable &table)
{
    QList<Question> questions;
    for (const Protocol &protocol : table.Protocols() + table.RemovedProtocols()) {
        if (protocol.isNew) {
            continue;
        }
        const auto question = QuestionOf(table, protocol);
        if (!question) {
            return tl::unexpected(question.error());
        }
        if (*question) {
            questions << **question;
        }
    }
    return questions;
}
