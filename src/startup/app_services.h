// What windows and dialogs work with.
#pragma once

#include "base/prompt.h"
#include "config/config_store.h"
#include "service/service_connection.h"
#include "service/service_control.h"

// Handed down from the start of the program to every window that needs something of it; there is no
// global way to these. A window may keep the reference: all of them outlive it.
struct AppServices
{
    ConfigStore &settings;
    const ServiceControl &control;
    ServiceConnection &connection;
    Prompt &prompt;
};

// What the main window does as it goes: closes the database session and drops the connection to the
// service.
void CloseConnections(const AppServices &services);
