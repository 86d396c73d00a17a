#include "service/service_control.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>

using namespace Qt::StringLiterals;

namespace {

constexpr int kQueryTimeout = 1000; // milliseconds
constexpr int kCommandTimeout = 90000; // milliseconds; somebody may have to type a password

const QString kManagerName = u"org.freedesktop.systemd1"_s;
const QString kManagerPath = u"/org/freedesktop/systemd1"_s;
const QString kManagerInterface = u"org.freedesktop.systemd1.Manager"_s;
const QString kUnitInterface = u"org.freedesktop.systemd1.Unit"_s;
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

QString UnitProperty(const QDBusConnection &bus, const QString &unitPath, const QString &name)
{
    QDBusMessage call = CallTo(unitPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << kUnitInterface << name;
    return Answer<QDBusVariant>(bus, call).value_or(QDBusVariant()).variant().toString();
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
    // A stopped unit that nothing refers to is known to the manager only after it is loaded.
    QDBusMessage load = CallTo(kManagerPath, kManagerInterface, u"LoadUnit"_s);
    load << kUnit;
    const auto unit = Answer<QDBusObjectPath>(bus, load);
    if (!unit || UnitProperty(bus, unit->path(), u"LoadState"_s) == u"not-found") {
        return std::nullopt;
    }
    return StateFrom(UnitProperty(bus, unit->path(), u"ActiveState"_s));
}

bool ServiceControl::Start() const
{
    return Command(bus, u"StartUnit"_s);
}

bool ServiceControl::Stop() const
{
    return Command(bus, u"StopUnit"_s);
}
