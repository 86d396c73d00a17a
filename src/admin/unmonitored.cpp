#include "admin/unmonitored.h"

#include "actions/action_run.h"
#include "db/query.h"

#include <algorithm>

Result<std::vector<UnmonitoredUser>> LoadUnmonitored()
{
    return ReadUpTo(
        kMaxUnmonitored,
        "SELECT username, user_id, ip_addr FROM users WHERE monitored = false",
        [](const Row &row) {
            return UnmonitoredUser {row.Id<UserId>(2), row.Text(1) + u'(' + row.Text(3) + u')'};
        });
}

Action MonitorUsersAction(const std::vector<UserId> &users)
{
    return {ActionId::MonitorUsers, [users](ActionRun &run) {
                std::vector<UserId> byId = users;
                std::ranges::sort(byId);
                for (const UserId user : byId) {
                    run.Lock({"users", "user_id", user.value, "user_id"});
                }
                for (const UserId user : users) {
                    run.Write("UPDATE users SET monitored=true WHERE user_id = (?) ", user);
                }
            }};
}
