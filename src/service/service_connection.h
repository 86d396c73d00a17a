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

    // Called when it is known of all notices under way whether the service heard them, in the thread
    // that connected.
    void OnSettled(const std::function<void(bool allHeard)> &tell) { settled = tell; }

    // Drops the present link and connects anew; on failure says "Could not create instance". Always 0,
    // which callers take as success: kept, the status bar then shows the service as connected.
    int Connect(Prompt &prompt);

    // The same without a word: whether the service is there.
    bool TryConnect();

    void Disconnect();

    // Null while not connected. Work on another thread keeps the link for as long as it needs it.
    [[nodiscard]] std::shared_ptr<const ServiceLink> Link() const { return link; }

private:
    QDBusConnection bus;
    std::function<void(bool allHeard)> settled = [](bool) {};
    std::shared_ptr<const ServiceLink> link;
    std::unique_ptr<QObject>
        listener; // to the present link: one that others keep is not heard any more
};
