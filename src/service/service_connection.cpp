#include "service/service_connection.h"

#include <QCoreApplication>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ServiceConnection)
};

// Work on another thread may be the last to let go of the link, which belongs to its own.
void LetGo(ServiceLink *link)
{
    if (QThread::currentThread() == link->thread()) {
        delete link;
    } else {
        link->deleteLater();
    }
}

} // namespace

ServiceConnection::ServiceConnection(const QDBusConnection &serviceBus) : bus(serviceBus) { }

int ServiceConnection::Connect(Prompt &prompt)
{
    if (!TryConnect()) {
        prompt.Tell(Words::tr("Could not create instance"));
    }
    return 0;
}

bool ServiceConnection::TryConnect()
{
    Disconnect();
    if (auto created = ServiceLink::Create(bus)) {
        listener = std::make_unique<QObject>();
        QObject::connect(created.get(),
                         &ServiceLink::Settled,
                         listener.get(),
                         [this](bool allHeard) { settled(allHeard); });
        link = std::shared_ptr<const ServiceLink>(created.release(), [](const ServiceLink *last) {
            LetGo(const_cast<ServiceLink *>(last)); // NOLINT: it was made as one that may change
        });
    }
    return link != nullptr;
}

// What was on its way to a service that has gone is answered by nobody.
void ServiceConnection::Disconnect()
{
    const bool isTelling = link && link->IsTelling();
    listener.reset();
    link.reset();
    if (isTelling) {
        settled(false);
    }
}
