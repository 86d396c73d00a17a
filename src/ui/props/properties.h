// The property windows of users and groups, as the lists' commands open them. Each is modal and true
// when something was stored. A user or group that cannot be read, or is gone by then, is told instead,
// and a window whose OK could not be stored stays open with everything that was typed.
#pragma once

#include "db/ids.h"
#include "startup/app_services.h"

#include <vector>

class QWidget;

// The pages in tab order, for `page` below.
namespace user_page {
constexpr int kGeneral = 0;
constexpr int kAccess = 1;
constexpr int kLimits = 2;
constexpr int kTime = 3;
constexpr int kProtocols = 4;
} // namespace user_page

namespace group_page {
constexpr int kGeneral = 0;
constexpr int kAccess = 1;
constexpr int kLimits = 2;
} // namespace group_page

// "User properties", starting on the page with this number.
bool OpenUserSheet(const AppServices &services, UserId userId, int page, QWidget *parent);

// "Group's properties".
bool OpenGroupSheet(const AppServices &services, GroupId groupId, int page, QWidget *parent);

// "Access properties for multiple users".
bool OpenAccessForUsers(const AppServices &services,
                        const std::vector<UserId> &userIds,
                        QWidget *parent);
