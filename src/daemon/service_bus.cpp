#include "daemon/service_bus.h"

#include <QDBusError>
#include <QDBusMetaType>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString kName = u"org.tollbrook.Accounting"_s;
const QString kPath = u"/org/tollbrook/Accounting"_s;

void RegisterTypes()
{
    qDBusRegisterMetaType<RefusedUser>();
    qDBusRegisterMetaType<QList<RefusedUser>>();
    qDBusRegisterMetaType<UserRate>();
    qDBusRegisterMetaType<QList<UserRate>>();
    qDBusRegisterMetaType<QList<uint>>();
}

} // namespace

QDBusArgument &operator<<(QDBusArgument &argument, const RefusedUser &user)
{
    argument.beginStructure();
    argument << user.userId << user.reason;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, RefusedUser &user)
{
    argument.beginStructure();
    argument >> user.userId >> user.reason;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const UserRate &rate)
{
    argument.beginStructure();
    argument << rate.userId << rate.received << rate.sent;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, UserRate &rate)
{
    argument.beginStructure();
    argument >> rate.userId >> rate.received >> rate.sent;
    argument.endStructure();
    return argument;
}

// The object tree owns the adaptors, as the bus wants it.
ServiceBus::ServiceBus(const QDBusConnection &connection, BusWork &work)
    : bus(connection)
    , accounting(*new AccountingAdaptor(this, work))
    , status(*new StatusAdaptor(this, work))
{
    RegisterTypes();
}

ServiceBus::~ServiceBus()
{
    bus.unregisterService(kName);
    bus.unregisterObject(kPath);
}

std::optional<QString> ServiceBus::Appear()
{
    if (!bus.isConnected()) {
        return u"The message bus cannot be reached: %1"_s.arg(bus.lastError().message());
    }
    if (!bus.registerObject(kPath, this) || !bus.registerService(kName)) {
        return u"The name %1 cannot be had on the message bus; another accounting service runs, or this "
               "account may not own it: %2"_s.arg(kName, bus.lastError().message());
    }
    return std::nullopt;
}
