// Monitored protocols: named sets of TCP/IP ports, edited in memory and brought into the database on
// OK. The service classifies traffic by them.
#pragma once

#include "db/ids.h"

#include <QList>
#include <QString>

#include <optional>

// "monitorprotmode"
namespace monitor_mode {
constexpr int kAll = 0;
constexpr int kBasic = 1;
constexpr int kSpecifiedOnly = 2;
constexpr int kAllButSpecified = 3;

// With the other modes the list of protocols is not used.
[[nodiscard]] constexpr bool UsesList(int mode)
{
    return mode == kSpecifiedOnly || mode == kAllButSpecified;
}
} // namespace monitor_mode

struct ProtocolPort
{
    qint32 number = 0;
    PortId id; // not set: not yet in the database

    bool operator==(const ProtocolPort &) const = default;
};

struct Protocol
{
    QString name;
    QList<ProtocolPort> ports;
    ProtocolId id; // not set: not yet in the database
    bool monitored = false;
    bool isNew = false;
    bool wasMonitored = false; // as the database had it

    bool operator==(const Protocol &) const = default;
};

enum class ProtocolProblem {
    NameMissing,
    ProtocolListed,
    PortListed,
    PortOutOfRange,
    TooManyProtocols,
    TooManyPorts
};

// What a person is told about it.
[[nodiscard]] QString TextOf(ProtocolProblem problem);

constexpr qsizetype kMaxProtocols = 100;
constexpr qsizetype kMaxPorts = 100; // of one protocol
constexpr qint32 kHighestPort = 65535;

// A port taken away, and the protocol that had it.
struct RemovedPort
{
    ProtocolId protocolId;
    ProtocolPort port;

    bool operator==(const RemovedPort &) const = default;
};

// The table of a page: rules without a database, see protocol_storage.h. What is taken away is
// remembered; when it is added again under its name or number it gets its old row back.
class ProtocolTable
{
public:
    ProtocolTable() = default;
    explicit ProtocolTable(QList<Protocol> listed);

    // As the setup wizard has it: to remove a protocol is only to unlist it.
    ProtocolTable(QList<Protocol> listed, QList<Protocol> unlisted);

    [[nodiscard]] const QList<Protocol> &Protocols() const { return protocols; }
    [[nodiscard]] const QList<Protocol> &RemovedProtocols() const { return removedProtocols; }
    [[nodiscard]] const QList<RemovedPort> &RemovedPorts() const { return removedPorts; }

    // The removed ports of this protocol.
    [[nodiscard]] QList<ProtocolPort> RemovedPortsOf(ProtocolId protocolId) const;

    // Counted from 0; -1 when there is none. The name must be exact.
    [[nodiscard]] qsizetype IndexOf(const QString &name) const;

    // The new protocol comes last and has no ports, except an unlisted one, which kept its ports.
    // Letter case makes no other name.
    [[nodiscard]] std::optional<ProtocolProblem> Add(const QString &name);
    [[nodiscard]] std::optional<ProtocolProblem> AddPort(qsizetype protocol,
                                                         std::optional<qint32> number);
    void Remove(qsizetype protocol);
    void RemovePort(qsizetype protocol, qsizetype port);
    void SetMonitored(qsizetype protocol, bool monitored);
    [[nodiscard]] bool AnyMonitored() const;

    // True for the setup wizard's: a removed protocol stays in the database with its ports.
    [[nodiscard]] bool OnlyUnlists() const { return unlists; }

    bool operator==(const ProtocolTable &) const = default;

private:
    void ComeBack(Protocol protocol);

    QList<Protocol> protocols;
    QList<Protocol> removedProtocols; // each has a row in the database
    QList<RemovedPort> removedPorts; // of protocols that stay; each has a row in the database
    bool unlists = false; // a removed protocol stays in the database with its ports
};

// What a person is asked before this choice is taken over: with "specified only" and no protocol
// monitored nothing would be counted. Kept: "all but specified" never asks.
[[nodiscard]] std::optional<QString> QuestionOnMonitoring(bool anyMonitored, int mode);
