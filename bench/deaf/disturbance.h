// What others do to the database and the settings while a window is at work.
#pragma once

#include "config/config_store.h"

#include <QString>

#include <atomic>
#include <functional>
#include <thread>
#include <utility>

// Something that gets in the way for two seconds at a time, from a thread of its own.
class Disturbance
{
public:
    // `hold` gets in the way, calls its argument, and gets out of the way again once that returns.
    using Hold = std::function<void(const std::function<void()> &wait)>;

    explicit Disturbance(Hold newHold) : hold(std::move(newHold)) { }
    ~Disturbance();
    Disturbance(const Disturbance &) = delete;
    Disturbance &operator=(const Disturbance &) = delete;

    // Begins, or begins anew: not before the time before is over.
    void Begin();

    [[nodiscard]] bool IsInTheWay() const { return inTheWay; }
    [[nodiscard]] bool IsOver() const { return over; }

private:
    const Hold hold;
    std::thread thread;
    std::atomic<bool> inTheWay = false;
    std::atomic<bool> over = true;
};

// Another connection that holds the database of the embedded engine, or every row on a server.
[[nodiscard]] Disturbance::Hold HeldDatabase(const QString &engine, const QString &dsn);

// A server that is stopped, with all its processes, and goes on.
[[nodiscard]] Disturbance::Hold FrozenServer(const QString &engine);

// Another program that writes settings.
[[nodiscard]] Disturbance::Hold HeldSettings(const ConfigStore &settings);
