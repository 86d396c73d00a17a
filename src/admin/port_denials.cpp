#include "admin/port_denials.h"

#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PortDenials)
};

QString TextOn(const QString &what, int count)
{
    return count == 1
        ? Words::tr("1 denied port of users and groups names %1 and goes with it. Continue?")
              .arg(what)
        : Words::tr("%2 denied ports of users and groups name %1 and go with it. Continue?")
              .arg(what, QString::number(count));
}

// The question is the same only while the same ports are denied as often.
std::optional<Question>
QuestionOn(const QString &what, ProtocolId protocolId, QList<PortId> going, const Denials &denials)
{
    std::ranges::sort(going);
    QString key = u"denied "_s + QString::number(protocolId.value);
    int count = 0;
    for (const PortId port : going) {
        if (const int rows = denials.value(port)) {
            key += u" %1=%2"_s.arg(port.value).arg(rows);
            count += rows;
        }
    }
    return count == 0 ? std::nullopt : std::optional(Question {key, TextOn(what, count), true, {}});
}

} // namespace

Result<Denials> ReadDenials(ProtocolId protocolId)
{
    return ReadAll(
               "SELECT b.port_id FROM Port_blocked b, Ports p "
               "WHERE b.port_id = p.port_id AND p.proto_id = (?)",
               [](const Row &row) { return row.Id<PortId>(1); },
               protocolId)
        .map([](const std::vector<PortId> &ports) {
            Denials denials;
            for (const PortId port : ports) {
                ++denials[port];
            }
            return denials;
        });
}

std::optional<Question>
QuestionOnPorts(const Protocol &protocol, const QList<ProtocolPort> &going, const Denials &denials)
{
    QStringList numbers;
    QList<PortId> ids;
    for (const ProtocolPort &port : going) {
        ids << port.id;
        if (denials.contains(port.id)) {
            numbers << QString::number(port.number);
        }
    }
    return QuestionOn(protocol.name + u' ' + numbers.join(u", "_s), protocol.id, ids, denials);
}

std::optional<Question> QuestionOnProtocol(const Protocol &protocol, const Denials &denials)
{
    return QuestionOn(protocol.name, protocol.id, denials.keys(), denials);
}
