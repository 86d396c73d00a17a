#include "service/service_report.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeout = 1000; // milliseconds

}

std::optional<ServiceReport> AskService(const QDBusConnection &bus)
{
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.tollbrook.Accounting"_s,
                                                       u"/org/tollbrook/Accounting"_s,
                                                       u"org.freedesktop.DBus.Properties"_s,
                                                       u"GetAll"_s);
    call.setAutoStartService(false);
    call << u"org.tollbrook.Status1"_s;
    const QDBusMessage reply = bus.call(call, QDBus::Block, kTimeout);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return std::nullopt;
    }
    const auto properties = qdbus_cast<QVariantMap>(reply.arguments().constFirst());
    if (!properties.contains(u"LastCount"_s) || !properties.contains(u"Problems"_s)) {
        return std::nullopt;
    }
    return ServiceReport {properties.value(u"LastCount"_s).toString(),
                          properties.value(u"Problems"_s).toStringList()};
}
