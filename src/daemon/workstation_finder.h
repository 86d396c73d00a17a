// Workstations that are nobody's yet: what the network calls them is asked in the background before
// they are made users.
#pragma once

#include "db/ids.h"
#include "gateway/reading.h"
#include "metering/new_users.h"

#include <QHash>
#include <QObject>

#include <chrono>
#include <vector>

class WorkstationFinder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Asks for the names of those that were not there before; what is somebody's, or gone, is forgotten.
    // `hardware`: what is known of addresses besides.
    void Look(const std::vector<UnknownReading> &unknown,
              const QHash<NetAddress, UserId> &owners,
              const QHash<NetAddress, HardwareAddress> &hardware);

    // Those whose name is known, or was not told within a second. At most kMostAtOnce in kTurn, so that a flood
    // of made-up addresses does not fill the database; Named tells when there may be more. `now` never
    // goes back.
    static constexpr size_t kMostAtOnce = 50;
    static constexpr std::chrono::seconds kTurn {2};
    [[nodiscard]] std::vector<Station> Take(std::chrono::steady_clock::time_point now);

    // What could not be written is found still.
    void PutBack(const std::vector<Station> &unwritten);

signals:
    void Named();

private:
    struct Found
    {
        Station station;
        bool asked = false;
        bool ready = false; // nothing more is waited for
        bool taken = false;
    };

    void Ask(const NetAddress &address);
    void SetReady(const NetAddress &address, const QString &name);

    QHash<NetAddress, Found> found;
    std::chrono::steady_clock::time_point turn {}; // when the present one began
    size_t takenInTurn = 0;
    int asked = 0; // names that are under way
};
