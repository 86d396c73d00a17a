#include "service/service_link.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

const QString kName = u"org.tollbrook.Accounting"_s;
const QString kPath = u"/org/tollbrook/Accounting"_s;
const QString kInterface = u"org.tollbrook.Accounting1"_s;

} // namespace

std::unique_ptr<ServiceLink> ServiceLink::Create(const QDBusConnection &bus, int replyTimeout)
{
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(kName)) {
        return nullptr;
    }
    return std::unique_ptr<ServiceLink>(new ServiceLink(bus, replyTimeout));
}

ServiceLink::ServiceLink(const QDBusConnection &bus, int replyTimeout)
    : notices(std::make_unique<NoticeQueue>(bus, replyTimeout))
{
    connect(notices.get(), &NoticeQueue::NotHeard, this, &ServiceLink::NotHeard);
    connect(notices.get(), &NoticeQueue::Settled, this, &ServiceLink::Settled);
}

void ServiceLink::BlockUser(UserId userId) const
{
    Send(u"BlockUser"_s, userId);
}

void ServiceLink::UnblockUser(UserId userId) const
{
    Send(u"UnblockUser"_s, userId);
}

void ServiceLink::Send(const QString &operation, UserId userId) const
{
    QDBusMessage call = QDBusMessage::createMethodCall(kName, kPath, kInterface, operation);
    call.setAutoStartService(false);
    call << userId.value;
    notices->Send(call, userId);
}
