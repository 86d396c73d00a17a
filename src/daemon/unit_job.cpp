#include "daemon/unit_job.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 1000; // milliseconds
const QString kManager = u"org.freedesktop.systemd1"_s;

QVariantList Call(const QDBusConnection &bus, QDBusMessage message, const QVariantList &arguments)
{
    message.setArguments(arguments);
    const QDBusMessage answer = bus.call(message, QDBus::Block, kPatience);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
}

QVariant Property(const QDBusConnection &bus,
                  const QString &path,
                  const QString &interface,
                  const QString &name)
{
    const QVariantList answer =
        Call(bus,
             QDBusMessage::createMethodCall(
                 kManager, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s),
             {interface, name});
    return answer.isEmpty() ? QVariant() : answer.constFirst().value<QDBusVariant>().variant();
}

} // namespace

bool IsUnitRestarting(const QDBusConnection &bus)
{
    const QVariantList unit =
        Call(bus,
             QDBusMessage::createMethodCall(kManager,
                                            u"/org/freedesktop/systemd1"_s,
                                            u"org.freedesktop.systemd1.Manager"_s,
                                            u"GetUnitByPID"_s),
             {static_cast<uint>(QCoreApplication::applicationPid())});
    if (unit.isEmpty()) {
        return false;
    }
    const QVariant job = Property(bus,
                                  unit.constFirst().value<QDBusObjectPath>().path(),
                                  u"org.freedesktop.systemd1.Unit"_s,
                                  u"Job"_s);
    const auto argument = job.value<QDBusArgument>();
    if (argument.currentType() != QDBusArgument::StructureType) {
        return false;
    }
    uint number = 0;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> number >> path;
    argument.endStructure();
    return number != 0
        && Property(bus, path.path(), u"org.freedesktop.systemd1.Job"_s, u"JobType"_s).toString()
        == u"restart"_s;
}
