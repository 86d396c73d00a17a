#include "demo/lab/lab_traffic.h"

#include "demo/lab/lab_users.h"

using namespace std::chrono_literals;

namespace {

constexpr auto kStep = 100ms;
constexpr int kPayload = 996; // bytes: with its headers a datagram is a kilobyte
constexpr quint16 kPort = 4000;

const Endpoint kInternet {QStringLiteral("10.79.0.1"), kPort};

// Of a rate in kilobytes a second, for one step.
int DatagramsOf(int rate)
{
    return std::max(1, rate / static_cast<int>(1s / kStep));
}

} // namespace

LabTraffic::LabTraffic(const Laboratory &laboratory)
    : internet(MakeSocket(laboratory, Place::Internet, Transport::Udp, kInternet))
{
    for (size_t place = 0; place < std::size(kLabUsers); ++place) {
        workstations.push_back(MakeSocket(
            laboratory, Place::Workstations, Transport::Udp, {LabAddress(place), kPort}));
    }
    thread = std::thread([this] { Run(); });
}

LabTraffic::~LabTraffic()
{
    stop = true;
    thread.join();
}

void LabTraffic::Run()
{
    const auto begin = std::chrono::steady_clock::now();
    while (!stop) {
        const auto now = std::chrono::steady_clock::now();
        for (size_t place = 0; place < workstations.size(); ++place) {
            SendOf(place, std::chrono::floor<std::chrono::seconds>(now - begin));
        }
        std::this_thread::sleep_until(now + kStep);
    }
}

// Pauses fall into different parts of the minute.
void LabTraffic::SendOf(size_t place, std::chrono::seconds sinceBegin) const
{
    const LabUser &user = kLabUsers[place];
    const auto second = (sinceBegin.count() + 5 * static_cast<qint64>(place)) % 60;
    if (second >= 60 - user.pause) {
        return;
    }
    SendDatagrams(workstations[place], kInternet, kPayload, DatagramsOf(user.sent));
    SendDatagrams(internet, {LabAddress(place), kPort}, kPayload, DatagramsOf(user.received));
}
