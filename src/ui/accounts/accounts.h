// The windows of accounts and statistics, as the lists' commands open them. Each is modal and opens once
// all that it shows at first is read; a failure, or a user or group that is gone by then, is told
// instead.
#pragma once

#include "access/owner.h"
#include "startup/app_services.h"

class QWidget;

void OpenAccount(const AppServices &services, const Owner &owner, QWidget *parent);
void OpenStatistics(const AppServices &services, const Owner &owner, QWidget *parent);
