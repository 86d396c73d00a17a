#include "service/service_connection.h"

using namespace Qt::StringLiterals;

ServiceConnection::ServiceConnection(const QDBusConnection &serviceBus) : bus(serviceBus) { }

int ServiceConnection::Connect(Prompt &prompt)
{
    link = ServiceLink::Create(bus);
    if (!link) {
        prompt.Tell(u"Could not create instance"_s);
    }
    return 0;
}
