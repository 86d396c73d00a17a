// The live connection to the accounting service: it hears at once of blocks by the administrator.
#pragma once

#include "db/ids.h"

#include <QDBusConnection>

#include <memory>

// Calls are sent and not waited for; whether they arrive shows nowhere. They never start the
// service. The interface and its slots stand in org.tollbrook.Accounting1.xml.
class ServiceLink
{
public:
    // The service's object on `bus`; null when the bus or the service is not there.
    [[nodiscard]] static std::unique_ptr<ServiceLink> Create(const QDBusConnection &bus);

    void BlockUser(UserId userId) const; // slot 7
    void UnblockUser(UserId userId) const; // slot 8

private:
    explicit ServiceLink(const QDBusConnection &bus);
    void Send(const QString &operation, UserId userId) const;

    QDBusConnection bus;
};
