#include "demo/demo_objects.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QMetaEnum>

using namespace Qt::StringLiterals;

namespace {

const QString kAccountingName = u"org.tollbrook.Accounting"_s;

}

QString DemoManager::UnitPath()
{
    return u"/org/freedesktop/systemd1/unit/tollbrooksvc_2eservice"_s;
}

QDBusObjectPath DemoManager::GetUnit(const QString &name)
{
    return Knows(name) ? QDBusObjectPath(UnitPath()) : QDBusObjectPath();
}

QDBusObjectPath DemoManager::LoadUnit(const QString &name)
{
    return GetUnit(name);
}

QDBusObjectPath DemoManager::StartUnit(const QString &name, const QString &)
{
    return Knows(name) ? Job(unit.Start()) : QDBusObjectPath();
}

QDBusObjectPath DemoManager::StopUnit(const QString &name, const QString &)
{
    return Knows(name) ? Job(unit.Stop()) : QDBusObjectPath();
}

bool DemoManager::Knows(const QString &name)
{
    if (name == unit.Id()) {
        return true;
    }
    sendErrorReply(u"org.freedesktop.systemd1.NoSuchUnit"_s, u"Unit %1 not found."_s.arg(name));
    return false;
}

QDBusObjectPath DemoManager::Job(bool accepted)
{
    if (!accepted) {
        sendErrorReply(QDBusError::AccessDenied, u"The command is refused."_s);
        return {};
    }
    return QDBusObjectPath(u"/org/freedesktop/systemd1/job/%1"_s.arg(++jobs));
}

void DemoControl::Set(DemoUnit::Behaviour &behaviour, const QString &text)
{
    if (!BehaviourFrom(text, behaviour)) {
        sendErrorReply(QDBusError::InvalidArgs, u"Choose work, refuse, hang or die."_s);
    }
}

bool BehaviourFrom(const QString &text, DemoUnit::Behaviour &behaviour)
{
    const auto names = QMetaEnum::fromType<DemoUnit::Behaviour>();
    for (int i = 0; i < names.keyCount(); ++i) {
        if (text.compare(QLatin1StringView(names.key(i)), Qt::CaseInsensitive) == 0) {
            behaviour = static_cast<DemoUnit::Behaviour>(names.value(i));
            return true;
        }
    }
    return false;
}

bool Offer(const QDBusConnection &bus, DemoUnit &unit, DemoManager &manager)
{
    QDBusConnection to = bus;
    return to.registerObject(DemoManager::UnitPath(), &unit, QDBusConnection::ExportAllProperties)
        && to.registerObject(
            u"/org/freedesktop/systemd1"_s, &manager, QDBusConnection::ExportAllSlots)
        && to.registerService(u"org.freedesktop.systemd1"_s);
}

bool Offer(const QDBusConnection &bus,
           DemoUnit &unit,
           DemoManager &manager,
           DemoAccounting &accounting,
           DemoControl &control)
{
    QDBusConnection to = bus;
    QObject::connect(&unit, &DemoUnit::StateChanged, &unit, [to, &unit]() mutable {
        if (unit.IsActive()) {
            to.registerService(kAccountingName);
        } else {
            to.unregisterService(kAccountingName);
        }
    });
    return to.registerObject(
               u"/org/tollbrook/Accounting"_s, &accounting, QDBusConnection::ExportAllSlots)
        && to.registerObject(u"/org/tollbrook/Demo"_s, &control, QDBusConnection::ExportAllSlots)
        && Offer(bus, unit, manager) && to.registerService(u"org.tollbrook.Demo"_s);
}
