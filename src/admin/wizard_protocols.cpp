// The setup wizard's save of protocols and ports: each protocol is written as a whole or stays as it
// was, so that a failure on the way leaves none without its ports.
#include "actions/action_run.h"
#include "admin/protocol_removals.h"
#include "admin/protocol_rows.h"
#include "admin/protocol_storage.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct WizardProtocol
{
    Protocol protocol;
    QList<ProtocolPort> removedPorts;
    bool listed = false;
};

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(WizardProtocols)
};

// Its row, which another console may have given another id; not set for none.
ProtocolId RowOf(ActionRun &run, const Protocol &protocol)
{
    const std::vector<ProtocolId> ids = run.Take(ReadIdsOf(protocol.name));
    if (std::ranges::find(ids, protocol.id) != ids.end()) {
        return protocol.id;
    }
    return ids.empty() ? ProtocolId {} : ids.back();
}

void InsertPorts(ActionRun &run, ProtocolId id, const QList<qint32> &numbers)
{
    for (const qint32 number : numbers) {
        run.Write("INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))",
                  id,
                  static_cast<quint32>(number));
    }
}

// The ports have new rows: what named the old ones names the new ones of the same numbers, and what
// named a port that is gone goes with it.
void KeepDenials(ActionRun &run, ProtocolId id, const Replacement &replacement)
{
    for (const ProtocolPort &port : replacement.present) {
        if (!replacement.removal.denials.contains(port.id)) {
            continue;
        }
        if (!replacement.wanted.contains(port.number)) {
            run.Write("DELETE FROM Port_blocked WHERE port_id = (?)", port.id);
            continue;
        }
        const std::vector<PortId> rows = run.Take(ReadPortIds(id, port.number));
        if (!rows.empty()) {
            run.Write(
                "UPDATE Port_blocked SET port_id = (?) WHERE port_id = (?)", rows.front(), port.id);
        }
    }
}

bool StoredMonitored(ActionRun &run, ProtocolId id)
{
    const auto monitored = run.Take(ReadOne(
        "SELECT mon FROM Protocols WHERE id = (?)",
        [](const Row &row) { return row.Integer(1) == 1; },
        id));
    return monitored.value_or(false);
}

void StoreMonitored(ActionRun &run, ProtocolId id, bool monitored)
{
    run.Write(monitored ? "UPDATE Protocols SET mon = 1 WHERE id = (?)"
                        : "UPDATE Protocols SET mon = 0 WHERE id = (?)",
              id);
}

void Add(ActionRun &run, const Protocol &protocol)
{
    run.Write("INSERT INTO Protocols (proto_name) VALUES ((?))", protocol.name);
    const ProtocolId id = RowOf(run, protocol);
    QList<qint32> numbers;
    for (const ProtocolPort &port : protocol.ports) {
        numbers << port.number;
    }
    InsertPorts(run, id, numbers);
    StoreMonitored(run, id, true);
}

void Replace(ActionRun &run, const WizardProtocol &saved, ProtocolId id)
{
    const Replacement replacement =
        run.Take(ReadReplacement(saved.protocol, id, saved.removedPorts));
    // What was not touched is written as it stands.
    const bool stored = StoredMonitored(run, id);
    const bool listed = saved.listed == saved.protocol.wasMonitored ? stored : saved.listed;
    if (replacement.removal.question && !run.Ask(*replacement.removal.question)) {
        run.Refuse(Words::tr("What was removed of %1 stays.").arg(saved.protocol.name));
    }
    if (run.IsStopped()) {
        return;
    }
    run.Write("DELETE FROM Ports WHERE proto_id = (?)", id);
    InsertPorts(run, id, replacement.wanted);
    KeepDenials(run, id, replacement);
    StoreMonitored(run, id, listed);
}

void Save(ActionRun &run, const WizardProtocol &saved)
{
    const Protocol &protocol = saved.protocol;
    if (!protocol.isNew) {
        run.Lock({"protocols", "id", protocol.id.value, "id"});
        run.Lock({"ports", "proto_id", protocol.id.value, "port_id"});
    }
    const ProtocolId id = RowOf(run, protocol);
    if (run.IsStopped()) {
        return;
    }
    if (id.IsSet()) {
        Replace(run, saved, id);
    } else if (protocol.isNew) {
        Add(run, protocol);
    } else if (saved.listed) {
        run.Refuse(Words::tr("%1 was removed by somebody else meanwhile and does not come back.")
                       .arg(protocol.name));
    }
}

ProtocolAction ActionOf(const WizardProtocol &saved)
{
    return {saved.protocol.name,
            {ActionId::SaveSetupProtocols, [saved](ActionRun &run) { Save(run, saved); }}};
}

} // namespace

QList<ProtocolAction> SaveWizardProtocolActions(const ProtocolTable &table)
{
    QList<ProtocolAction> actions;
    for (const Protocol &protocol : table.Protocols()) {
        actions << ActionOf({protocol, table.RemovedPortsOf(protocol.id), true});
    }
    for (const Protocol &protocol : table.RemovedProtocols()) {
        actions << ActionOf({protocol, table.RemovedPortsOf(protocol.id), false});
    }
    return actions;
}
