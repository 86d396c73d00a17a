// What windows and dialogs work with.
#pragma once

#include "base/prompt.h"
#include "config/config_store.h"
#include "db/session_thread.h"
#include "service/service_connection.h"
#include "service/service_control.h"
#include "startup/block_moments.h"
#include "startup/change_news.h"

#include <memory>

// Handed down from the start of the program to every window that needs something of it; there is no
// global way to these. A window may keep the reference: all of them outlive it.
struct AppServices
{
    ConfigStore &settings;
    SessionThread &database;
    const ServiceControl &control;
    ServiceConnection &connection;
    ChangeNews &news;
    Prompt &prompt;
    std::shared_ptr<BlockMoments> blockMoments = std::make_shared<BlockMoments>();
    bool onlyLooks = false; // whoever runs the console changes nothing (startup/rights.h)
};

// What the main window does as it goes: closes the database session and drops the connection to the
// service.
void CloseConnections(const AppServices &services);
