#include "startup/app_services.h"

#include "db/session.h"

void CloseConnections(const AppServices &services)
{
    DisconnectDatabase();
    services.connection.Disconnect();
}
