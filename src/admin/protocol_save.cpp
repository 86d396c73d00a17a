// The options windows' save of protocols and ports: statement by statement, each of which may fail
// without stopping those that do not depend on it.
#include "actions/action_run.h"
#include "admin/protocol_removals.h"
#include "admin/protocol_rows.h"
#include "admin/protocol_storage.h"
#include "db/query.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ProtocolSave)
};

QString PortName(const QString &protocol, qint32 number)
{
    return protocol + u' ' + QString::number(number);
}

template <typename Value>
Result<bool> IsNone(const Result<std::vector<Value>> &rows)
{
    return rows.map([](const std::vector<Value> &found) { return found.empty(); });
}

template <typename Value>
Result<bool> IsAny(const Result<std::vector<Value>> &rows)
{
    return rows.map([](const std::vector<Value> &found) { return !found.empty(); });
}

class ProtocolsSave
{
public:
    ProtocolsSave(ActionRun &actionRun, const ProtocolTable &savedTable, QStringList &notTried)
        : run(actionRun)
        , table(savedTable)
        , leftOut(notTried)
    { }

    void Run()
    {
        if (!ReadWhatStands()) {
            return;
        }
        ReadRemovals();
        if (run.IsStopped()) {
            Leave(Words::tr("No protocol and no port was stored."));
            return;
        }
        AddNewProtocols();
        AddNewPorts();
        RemoveProtocols();
        RemovePorts();
        StoreMonitored();
    }

private:
    struct GoingProtocol
    {
        Protocol protocol;
        Removal removal;
    };

    struct GoingPort
    {
        Protocol protocol;
        ProtocolPort port; // as it stands now; without an id when it is gone already
        Denials denials;
    };

    bool ReadWhatStands()
    {
        const auto all = ReadStoredProtocols(0);
        if (!all) {
            Fail(all.error(),
                 Words::tr("No protocol and no port was stored: what stands in the "
                           "database could not be read."));
            return false;
        }
        stored = *all;
        return true;
    }

    void ReadRemovals()
    {
        for (const Protocol &protocol : table.RemovedProtocols()) {
            const auto removal = ReadRemovalOfProtocol(protocol);
            if (MayGo(protocol, removal)) {
                goingProtocols.push_back({protocol, *removal});
                TakePorts(protocol, ReadRemovalOfPorts(protocol, RemovedPortsOf(protocol)));
            }
        }
        for (const Protocol &protocol : table.Protocols()) {
            if (!RemovedPortsOf(protocol).isEmpty()) {
                const auto removal = ReadRemovalOfPorts(protocol, RemovedPortsOf(protocol));
                if (MayGo(protocol, removal)) {
                    TakePorts(protocol, removal);
                }
            }
        }
    }

    // A removal whose denials are not known is left out: nobody was asked about them.
    bool MayGo(const Protocol &protocol, const Result<Removal> &removal)
    {
        if (!removal) {
            Fail(removal.error(),
                 Words::tr("What was removed of %1 stays: whom its ports are denied to "
                           "could not be read.")
                     .arg(protocol.name));
            return false;
        }
        const bool mayGo = !removal->question || run.Ask(*removal->question);
        if (!mayGo) {
            Leave(Words::tr("What was removed of %1 stays.").arg(protocol.name));
        }
        return mayGo;
    }

    void TakePorts(const Protocol &protocol, const Result<Removal> &removal)
    {
        const QList<ProtocolPort> removed = RemovedPortsOf(protocol);
        for (qsizetype i = 0; removal && i < removed.size(); ++i) {
            goingPorts.insert(removed[i].id, {protocol, removal->ports[i], removal->denials});
        }
    }

    [[nodiscard]] QList<ProtocolPort> RemovedPortsOf(const Protocol &protocol) const
    {
        return protocol.isNew ? QList<ProtocolPort>() : table.RemovedPortsOf(protocol.id);
    }

    void AddNewProtocols()
    {
        for (const Protocol &protocol : table.Protocols()) {
            if (protocol.isNew && Find(protocol.name) == nullptr && Insert(protocol)) {
                InsertPortsOfNew(protocol);
            }
        }
    }

