// The "Reports..." command.
#pragma once

#include "startup/app_services.h"

class QWidget;

// Shows the Reports dialog over `parent` until it is closed.
void OpenReports(const AppServices &services, QWidget *parent);
