#include "admin/unmonitored.h"

#include "access/present_users.h"
#include "actions/action_run.h"
#include "db/query.h"

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
                LockUsers(run, users);
                for (const UserId user : PresentUsers(run, users)) {
                    run.Write("UPDATE users SET monitored=true WHERE user_id = (?) ", user);
                }
            }};
}
