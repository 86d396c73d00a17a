#include "daemon/workstation_finder.h"

#include <QHostInfo>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 1s; // with the name service
constexpr int kMostAsked = 20; // at a time
constexpr qsizetype kMostFound = 1000; // remembered; further ones are found when these are users

// The first part of a name: the workstation's own. An address for which there is no name gives itself.
QString StationName(const QHostInfo &info, const QString &address)
{
    const QString name = info.hostName();
    return name.isEmpty() || name == address ? QString() : name.section(u'.', 0, 0);
}

} // namespace

void WorkstationFinder::Look(const std::vector<UnknownReading> &unknown,
                             const QHash<NetAddress, UserId> &owners,
                             const QHash<NetAddress, HardwareAddress> &hardware)
{
    QHash<NetAddress, Found> present;
    for (const UnknownReading &each : unknown) {
        if (!each.address.IsIpv4() || owners.contains(each.address)
            || present.size() >= kMostFound) {
            continue;
        }
        const auto known = found.constFind(each.address);
        Found entry = known != found.constEnd() ? *known : Found();
        entry.station.ip = each.address.Text();
        if (hardware.contains(each.address)) {
            entry.station.mac = hardware.value(each.address).Text();
        } else if (each.hardware) {
            entry.station.mac = each.hardware->Text();
        }
        present.insert(each.address, entry);
    }
    found = std::move(present);
    for (const auto &[address, entry] : found.asKeyValueRange()) {
        if (!entry.asked) {
            Ask(address);
        }
    }
}

void WorkstationFinder::Ask(const NetAddress &address)
{
    Found &entry = found[address];
    entry.asked = true;
    if (asked >= kMostAsked) { // a name is worth no waiting line
        entry.ready = true;
        return;
    }
    ++asked;
    const QString text = address.Text();
    QHostInfo::lookupHost(text, this, [this, address, text](const QHostInfo &info) {
        --asked;
        SetReady(address, StationName(info, text));
    });
    QTimer::singleShot(kPatience, this, [this, address] { SetReady(address, {}); });
}

void WorkstationFinder::SetReady(const NetAddress &address, const QString &name)
{
    const auto entry = found.find(address);
    if (entry == found.end() || entry->ready) {
        return;
    }
    entry->station.name = name;
    entry->ready = true;
    emit Named();
}

std::vector<Station> WorkstationFinder::Take(std::chrono::steady_clock::time_point now)
{
    if (now - turn >= kTurn) {
        turn = now;
        takenInTurn = 0;
    }
    std::vector<Station> ready;
    for (Found &each : found) {
        if (each.ready && !each.taken && takenInTurn < kMostAtOnce) {
            each.taken = true;
            ++takenInTurn;
            ready.push_back(each.station);
        }
    }
    if (!ready.empty() && takenInTurn == kMostAtOnce) {
        QTimer::singleShot(kTurn, this, &WorkstationFinder::Named);
    }
    return ready;
}

void WorkstationFinder::PutBack(const std::vector<Station> &unwritten)
{
    for (const Station &each : unwritten) {
        if (const auto address = NetAddress::From(each.ip); address && found.contains(*address)) {
            found[*address].taken = false;
        }
    }
}