    bool Insert(const Protocol &protocol)
    {
        const bool done =
            run.WriteOrLook([&protocol] { return IsAny(ReadIdsOf(protocol.name)); },
                            "INSERT INTO Protocols (proto_name, mon) VALUES ((?), (?))",
                            protocol.name,
                            quint32 {protocol.monitored});
        if (!done) {
            notAdded.insert(protocol.name);
            Leave(Words::tr("%1 was not added, nor its ports.").arg(protocol.name));
        }
        return done;
    }

    void InsertPortsOfNew(const Protocol &protocol)
    {
        const auto ids = ReadIdsOf(protocol.name);
        const QString withoutPorts =
            Words::tr("%1 was added without its ports.").arg(protocol.name);
        if (!ids) {
            Fail(ids.error(), withoutPorts);
        } else if (ids->empty()) {
            Leave(withoutPorts);
        } else {
            for (const ProtocolPort &port : protocol.ports) {
                InsertPort(protocol, ids->back(), port.number);
            }
        }
    }

    void AddNewPorts()
    {
        for (const Protocol &protocol : table.Protocols()) {
            const StoredProtocol *row = RowOf(protocol);
            if (row != nullptr) {
                for (const ProtocolPort &port : protocol.ports) {
                    AddPortIfMissing(protocol, row->id, port);
                }
            } else if (!protocol.isNew && IsTouched(protocol)) {
                Leave(Words::tr("%1 was removed by somebody else meanwhile and does not come back.")
                          .arg(protocol.name));
            }
        }
    }

    // A port that was there and is no more was removed by another console, and stays away.
    void AddPortIfMissing(const Protocol &protocol, ProtocolId id, const ProtocolPort &port)
    {
        const auto found = ReadPortIds(id, port.number);
        if (!found) {
            Fail(found.error(),
                 port.id.IsSet() ? Words::tr("Whether the port %1 still stands is not known.")
                                       .arg(PortName(protocol.name, port.number))
                                 : NotAdded(protocol, port.number));
        } else if (found->empty() && !port.id.IsSet()) {
            InsertPort(protocol, id, port.number);
        }
    }

    void InsertPort(const Protocol &protocol, ProtocolId id, qint32 number)
    {
        const bool done =
            run.WriteOrLook([id, number] { return IsAny(ReadPortIds(id, number)); },
                            "INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))",
                            id,
                            static_cast<quint32>(number));
        if (!done) {
            Leave(NotAdded(protocol, number));
        }
    }

    static QString NotAdded(const Protocol &protocol, qint32 number)
    {
        return Words::tr("The port %1 was not added.").arg(PortName(protocol.name, number));
    }

    void RemoveProtocols()
    {
        for (const auto &[protocol, removal] : goingProtocols) {
            const ProtocolId id = protocol.id;
            const bool rowGone = run.WriteOrLook(
                [id] { return IsGone(id); }, "DELETE FROM Protocols WHERE id = (?)", id);
            const bool portsGone = run.WriteOrLook([id] { return IsNone(ReadStoredPorts(id)); },
                                                   "DELETE FROM Ports WHERE proto_id = (?)",
                                                   id);
            if (portsGone) {
                RemoveDenials(removal.ports, removal.denials);
            }
            if (!rowGone || !portsGone) {
                Leave((rowGone ? Words::tr("The ports of the removed protocol %1 are still stored.")
                               : Words::tr("%1 was not removed."))
                          .arg(protocol.name));
            }
        }
    }

    static Result<bool> IsGone(ProtocolId id)
    {
        return Exists("SELECT proto_name FROM Protocols WHERE id = (?)", id).map([](bool found) {
            return !found;
        });
    }

    void RemovePorts()
    {
        for (const RemovedPort &removed : table.RemovedPorts()) {
            const auto going = goingPorts.constFind(removed.port.id);
            if (going != goingPorts.cend() && going->port.id.IsSet()) {
                RemovePort(*going);
            }
        }
    }

