#include "demo/demo_unit.h"

using namespace Qt::StringLiterals;

namespace {

const QString kActive = u"active"_s;
const QString kActivating = u"activating"_s;
const QString kDeactivating = u"deactivating"_s;
const QString kInactive = u"inactive"_s;
const QString kFailed = u"failed"_s;

} // namespace

DemoUnit::DemoUnit(QObject *parent) : QObject(parent), state(kInactive)
{
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, [this] { Become(next); });
}

QString DemoUnit::Id() const
{
    return u"tollbrooksvc.service"_s;
}

QString DemoUnit::LoadState() const
{
    return u"loaded"_s;
}

bool DemoUnit::IsActive() const
{
    return state == kActive;
}

bool DemoUnit::Start()
{
    if (onStart == Behaviour::Refuse) {
        return false;
    }
    if (state != kActive && state != kActivating) {
        Become(kActivating);
        BecomeLater(onStart, onStart == Behaviour::Die ? kFailed : kActive);
    }
    return true;
}

bool DemoUnit::Stop()
{
    if (onStop == Behaviour::Refuse) {
        return false;
    }
    if (state == kActive || state == kActivating) {
        Become(kDeactivating);
        BecomeLater(onStop, kInactive);
    }
    return true;
}

void DemoUnit::Die()
{
    Become(kFailed);
}

void DemoUnit::BeginActive()
{
    Become(kActive);
}

void DemoUnit::Become(const QString &newState)
{
    timer.stop();
    state = newState;
    emit StateChanged(state);
}

void DemoUnit::BecomeLater(Behaviour behaviour, const QString &goal)
{
    next = goal;
    if (behaviour != Behaviour::Hang) {
        timer.start(delay);
    }
}
