#include "startup/app_services.h"

void CloseConnections(const AppServices &services)
{
    services.database.Close();
    services.connection.Disconnect();
}
