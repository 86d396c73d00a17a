#include "ui/main/auto_refresh.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;

// Milliseconds of each mode but the custom one.
constexpr qint64 kPeriods[] = {0, kMinute, 3 * kMinute, 5 * kMinute, 10 * kMinute};

} // namespace

AutoRefresh::AutoRefresh(QObject *parent) : QObject(parent)
{
    timer.setObjectName(u"refreshTimer"_s);
    connect(&timer, &QTimer::timeout, this, &AutoRefresh::Due);
}

void AutoRefresh::Load(const ConfigStore &config)
{
    mode = config.ReadInteger(values::kPaneAutoRefreshMode);
    period = config.ReadInteger(values::kPaneAutoRefreshPeriod);
}

SettingsResult AutoRefresh::Save(const ConfigStore &config) const
{
    return config.Edit(ConfigKeyId::Base, [this](KeyEditor &key) {
        key.WriteInteger(values::kPaneAutoRefreshMode, mode);
        key.WriteInteger(values::kPaneAutoRefreshPeriod, period);
    });
}

void AutoRefresh::Start()
{
    if (timer.isActive()) {
        return;
    }
    if (mode == Custom) {
        Run(period * kSecond); // kept: the dialog takes minutes, start-up takes seconds
    } else if (mode > None && mode < Custom) {
        Run(kPeriods[mode]);
    }
}

void AutoRefresh::Choose(Mode newMode)
{
    mode = newMode;
    timer.stop();
    if (mode != None) {
        Run(kPeriods[mode]);
    }
}

void AutoRefresh::ChooseCustom(int minutes)
{
    mode = Custom;
    period = minutes;
    Run(minutes * kMinute);
}

// A period that no dialog could have stored must neither keep the program busy nor overflow.
void AutoRefresh::Run(qint64 milliseconds)
{
    timer.start(static_cast<int>(
        std::clamp<qint64>(milliseconds, kSecond, std::numeric_limits<int>::max())));
}
