#include "service/service_control.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int kQueryTimeout = 1000; // milliseconds
constexpr int kCommandTimeout = 90000; // milliseconds; somebody may have to type a password

const QString kManagerName = u"org.freedesktop.systemd1"_s;
const QString kManagerPath = u"/org/freedesktop/systemd1"_s;
const QString kManagerInterface = u"org.freedesktop.systemd1.Manager"_s;
const QString kUnitInterface = u"org.freedesktop.systemd1.Unit"_s;
const QString kTimerInterface = u"org.freedesktop.systemd1.Timer"_s;
const QString kServiceInterface = u"org.freedesktop.systemd1.Service"_s;
const QString kUnit = u"tollbrooksvc.service"_s;

QDBusMessage CallTo(const QString &path, const QString &interface, const QString &method)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kManagerName, path, interface, method);
    call.setAutoStartService(false);
    return call;
}

// The first value of the answer; nothing when there is none in time.
template <typename Value>
std::optional<Value> Answer(const QDBusConnection &bus, const QDBusMessage &call)
{
    const QDBusMessage reply = bus.call(call, QDBus::Block, kQueryTimeout);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return std::nullopt;
    }
    return qvariant_cast<Value>(reply.arguments().constFirst());
}

// The object of a unit. One that is stopped and that nothing refers to is known to the manager only after it
// is loaded; one that does not exist has an object too.
std::optional<QString> Loaded(const QDBusConnection &bus, const QString &unit)
{
    QDBusMessage load = CallTo(kManagerPath, kManagerInterface, u"LoadUnit"_s);
    load << unit;
    const auto object = Answer<QDBusObjectPath>(bus, load);
    return object ? std::optional(object->path()) : std::nullopt;
}

QVariant Property(const QDBusConnection &bus,
                  const QString &unitPath,
                  const QString &interface,
                  const QString &name)
{
    QDBusMessage call = CallTo(unitPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << interface << name;
    return Answer<QDBusVariant>(bus, call).value_or(QDBusVariant()).variant();
}

QString UnitProperty(const QDBusConnection &bus, const QString &unitPath, const QString &name)
{
    return Property(bus, unitPath, kUnitInterface, name).toString();
}

// The manager counts microseconds; 0 and the largest number stand for no time at all.
QDateTime TimeFrom(const QVariant &microseconds)
{
    const quint64 number = microseconds.toULongLong();
    return number == 0 || number == std::numeric_limits<quint64>::max()
        ? QDateTime()
        : QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(number / 1000));
}

void ReadLastRun(const QDBusConnection &bus, const QString &servicePath, TimerState &state)
{
    using Result = TimerState::Result;
    const QString activeState = UnitProperty(bus, servicePath, u"ActiveState"_s);
    if (activeState == u"activating" || activeState == u"active") {
        state.result = Result::Running;
        return;
    }
    const auto property = [&](const QString &name) {
        return Property(bus, servicePath, kServiceInterface, name);
    };
    state.last = TimeFrom(property(u"ExecMainExitTimestamp"_s));
    const QString result = property(u"Result"_s).toString();
    const bool hasEnded = result == u"success" || result == u"exit-code";
    state.exitStatus = hasEnded ? property(u"ExecMainStatus"_s).toInt() : TimerState::kKilled;
    if (state.last.isValid() || (!result.isEmpty() && result != u"success")) {
        state.result = result == u"success" ? Result::Done : Result::Failed;
    }
}

std::optional<ServiceControl::State> StateFrom(const QString &activeState)
{
    using State = ServiceControl::State;
    if (activeState.isEmpty()) {
        return std::nullopt;
    }
    if (activeState == u"active" || activeState == u"reloading") {
        return State::Running;
    }
    if (activeState == u"activating") {
        return State::StartPending;
    }
    return activeState == u"deactivating" ? State::StopPending : State::Stopped;
}

// Sends a command and lets the window paint until the manager has answered.
bool Command(const QDBusConnection &bus, const QString &method)
{
    QDBusMessage call = CallTo(kManagerPath, kManagerInterface, method);
    call << kUnit << u"replace"_s;
    call.setInteractiveAuthorizationAllowed(true);
    const QDBusPendingCall pending = bus.asyncCall(call, kCommandTimeout);
    const QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished()) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return !watcher.isError();
}

} // namespace

ServiceControl::ServiceControl(const QDBusConnection &systemBus) : bus(systemBus) { }

std::optional<ServiceControl::State> ServiceControl::Query() const
{
    const auto unit = Loaded(bus, kUnit);
    if (!unit || UnitProperty(bus, *unit, u"LoadState"_s) == u"not-found") {
        return std::nullopt;
    }
    return StateFrom(UnitProperty(bus, *unit, u"ActiveState"_s));
}

std::optional<TimerState> ServiceControl::QueryTimer(const QString &timerUnit,
                                                     const QString &serviceUnit) const
{
    const auto timer = Loaded(bus, timerUnit);
    const auto service = timer ? Loaded(bus, serviceUnit) : std::nullopt;
    if (!service) {
        return std::nullopt;
    }
    TimerState state;
    state.isThere = UnitProperty(bus, *timer, u"ActiveState"_s) == u"active";
    state.next = TimeFrom(Property(bus, *timer, kTimerInterface, u"NextElapseUSecRealtime"_s));
    ReadLastRun(bus, *service, state);
    return state;
}

bool ServiceControl::Start() const
{
    return Command(bus, u"StartUnit"_s);
}

bool ServiceControl::Stop() const
{
    return Command(bus, u"StopUnit"_s);
}
