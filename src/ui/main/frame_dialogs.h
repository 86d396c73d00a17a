// The windows that the main window opens. One left empty is a command that is not shown.
#pragma once

#include "service/service_sequences.h"

#include <QList>

#include <functional>

class QWidget;

// What the service control dialog leaves behind when it is closed.
struct ControlOutcome
{
    bool serviceRunning = false;
    bool stopped = false; // a stop succeeded in it
};

struct FrameDialogs
{
    using ForNothing = std::function<void(QWidget *parent)>;
    using ForOne = std::function<void(quint32 id, QWidget *parent)>;
    using ForSeveral = std::function<void(const QList<quint32> &ids, QWidget *parent)>;

    ForOne userProperties;
    ForOne userAccount;
    ForOne userStatistics;
    ForSeveral userLimits; // "Access properties for multiple users"
    ForOne groupProperties;
    ForOne groupAccount;
    ForOne groupStatistics;

    ForNothing purge;
    ForNothing options;
    ForNothing globalOptions;
    ForNothing unmonitored;
    ForNothing logins;
    ForNothing adapter;
    ForNothing reports;
    ForNothing setupWizard;
    ForNothing helpTopics;
    ForNothing about;

    std::function<ControlOutcome(QWidget *parent)> serviceControl;
    std::function<ReconnectFlags(QWidget *parent)> reconnect;
};

class CAdministratorApp;

// The program's own windows.
[[nodiscard]] FrameDialogs StandardDialogs(CAdministratorApp &app);
