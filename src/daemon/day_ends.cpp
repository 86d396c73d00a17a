#include "daemon/day_ends.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

// Numbers of 64 bits are texts: JSON's own have only 53.
QJsonObject ObjectOf(const AddressCounters &each)
{
    return {{u"address"_s, each.address.Text()},
            {u"unknown"_s, each.unknown},
            {u"owner"_s, static_cast<qint64>(each.owner.value)},
            {u"received"_s, QString::number(each.received)},
            {u"sent"_s, QString::number(each.sent)}};
}

std::optional<AddressCounters> CountersIn(const QJsonObject &object)
{
    const auto address = NetAddress::From(object[u"address"_s].toString());
    if (!address) {
        return std::nullopt;
    }
    return AddressCounters {.address = *address,
                            .unknown = object[u"unknown"_s].toBool(),
                            .owner = UserId {static_cast<quint32>(object[u"owner"_s].toInteger())},
                            .received = object[u"received"_s].toString().toULongLong(),
                            .sent = object[u"sent"_s].toString().toULongLong()};
}

QJsonObject ObjectOf(const Count &count)
{
    QJsonArray counters;
    for (const AddressCounters &each : count.counters) {
        counters.append(ObjectOf(each));
    }
    QJsonArray online;
    for (const OnlineTime &each : count.online) {
        online.append(QJsonObject {{u"user"_s, static_cast<qint64>(each.user.value)},
                                   {u"seconds"_s, each.seconds}});
    }
    return {{u"gateway"_s, count.gatewayId},
            {u"generation"_s, QString::number(count.generation)},
            {u"at"_s, count.at.toString(Qt::ISODateWithMs)},
            {u"counters"_s, counters},
            {u"online"_s, online}};
}

// Nothing when it cannot be read.
std::optional<Count> CountIn(const QJsonObject &object)
{
    Count count;
    count.gatewayId = object[u"gateway"_s].toString();
    count.generation = object[u"generation"_s].toString().toULongLong();
    count.at = QDateTime::fromString(object[u"at"_s].toString(), Qt::ISODateWithMs);
    for (const auto &each : object[u"counters"_s].toArray()) {
        const auto counters = CountersIn(each.toObject());
        if (!counters) {
            return std::nullopt;
        }
        count.counters.push_back(*counters);
    }
    for (const auto &each : object[u"online"_s].toArray()) {
        const QJsonObject entry = each.toObject();
        count.online.push_back({UserId {static_cast<quint32>(entry[u"user"_s].toInteger())},
                                entry[u"seconds"_s].toDouble()});
    }
    return count;
}

// Nothing when one of them cannot be read.
std::optional<std::vector<Count>> CountsIn(const QJsonArray &array)
{
    std::vector<Count> counts;
    for (const auto &each : array) {
        auto count = CountIn(each.toObject());
        if (!count) {
            return std::nullopt;
        }
        counts.push_back(*std::move(count));
    }
    return counts;
}

} // namespace

DayEnds::DayEnds(QString filePath) : path(std::move(filePath))
{
    Load();
}

void DayEnds::Add(const Count &count)
{
    waiting.push_back(count);
    Save();
}

void DayEnds::Remove(size_t number)
{
    waiting.erase(waiting.begin(), waiting.begin() + static_cast<qsizetype>(number));
    Save();
}

void DayEnds::Load()
{
    QFile file(path);
    if (!file.exists()) {
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        problem = u"%1 cannot be read: %2"_s.arg(path, file.errorString());
        return;
    }
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isArray()) {
        LayAside(error.errorString());
    } else if (auto counts = CountsIn(document.array())) {
        waiting = *std::move(counts);
    } else {
        LayAside(u"an address is none"_s);
    }
}

void DayEnds::LayAside(const QString &damage)
{
    const QString aside = path + u".damaged"_s;
    QFile::remove(aside);
    QFile::rename(path, aside);
    problem = u"%1 was damaged (%2) and lies aside as %3: a day may lack what was counted "
              "last."_s.arg(path, damage, aside);
}

void DayEnds::Save()
{
    if (waiting.empty()) {
        problem = QFile::exists(path) && !QFile::remove(path)
            ? std::optional(u"%1 cannot be removed."_s.arg(path))
            : std::nullopt;
        return;
    }
    QJsonArray counts;
    for (const Count &each : waiting) {
        counts.append(ObjectOf(each));
    }
    QSaveFile file(path);
    const QByteArray text = QJsonDocument(counts).toJson(QJsonDocument::Compact);
    const bool saved =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    problem = saved ? std::nullopt
                    : std::optional(u"%1 cannot be written: %2"_s.arg(path, file.errorString()));
}
