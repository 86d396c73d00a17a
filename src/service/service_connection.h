// The console's connection to the accounting service as it stands at present.
#pragma once

#include "base/prompt.h"
#include "service/service_link.h"

#include <functional>
#include <memory>

// Holds the link and replaces it when the administrator reconnects: who notifies the service asks for
// the link each time and keeps none.
class ServiceConnection
{
public:
    // Not connected yet. `bus` is the one that the service answers on.
    explicit ServiceConnection(const QDBusConnection &bus);

    // Called when the service did not hear of a notice, in the thread that connected.
    void OnNotHeard(const std::function<void()> &tell) { notHeard = tell; }

    // Drops the present link and connects anew; on failure says "Could not create instance". Always 0,
    // which callers take as success: kept, the status bar then shows the service as connected.
    int Connect(Prompt &prompt);

    void Disconnect() { link.reset(); }

    // Null while not connected. Work on another thread keeps the link for as long as it needs it.
    [[nodiscard]] std::shared_ptr<const ServiceLink> Link() const { return link; }

private:
    QDBusConnection bus;
    std::function<void()> notHeard;
    std::shared_ptr<const ServiceLink> link;
};
