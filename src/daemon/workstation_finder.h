// Workstations that are nobody's yet: what the network calls them is asked in the background before
// they are made users.
#pragma once

#include "db/ids.h"
#include "gateway/reading.h"
#include "metering/new_users.h"

#include <QHash>
#include <QObject>

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

    // Those whose name is known, or was not told within a second. At most kMostAtOnce, so that a flood
    // of made-up addresses does not fill the database.
    static constexpr size_t kMostAtOnce = 50;
    [[nodiscard]] std::vector<Station> Take();

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
    int asked = 0; // names that are under way
};