    void RemovePort(const GoingPort &going)
    {
        const ProtocolPort &port = going.port;
        const auto isGone = [id = going.protocol.id, port] {
            return ReadPortIds(id, port.number).map([port](const std::vector<PortId> &ids) {
                return std::ranges::find(ids, port.id) == ids.end();
            });
        };
        if (run.WriteOrLook(isGone, "DELETE FROM Ports WHERE port_id = (?)", port.id)) {
            RemoveDenials({port}, going.denials);
        } else {
            Leave(Words::tr("The port %1 was not removed.")
                      .arg(PortName(going.protocol.name, port.number)));
        }
    }

    void RemoveDenials(const QList<ProtocolPort> &ports, const Denials &denials)
    {
        for (const ProtocolPort &port : ports) {
            const auto areGone = [port] {
                return Exists("SELECT pb_id FROM Port_blocked WHERE port_id = (?)", port.id)
                    .map([](bool found) { return !found; });
            };
            const bool isNew = denials.contains(port.id) && !withoutDenials.contains(port.id);
            withoutDenials.insert(port.id);
            if (isNew
                && !run.WriteOrLook(
                    areGone, "DELETE FROM Port_blocked WHERE port_id = (?)", port.id)) {
                Leave(Words::tr("Users and groups are still denied the removed port %1.")
                          .arg(port.number));
            }
        }
    }

    void StoreMonitored()
    {
        for (const Protocol &protocol : table.Protocols()) {
            const StoredProtocol *row = RowOf(protocol);
            const bool isNewRow = protocol.isNew && row == nullptr;
            if ((!isNewRow && row == nullptr) || notAdded.contains(protocol.name)) {
                continue;
            }
            // What was not touched is written as it stands.
            const bool touched = isNewRow || protocol.monitored != protocol.wasMonitored;
            Store(isNewRow ? protocol.name : row->name,
                  touched ? protocol.monitored : row->isMonitored);
        }
    }

    void Store(const QString &name, bool monitored)
    {
        const auto isStored = [name, monitored] {
            return Exists("SELECT id FROM Protocols WHERE proto_name = (?) AND mon <> (?)",
                          name,
                          quint32 {monitored})
                .map([](bool found) { return !found; });
        };
        if (!run.WriteOrLook(isStored,
                             "UPDATE Protocols SET mon=(?) WHERE proto_name=(?)",
                             quint32 {monitored},
                             name)) {
            Leave(Words::tr("Whether %1 is monitored was not stored.").arg(name));
        }
    }

    [[nodiscard]] const StoredProtocol *Find(const QString &name) const
    {
        const auto found = std::ranges::find_if(stored, [&name](const StoredProtocol &each) {
            return each.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        return found == stored.end() ? nullptr : &*found;
    }

    // Of a new protocol the row that another console has made under its name.
    [[nodiscard]] const StoredProtocol *RowOf(const Protocol &protocol) const
    {
        if (protocol.isNew) {
            return Find(protocol.name);
        }
        const auto found = std::ranges::find(stored, protocol.id, &StoredProtocol::id);
        return found == stored.end() ? nullptr : &*found;
    }

    static bool IsTouched(const Protocol &protocol)
    {
        return protocol.monitored != protocol.wasMonitored
            || std::ranges::any_of(protocol.ports,
                                   [](const ProtocolPort &port) { return !port.id.IsSet(); });
    }

    void Leave(const QString &sentence) { leftOut << sentence; }

    void Fail(const Failure &failure, const QString &sentence)
    {
        (void)run.Take(Result<bool>(tl::unexpected(failure)));
        Leave(sentence);
    }

    ActionRun &run;
    const ProtocolTable &table;
    QStringList &leftOut;
    std::vector<StoredProtocol> stored; // before this save
    std::vector<GoingProtocol> goingProtocols;
    QHash<PortId, GoingPort> goingPorts; // by the id that the table knows
    QSet<QString> notAdded; // new protocols
    QSet<PortId> withoutDenials;
};

} // namespace

Action SaveProtocolsAction(const ProtocolTable &table, const LeftOut &leftOut)
{
    return {ActionId::SaveProtocols, [table, leftOut](ActionRun &run) {
                leftOut->clear();
                ProtocolsSave(run, table, *leftOut).Run();
            }};
}
