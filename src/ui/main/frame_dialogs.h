// The windows that the main window opens. One left empty is a command that is not shown.
#pragma once

#include "db/ids.h"
#include "service/service_sequences.h"
#include "startup/app_services.h"

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
    using ForUser = std::function<void(UserId userId, QWidget *parent)>;
    using ForGroup = std::function<void(GroupId groupId, QWidget *parent)>;
    using ForUsers = std::function<void(const QList<UserId> &userIds, QWidget *parent)>;

    using ForUserPage = std::function<void(UserId userId, int page, QWidget *parent)>;
    using ForGroupPage = std::function<void(GroupId groupId, int page, QWidget *parent)>;

    ForUser userProperties;
    ForUserPage userPage; // the same, starting on a page of ui/props/properties.h
    ForUser userAccount;
    ForUser userStatistics;
    ForUsers userLimits; // "Access properties for multiple users"
    ForGroup groupProperties;
    ForGroupPage groupPage;
    ForGroup groupAccount;
    ForGroup groupStatistics;

    ForNothing purge;
    ForNothing importUsers;
    ForNothing exportUsers;
    ForNothing newUser;
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

// The program's own windows. `services` must outlive what is returned.
[[nodiscard]] FrameDialogs StandardDialogs(const AppServices &services);
