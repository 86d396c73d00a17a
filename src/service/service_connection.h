// The console's connection to the accounting service as it stands at present.
#pragma once

#include "base/prompt.h"
#include "service/service_link.h"

#include <memory>

// Holds the link and replaces it when the administrator reconnects: who notifies the service asks for
// the link each time and keeps none.
class ServiceConnection
{
public:
    // Not connected yet. `bus` is the one that the service answers on.
    explicit ServiceConnection(const QDBusConnection &bus);

    // Drops the present link and connects anew; on failure says "Could not create instance". Always 0,
    // which callers take as success: kept, the status bar then shows the service as connected.
    int Connect(Prompt &prompt);

    void Disconnect() { link.reset(); }

    // Null while not connected.
    [[nodiscard]] const ServiceLink *Link() const { return link.get(); }

private:
    QDBusConnection bus;
    std::unique_ptr<ServiceLink> link;
};
