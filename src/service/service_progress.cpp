#include "service/service_progress.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ServiceProgress)
};

constexpr int kWhole = 100;
constexpr int kLastTickFrom = 35; // a tick adds only up to here, so that waiting never looks done

struct Effect
{
    const char *text; // in English; null: the text stays
    ProgressStep step;
    int advance; // kWhole: to the end
};

constexpr Effect kEffects[] = {
    {QT_TRANSLATE_NOOP("ServiceProgress", "Trying to start the service..."),
     ProgressStep::TryStart,
     10},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Service started successfully"),
     ProgressStep::Started,
     20},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Failed to start the service"),
     ProgressStep::StartFailed,
     50},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Trying to connect to the service..."),
     ProgressStep::TryConnect,
     10},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Connected to the service successfully"),
     ProgressStep::Connected,
     30},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Failed to connect to the service"),
     ProgressStep::ConnectFailed,
     30},
    {nullptr, ProgressStep::Tick, 5},
    {nullptr, ProgressStep::Finished, kWhole},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Failed to complete the process"),
     ProgressStep::Failed,
     kWhole},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Trying to stop the service..."),
     ProgressStep::TryStop,
     10},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Service was stopped successfully"),
     ProgressStep::Stopped,
     20},
    {QT_TRANSLATE_NOOP("ServiceProgress", "Failed to stop the service"),
     ProgressStep::StopFailed,
     50},
};

} // namespace

ServiceProgress::ServiceProgress() : text(Words::tr("Status")) { }

void ServiceProgress::Take(ProgressStep step)
{
    const auto *effect = std::find_if(
        std::begin(kEffects), std::end(kEffects), [&](const auto &e) { return e.step == step; });
    if (effect == std::end(kEffects)) {
        return;
    }
    if (effect->text != nullptr) {
        text = Words::tr(effect->text);
    }
    if (step != ProgressStep::Tick || total <= kLastTickFrom) {
        total = std::min(total + effect->advance, kWhole);
    }
}
