// Which hardware stands behind which address at present, and which workstations are new or have others
// than their rows say.
#pragma once

#include "daemon/address_book.h"
#include "daemon/policy_maker.h"
#include "daemon/workstation_finder.h"
#include "gateway/netlink_socket.h"

class Neighbourhood : public QObject
{
    Q_OBJECT

public:
    Neighbourhood();

    // Takes in what packets and the kernel's neighbour table tell, of which the latter goes first. When the
    // neighbour table cannot be read, packets alone count and the failure is given.
    GatewayResult<void> Look(const Reading &reading,
                             const QStringList &lanInterfaces,
                             Identification identification,
                             const AddressBook &book);

    [[nodiscard]] const CompanionAddresses &Companions() const { return companions; }

    // What is to become of rows: new workstations whose names are known, and users at whose address another
    // hardware address was seen than the row has; of these each is given once.
    [[nodiscard]] std::vector<Station> Take(const Standings &standings, const AddressBook &book);

    // They could not be written, and are given again.
    void PutBack(const std::vector<Station> &stations);

signals:
    void Named(); // there is something to take

private:
    WorkstationFinder finder;
    CompanionAddresses companions;
    QHash<NetAddress, HardwareAddress> hardware;
    QHash<NetAddress, HardwareAddress> told; // of addresses of users
};
