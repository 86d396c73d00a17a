#include "service/service_progress.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kWhole = 100;
constexpr int kLastTickFrom = 35; // a tick adds only up to here, so that waiting never looks done

struct Effect
{
    const char *text; // null: the text stays
    ProgressStep step;
    int advance; // kWhole: to the end
};

constexpr Effect kEffects[] = {
    {"Trying to start the service...", ProgressStep::TryStart, 10},
    {"Service started successfully", ProgressStep::Started, 20},
    {"Failed to start the service", ProgressStep::StartFailed, 50},
    {"Trying to connect to the service...", ProgressStep::TryConnect, 10},
    {"Connected to the service successfully", ProgressStep::Connected, 30},
    {"Failed to connect to the service", ProgressStep::ConnectFailed, 30},
    {nullptr, ProgressStep::Tick, 5},
    {nullptr, ProgressStep::Finished, kWhole},
    {"Failed to complete the process", ProgressStep::Failed, kWhole},
    {"Trying to stop the service...", ProgressStep::TryStop, 10},
    {"Service was stopped successfully", ProgressStep::Stopped, 20},
    {"Failed to stop the service", ProgressStep::StopFailed, 50},
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
