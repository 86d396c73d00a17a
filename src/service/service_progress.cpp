#include "service/service_progress.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kWhole = 100;
constexpr int kLastTickFrom = 35; // a tick adds only up to here, so that waiting never looks done

struct Effect
{
    ProgressStep step;
    const char *text; // null: the text stays
    int advance; // kWhole: to the end
};

constexpr Effect kEffects[] = {
    {ProgressStep::TryStart, "Trying to start the service...", 10},
    {ProgressStep::Started, "Service started successfully", 20},
    {ProgressStep::StartFailed, "Failed to start the service", 50},
    {ProgressStep::TryConnect, "Trying to connect to the service...", 10},
    {ProgressStep::Connected, "Connected to the service successfully", 30},
    {ProgressStep::ConnectFailed, "Failed to connect to the service", 30},
    {ProgressStep::Tick, nullptr, 5},
    {ProgressStep::Finished, nullptr, kWhole},
    {ProgressStep::Failed, "Failed to complete the process", kWhole},
    {ProgressStep::TryStop, "Trying to stop the service...", 10},
    {ProgressStep::Stopped, "Service was stopped successfully", 20},
    {ProgressStep::StopFailed, "Failed to stop the service", 50},
};

} // namespace

void ServiceProgress::Take(ProgressStep step)
{
    const auto *effect = std::find_if(
        std::begin(kEffects), std::end(kEffects), [&](const auto &e) { return e.step == step; });
    if (effect == std::end(kEffects)) {
        return;
    }
    if (effect->text != nullptr) {
        text = QString::fromLatin1(effect->text);
    }
    if (step != ProgressStep::Tick || total <= kLastTickFrom) {
        total = std::min(total + effect->advance, kWhole);
    }
}
