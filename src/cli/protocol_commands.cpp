// The commands that begin with "protocol": the protocols and ports by which traffic is told apart.
#include "admin/protocol_storage.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/work.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

// What became of a save, with sentences on what was not tried.
struct ProtocolSave
{
    Outcome outcome;
    QStringList leftOut;
};

template <>
struct GivenUp<ProtocolSave>
{
    [[nodiscard]] static ProtocolSave As(const Failure &failure, bool mayBeKept)
    {
        return {GivenUp<Outcome>::As(failure, mayBeKept), {}};
    }
};

namespace {

const QList<Column> kColumns {{"name", "Protocol"}, {"monitored", "Monitored"}, {"ports", "Ports"}};

// In their order as numbers; the engines give them in any.
QList<qint32> PortsOf(const Protocol &protocol)
{
    QList<qint32> numbers;
    for (const ProtocolPort &port : protocol.ports) {
        numbers << port.number;
    }
    std::ranges::sort(numbers);
    return numbers;
}

QString PortsText(const Protocol &protocol)
{
    QStringList texts;
    for (const qint32 port : PortsOf(protocol)) {
        texts << QString::number(port);
    }
    return texts.join(u' ');
}

Cell PortsCell(const Protocol &protocol)
{
    QJsonArray numbers;
    for (const qint32 port : PortsOf(protocol)) {
        numbers.append(port);
    }
    return {numbers, PortsText(protocol)};
}

Or<void> ListProtocols(Work &work, const Given & /*given*/)
{
    return work.Read(LoadProtocols).map([&work](const ProtocolTable &protocols) {
        Table table {kColumns, {}};
        for (const Protocol &protocol : protocols.Protocols()) {
            table.rows << Cells {protocol.name, protocol.monitored, PortsCell(protocol)};
        }
        work.Print(table);
    });
}

QStringList ValuesOf(const Protocol &protocol)
{
    return {u"proto_name="_s + protocol.name,
            u"mon=%1"_s.arg(int {protocol.monitored}),
            u"ports="_s + PortsText(protocol)};
}

const Protocol *Find(const ProtocolTable &table, const QString &name)
{
    const qsizetype index = table.IndexOf(name);
    return index < 0 ? nullptr : &table.Protocols()[index];
}

QList<Change> ChangesBetween(const ProtocolTable &base, const ProtocolTable &draft)
{
    QList<Change> changes;
    for (const Protocol &protocol : draft.Protocols()) {
        const Protocol *before = Find(base, protocol.name);
        if (before == nullptr || *before != protocol) {
            changes << ChangeBetween(u"protocols"_s,
                                     protocol.name,
                                     before != nullptr ? ValuesOf(*before) : QStringList(),
                                     ValuesOf(protocol));
        }
    }
    for (const Protocol &protocol : draft.RemovedProtocols()) {
        changes << Change {u"protocols"_s, protocol.name, ValuesOf(protocol), {}};
    }
    return changes;
}

// A No keeps everything as it is.
ProtocolSave SaveOnThread(const ProtocolTable &table, const Answers &answers, bool isTrial)
{
    const bool isDeclined = std::find(answers.cbegin(), answers.cend(), false) != answers.cend();
    if (isDeclined) {
        ProtocolSave declined;
        declined.outcome.state = Outcome::State::Refused;
        declined.outcome.refusal = u"Nothing was changed."_s;
        return declined;
    }
    const auto leftOut = std::make_shared<QStringList>();
    const Action action = SaveProtocolsAction(table, leftOut);
    const Outcome outcome =
        isTrial ? TryAction(action, answers) : RunAction(action, answers, nullptr);
    return {outcome, *leftOut};
}

Stop StopOf(const ProtocolSave &save)
{
    const QString left = save.leftOut.join(u'\n');
    if (save.outcome.IsDone()) {
        return {ExitStatus::Uncertain, left};
    }
    Stop stop = ::StopOf(ActionId::SaveProtocols, save.outcome);
    stop.text = left.isEmpty() ? stop.text : left + u'\n' + stop.text;
    return stop;
}

Or<void>
Save(Work &work, const ProtocolTable &base, const ProtocolTable &draft, const QString &sentence)
{
    const auto save = work.AwaitAnswered(
        [&](const Answers &answers) {
            return [draft, answers, isTrial = work.IsTrial()] {
                return SaveOnThread(draft, answers, isTrial);
            };
        },
        [](const ProtocolSave &given) {
            return given.outcome.state == Outcome::State::NeedsAnswers ? given.outcome.questions
                                                                       : QList<Question>();
        });
    if (!save) {
        return tl::unexpected(save.error());
    }
    if (!save->outcome.IsDone() || !save->leftOut.isEmpty()) {
        return tl::unexpected(StopOf(*save));
    }
    work.Print({ChangesBetween(base, draft), {}}, sentence);
    return {};
}

struct OpenTable
{
    ProtocolTable table;
    qsizetype index = 0; // of the protocol that is named
};

// Names are unique without regard to letter case.
Or<OpenTable> OpenAt(Work &work, const QString &name)
{
    return work.Read(LoadProtocols).and_then([&](const ProtocolTable &table) -> Or<OpenTable> {
        const auto &protocols = table.Protocols();
        const auto found = std::ranges::find_if(protocols, [&name](const Protocol &protocol) {
            return protocol.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == protocols.end()) {
            return StopWith(ExitStatus::Refused,
                            u"There is no protocol \"%1\"; \"tollbrook protocol list\" names them. "
                            "Nothing was changed."_s.arg(name));
        }
        return OpenTable {table, found - protocols.begin()};
    });
}

Or<void> Refused(const std::optional<ProtocolProblem> &problem)
{
    return problem ? StopWith(ExitStatus::Refused, TextOf(*problem)) : Or<void>();
}

std::optional<qint32> PortFrom(const QString &text)
{
    bool isNumber = false;
    const qint32 number = text.toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

Or<void> AddPorts(ProtocolTable &table, qsizetype protocol, const QStringList &ports)
{
    for (const QString &port : ports) {
        if (auto added = Refused(table.AddPort(protocol, PortFrom(port))); !added) {
            return added;
        }
    }
    return {};
}

Or<void> RemovePorts(ProtocolTable &table, qsizetype protocol, const QStringList &ports)
{
    for (const QString &port : ports) {
        const auto &listed = table.Protocols()[protocol].ports;
        const auto found = std::ranges::find(listed, PortFrom(port), [](const ProtocolPort &each) {
            return std::optional(each.number);
        });
        if (found == listed.end()) {
            return StopWith(ExitStatus::Refused,
                            u"The protocol \"%1\" has no port %2. Nothing was changed."_s.arg(
                                table.Protocols()[protocol].name, port));
        }
        table.RemovePort(protocol, found - listed.begin());
    }
    return {};
}

Or<void> AddProtocol(Work &work, const Given &given)
{
    const auto base = work.Read(LoadProtocols);
    if (!base) {
        return tl::unexpected(base.error());
    }
    const QString name = given.Word(0).trimmed();
    ProtocolTable draft = *base;
    return Refused(draft.Add(name))
        .and_then([&] {
            const qsizetype index = draft.Protocols().size() - 1;
            draft.SetMonitored(index, given.Has(u"monitored"_s));
            return AddPorts(draft, index, given.Words().mid(1));
        })
        .and_then([&] { return Save(work, *base, draft, u"Protocol %1 was added."_s.arg(name)); });
}

// With "specified only" and nothing monitored nobody would be counted.
Or<void> TakeMonitored(Work &work, const Given &given, ProtocolTable &table, qsizetype protocol)
{
    const auto word = given.Value(u"monitored"_s);
    if (!word) {
        return {};
    }
    return FlagFrom(*word).and_then([&](bool isMonitored) -> Or<void> {
        table.SetMonitored(protocol, isMonitored);
        const int mode = work.Settings().ReadInteger(values::kMonitorProtMode);
        const auto question = QuestionOnMonitoring(table.AnyMonitored(), mode);
        return question ? work.Confirm({.key = u"monitored"_s, .text = *question}) : Or<void>();
    });
}

Or<void> SetProtocol(Work &work, const Given &given)
{
    const auto open = OpenAt(work, given.Word(0));
    if (!open) {
        return tl::unexpected(open.error());
    }
    const auto &[base, index] = *open;
    ProtocolTable draft = base;
    const QString name = base.Protocols()[index].name;
    return AddPorts(draft, index, given.Values(u"add-port"_s))
        .and_then(
            [&, at = index] { return RemovePorts(draft, at, given.Values(u"remove-port"_s)); })
        .and_then([&, at = index] { return TakeMonitored(work, given, draft, at); })
        .and_then([&, &from = base]() -> Or<void> {
            if (draft == from) {
                return IsSoAlready(u"Protocol %1"_s.arg(name));
            }
            return Save(work, from, draft, u"Protocol %1 was changed."_s.arg(name));
        });
}

Or<void> RemoveProtocol(Work &work, const Given &given)
{
    return OpenAt(work, given.Word(0)).and_then([&](const OpenTable &open) {
        ProtocolTable draft = open.table;
        draft.Remove(open.index);
        return Save(work,
                    open.table,
                    draft,
                    u"Protocol %1 was removed."_s.arg(open.table.Protocols()[open.index].name));
    });
}

} // namespace

Commands ProtocolCommands()
{
    return {{"protocol list",
             "",
             "Lists the protocols that are known, with their ports.",
             0,
             0,
             {},
             ListProtocols},
            {"protocol add",
             "NAME [PORT...]",
             "Adds a protocol with its ports.",
             1,
             Command::kAnyNumber,
             {{"monitored", nullptr, "It is one of those that are specified for monitoring."}},
             AddProtocol},
            {"protocol set",
             "NAME",
             "Changes the ports of a protocol, and whether it is specified for monitoring.",
             1,
             1,
             {{"add-port", "PORT", "Adds a port; may be given for several."},
              {"remove-port", "PORT", "Removes a port; may be given for several."},
              {"monitored", "yes|no", "Whether it is specified for monitoring."}},
             SetProtocol,
             true},
            {"protocol remove",
             "NAME",
             "Removes a protocol and its ports, after a question where somebody is denied them.",
             1,
             1,
             {},
             RemoveProtocol}};
}
